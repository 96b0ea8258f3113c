// The device detail answer: which member fills which field, the nested members, the log lines.

#include "platform/DeviceDetailParser.h"

#include <gtest/gtest.h>

#include <set>

#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

using nlohmann::json;

class DetailParser : public testing::Test {
protected:
    int Parse(const std::string& body) {
        lines.Clear();
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    }
    int Parse(const json& answer) { return Parse(answer.dump()); }
    /// The golden answer with this short list, and no capability of its own.
    static json WithShortList(const std::string& shortList) {
        json answer = GoldenDetail();
        Device(answer)["supportExtShort"] = shortList;
        Device(answer)["supportExt"] = json::object();
        return answer;
    }
    static std::string ListOf(int count, const std::string& last) {
        std::string list;
        for (int i = 1; i < count; ++i) {
            list += "0|";
        }
        return list + last;
    }

    CleanSwitches clean;
    LogCapture lines;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
};

// ---- The golden answer

/// Every value that a JSON holds, as text.
void Collect(const json& value, std::vector<std::string>& all) {
    if (value.is_structured()) {
        for (const json& inner : value) {
            Collect(inner, all);
        }
    } else {
        all.push_back(value.is_string() ? value.get<std::string>() : value.dump());
    }
}

TEST(GoldenDetailResponse, HasEveryMemberAndNoTwoEqualValues) {
    json answer = GoldenDetail();
    for (const auto& member : CameraMembers()) {
        EXPECT_TRUE(Camera(answer).contains(member.key)) << member.key;
    }
    for (const auto& member : DeviceMembers()) {
        EXPECT_TRUE(Device(answer).contains(member.key)) << member.key;
        EXPECT_TRUE(Device(answer)["belongDevice"].contains(member.key)) << member.key;
    }
    EXPECT_EQ(Camera(answer).size(), CameraMembers().size() + 1) << "and the list of qualities";
    EXPECT_EQ(Device(answer).size(), DeviceMembers().size() + 4) << "and the backups and three nested members";
    std::vector<std::string> values;
    Collect(Data(answer), values);
    EXPECT_EQ(std::set<std::string>(values.begin(), values.end()).size(), values.size());
}

TEST_F(DetailParser, GoldenAnswerFillsTheChannelFieldByField) {
    json answer = GoldenDetail();
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    for (const auto& member : CameraMembers()) {
        EXPECT_EQ(member.Of(channel), Camera(answer)[member.key]) << member.key;
    }
    EXPECT_EQ(channel.iIsTrust, 13);
    ASSERT_EQ(channel.videoQualityInfos.size(), 3U);
    for (size_t i = 0; i < 3; ++i) {
        const json& quality = Camera(answer)["videoQualityInfos"][i];
        EXPECT_EQ(channel.videoQualityInfos[i].videoQualityName, quality["videoQualityName"]);
        EXPECT_EQ(channel.videoQualityInfos[i].videoLevel, quality["videoLevel"]);
        EXPECT_EQ(channel.videoQualityInfos[i].streamType, quality["streamType"]);
    }
}

TEST_F(DetailParser, GoldenAnswerFillsTheDeviceFieldByField) {
    json answer = GoldenDetail();
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    for (const auto& member : DeviceMembers()) {
        EXPECT_EQ(member.Of(device), Device(answer)[member.key]) << member.key;
    }
    ASSERT_EQ(device.vtmBackups.size(), 2U);
    EXPECT_EQ(device.vtmBackups[0].strVtmAddr, "10.0.0.141");
    EXPECT_EQ(device.vtmBackups[0].iVtmPort, 142);
    EXPECT_EQ(device.vtmBackups[1].strVtmAddr, "10.0.0.143");
    EXPECT_EQ(device.vtmBackups[1].iVtmPort, 144);
    EXPECT_EQ(device.iShareVerif, 145);
    EXPECT_EQ(device.support_ecdh_v2, "ecdh-151");
    for (const auto& member : CapabilityMembers()) {
        EXPECT_EQ(member.Of(device).dump(), Device(answer)["supportExt"][member.key].get<std::string>()) << member.key;
    }
}

