// The device detail answer from a server that errs or lies: envelopes, and wrong types at every level.

#include <gtest/gtest.h>

#include "unit/platform/HostileDetail.h"

namespace vantix::test {
namespace {

using nlohmann::json;

// ---- The envelope

TEST_F(HostileDetail, TextThatIsNoJsonGivesOne) {
    for (const std::string body : {"", " ", "x", "<html>%s%n</html>", "{", "{}}", "[] []", "\xEF\xBB\xBF{}",
                                   "{\"a\":NaN}", "{'a':1}", "{\"a\":01}", "{\"a\":\"\n\"}", "nul"}) {
        SCOPED_TRACE(body);
        EXPECT_EQ(Parse(body), 1);
        EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(5, "ERROR", "ParseDevDetailInfoFromPlatform",
                                                             "platform response bad, szInfo = " + body)));
        ExpectUntouched();
    }
}

TEST_F(HostileDetail, CodeOfTheEnvelopeIsReturned) {
    const struct {
        const char* body;
        int code;
    } rows[] = {
        {R"({"resultCode":"10002"})", 10002},
        {R"({"code":"10002"})", 10002},
        {R"({"result":{"code":"10002"}})", 10002},
        {R"({"result":{"code":10002}})", 10002},
        {R"({"result":{"code":10002.9}})", 10002},
        {R"({"result":{"code":-5}})", -5},
        {R"({"result":{"code":10002,"data":{"camera":{},"device":{}}}})", 10002},
        {R"({"resultCode":"7","result":{"code":200,"data":{}}})", 7},
        {"{}", 2},
        {R"({"result":{}})", 2},
        {R"({"result":{"code":true}})", 2},
        {R"({"result":{"code":null}})", 2},
        {R"({"result":{"code":1e20}})", 2},
        {R"({"result":{"code":2147483648}})", 2},
        {R"({"resultCode":200,"code":200,"result":{"data":{}}})", 2},
        {"[]", 2},
        {"5", 2},
        {"\"200\"", 2},
        {"null", 2},
        {"true", 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        EXPECT_EQ(Parse(std::string(row.body)), row.code);
        EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(
                                       3, "INFO ", "ParseDevDetailInfoFromPlatform",
                                       "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + row.body)));
        ExpectUntouched();
    }
}

TEST_F(HostileDetail, ResultOrDataThatIsNoObjectGivesTwo) {
    for (const char* body : {R"({"resultCode":"200"})", R"({"code":"0","result":[]})", R"({"code":"0","result":"x"})",
                             R"({"result":{"code":200}})", R"({"result":{"code":200,"data":[]}})",
                             R"({"result":{"code":200,"data":"{}"}})", R"({"result":{"code":200,"data":5}})",
                             R"({"result":{"code":200,"data":null}})", R"({"code":"200","data":{}})"}) {
        SCOPED_TRACE(body);
        EXPECT_EQ(Parse(std::string(body)), 2);
        EXPECT_THAT(lines.Lines(),
                    testing::ElementsAre(Line(5, "ERROR", "ParseDevDetailInfoFromPlatform",
                                              std::string("platform response invalid, szInfo = ") + body)));
        ExpectUntouched();
    }
}

TEST_F(HostileDetail, BothSuccessCodesAreOne) {
    for (const json& code : {json("200"), json("0"), json(200), json(0), json("abc"), json("")}) {
        json answer = GoldenDetail();
        answer["result"]["code"] = code;
        EXPECT_EQ(Parse(answer), 0) << code;
    }
}

// ---- Wrong types at every level

/// What a member of this type holds after reading a value; nothing when it keeps its default.
template <class Record>
json Expected(const Member<Record>& member, const std::string& value) {
    if (member.IsText()) {
        return value[0] == '"' ? json::parse(value) : json("");
    }
    if (value == "1.9" || value == "-1.9") {
        return value == "1.9" ? 1 : -1;
    }
    for (const char* inRange : {"0", "-1", "2147483647", "-2147483648"}) {
        if (value == inRange) {
            return json::parse(value);
        }
    }
    return 0;
}

/// Every odd value in every member's place changes that field alone, and only when it has the field's type.
template <class Record, class Get>
void ExpectEveryMemberOnItsOwn(const std::vector<Member<Record>>& members, const std::string& place, Get get) {
    const json golden = GoldenDetail();
    const Record goldenRecord = get(golden.dump());
    for (const auto& member : members) {
        const std::string mark = "the place of the value";
        const std::string text = WithValue(golden, json::json_pointer(place + member.key), mark);
        for (const std::string& value : OddValues()) {
            SCOPED_TRACE(std::string(place).append(member.key).append(" = ").append(value));
            Record expected = goldenRecord;
            member.Set(expected, Expected(member, value));
            const Record record = get(std::string(text).replace(text.find(mark), mark.size(), value));
            EXPECT_TRUE(Same(record, expected));
        }
    }
}

template <class Record, class Get>
void ExpectMissingMembersToBeDefaults(const std::vector<Member<Record>>& members, const std::string& place, Get get) {
    const json golden = GoldenDetail();
    const Record goldenRecord = get(golden.dump());
    for (const auto& member : members) {
        SCOPED_TRACE(place + member.key);
        json answer = golden;
        answer[json::json_pointer(place.substr(0, place.size() - 1))].erase(member.key);
        Record expected = goldenRecord;
        member.Set(expected, member.Of(Record()));
        EXPECT_TRUE(Same(get(answer.dump()), expected));
    }
}

constexpr char kCamera[] = "/result/data/camera/";
constexpr char kDevice[] = "/result/data/device/";
constexpr char kParent[] = "/result/data/device/belongDevice/";

TEST_F(HostileDetail, MembersOfTheChannelAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    const auto read = [this](const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        channel.iIsTrust = 0;  // follows "isTrust", and has a case of its own
        return channel;
    };
    ExpectEveryMemberOnItsOwn(CameraMembers(), kCamera, read);
    ExpectMissingMembersToBeDefaults(CameraMembers(), kCamera, read);
}

TEST_F(HostileDetail, MembersOfTheDeviceAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    const auto read = [this](const std::string& body) -> const BelongDevInfo& {
        EXPECT_EQ(Parse(body), 0);
        return device;
    };
    ExpectEveryMemberOnItsOwn(DeviceMembers(), kDevice, read);
    ExpectMissingMembersToBeDefaults(DeviceMembers(), kDevice, read);
}

TEST_F(HostileDetail, MembersOfTheParentAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    const auto read = [this](const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        return *parent;
    };
    ExpectEveryMemberOnItsOwn(DeviceMembers(), kParent, read);
    ExpectMissingMembersToBeDefaults(DeviceMembers(), kParent, read);
}

TEST_F(HostileDetail, CapabilitiesAreReadOnlyAsText) {
    iLogLevel = 6;
    for (const auto& member : CapabilityMembers()) {
        for (const std::string& value : OddValues()) {
            SCOPED_TRACE(std::string(member.key) + " = " + value);
            const std::string place = "/result/data/device/supportExt/" + std::string(member.key);
            EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer(place), value)), 0);
            EXPECT_EQ(member.Of(device), value == "\"-1\"" ? -1 : 0);
            EXPECT_EQ(device.support_ecdh_v2, "ecdh-151");
        }
    }
    for (const std::string& value : OddValues()) {
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/device/supportExt/support_ecdh_v2"),
                                  value)),
                  0);
        EXPECT_EQ(device.support_ecdh_v2, value[0] == '"' ? json::parse(value).get<std::string>() : "") << value;
    }
}

