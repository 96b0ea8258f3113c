// The device detail response from a server that errs or lies: envelopes, and wrong types at every level.

#include <gtest/gtest.h>

#include "support/MemberValues.h"
#include "unit/platform/HostileDetail.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;

// ---- The envelope

TEST_F(HostileDetail, TextThatIsNoJsonGivesOne) {
    for (const std::string body : {"", " ", "x", "<html>%s%n</html>", "{", "{}}", "[] []", "\xEF\xBB\xBF{}",
                                   "{\"a\":NaN}", "{'a':1}", "{\"a\":01}", "{\"a\":\"\n\"}", "nul"}) {
        SCOPED_TRACE(body);
        EXPECT_EQ(Parse(body), 1);
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kDetailTag, "platform response bad, szInfo = " + body)));
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
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(3, "INFO ", kDetailTag,
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
        EXPECT_THAT(m_log.Lines(), ElementsAre(Line(5, "ERROR", kDetailTag,
                                                    std::string("platform response invalid, szInfo = ") + body)));
        ExpectUntouched();
    }
}

TEST_F(HostileDetail, BothSuccessCodesAreOne) {
    for (const Json& code : {Json("200"), Json("0"), Json(200), Json(0), Json("abc"), Json("")}) {
        Json response = WholeDetail();
        response["result"]["code"] = code;
        EXPECT_EQ(Parse(response), 0) << code;
    }
}

// ---- Wrong types at every level

TEST_F(HostileDetail, MembersOfTheChannelAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    ExpectEachFieldOnItsOwn(CameraFields(), WholeDetail(), DevChannelInfo(), Json11IntValues(),
                            [this](const std::string& body) {
                                EXPECT_EQ(Parse(body), 0);
                                return channel;
                            });
}

TEST_F(HostileDetail, MembersOfTheDeviceAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    ExpectEachFieldOnItsOwn(DeviceFields(), WholeDetail(), BelongDevInfo(), Json11IntValues(),
                            [this](const std::string& body) -> const BelongDevInfo& {
                                EXPECT_EQ(Parse(body), 0);
                                return device;
                            });
}

TEST_F(HostileDetail, MembersOfTheParentAreReadOnlyWithTheirType) {
    iLogLevel = 6;
    ExpectEachFieldOnItsOwn(ParentFields(), WholeDetail(), BelongDevInfo(), Json11IntValues(),
                            [this](const std::string& body) -> const BelongDevInfo& {
                                EXPECT_EQ(Parse(body), 0);
                                return *parent;
                            });
}

TEST_F(HostileDetail, CapabilitiesAreReadOnlyAsText) {
    iLogLevel = 6;
    for (const auto& field : CapabilityFields()) {
        for (const MemberValue& value : DecimalTextValues()) {
            SCOPED_TRACE(field.place + " = " + value.sent);
            Json expected = WholeValues(CapabilityFields());
            expected[field.place] = value.taken == nullptr ? Json(0) : Json::parse(value.taken);
            EXPECT_EQ(Parse(WithValue(WholeDetail(), field.place, value.sent)), 0);
            EXPECT_EQ(ValuesOf(CapabilityFields(), device), expected);
            EXPECT_EQ(device.support_ecdh_v2, "ecdh-151");
        }
    }
    for (const MemberValue& value : TextValues()) {
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device/supportExt/support_ecdh_v2", value.sent)), 0);
        EXPECT_EQ(Json(device.support_ecdh_v2), value.taken == nullptr ? Json("") : Json::parse(value.taken))
            << value.sent;
    }
}

TEST_F(HostileDetail, PartsThatAreNoObjectsLeaveDefaults) {
    iLogLevel = 6;
    for (const MemberValue& value : NoObjects()) {
        SCOPED_TRACE(value.sent);
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/camera", value.sent)), 0);
        EXPECT_TRUE(Same(channel, DevChannelInfo()));
        EXPECT_TRUE(Same(device, wholeDevice));
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device", value.sent)), 0);
        EXPECT_TRUE(Same(channel, wholeChannel));
        EXPECT_TRUE(Same(device, DevDetailInfo()));
    }
}

TEST_F(HostileDetail, ListsThatAreNoArraysAreEmpty) {
    iLogLevel = 6;
    for (const MemberValue& value : NoArrays()) {
        SCOPED_TRACE(value.sent);
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/camera/videoQualityInfos", value.sent)), 0);
        EXPECT_TRUE(channel.videoQualityInfos.empty());
        EXPECT_EQ(channel.isTrust, "13");
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device/vtmBackups", value.sent)), 0);
        EXPECT_TRUE(device.vtmBackups.empty());
        EXPECT_EQ(device.isOwner, 140);
    }
}

TEST_F(HostileDetail, ElementsOfListsAreReadOnlyWithTheirTypes) {
    iLogLevel = 6;
    for (const MemberValue& value : Json11IntValues()) {
        SCOPED_TRACE(value.sent);
        const Json number = value.taken == nullptr ? Json(0) : Json::parse(value.taken);
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device/vtmBackups/0/port", value.sent)), 0);
        ASSERT_EQ(device.vtmBackups.size(), 2U);
        EXPECT_EQ(device.vtmBackups[0].strVtmAddr, "10.0.0.141");
        EXPECT_EQ(Json(device.vtmBackups[0].iVtmPort), number);
        EXPECT_EQ(device.vtmBackups[1].iVtmPort, 144);
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/camera/videoQualityInfos/1/videoLevel", value.sent)), 0);
        ASSERT_EQ(channel.videoQualityInfos.size(), 3U);
        EXPECT_EQ(channel.videoQualityInfos[1].videoQualityName, "quality-17");
        EXPECT_EQ(Json(channel.videoQualityInfos[1].videoLevel), number);
        EXPECT_EQ(channel.videoQualityInfos[2].videoLevel, 21);
    }
    for (const MemberValue& value : TextValues()) {
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device/vtmBackups/1/ip", value.sent)), 0);
        EXPECT_EQ(Json(device.vtmBackups[1].strVtmAddr), value.taken == nullptr ? Json("") : Json::parse(value.taken));
    }
}

TEST_F(HostileDetail, BackupsThatAreNoObjectsAreSkippedAndQualitiesAreEmpty) {
    iLogLevel = 6;
    for (const MemberValue& value : NoObjects()) {
        SCOPED_TRACE(value.sent);
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/device/vtmBackups/0", value.sent)), 0);
        ASSERT_EQ(device.vtmBackups.size(), 1U);
        EXPECT_EQ(device.vtmBackups[0].strVtmAddr, "10.0.0.143");
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/camera/videoQualityInfos/1", value.sent)), 0);
        ASSERT_EQ(channel.videoQualityInfos.size(), 3U);
        EXPECT_EQ(channel.videoQualityInfos[1].videoQualityName, "");
        EXPECT_EQ(channel.videoQualityInfos[2].videoQualityName, "quality-20");
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
        Json response = WholeDetail();
        Camera(response)["isTrust"] = text;
        EXPECT_EQ(Parse(response), 0);
        EXPECT_EQ(channel.isTrust, text);
        EXPECT_EQ(channel.iIsTrust, number) << text;
    }
}

}  // namespace
}  // namespace vantix::test
