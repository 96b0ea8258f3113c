// The list of shared devices, translated member by member into the platform's shape.

#include "cserver/Lists.h"

#include "cserver/Thumbnails.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseB2CDeviceListFromPlatform";
constexpr char kRequest[] = "GetB2CSharedDevListFromPlatform";

Json Golden() {
    return Json::parse(R"({"meta":{"code":200},"data":{"size":1,"total":12,"resourceInfos":[{
        "deviceSerial":"S","deviceName":"name-1","deviceType":"type-2","category":"category-3","addTime":"time-4",
        "status":5,"isEncrypted":6,"isDefence":7,"alarmSoundMode":8,"offlineNotify":9,"supportExtShort":"short-10",
        "deviceVesion":"version-11","notRead":12,
        "cameraInfos":[
            {"cameraNo":13,"cameraId":"not read","cameraName":"not read","isShared":14,"permission":15,
             "cameraCover":"not read",
             "videoQualityInfos":[{"videoQualityName":"quality-16","streamType":17,"videoLevel":18},
                                  {"videoQualityName":"quality-19","streamType":20}]},
            {"channelNo":21}],
        "detectorInfos":[{},{},{}]}]}})");
}

/// What the golden list becomes.
Json GoldenList() {
    Json list = Json::parse(R"({"result":{"code":"200","page":{"size":1,"total":12},"data":{"deviceInfos":[{
        "deviceSerial":"S","deviceName":"name-1","deviceType":"type-2","category":"category-3","addTime":"time-4",
        "status":5,"isEncrypt":6,"defence":7,"alarmSoundMode":8,"offlineNotify":9,"supportExtShort":"short-10",
        "deviceVersion":"version-11","cameraNum":2,"detectorNum":3,
        "cameraInfo":[
            {"cameraNo":13,"cameraName":"camera 13@S","isShared":14,"permission":15,
             "videoQualityInfos":[{"videoQualityName":"quality-16","streamType":17},
                                  {"videoQualityName":"quality-19","streamType":20}]},
            {"cameraNo":21,"cameraName":"camera 21@S","videoQualityInfos":[]}]}]}}})");
    Json& device = list["result"]["data"]["deviceInfos"][0];
    device["deviceCover"] = kDefaultDeviceCover;
    for (Json& camera : device["cameraInfo"]) {
        camera["cameraCover"] = kDefaultCameraCover;
    }
    return list;
}

class SharedDevices : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        list = "before";
        lines.Clear();
        return ParseB2CDeviceListFromPlatform(body, list);
    }
    /// The first device of the list that an answer becomes.
    Json Device(const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        return Json::parse(list).at("result").at("data").at("deviceInfos").at(0);
    }
    Json Device(const Json& answer) { return Device(answer.dump()); }

    ScriptedTransport transport;
    std::string list;
};

Json& Resource(Json& answer) { return answer["data"]["resourceInfos"][0]; }

