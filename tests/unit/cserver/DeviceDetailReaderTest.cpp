// Which member of a response about a device fills which field.

#include "cserver/DeviceDetailReader.h"

#include "base/ProcessSwitches.h"
#include "unit/cserver/ConsumerResponse.h"
#include "unit/cserver/DeviceResponse.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

/// Reads responses through the parser, as everything does.
class DeviceReader : public ConsumerResponse {
protected:
    DeviceReader() { iLogLevel = level::kError + 1; }

    const std::vector<ConsumerChannel>& Read(const std::string& body) {
        channels.clear();
        EXPECT_EQ(ParseDevDetailInfoFromCServer(body, kSerial, channels), 0);
        return channels;
    }
    const std::vector<ConsumerChannel>& Read(const Json& response) { return Read(response.dump()); }
    /// The device as it is for the first camera.
    const DevDetailInfo& Device(const std::string& body) { return First(body).device; }
    const DevDetailInfo& Device(const Json& response) { return Device(response.dump()); }
    const ConsumerChannel& First(const std::string& body) {
        Read(body);
        if (channels.empty()) {
            ADD_FAILURE() << "no channel: " << body;
            channels.emplace_back();
        }
        return channels[0];
    }

    std::vector<ConsumerChannel> channels;
};

TEST_F(DeviceReader, GivesOneRecordPairForEachCameraOfTheDevice) {
    ASSERT_EQ(Read(WholeDevice()).size(), 2U);
    EXPECT_EQ(channels[0].channel.cameraNo, 1);
    EXPECT_EQ(channels[0].channel.cameraId, "camera-2");
    EXPECT_EQ(channels[1].channel.cameraNo, 15);
    EXPECT_EQ(channels[1].channel.cameraId, "camera-16");
}

TEST_F(DeviceReader, EveryMemberFillsItsField) {
    const ConsumerChannel& first = First(WholeDevice().dump());
    EXPECT_EQ(ValuesOf(CameraRows(), first.channel), WholeValues(CameraRows()));
    EXPECT_EQ(ValuesOf<BelongDevInfo>(DeviceRows(), first.device), WholeValues(DeviceRows()));
    EXPECT_EQ(first.channel.deviceSerial, "S");
    EXPECT_EQ(first.device.deviceSerial, "S");
    EXPECT_EQ(first.channel.isShared, "5");
    EXPECT_EQ(first.device.maskIp, 33);
    EXPECT_EQ(first.vtmInternalIp, "vtm-10");
    ASSERT_EQ(first.channel.videoQualityInfos.size(), 2U);
    EXPECT_EQ(first.channel.videoQualityInfos[0].videoLevel, 11);
    EXPECT_EQ(first.channel.videoQualityInfos[0].streamType, 12);
    EXPECT_EQ(first.channel.videoQualityInfos[1].videoLevel, 13);
    EXPECT_EQ(first.channel.videoQualityInfos[1].streamType, 14);
    EXPECT_EQ(first.device.support_ecdh_v2, "ecdh-56");
    EXPECT_EQ(first.device.support_ptz, 51);
    EXPECT_EQ(first.device.support_talk, 52);
    EXPECT_EQ(first.device.ptz_left_right, 53);
    EXPECT_EQ(first.device.ptz_top_bottom, 54);
    EXPECT_EQ(first.device.ptz_preset, 55);
    EXPECT_EQ(first.device.support_replay_download, 57);
    EXPECT_EQ(first.device.support_device_video_cover, 58);
    EXPECT_EQ(first.device.support_seek_playback, 59);
    EXPECT_EQ(first.device.support_seek_v2, 60);
    EXPECT_EQ(first.device.support_quickplay_way, 61);
    EXPECT_EQ(first.device.support_device_playback_small_speed, 62);
}

