// The device detail response: which member fills which field, the nested members, the log lines.

#include "platform/DeviceDetailParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

using testing::Contains;

constexpr char kTag[] = "ParseDevDetailInfoFromPlatform";

class DetailParser : public testing::Test {
protected:
    int Parse(const std::string& body) {
        m_log.Clear();
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    }
    int Parse(const Json& response) { return Parse(response.dump()); }
    /// The whole response with this short list, and no capability of its own.
    static Json WithShortList(const std::string& shortList) {
        Json response = WholeDetail();
        Device(response)["supportExtShort"] = shortList;
        Device(response)["supportExt"] = Json::object();
        return response;
    }
    static std::string ListOf(int count, const std::string& last) {
        std::string list;
        for (int i = 1; i < count; ++i) {
            list += "0|";
        }
        return list + last;
    }

    CleanSwitches m_switches;
    LogCapture m_log;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
};

// ---- The whole response

TEST(WholeDetailResponse, HasEveryMember) {
    const Json response = WholeDetail();
    for (const auto& field : CameraFields()) {
        EXPECT_EQ(response.at(Json::json_pointer(field.place)), field.value) << field.place;
    }
    for (const auto& field : DeviceFields()) {
        EXPECT_EQ(response.at(Json::json_pointer(field.place)), field.value) << field.place;
    }
    for (const auto& field : ParentFields()) {
        EXPECT_EQ(response.at(Json::json_pointer(field.place)), field.value) << field.place;
    }
    EXPECT_EQ(response.at("/result/data/camera"_json_pointer).size(), 14U);
    EXPECT_EQ(response.at("/result/data/device"_json_pointer).size(), 42U);
}

TEST_F(DetailParser, WholeResponseFillsTheChannelFieldByField) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    EXPECT_EQ(ValuesOf(CameraFields(), channel), WholeValues(CameraFields()));
    EXPECT_EQ(channel.iIsTrust, 13);
    ASSERT_EQ(channel.videoQualityInfos.size(), 3U);
    EXPECT_EQ(channel.videoQualityInfos[0].videoQualityName, "quality-14");
    EXPECT_EQ(channel.videoQualityInfos[0].videoLevel, 15);
    EXPECT_EQ(channel.videoQualityInfos[0].streamType, 16);
    EXPECT_EQ(channel.videoQualityInfos[1].videoQualityName, "quality-17");
    EXPECT_EQ(channel.videoQualityInfos[1].videoLevel, 18);
    EXPECT_EQ(channel.videoQualityInfos[1].streamType, 19);
    EXPECT_EQ(channel.videoQualityInfos[2].videoQualityName, "quality-20");
    EXPECT_EQ(channel.videoQualityInfos[2].videoLevel, 21);
    EXPECT_EQ(channel.videoQualityInfos[2].streamType, 22);
}

TEST_F(DetailParser, WholeResponseFillsTheDeviceFieldByField) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    EXPECT_EQ(ValuesOf<BelongDevInfo>(DeviceFields(), device), WholeValues(DeviceFields()));
    EXPECT_EQ(ValuesOf(CapabilityFields(), device), WholeValues(CapabilityFields()));
    ASSERT_EQ(device.vtmBackups.size(), 2U);
    EXPECT_EQ(device.vtmBackups[0].strVtmAddr, "10.0.0.141");
    EXPECT_EQ(device.vtmBackups[0].iVtmPort, 142);
    EXPECT_EQ(device.vtmBackups[1].strVtmAddr, "10.0.0.143");
    EXPECT_EQ(device.vtmBackups[1].iVtmPort, 144);
    EXPECT_EQ(device.iShareVerif, 145);
    EXPECT_EQ(device.support_ecdh_v2, "ecdh-151");
}

TEST_F(DetailParser, WholeResponseFillsTheParentFieldByField) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    ASSERT_TRUE(parent.has_value());
    EXPECT_EQ(ValuesOf(ParentFields(), *parent), WholeValues(ParentFields()));
    ASSERT_EQ(parent->vtmBackups.size(), 1U);
    EXPECT_EQ(parent->vtmBackups[0].strVtmAddr, "10.0.1.241");
    EXPECT_EQ(parent->vtmBackups[0].iVtmPort, 242);
}

TEST_F(DetailParser, WholeResponseWritesItsLinesInOrder) {
    Parse(WholeDetailText());
    EXPECT_EQ(m_log.Messages(), (std::vector<std::string>{
                                    "iShareVerif = [145]", "support_ecdh_v2:ecdh-151", "support_device_video_cover:153",
                                    "iSupportSeekPlayback:154", "iSupportSeek2Playback:155",
                                    "DeviceSerial = D-serial-101,  support_replay_download:152"}));
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kTag, "iShareVerif = [145]")).Times(1));
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "support_ecdh_v2:ecdh-151")).Times(1));
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "support_device_video_cover:153")).Times(1));
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "iSupportSeekPlayback:154")).Times(1));
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "iSupportSeek2Playback:155")).Times(1));
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kTag, "DeviceSerial = D-serial-101,  support_replay_download:152")).Times(1));
}