TEST_F(SharedDevices, BecomeAListOfThePlatform) {
    EXPECT_EQ(Parse(Golden().dump()), 0);
    EXPECT_EQ(Json::parse(list), GoldenList());
    EXPECT_EQ(list.find_first_of(" \n"), list.find(" 13@S")) << "compact";
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(SharedDevices, MembersAreCarriedOverAsTheyAre) {
    const struct {
        const char* from;
        const char* to;
    } rows[] = {{"deviceSerial", "deviceSerial"},
                {"deviceName", "deviceName"},
                {"category", "category"},
                {"addTime", "addTime"},
                {"status", "status"},
                {"isEncrypted", "isEncrypt"},
                {"isDefence", "defence"},
                {"alarmSoundMode", "alarmSoundMode"},
                {"offlineNotify", "offlineNotify"},
                {"supportExtShort", "supportExtShort"},
                {"deviceVesion", "deviceVersion"}};
    for (const auto& row : rows) {
        const std::string place = std::string("/data/resourceInfos/0/") + row.from;
        EXPECT_FALSE(Device(Without(Golden(), place)).contains(row.to)) << row.to;
        for (const std::string& value : OddValues()) {
            EXPECT_EQ(Device(WithValue(Golden(), place, value)).at(row.to), Json::parse(value)) << row.to << value;
        }
    }
}

TEST_F(SharedDevices, VersionIsReadUnderItsMisspelledNameOnly) {
    Json answer = Golden();
    Resource(answer).erase("deviceVesion");
    Resource(answer)["deviceVersion"] = "well spelled";
    EXPECT_FALSE(Device(answer).contains("deviceVersion"));
}

TEST_F(SharedDevices, TypeIsUnknownWhenItIsNotTold) {
    const std::string place = "/data/resourceInfos/0/deviceType";
    EXPECT_EQ(Device(Without(Golden(), place)).at("deviceType"), "UNKNOWN");
    for (const std::string& value : OddValues()) {
        EXPECT_EQ(Device(WithValue(Golden(), place, value)).at("deviceType"), AfterReading(true, value, "UNKNOWN"));
    }
}

TEST_F(SharedDevices, CoversAreAlwaysTheBuildsOwn) {
    Json answer = Golden();
    Resource(answer)["deviceCover"] = "https://mine";
    EXPECT_EQ(Device(answer).at("deviceCover"), kDefaultDeviceCover);
    EXPECT_EQ(Device(answer).at("cameraInfo").at(0).at("cameraCover"), kDefaultCameraCover);
}

TEST_F(SharedDevices, CamerasAndDetectorsAreCountedBesideDataOrInsideIt) {
    Json answer = Golden();
    Json& resource = Resource(answer);
    resource["data"] = {{"cameraInfos", resource["cameraInfos"]}, {"detectorInfos", {1, 2}}};
    resource.erase("cameraInfos");
    resource.erase("detectorInfos");
    EXPECT_EQ(Device(answer).at("cameraNum"), 2);
    EXPECT_EQ(Device(answer).at("detectorNum"), 2);
    EXPECT_EQ(Device(answer).at("cameraInfo").at(0).at("cameraName"), "camera 13@S");
}

TEST_F(SharedDevices, ListsOfAnotherTypeAreEmpty) {
    for (const std::string& value : OddValues()) {
        if (value[0] == '[') {
            continue;
        }
        const Json device = Device(WithValue(Golden(), "/data/resourceInfos/0/cameraInfos", value));
        EXPECT_EQ(device.at("cameraNum"), 0) << value;
        EXPECT_EQ(device.at("cameraInfo"), Json::array()) << value;
        EXPECT_EQ(Device(WithValue(Golden(), "/data/resourceInfos/0/detectorInfos", value)).at("detectorNum"), 0);
        const std::string place = "/data/resourceInfos/0/cameraInfos/0/videoQualityInfos";
        const Json camera = Device(WithValue(Golden(), place, value)).at("cameraInfo").at(0);
        EXPECT_EQ(camera.at("videoQualityInfos"), Json::array()) << value;
    }
}

TEST_F(SharedDevices, CamerasNumberIsThatOfEitherName) {
    const struct {
        const char* camera;
        int number;
    } rows[] = {{R"({"cameraNo":3})", 3},
                {R"({"channelNo":4})", 4},
                {R"({"cameraNo":3,"channelNo":4})", 3},
                {R"({"cameraNo":"3","channelNo":4})", 4},
                {R"({"cameraNo":"3"})", 0},
                {R"({"cameraNo":-1})", -1},
                {R"({"cameraNo":2147483648})", 0},
                {"{}", 0},
                {"5", 0},
                {"null", 0}};
    for (const auto& row : rows) {
        const std::string body = WithValue(Golden(), "/data/resourceInfos/0/cameraInfos/0", row.camera);
        const Json camera = Device(body).at("cameraInfo").at(0);
        EXPECT_EQ(camera.at("cameraNo"), row.number) << row.camera;
        EXPECT_EQ(camera.at("cameraName"), "camera " + std::to_string(row.number) + "@S") << row.camera;
    }
}

TEST_F(SharedDevices, NameOfACameraOfANamelessDeviceEndsAtTheSign) {
    for (const char* value : {"5", "null", "\"\""}) {
        const Json device = Device(WithValue(Golden(), "/data/resourceInfos/0/deviceSerial", value));
        EXPECT_EQ(device.at("cameraInfo").at(0).at("cameraName"), "camera 13@") << value;
    }
}

TEST_F(SharedDevices, QualitiesCarryTheirTwoMembersOnly) {
    const std::string place = "/data/resourceInfos/0/cameraInfos/0/videoQualityInfos/0";
    for (const char* member : {"videoQualityName", "streamType"}) {
        const Json camera = Device(Without(Golden(), place + "/" + member)).at("cameraInfo").at(0);
        EXPECT_FALSE(camera.at("videoQualityInfos").at(0).contains(member));
        EXPECT_EQ(camera.at("videoQualityInfos").at(0).size(), 1U);
    }
    for (const char* value : {"5", "null", "[]", "{}"}) {
        const Json camera = Device(WithValue(Golden(), place, value)).at("cameraInfo").at(0);
        EXPECT_EQ(camera.at("videoQualityInfos").at(0), Json::object()) << value;
        EXPECT_EQ(camera.at("videoQualityInfos").size(), 2U) << value;
    }
}

TEST_F(SharedDevices, ResourcesThatAreNoObjectsAreSkipped) {
    EXPECT_EQ(Parse(R"({"data":{"resourceInfos":[5,null,"x",[],{"deviceSerial":"A"},{}]}})"), 0);
    const Json devices = Json::parse(list).at("result").at("data").at("deviceInfos");
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0].at("deviceSerial"), "A");
    EXPECT_EQ(devices[1], Json({{"cameraInfo", Json::array()},
                                {"cameraNum", 0},
                                {"detectorNum", 0},
                                {"deviceCover", kDefaultDeviceCover},
                                {"deviceType", "UNKNOWN"}}));
    EXPECT_EQ(Parse(R"({"data":{"resourceInfos":[]}})"), 0);
    EXPECT_EQ(list, R"({"result":{"code":"200","data":{"deviceInfos":[]},"page":{}}})");
}