/// Fields that no member fills keep their defaults, so that nobody takes them for received.
TEST_F(DeviceReader, NothingElseIsFilled) {
    ConsumerChannel rest = First(WholeDevice().dump());
    for (const auto& row : CameraRows()) {
        row.Set(rest.channel, row.Of(DevChannelInfo()));
    }
    for (const auto& row : DeviceRows()) {
        row.Set(rest.device, row.Of(BelongDevInfo()));
    }
    for (const auto& row : CapabilityFields()) {
        row.Set(rest.device, 0);
    }
    rest.channel.deviceSerial.clear();
    rest.channel.isShared.clear();
    for (VideoQualityInfo& quality : rest.channel.videoQualityInfos) {
        EXPECT_EQ(quality.videoQualityName, "");
    }
    rest.channel.videoQualityInfos.clear();
    EXPECT_TRUE(Same(rest.channel, DevChannelInfo()));
    rest.device.deviceSerial.clear();
    rest.device.maskIp = 0;
    rest.device.support_ecdh_v2.clear();
    rest.device.supportExtShort.clear();
    EXPECT_TRUE(Same(rest.device, DevDetailInfo()));
    EXPECT_EQ(rest.device.tCacheTime, 0);
    EXPECT_EQ(rest.device.iRequestCost, 0);
    EXPECT_TRUE(rest.device.isFromCache);
}

TEST_F(DeviceReader, MembersAreReadOnlyWithTheirType) {
    ExpectEachFieldOnItsOwn(CameraRows(), WholeDevice(), DevChannelInfo(), IntValues(),
                            [this](const std::string& body) { return First(body).channel; });
    ExpectEachFieldOnItsOwn(DeviceRows(), WholeDevice(), BelongDevInfo(), IntValues(),
                            [this](const std::string& body) -> const BelongDevInfo& { return First(body).device; });
}

TEST_F(DeviceReader, SharingStateBecomesDecimalText) {
    const std::pair<const char*, const char*> rows[] = {
        {"0", "0"},         {"-1", "-1"}, {"7.0", "7"},  {"2147483647", "2147483647"},
        {"2147483648", ""}, {"1.9", ""},  {"\"1\"", ""}, {"\"\"", ""},
        {"null", ""},       {"true", ""}, {"[1]", ""},   {"{}", ""}};
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(First(WithValue(WholeDevice(), "/cameraInfos/0/isShared", value)).channel.isShared, text) << value;
    }
}

TEST_F(DeviceReader, MaskIsATextThatHoldsANumber) {
    const std::pair<const char*, int> rows[] = {{"\"255\"", 255}, {"\" 255.0.0.0\"", 255},
                                                {"\"x\"", 0},     {"\"\"", 0},
                                                {"\"-7\"", -7},   {"255", 0},
                                                {"null", 0},      {"[\"255\"]", 0},
                                                {"{}", 0},        {"\"99999999999\"", 2147483647}};
    for (const auto& [value, number] : rows) {
        EXPECT_EQ(Device(WithValue(WholeDevice(), "/wifiInfos/S/mask", value)).maskIp, number) << value;
    }
}

TEST_F(DeviceReader, GroupsOfAnotherTypeFillNothing) {
    for (const char* group :
         {"/connectionInfos", "/wifiInfos", "/cloudInfos", "/statusInfos", "/ttsInfos", "/cameraInfos/0/vtmInfo"}) {
        Json expected = WholeValues(DeviceRows());
        for (const auto& row : DeviceRows()) {
            if (row.place.rfind(std::string(group) + "/", 0) == 0) {
                expected[row.place] = row.IsText() ? Json("") : Json(0);
            }
        }
        for (const MemberValue& value : NoObjects()) {
            const BelongDevInfo& device = Device(WithValue(WholeDevice(), group, value.sent));
            EXPECT_EQ(ValuesOf(DeviceRows(), device), expected) << group << " = " << value.sent;
        }
        const BelongDevInfo& device = Device(Without(WholeDevice(), group));
        EXPECT_EQ(ValuesOf(DeviceRows(), device), expected) << group;
    }
}