TEST_F(DetailParser, GoldenAnswerFillsTheParentFieldByField) {
    json answer = GoldenDetail();
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    ASSERT_TRUE(parent.has_value());
    for (const auto& member : DeviceMembers()) {
        EXPECT_EQ(member.Of(*parent), Device(answer)["belongDevice"][member.key]) << member.key;
    }
    ASSERT_EQ(parent->vtmBackups.size(), 1U);
    EXPECT_EQ(parent->vtmBackups[0].strVtmAddr, "10.0.1.241");
    EXPECT_EQ(parent->vtmBackups[0].iVtmPort, 242);
}

TEST_F(DetailParser, GoldenAnswerWritesItsLinesInOrder) {
    Parse(GoldenDetailText());
    EXPECT_EQ(lines.Messages(), (std::vector<std::string>{
                                    "iShareVerif = [145]", "support_ecdh_v2:ecdh-151", "support_device_video_cover:153",
                                    "iSupportSeekPlayback:154", "iSupportSeek2Playback:155",
                                    "DeviceSerial = D-serial-101,  support_replay_download:152"}));
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform", "iShareVerif = [145]"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "support_ecdh_v2:ecdh-151"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "support_device_video_cover:153"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "iSupportSeekPlayback:154"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "iSupportSeek2Playback:155"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform",
                                       "DeviceSerial = D-serial-101,  support_replay_download:152"));
}

// ---- What becomes of the caller's records

TEST_F(DetailParser, BookkeepingIsNotTouched) {
    device.tCacheTime = 123;
    device.isUpdate = true;
    device.isFromCache = false;
    device.iRequestCost = 45;
    device.iCloseBlong = 6;
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    EXPECT_EQ(device.tCacheTime, 123);
    EXPECT_TRUE(device.isUpdate);
    EXPECT_FALSE(device.isFromCache);
    EXPECT_EQ(device.iRequestCost, 45);
    EXPECT_EQ(device.iCloseBlong, 6);
}

TEST_F(DetailParser, RecordsAreResetBeforeTheyAreFilled) {
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    EXPECT_EQ(Parse(std::string(R"({"result":{"code":200,"data":{}}})")), 0);
    EXPECT_TRUE(Same(channel, DevChannelInfo()));
    EXPECT_TRUE(Same(device, DevDetailInfo()));
    EXPECT_EQ(parent->deviceSerial, "P-serial-201") << "an answer without a parent leaves the caller's";
    EXPECT_FALSE(lines.Contains("platform response"));
}

TEST_F(DetailParser, MissingParentLeavesTheRecordEmpty) {
    json answer = GoldenDetail();
    Device(answer).erase("belongDevice");
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_FALSE(parent.has_value());
    EXPECT_FALSE(lines.Contains("platform response"));
}

TEST_F(DetailParser, ParentIsResetBeforeItIsFilled) {
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    json answer = GoldenDetail();
    Device(answer)["belongDevice"] = {{"deviceSerial", "only"}};
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(parent->deviceSerial, "only");
    EXPECT_EQ(parent->deviceIP, "");
    EXPECT_TRUE(parent->vtmBackups.empty());
}

// ---- Nested members in both forms

TEST_F(DetailParser, NestedMembersAsTextAndAsObjectsGiveTheSame) {
    EXPECT_EQ(Parse(GoldenDetailText()), 0);
    const DevChannelInfo channelOfObjects = channel;
    const DevDetailInfo deviceOfObjects = device;
    const BelongDevInfo parentOfObjects = *parent;
    const auto linesOfObjects = lines.Messages();
    json answer = GoldenDetail();
    for (const char* key : {"qxDeviceSupportExt", "supportExt", "belongDevice"}) {
        Device(answer)[key] = Device(answer)[key].dump();
    }
    channel = {};
    device = {};
    parent.reset();
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_TRUE(Same(channel, channelOfObjects));
    EXPECT_TRUE(Same(device, deviceOfObjects));
    ASSERT_TRUE(parent.has_value());
    EXPECT_TRUE(Same(*parent, parentOfObjects));
    EXPECT_EQ(lines.Messages(), linesOfObjects);
}