// ---- What becomes of the records

TEST_F(DetailParser, BookkeepingIsNotTouched) {
    device.tCacheTime = 123;
    device.isUpdate = true;
    device.isFromCache = false;
    device.iRequestCost = 45;
    device.iCloseBlong = 6;
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    EXPECT_EQ(device.tCacheTime, 123);
    EXPECT_TRUE(device.isUpdate);
    EXPECT_FALSE(device.isFromCache);
    EXPECT_EQ(device.iRequestCost, 45);
    EXPECT_EQ(device.iCloseBlong, 6);
}

TEST_F(DetailParser, RecordsAreResetBeforeTheyAreFilled) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    EXPECT_EQ(Parse(std::string(R"({"result":{"code":200,"data":{}}})")), 0);
    EXPECT_TRUE(Same(channel, DevChannelInfo()));
    EXPECT_TRUE(Same(device, DevDetailInfo()));
    EXPECT_EQ(parent->deviceSerial, "P-serial-201") << "a response without a parent leaves the record";
    EXPECT_FALSE(m_log.Contains("platform response"));
}

TEST_F(DetailParser, MissingParentLeavesTheRecordEmpty) {
    Json response = WholeDetail();
    Device(response).erase("belongDevice");
    EXPECT_EQ(Parse(response), 0);
    EXPECT_FALSE(parent.has_value());
    EXPECT_FALSE(m_log.Contains("platform response"));
}

TEST_F(DetailParser, ParentIsResetBeforeItIsFilled) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    Json response = WholeDetail();
    Device(response)["belongDevice"] = {{"deviceSerial", "only"}};
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(parent->deviceSerial, "only");
    EXPECT_EQ(parent->deviceIP, "");
    EXPECT_TRUE(parent->vtmBackups.empty());
}

// ---- Nested members in both forms

TEST_F(DetailParser, NestedMembersAsTextAndAsObjectsGiveTheSame) {
    EXPECT_EQ(Parse(WholeDetailText()), 0);
    const DevChannelInfo channelOfObjects = channel;
    const DevDetailInfo deviceOfObjects = device;
    const BelongDevInfo parentOfObjects = *parent;
    const auto linesOfObjects = m_log.Messages();
    Json response = WholeDetail();
    for (const char* key : {"qxDeviceSupportExt", "supportExt", "belongDevice"}) {
        Device(response)[key] = Device(response)[key].dump();
    }
    channel = {};
    device = {};
    parent.reset();
    EXPECT_EQ(Parse(response), 0);
    EXPECT_TRUE(Same(channel, channelOfObjects));
    EXPECT_TRUE(Same(device, deviceOfObjects));
    ASSERT_TRUE(parent.has_value());
    EXPECT_TRUE(Same(*parent, parentOfObjects));
    EXPECT_EQ(m_log.Messages(), linesOfObjects);
}