/// Each of the six groups in every form that is accepted, and in forms that are another device's.
TEST_F(DeviceReader, GroupIsReadInEveryFormThatNamesTheDevice) {
    const struct {
        const char* group;
        const char* member;
        const char* value;
        int32_t DevDetailInfo::*field;
        int32_t number;
    } groups[] = {{"connectionInfos", "netType", "7", &DevDetailInfo::netType, 7},
                  {"wifiInfos", "mask", "\"7\"", &DevDetailInfo::maskIp, 7},
                  {"cloudInfos", "status", "7", &DevDetailInfo::cloudServiceStatus, 7},
                  {"statusInfos", "isEncrypt", "7", &DevDetailInfo::isEncrypt, 7},
                  {"ttsInfos", "port", "7", &DevDetailInfo::ttsPort, 7},
                  {"kmsInfos", "version", "7", &DevDetailInfo::version, 7}};
    const struct {
        const char* form;
        bool read;
    } forms[] = {{R"({"S":{$}})", true},
                 {R"({"X":{},"S":{$}})", true},
                 {"{$}", true},
                 {R"({"deviceSerial":"S",$})", true},
                 {R"([{"deviceSerial":"X"},{"deviceSerial":"S",$}])", true},
                 {"[{$}]", true},
                 {R"({"X":{$}})", false},
                 {R"({"deviceSerial":"X",$})", false},
                 {R"([{"deviceSerial":"X",$}])", false},
                 {R"([{$},{$}])", false},
                 {R"({"S":[{$}]})", false},
                 {R"({"s":{$}})", false}};
    for (const auto& group : groups) {
        for (const auto& form : forms) {
            std::string text = form.form;
            const std::string member = std::string("\"") + group.member + "\":" + group.value;
            for (size_t at = text.find('$'); at != std::string::npos; at = text.find('$')) {
                text.replace(at, 1, member);
            }
            Json response = WholeDevice();
            response.erase("ttsInfos");  // it would go before the other group's version
            const std::string place = std::string("/") + group.group;
            EXPECT_EQ(Device(WithValue(response, place, text)).*group.field, form.read ? group.number : 0)
                << place << text;
            response["data"][group.group] = Json::parse(text);
            response.erase(group.group);
            EXPECT_EQ(Device(response).*group.field, form.read ? group.number : 0) << "/data" << place << text;
        }
    }
}

TEST_F(DeviceReader, KeyIsThatOfTheMediaRelayOrElseOfTheKeyService) {
    const struct {
        const char* tts;
        const char* kms;
        const char* key;
        int version;
    } rows[] = {{R"({"publicKey":{"key":"a","version":1}})", R"({"version":9})", "a", 1},
                {R"({"publicKey":"a","version":1})", "{}", "a", 1},
                {R"({"key":"a"})", "{}", "a", 0},
                {R"({"publicKey":"a","key":"b"})", "{}", "b", 0},
                {R"({"publicKey":{"publicKey":"a"}})", "{}", "a", 0},
                {"{}", R"({"publicKey":"k","version":9})", "k", 9},
                {"{}", R"({"publicKey":{"key":"k","version":9}})", "k", 9},
                {"{}", R"({"key":"k","version":9,"secretKey":"s"})", "k", 9},
                {R"({"publicKey":{"key":"a"}})", R"({"key":"k","version":9})", "a", 9},
                {R"({"publicKey":5,"version":"1"})", R"({"publicKey":"k"})", "k", 0},
                {"{}", R"({"secretKey":"s"})", "", 0}};
    for (const auto& row : rows) {
        Json response = WholeDevice();
        response["ttsInfos"]["S"] = Json::parse(row.tts);
        response["kmsInfos"]["S"] = Json::parse(row.kms);
        const DevDetailInfo& device = Device(response);
        EXPECT_EQ(device.publicKey, row.key) << row.tts << row.kms;
        EXPECT_EQ(device.version, row.version) << row.tts << row.kms;
    }
}

/// The response that the documentation shows.
TEST_F(DeviceReader, SmallestResponseFillsWhatItHolds) {
    bB2CMode = true;
    const Json response = Json::parse(R"({"meta": {"code": 200},
        "cameraInfos": [{"channelNo": 1, "deviceSerial": "S", "isShared": 1}],
        "deviceInfos": [{"deviceSerial": "S", "channelNumber": 1,
                         "supportExt": "{\"support_ptz\":\"1\",\"149\":\"2\"}"}],
        "connectionInfos": {"S": {"netIp": "198.51.100.27"}}})");
    const ConsumerChannel& only = First(response.dump());
    EXPECT_EQ(channels.size(), 1U);
    EXPECT_EQ(only.channel.cameraNo, 1);
    EXPECT_EQ(only.channel.isShared, "1");
    EXPECT_EQ(only.device.deviceIP, "198.51.100.27");
    EXPECT_EQ(only.device.support_ptz, 1);
    EXPECT_EQ(only.device.support_quickplay_way, 2);
}

// ---- Which cameras and which device