/// Texts that hold no object.
const std::vector<std::string>& NoObjects() {
    static const std::vector<std::string> texts = {
        "", " ", "x", "{", "{\"a\"", "[]", "[{}]", "5", "\"text\"", "true", "null", "{} x", std::string(100'000, '{')};
    return texts;
}

TEST_F(DetailParser, MalformedShareMemberIsLoggedAndSkipped) {
    for (const std::string& text : NoObjects()) {
        SCOPED_TRACE(text.substr(0, 20));
        json answer = GoldenDetail();
        Device(answer)["qxDeviceSupportExt"] = text;
        const std::string body = answer.dump();
        EXPECT_EQ(Parse(body), 0);
        EXPECT_EQ(device.iShareVerif, 0);
        EXPECT_EQ(device.support_ptz, 146);
        EXPECT_TRUE(parent.has_value());
        EXPECT_FALSE(lines.Contains("iShareVerif"));
        if (text.size() < 100) {
            EXPECT_THAT(lines.Lines(),
                        HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform", "platform response , szInfo = " + body));
        }
    }
}

TEST_F(DetailParser, MalformedCapabilitiesAreLoggedAndSkipped) {
    for (const std::string& text : NoObjects()) {
        SCOPED_TRACE(text.substr(0, 20));
        json answer = GoldenDetail();
        Device(answer)["supportExt"] = text;
        Device(answer)["supportExtShort"] = ListOf(257, "1");
        const std::string body = answer.dump();
        EXPECT_EQ(Parse(body), 0);
        for (const auto& member : CapabilityMembers()) {
            EXPECT_EQ(member.Of(device), 0) << member.key;
        }
        EXPECT_EQ(device.support_ecdh_v2, "");
        EXPECT_EQ(device.iShareVerif, 145);
        EXPECT_TRUE(parent.has_value());
        EXPECT_FALSE(lines.Contains("support_replay_download:"));
        if (text.size() < 100) {
            EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform",
                                               "platform response invalid, szInfo = " + body));
        }
    }
}

TEST_F(DetailParser, MalformedParentIsLoggedAndSkipped) {
    for (const std::string& text : NoObjects()) {
        SCOPED_TRACE(text.substr(0, 20));
        json answer = GoldenDetail();
        Device(answer)["belongDevice"] = text;
        const std::string body = answer.dump();
        EXPECT_EQ(Parse(body), 0);
        EXPECT_FALSE(parent.has_value());
        EXPECT_EQ(device.support_ptz, 146);
        if (text.size() < 100) {
            EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform",
                                               "platform response invalid, szInfo = " + body));
        }
    }
}

TEST_F(DetailParser, NestedMemberOfAnotherTypeIsSkipped) {
    for (const char* key : {"qxDeviceSupportExt", "supportExt", "belongDevice"}) {
        for (const json& value : {json(5), json(true), json(nullptr), json::array({1}), json(1.5)}) {
            SCOPED_TRACE(key + (": " + value.dump()));
            json answer = GoldenDetail();
            Device(answer)[key] = value;
            parent.reset();
            EXPECT_EQ(Parse(answer), 0);
            EXPECT_EQ(device.iShareVerif, std::string(key) == "qxDeviceSupportExt" ? 0 : 145);
            EXPECT_EQ(device.support_ptz, std::string(key) == "supportExt" ? 0 : 146);
            EXPECT_EQ(parent.has_value(), std::string(key) != "belongDevice");
            EXPECT_EQ(device.isOwner, 140);
        }
    }
}

TEST_F(DetailParser, ShareVerificationIsReadAsANumberText) {
    for (const auto& [text, number] : {std::pair("1", 1), {"0", 0}, {" 2x", 2}, {"x", 0}, {"", 0}, {"-1", -1}}) {
        json answer = GoldenDetail();
        Device(answer)["qxDeviceSupportExt"] = {{"ShareVerify", text}};
        EXPECT_EQ(Parse(answer), 0);
        EXPECT_EQ(device.iShareVerif, number) << text;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform",
                                           "iShareVerif = [" + std::to_string(number) + "]"));
    }
    json answer = GoldenDetail();
    Device(answer)["qxDeviceSupportExt"] = {{"ShareVerify", 1}};
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(device.iShareVerif, 0) << "a number is no text";
}

// ---- Capabilities and the short list

struct FromShortList {
    const char* key;
    int32_t DevDetailInfo::*field;
    int number;
};