/// Texts that hold no object.
const std::vector<std::string>& TextsWithoutAnObject() {
    static const std::vector<std::string> texts = {
        "", " ", "x", "{", "{\"a\"", "[]", "[{}]", "5", "\"text\"", "true", "null", "{} x", std::string(100'000, '{')};
    return texts;
}

TEST_F(DetailParser, MalformedShareMemberIsLoggedAndSkipped) {
    for (const std::string& text : TextsWithoutAnObject()) {
        SCOPED_TRACE(text.substr(0, 20));
        Json response = WholeDetail();
        Device(response)["qxDeviceSupportExt"] = text;
        const std::string body = response.dump();
        EXPECT_EQ(Parse(body), 0);
        EXPECT_EQ(device.iShareVerif, 0);
        EXPECT_EQ(device.support_ptz, 146);
        EXPECT_TRUE(parent.has_value());
        EXPECT_FALSE(m_log.Contains("iShareVerif"));
        if (text.size() < 100) {
            EXPECT_THAT(m_log.Lines(),
                        Contains(Line(5, "ERROR", kTag, "platform response , szInfo = " + body)).Times(1));
        }
    }
}

TEST_F(DetailParser, MalformedCapabilitiesAreLoggedAndSkipped) {
    for (const std::string& text : TextsWithoutAnObject()) {
        SCOPED_TRACE(text.substr(0, 20));
        Json response = WholeDetail();
        Device(response)["supportExt"] = text;
        Device(response)["supportExtShort"] = ListOf(257, "1");
        const std::string body = response.dump();
        EXPECT_EQ(Parse(body), 0);
        for (const auto& capability : CapabilityFields()) {
            EXPECT_EQ(capability.Of(device), 0) << capability.place;
        }
        EXPECT_EQ(device.support_ecdh_v2, "");
        EXPECT_EQ(device.iShareVerif, 145);
        EXPECT_TRUE(parent.has_value());
        EXPECT_FALSE(m_log.Contains("support_replay_download:"));
        if (text.size() < 100) {
            EXPECT_THAT(m_log.Lines(),
                        Contains(Line(5, "ERROR", kTag, "platform response invalid, szInfo = " + body)).Times(1));
        }
    }
}

TEST_F(DetailParser, MalformedParentIsLoggedAndSkipped) {
    for (const std::string& text : TextsWithoutAnObject()) {
        SCOPED_TRACE(text.substr(0, 20));
        Json response = WholeDetail();
        Device(response)["belongDevice"] = text;
        const std::string body = response.dump();
        EXPECT_EQ(Parse(body), 0);
        EXPECT_FALSE(parent.has_value());
        EXPECT_EQ(device.support_ptz, 146);
        if (text.size() < 100) {
            EXPECT_THAT(m_log.Lines(),
                        Contains(Line(5, "ERROR", kTag, "platform response invalid, szInfo = " + body)).Times(1));
        }
    }
}

TEST_F(DetailParser, NestedMemberOfAnotherTypeIsSkipped) {
    for (const char* key : {"qxDeviceSupportExt", "supportExt", "belongDevice"}) {
        for (const Json& value : {Json(5), Json(true), Json(nullptr), Json::array({1}), Json(1.5)}) {
            SCOPED_TRACE(key + (": " + value.dump()));
            Json response = WholeDetail();
            Device(response)[key] = value;
            parent.reset();
            EXPECT_EQ(Parse(response), 0);
            EXPECT_EQ(device.iShareVerif, std::string(key) == "qxDeviceSupportExt" ? 0 : 145);
            EXPECT_EQ(device.support_ptz, std::string(key) == "supportExt" ? 0 : 146);
            EXPECT_EQ(parent.has_value(), std::string(key) != "belongDevice");
            EXPECT_EQ(device.isOwner, 140);
        }
    }
}

TEST_F(DetailParser, ShareVerificationIsReadAsANumberText) {
    for (const auto& [text, number] : {std::pair("1", 1), {"0", 0}, {" 2x", 2}, {"x", 0}, {"", 0}, {"-1", -1}}) {
        Json response = WholeDetail();
        Device(response)["qxDeviceSupportExt"] = {{"ShareVerify", text}};
        EXPECT_EQ(Parse(response), 0);
        EXPECT_EQ(device.iShareVerif, number) << text;
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kTag, "iShareVerif = [" + std::to_string(number) + "]")).Times(1));
    }
    Json response = WholeDetail();
    Device(response)["qxDeviceSupportExt"] = {{"ShareVerify", 1}};
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.iShareVerif, 0) << "a number is no text";
}

// ---- Capabilities and the short list

TEST_F(DetailParser, SeekCapabilityIsOneAsTextAndTheDefaultAsANumber) {
    Json response = WithShortList(ListOf(836, "7"));
    Device(response)["supportExt"] = {{"support_seek_v2", "1"}};
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.support_seek_v2, 1);
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "iSupportSeek2Playback:1")).Times(1));
    Device(response)["supportExt"] = {{"support_seek_v2", 1}};
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.support_seek_v2, 7);
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, "iSupportSeek2Playback:7")).Times(1));
}

TEST_F(DetailParser, ShortListMayBeAnObjectInTheB2CModeOnly) {
    const Json response = WithShortList(R"({"149":"2","257":1})");
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.support_quickplay_way, 0);
    EXPECT_EQ(device.support_seek_playback, 0);
    bB2CMode = true;
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.support_quickplay_way, 2);
    EXPECT_EQ(device.support_seek_playback, 1);
}

TEST_F(DetailParser, WithoutTheMemberTheShortListAloneCounts) {
    Json response = WithShortList(ListOf(257, "3"));
    Device(response).erase("supportExt");
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.support_seek_playback, 3);
    EXPECT_EQ(device.support_seek_v2, 0);
    EXPECT_EQ(device.support_ptz, 0);
    EXPECT_FALSE(m_log.Contains("platform response"));
    EXPECT_TRUE(m_log.Contains("iSupportSeekPlayback:3"));
}

TEST_F(DetailParser, EmptyCapabilitiesStillWriteTheirLines) {
    EXPECT_EQ(Parse(WithShortList("")), 0);
    EXPECT_EQ(m_log.Messages(),
              (std::vector<std::string>{"iShareVerif = [145]", "support_ecdh_v2:", "support_device_video_cover:0",
                                        "iSupportSeekPlayback:0", "iSupportSeek2Playback:0",
                                        "DeviceSerial = D-serial-101,  support_replay_download:0"}));
}

}  // namespace
}  // namespace vantix::test