TEST_F(DeviceReader, CameraOfAnotherDeviceIsSkippedAndOneThatNamesNoneIsTaken) {
    const std::pair<const char*, size_t> rows[] = {{"\"X\"", 1U}, {"\"\"", 1U}, {"\"S\"", 2U}, {"\"s\"", 1U},
                                                   {"null", 2U},  {"5", 2U},    {"[]", 2U},    {"{}", 2U}};
    for (const auto& [value, count] : rows) {
        EXPECT_EQ(Read(WithValue(WholeDevice(), "/cameraInfos/0/deviceSerial", value)).size(), count) << value;
    }
    ASSERT_EQ(Read(Without(WholeDevice(), "/cameraInfos/0/deviceSerial")).size(), 2U);
    EXPECT_EQ(channels[0].channel.deviceSerial, "");
    EXPECT_EQ(channels[0].channel.cameraId, "camera-2");
}

TEST_F(DeviceReader, CamerasThatAreNoObjectsAreSkipped) {
    for (const MemberValue& value : NoObjects()) {
        ASSERT_EQ(Read(WithValue(WholeDevice(), "/cameraInfos/0", value.sent)).size(), 1U) << value.sent;
        EXPECT_EQ(channels[0].channel.cameraId, "camera-16") << value.sent;
    }
    EXPECT_EQ(Read(WithValue(WholeDevice(), "/cameraInfos/0", "{}")).size(), 2U) << "one that says nothing";
    EXPECT_TRUE(Read(WithValue(WholeDevice(), "/cameraInfos", "[]")).empty());
}

TEST_F(DeviceReader, CamerasDoNotShareTheirMediaRelay) {
    ASSERT_EQ(Read(WholeDevice()).size(), 2U);
    EXPECT_EQ(channels[0].device.vtmIp, "vtm-8");
    EXPECT_EQ(channels[1].device.vtmIp, "vtm-18");
    EXPECT_EQ(channels[1].device.vtmPort, 19);
    EXPECT_EQ(channels[1].vtmInternalIp, "");
    EXPECT_EQ(channels[1].device.casPort, 32) << "all else is the device's";
    EXPECT_EQ(channels[1].channel.isShared, "17");
    EXPECT_TRUE(channels[1].channel.videoQualityInfos.empty());
}

TEST_F(DeviceReader, DeviceWithoutAnEntryKeepsWhatItsGroupsHold) {
    Json response = WholeDevice();
    response["deviceInfos"].erase(1);
    const DevDetailInfo& device = Device(response);
    EXPECT_EQ(device.deviceSerial, "");
    EXPECT_EQ(device.supportChannelNums, 0);
    EXPECT_EQ(device.supportExtShort, "");
    EXPECT_EQ(device.casPort, 32);
}

TEST_F(DeviceReader, QualitiesAreReadOneByOne) {
    for (const MemberValue& value : IntValues()) {
        const auto& wrong =
            First(WithValue(WholeDevice(), "/cameraInfos/0/videoQualityInfos/0/videoLevel", value.sent));
        ASSERT_EQ(wrong.channel.videoQualityInfos.size(), 2U);
        EXPECT_EQ(Json(wrong.channel.videoQualityInfos[0].videoLevel),
                  value.taken == nullptr ? Json(0) : Json::parse(value.taken))
            << value.sent;
        EXPECT_EQ(wrong.channel.videoQualityInfos[0].streamType, 12) << value.sent;
        EXPECT_EQ(wrong.channel.videoQualityInfos[1].videoLevel, 13) << value.sent;
    }
    for (const MemberValue& value : NoObjects()) {
        const auto& element = First(WithValue(WholeDevice(), "/cameraInfos/0/videoQualityInfos/0", value.sent));
        ASSERT_EQ(element.channel.videoQualityInfos.size(), 2U);
        EXPECT_EQ(element.channel.videoQualityInfos[0].streamType, 0) << value.sent;
        EXPECT_EQ(element.channel.videoQualityInfos[1].streamType, 14) << value.sent;
    }
    for (const MemberValue& value : NoArrays()) {
        const auto& list = First(WithValue(WholeDevice(), "/cameraInfos/0/videoQualityInfos", value.sent));
        EXPECT_TRUE(list.channel.videoQualityInfos.empty()) << value.sent;
    }
}

TEST_F(DeviceReader, ListsMayStandInsideData) {
    Json response = WholeDevice();
    Json inside = response;
    inside.erase("meta");
    response = {{"meta", response["meta"]}, {"data", inside}};
    const std::vector<ConsumerChannel> outer = Read(WholeDevice());
    ASSERT_EQ(Read(response).size(), outer.size());
    for (size_t i = 0; i < outer.size(); ++i) {
        EXPECT_TRUE(Same(channels[i].channel, outer[i].channel));
        EXPECT_TRUE(Same(channels[i].device, outer[i].device));
    }
}