constexpr FromShortList kFromShortList[] = {
    {"support_seek_playback", &DevDetailInfo::support_seek_playback, 257},
    {"support_seek_v2", &DevDetailInfo::support_seek_v2, 836},
    {"support_quickplay_way", &DevDetailInfo::support_quickplay_way, 149},
    {"support_device_playback_small_speed", &DevDetailInfo::support_device_playback_small_speed, 585},
};

TEST_F(DetailParser, FourCapabilitiesTakeTheirDefaultFromTheShortList) {
    for (const FromShortList& row : kFromShortList) {
        EXPECT_EQ(Parse(WithShortList(ListOf(row.number, "1"))), 0);
        for (const auto& member : CapabilityMembers()) {
            EXPECT_EQ(member.Of(device), std::string(member.key) == row.key ? 1 : 0) << member.key;
        }
    }
}

TEST_F(DetailParser, OnlyAValueThatIsNotZeroReplacesTheDefault) {
    const struct {
        json value;
        int expected;
    } rows[] = {{"2", 2}, {"-2", -2}, {"0", 3}, {"", 3}, {"x", 3}, {nullptr, 3}, {5, 3}, {true, 3}, {json::array(), 3}};
    for (const FromShortList& capability : kFromShortList) {
        for (const auto& row : rows) {
            json answer = WithShortList(ListOf(capability.number, "3"));
            Device(answer)["supportExt"] = {{capability.key, row.value}};
            EXPECT_EQ(Parse(answer), 0);
            EXPECT_EQ(device.*capability.field, row.expected) << capability.key << row.value;
        }
    }
}

TEST_F(DetailParser, SeekCapabilityIsOneAsTextAndTheDefaultAsANumber) {
    json answer = WithShortList(ListOf(836, "7"));
    Device(answer)["supportExt"] = {{"support_seek_v2", "1"}};
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(device.support_seek_v2, 1);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "iSupportSeek2Playback:1"));
    Device(answer)["supportExt"] = {{"support_seek_v2", 1}};
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(device.support_seek_v2, 7);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "iSupportSeek2Playback:7"));
}

TEST_F(DetailParser, ShortListMayBeAnObjectInTheB2CModeOnly) {
    const json answer = WithShortList(R"({"149":"2","257":1})");
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(device.support_quickplay_way, 0);
    EXPECT_EQ(device.support_seek_playback, 0);
    bB2CMode = true;
    EXPECT_EQ(Parse(answer), 0);
    EXPECT_EQ(device.support_quickplay_way, 2);
    EXPECT_EQ(device.support_seek_playback, 1);
}

TEST_F(DetailParser, CapabilitiesWithoutANumberIgnoreTheShortList) {
    std::string all;
    for (int i = 0; i < 1000; ++i) {
        all += "1|";
    }
    EXPECT_EQ(Parse(WithShortList(all)), 0);
    for (const auto& member : CapabilityMembers()) {
        bool numbered = false;
        for (const FromShortList& row : kFromShortList) {
            numbered = numbered || std::string(row.key) == member.key;
        }
        EXPECT_EQ(member.Of(device), numbered ? 1 : 0) << member.key;
    }
}

TEST_F(DetailParser, WithoutTheMemberTheShortListAloneTells) {
    for (const FromShortList& row : kFromShortList) {
        json answer = WithShortList(ListOf(row.number, "3"));
        Device(answer).erase("supportExt");
        EXPECT_EQ(Parse(answer), 0);
        for (const auto& member : CapabilityMembers()) {
            EXPECT_EQ(member.Of(device), std::string(member.key) == row.key ? 3 : 0) << member.key;
        }
        EXPECT_FALSE(lines.Contains("platform response"));
    }
}

TEST_F(DetailParser, EmptyCapabilitiesStillWriteTheirLines) {
    EXPECT_EQ(Parse(WithShortList("")), 0);
    EXPECT_EQ(lines.Messages(),
              (std::vector<std::string>{"iShareVerif = [145]", "support_ecdh_v2:", "support_device_video_cover:0",
                                        "iSupportSeekPlayback:0", "iSupportSeek2Playback:0",
                                        "DeviceSerial = D-serial-101,  support_replay_download:0"}));
}

}  // namespace
}  // namespace vantix::test
