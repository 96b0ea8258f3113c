// Which member of a device page fills which field.

#include "cserver/DeviceDetailReader.h"

#include <algorithm>

#include "base/ProcessSwitches.h"
#include "unit/cserver/ConsumerAnswer.h"
#include "unit/cserver/ConsumerPage.h"

namespace vantix::test {
namespace {

/// Reads pages through the parser, as everything does.
class ConsumerPage : public ConsumerAnswer {
protected:
    ConsumerPage() { iLogLevel = level::kError + 1; }

    const std::vector<ConsumerChannel>& Read(const std::string& body) {
        channels.clear();
        EXPECT_EQ(ParseDevDetailInfoFromCServer(body, kPageSerial, channels), 0);
        return channels;
    }
    const std::vector<ConsumerChannel>& Read(const Json& page) { return Read(page.dump()); }
    /// The device as it is for the first camera.
    const DevDetailInfo& Device(const std::string& body) { return First(body).device; }
    const DevDetailInfo& Device(const Json& page) { return Device(page.dump()); }
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

TEST_F(ConsumerPage, GivesOneRecordPairForEachCameraOfTheDevice) {
    ASSERT_EQ(Read(GoldenPage()).size(), 2U);
    EXPECT_EQ(channels[0].channel.cameraNo, 1);
    EXPECT_EQ(channels[0].channel.cameraId, "camera-2");
    EXPECT_EQ(channels[1].channel.cameraNo, 15);
    EXPECT_EQ(channels[1].channel.cameraId, "camera-16");
}

TEST_F(ConsumerPage, EveryMemberFillsItsField) {
    const ConsumerChannel& first = First(GoldenPage().dump());
    ExpectFilled(PageCameraRows(), GoldenPage(), first.channel);
    const BelongDevInfo& device = first.device;
    ExpectFilled(PageDeviceRows(), GoldenPage(), device);
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
    int32_t expected = 51;
    for (const auto& row : CapabilityMembers()) {
        expected += expected == 56 ? 1 : 0;  // the one that is a text
        EXPECT_EQ(row.Of(first.device), expected++) << row.key;
    }
}

/// Fields that no member of a page fills keep their defaults, so that nobody takes them for told.
TEST_F(ConsumerPage, NothingElseIsFilled) {
    ConsumerChannel rest = First(GoldenPage().dump());
    for (const auto& row : PageCameraRows()) {
        row.Set(rest.channel, row.Of(DevChannelInfo()));
    }
    for (const auto& row : PageDeviceRows()) {
        row.Set(rest.device, row.Of(BelongDevInfo()));
    }
    for (const auto& row : CapabilityMembers()) {
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

TEST_F(ConsumerPage, MembersAreReadOnlyWithTheirType) {
    ExpectEveryMemberOnItsOwn(PageCameraRows(), GoldenPage(), DevChannelInfo(),
                              [this](const std::string& body) { return First(body).channel; });
    ExpectEveryMemberOnItsOwn(PageDeviceRows(), GoldenPage(), BelongDevInfo(),
                              [this](const std::string& body) -> const BelongDevInfo& { return First(body).device; });
}

TEST_F(ConsumerPage, SharingStateBecomesDecimalText) {
    for (const std::string& value : OddValues()) {
        const Json number = AfterReading(false, value, nullptr);
        EXPECT_EQ(First(WithValue(GoldenPage(), "/cameraInfos/0/isShared", value)).channel.isShared,
                  number.is_null() ? "" : std::to_string(number.get<int>()))
            << value;
    }
}

TEST_F(ConsumerPage, MaskIsATextThatHoldsANumber) {
    const std::pair<const char*, int> rows[] = {{"\"255\"", 255}, {"\" 255.0.0.0\"", 255},
                                                {"\"x\"", 0},     {"\"\"", 0},
                                                {"\"-7\"", -7},   {"255", 0},
                                                {"null", 0},      {"[\"255\"]", 0},
                                                {"{}", 0},        {"\"99999999999\"", 2147483647}};
    for (const auto& [value, number] : rows) {
        EXPECT_EQ(Device(WithValue(GoldenPage(), "/wifiInfos/S/mask", value)).maskIp, number) << value;
    }
}

TEST_F(ConsumerPage, GroupsOfAnotherTypeFillNothing) {
    for (const char* group :
         {"/connectionInfos", "/wifiInfos", "/cloudInfos", "/statusInfos", "/ttsInfos", "/cameraInfos/0/vtmInfo"}) {
        Json expected = Values(PageDeviceRows(), static_cast<const BelongDevInfo&>(Device(GoldenPage())));
        for (const auto& row : PageDeviceRows()) {
            if (std::string(row.key).rfind(std::string(group) + "/", 0) == 0) {
                expected[row.key] = row.Of(BelongDevInfo());
            }
        }
        for (const std::string& value : OddValues()) {
            const BelongDevInfo& device = Device(WithValue(GoldenPage(), group, value));
            EXPECT_EQ(Values(PageDeviceRows(), device), expected) << group << " = " << value;
        }
        const BelongDevInfo& device = Device(Without(GoldenPage(), group));
        EXPECT_EQ(Values(PageDeviceRows(), device), expected) << group;
    }
}

/// Each of the six groups in every form that is accepted, and in forms that are another device's.
TEST_F(ConsumerPage, GroupIsReadInEveryFormThatTellsTheDevice) {
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
            Json page = GoldenPage();
            page.erase("ttsInfos");  // it would go before the other group's version
            const std::string place = std::string("/") + group.group;
            EXPECT_EQ(Device(WithValue(page, place, text)).*group.field, form.read ? group.number : 0) << place << text;
            page["data"][group.group] = Json::parse(text);
            page.erase(group.group);
            EXPECT_EQ(Device(page).*group.field, form.read ? group.number : 0) << "/data" << place << text;
        }
    }
}

TEST_F(ConsumerPage, KeyIsThatOfTheMediaRelayOrElseOfTheKeyService) {
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
        Json page = GoldenPage();
        page["ttsInfos"]["S"] = Json::parse(row.tts);
        page["kmsInfos"]["S"] = Json::parse(row.kms);
        const DevDetailInfo& device = Device(page);
        EXPECT_EQ(device.publicKey, row.key) << row.tts << row.kms;
        EXPECT_EQ(device.version, row.version) << row.tts << row.kms;
    }
}

/// The answer that the documentation shows.
TEST_F(ConsumerPage, SmallestPageFillsWhatItTells) {
    bB2CMode = true;
    const Json page = Json::parse(R"({"meta": {"code": 200},
        "cameraInfos": [{"channelNo": 1, "deviceSerial": "S", "isShared": 1}],
        "deviceInfos": [{"deviceSerial": "S", "channelNumber": 1,
                         "supportExt": "{\"support_ptz\":\"1\",\"149\":\"2\"}"}],
        "connectionInfos": {"S": {"netIp": "198.51.100.27"}}})");
    const ConsumerChannel& only = First(page.dump());
    EXPECT_EQ(channels.size(), 1U);
    EXPECT_EQ(only.channel.cameraNo, 1);
    EXPECT_EQ(only.channel.isShared, "1");
    EXPECT_EQ(only.device.deviceIP, "198.51.100.27");
    EXPECT_EQ(only.device.support_ptz, 1);
    EXPECT_EQ(only.device.support_quickplay_way, 2);
}

// ---- Which cameras and which device

TEST_F(ConsumerPage, CameraOfAnotherDeviceIsSkippedAndOneThatNamesNoneIsTaken) {
    const std::pair<const char*, size_t> rows[] = {{"\"X\"", 1U}, {"\"\"", 1U}, {"\"S\"", 2U}, {"\"s\"", 1U},
                                                   {"null", 2U},  {"5", 2U},    {"[]", 2U},    {"{}", 2U}};
    for (const auto& [value, count] : rows) {
        EXPECT_EQ(Read(WithValue(GoldenPage(), "/cameraInfos/0/deviceSerial", value)).size(), count) << value;
    }
    ASSERT_EQ(Read(Without(GoldenPage(), "/cameraInfos/0/deviceSerial")).size(), 2U);
    EXPECT_EQ(channels[0].channel.deviceSerial, "");
    EXPECT_EQ(channels[0].channel.cameraId, "camera-2");
}

TEST_F(ConsumerPage, CamerasThatAreNoObjectsAreSkipped) {
    for (const std::string& value : OddValues()) {
        const bool isObject = value[0] == '{';
        ASSERT_EQ(Read(WithValue(GoldenPage(), "/cameraInfos/0", value)).size(), isObject ? 2U : 1U) << value;
        EXPECT_EQ(channels.back().channel.cameraId, "camera-16") << value;
    }
    EXPECT_TRUE(Read(WithValue(GoldenPage(), "/cameraInfos", "[]")).empty());
}

TEST_F(ConsumerPage, CamerasDoNotShareTheirMediaRelay) {
    ASSERT_EQ(Read(GoldenPage()).size(), 2U);
    EXPECT_EQ(channels[0].device.vtmIp, "vtm-8");
    EXPECT_EQ(channels[1].device.vtmIp, "vtm-18");
    EXPECT_EQ(channels[1].device.vtmPort, 19);
    EXPECT_EQ(channels[1].vtmInternalIp, "");
    EXPECT_EQ(channels[1].device.casPort, 32) << "all else is the device's";
    EXPECT_EQ(channels[1].channel.isShared, "17");
    EXPECT_TRUE(channels[1].channel.videoQualityInfos.empty());
}

TEST_F(ConsumerPage, DeviceWithoutAnEntryKeepsWhatItsGroupsTell) {
    Json page = GoldenPage();
    page["deviceInfos"].erase(1);
    const DevDetailInfo& device = Device(page);
    EXPECT_EQ(device.deviceSerial, "");
    EXPECT_EQ(device.supportChannelNums, 0);
    EXPECT_EQ(device.supportExtShort, "");
    EXPECT_EQ(device.casPort, 32);
}

TEST_F(ConsumerPage, QualitiesAreReadOneByOne) {
    for (const std::string& value : OddValues()) {
        const auto& wrong = First(WithValue(GoldenPage(), "/cameraInfos/0/videoQualityInfos/0/videoLevel", value));
        ASSERT_EQ(wrong.channel.videoQualityInfos.size(), 2U);
        EXPECT_EQ(wrong.channel.videoQualityInfos[0].videoLevel, AfterReading(false, value, 0)) << value;
        EXPECT_EQ(wrong.channel.videoQualityInfos[0].streamType, 12) << value;
        EXPECT_EQ(wrong.channel.videoQualityInfos[1].videoLevel, 13) << value;
        const auto& element = First(WithValue(GoldenPage(), "/cameraInfos/0/videoQualityInfos/0", value));
        ASSERT_EQ(element.channel.videoQualityInfos.size(), 2U);
        EXPECT_EQ(element.channel.videoQualityInfos[1].streamType, 14) << value;
        if (value[0] != '[') {
            const auto& list = First(WithValue(GoldenPage(), "/cameraInfos/0/videoQualityInfos", value));
            EXPECT_TRUE(list.channel.videoQualityInfos.empty()) << value;
        }
    }
}

TEST_F(ConsumerPage, ListsMayStandInsideData) {
    Json page = GoldenPage();
    Json inside = page;
    inside.erase("meta");
    page = {{"meta", page["meta"]}, {"data", inside}};
    const std::vector<ConsumerChannel> outer = Read(GoldenPage());
    ASSERT_EQ(Read(page).size(), outer.size());
    for (size_t i = 0; i < outer.size(); ++i) {
        EXPECT_TRUE(Same(channels[i].channel, outer[i].channel));
        EXPECT_TRUE(Same(channels[i].device, outer[i].device));
    }
}

// ---- Capabilities

TEST_F(ConsumerPage, CapabilitiesAreNumbersAsText) {
    for (const auto& row : CapabilityMembers()) {
        for (const std::string& value : OddValues()) {
            const std::string text = std::string(R"({")") + row.key + R"(":)" + value + "}";
            EXPECT_EQ(row.Of(Device(PageWithExtension(text))), value == "\"-1\"" ? -1 : 0) << text;
        }
    }
    for (const std::string& value : OddValues()) {
        const std::string text = R"({"support_ecdh_v2":)" + value + "}";
        EXPECT_EQ(Device(PageWithExtension(text)).support_ecdh_v2, AfterReading(true, value, "")) << text;
    }
}

TEST_F(ConsumerPage, ExtensionTextIsTheShortListAsWell) {
    const std::string text = R"({"257":"3","836":"4","149":"5","585":"6","support_seek_v2":"9","support_ptz":"1"})";
    const DevDetailInfo& ordinary = Device(PageWithExtension(text));
    EXPECT_EQ(ordinary.supportExtShort, text);
    EXPECT_EQ(ordinary.support_seek_playback, 0) << "a JSON list counts in the B2C mode only";
    EXPECT_EQ(ordinary.support_seek_v2, 9);
    bB2CMode = true;
    const DevDetailInfo& b2c = Device(PageWithExtension(text));
    EXPECT_EQ(b2c.support_seek_playback, 3);
    EXPECT_EQ(b2c.support_seek_v2, 9) << "the name goes before the number";
    EXPECT_EQ(b2c.support_quickplay_way, 5);
    EXPECT_EQ(b2c.support_device_playback_small_speed, 6);
    EXPECT_EQ(b2c.support_ptz, 1);
}

TEST_F(ConsumerPage, ExtensionAsAnObjectReadsLikeItsText) {
    bB2CMode = true;
    const Json extension = Json::parse(GoldenPage().at("/deviceInfos/1/supportExt"_json_pointer).get<std::string>());
    const DevDetailInfo fromText = Device(PageWithExtension(extension.dump()));
    Json page = GoldenPage();
    page["deviceInfos"][1]["supportExt"] = extension;
    EXPECT_TRUE(Same(Device(page), fromText));
}

TEST_F(ConsumerPage, ExtensionThatIsNoObjectGivesNoCapabilities) {
    for (const std::string& value : OddValues()) {
        const DevDetailInfo& device = Device(WithValue(GoldenPage(), "/deviceInfos/1/supportExt", value));
        for (const auto& row : CapabilityMembers()) {
            EXPECT_EQ(row.Of(device), 0) << row.key << " " << value;
        }
        EXPECT_EQ(device.supportChannelNums, 20) << value;
    }
    for (const char* text : {"", "x", "{", "[]", "0|1|1", "{\"support_ptz\":"}) {
        const DevDetailInfo& device = Device(PageWithExtension(text));
        EXPECT_EQ(device.support_ptz, 0) << text;
        EXPECT_EQ(device.supportExtShort, text);
    }
}

TEST_F(ConsumerPage, ShortListOfThePlatformsFormIsReadByNumber) {
    std::string list = "9";
    for (int number = 2; number <= 836; ++number) {
        list += number == 257 ? "|3" : number == 836 ? "|4" : "|0";
    }
    const DevDetailInfo& device = Device(PageWithExtension(list));
    EXPECT_EQ(device.support_seek_playback, 3);
    EXPECT_EQ(device.support_seek_v2, 4);
    EXPECT_EQ(device.support_quickplay_way, 0);
}

}  // namespace
}  // namespace vantix::test