TEST_F(SharedDevices, PagingNumbersStandBesideDataOrInsideIt) {
    EXPECT_EQ(Parse(R"({"size":1,"total":2,"data":{"size":3,"resourceInfos":[]}})"), 0);
    EXPECT_EQ(Json::parse(list).at("result").at("page"), Json({{"size", 1}, {"total", 2}}));
}

TEST_F(SharedDevices, ResourcesMustBeThere) {
    std::vector<std::pair<std::string, const char*>> rows = {
        {"{}", "data"}, {"[]", "data"}, {"5", "data"}, {"null", "data"}, {R"({"resourceInfos":[]})", "data"}};
    rows.emplace_back(Without(Golden(), "/data/resourceInfos"), "resourceInfos");
    for (const std::string& value : OddValues()) {
        if (value[0] != '[') {
            rows.emplace_back(WithValue(Golden(), "/data/resourceInfos", value), "resourceInfos");
        }
        if (value[0] != '{') {
            rows.emplace_back(WithValue(Golden(), "/data", value), "data");
        }
    }
    for (const auto& [body, name] : rows) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(
                                       5, "ERROR", kTag,
                                       "platform response invalid, szInfo = " + body + ", " + name + " not exist!")));
        EXPECT_EQ(list, "before");
    }
}

TEST_F(SharedDevices, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_EQ(list, "before");
        if (body.size() < 1000) {
            EXPECT_THAT(lines.Lines(),
                        testing::ElementsAre(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)));
        }
    }
    ExpectTruncationIsNoJson(Golden().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(SharedDevices, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Golden(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(
                                           3, "INFO ", kTag,
                                           "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + body)));
            EXPECT_EQ(list, "before");
        }
    }
    EXPECT_EQ(Parse(Without(Golden(), "/meta")), 0);
}

TEST_F(SharedDevices, RequestHandsTheListOut) {
    transport.Respond(Golden().dump());
    EXPECT_EQ(GetB2CSharedDevListFromPlatform({"https://c.example", "the-session", "the-app"}, 0, 50, list), 0);
    EXPECT_EQ(Json::parse(list), GoldenList());
    list = "before";
    transport.Respond(R"({"meta":{"code":401}})");
    EXPECT_EQ(GetB2CSharedDevListFromPlatform({"https://c.example", "the-session", "the-app"}, 0, 50, list), 300401);
    EXPECT_EQ(list, "before");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kRequest, R"(ParseB2CDeviceListFromPlatform:{"meta":{"code":401}} error:401)"));
    EXPECT_FALSE(lines.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