TEST_F(HostileDetail, PartsOfAnotherTypeLeaveDefaults) {
    iLogLevel = 6;
    for (const std::string& value : OddValues()) {
        SCOPED_TRACE(value);
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/camera"), value)), 0);
        EXPECT_TRUE(Same(channel, DevChannelInfo()));
        EXPECT_TRUE(Same(device, goldenDevice));
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/device"), value)), 0);
        EXPECT_TRUE(Same(channel, goldenChannel));
        EXPECT_TRUE(Same(device, DevDetailInfo()));
    }
}

TEST_F(HostileDetail, ListsOfAnotherTypeAreEmpty) {
    iLogLevel = 6;
    for (const std::string& value : OddValues()) {
        if (value == "[1]") {
            continue;
        }
        SCOPED_TRACE(value);
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/camera/videoQualityInfos"), value)),
                  0);
        EXPECT_TRUE(channel.videoQualityInfos.empty());
        EXPECT_EQ(channel.isTrust, "13");
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/device/vtmBackups"), value)), 0);
        EXPECT_TRUE(device.vtmBackups.empty());
        EXPECT_EQ(device.isOwner, 140);
    }
}

TEST_F(HostileDetail, ElementsOfListsAreReadOnlyWithTheirTypes) {
    iLogLevel = 6;
    for (const std::string& value : OddValues()) {
        SCOPED_TRACE(value);
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/device/vtmBackups/0/port"), value)),
                  0);
        ASSERT_EQ(device.vtmBackups.size(), 2U);
        EXPECT_EQ(device.vtmBackups[0].strVtmAddr, "10.0.0.141");
        EXPECT_EQ(device.vtmBackups[1].iVtmPort, 144);
        EXPECT_EQ(Parse(WithValue(GoldenDetail(), json::json_pointer("/result/data/device/vtmBackups/1/ip"), value)),
                  0);
        EXPECT_EQ(device.vtmBackups[1].strVtmAddr, value[0] == '"' ? json::parse(value).get<std::string>() : "");
        EXPECT_EQ(Parse(WithValue(GoldenDetail(),
                                  json::json_pointer("/result/data/camera/videoQualityInfos/1/videoLevel"), value)),
                  0);
        ASSERT_EQ(channel.videoQualityInfos.size(), 3U);
        EXPECT_EQ(channel.videoQualityInfos[1].videoQualityName, "quality-17");
        EXPECT_EQ(channel.videoQualityInfos[2].videoLevel, 21);
    }
}

TEST_F(HostileDetail, TrustIsANumberTextOfAnyKind) {
    iLogLevel = 6;
    for (const auto& [text, number] : {std::pair("1", 1),
                                       {"", 0},
                                       {"x", 0},
                                       {" -5x", -5},
                                       {"99999999999", 2147483647},
                                       {"-99999999999", -2147483647 - 1}}) {
        json answer = GoldenDetail();
        Camera(answer)["isTrust"] = text;
        EXPECT_EQ(Parse(answer), 0);
        EXPECT_EQ(channel.isTrust, text);
        EXPECT_EQ(channel.iIsTrust, number) << text;
    }
}

}  // namespace
}  // namespace vantix::test