// ---- Capabilities

TEST_F(DeviceReader, CapabilitiesAreNumbersAsText) {
    for (const MemberValue& value : DecimalTextValues()) {
        const std::string text = std::string(R"({"support_ptz":)") + value.sent + "}";
        EXPECT_EQ(Json(Device(DeviceWithExtension(text)).support_ptz),
                  value.taken == nullptr ? Json(0) : Json::parse(value.taken))
            << text;
    }
    for (const MemberValue& value : TextValues()) {
        const std::string text = std::string(R"({"support_ecdh_v2":)") + value.sent + "}";
        EXPECT_EQ(Json(Device(DeviceWithExtension(text)).support_ecdh_v2),
                  value.taken == nullptr ? Json("") : Json::parse(value.taken))
            << text;
    }
}

TEST_F(DeviceReader, ExtensionTextIsTheShortListAsWell) {
    const std::string text = R"({"257":"3","836":"4","149":"5","585":"6","support_seek_v2":"9","support_ptz":"1"})";
    const DevDetailInfo& ordinary = Device(DeviceWithExtension(text));
    EXPECT_EQ(ordinary.supportExtShort, text);
    EXPECT_EQ(ordinary.support_seek_playback, 0) << "a JSON list counts in the B2C mode only";
    EXPECT_EQ(ordinary.support_seek_v2, 9);
    bB2CMode = true;
    const DevDetailInfo& b2c = Device(DeviceWithExtension(text));
    EXPECT_EQ(b2c.support_seek_playback, 3);
    EXPECT_EQ(b2c.support_seek_v2, 9) << "the name goes before the number";
    EXPECT_EQ(b2c.support_quickplay_way, 5);
    EXPECT_EQ(b2c.support_device_playback_small_speed, 6);
    EXPECT_EQ(b2c.support_ptz, 1);
}

TEST_F(DeviceReader, ExtensionAsAnObjectReadsLikeItsText) {
    bB2CMode = true;
    const Json extension = Json::parse(WholeDevice().at("/deviceInfos/1/supportExt"_json_pointer).get<std::string>());
    const DevDetailInfo fromText = Device(DeviceWithExtension(extension.dump()));
    Json response = WholeDevice();
    response["deviceInfos"][1]["supportExt"] = extension;
    EXPECT_TRUE(Same(Device(response), fromText));
}

TEST_F(DeviceReader, ExtensionThatIsNoObjectGivesNoCapabilities) {
    Json none;
    for (const auto& row : CapabilityFields()) {
        none[row.place] = 0;
    }
    for (const MemberValue& value : NoObjects()) {
        const DevDetailInfo& device = Device(WithValue(WholeDevice(), "/deviceInfos/1/supportExt", value.sent));
        EXPECT_EQ(ValuesOf(CapabilityFields(), device), none) << value.sent;
        EXPECT_EQ(device.supportChannelNums, 20) << value.sent;
    }
    for (const char* text : {"", "x", "{", "[]", "0|1|1", "{\"support_ptz\":"}) {
        const DevDetailInfo& device = Device(DeviceWithExtension(text));
        EXPECT_EQ(ValuesOf(CapabilityFields(), device), none) << text;
        EXPECT_EQ(device.supportExtShort, text);
    }
    EXPECT_EQ(Device(WithValue(WholeDevice(), "/deviceInfos/1/supportExt", "[]")).supportExtShort, "");
    EXPECT_EQ(Device(WithValue(WholeDevice(), "/deviceInfos/1/supportExt", "5")).supportExtShort, "");
}

TEST_F(DeviceReader, ShortListOfThePlatformsFormIsReadByNumber) {
    std::string list = "9";
    for (int number = 2; number <= 836; ++number) {
        list += number == 257 ? "|3" : number == 836 ? "|4" : "|0";
    }
    const DevDetailInfo& device = Device(DeviceWithExtension(list));
    EXPECT_EQ(device.support_seek_playback, 3);
    EXPECT_EQ(device.support_seek_v2, 4);
    EXPECT_EQ(device.support_quickplay_way, 0);
}

}  // namespace
}  // namespace vantix::test
