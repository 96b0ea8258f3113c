// The list of shared devices, translated member by member into the platform's shape.

#include "cserver/Lists.h"

#include "cserver/Thumbnails.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kListsTag[] = "ParseB2CDeviceListFromPlatform";
constexpr char kListsRequest[] = "GetB2CSharedDevListFromPlatform";

Json Whole() {
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

/// What it becomes.
Json PlatformList() {
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

class SharedDevices : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        list = "before";
        m_log.Clear();
        return ParseB2CDeviceListFromPlatform(body, list);
    }
    /// The first device of the list that a response becomes.
    Json Device(const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        return Json::parse(list).at("result").at("data").at("deviceInfos").at(0);
    }
    Json Device(const Json& response) { return Device(response.dump()); }

    ScriptedTransport transport;
    std::string list;
};

Json& Resource(Json& response) { return response["data"]["resourceInfos"][0]; }

TEST_F(SharedDevices, BecomeAListOfThePlatform) {
    EXPECT_EQ(Parse(Whole().dump()), 0);
    EXPECT_EQ(Json::parse(list), PlatformList());
    EXPECT_EQ(list.find_first_of(" \n"), list.find(" 13@S")) << "compact";
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(SharedDevices, MembersAreCopiedAsTheyAre) {
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
        EXPECT_FALSE(Device(Without(Whole(), place)).contains(row.to)) << row.to;
        for (const std::string& value : AnyValues()) {
            EXPECT_EQ(Device(WithValue(Whole(), place, value)).at(row.to), Json::parse(value)) << row.to << value;
        }
    }
}

TEST_F(SharedDevices, VersionIsReadUnderItsMisspelledNameOnly) {
    Json response = Whole();
    Resource(response).erase("deviceVesion");
    Resource(response)["deviceVersion"] = "well spelled";
    EXPECT_FALSE(Device(response).contains("deviceVersion"));
}

TEST_F(SharedDevices, TypeIsUnknownWhenItIsNoText) {
    const std::string place = "/data/resourceInfos/0/deviceType";
    EXPECT_EQ(Device(Without(Whole(), place)).at("deviceType"), "UNKNOWN");
    for (const MemberValue& value : TextValues()) {
        EXPECT_EQ(Device(WithValue(Whole(), place, value.sent)).at("deviceType"),
                  value.taken == nullptr ? Json("UNKNOWN") : Json::parse(value.taken));
    }
}

TEST_F(SharedDevices, CoversAreAlwaysTheBuildsOwn) {
    Json response = Whole();
    Resource(response)["deviceCover"] = "https://mine";
    EXPECT_EQ(Device(response).at("deviceCover"), kDefaultDeviceCover);
    EXPECT_EQ(Device(response).at("cameraInfo").at(0).at("cameraCover"), kDefaultCameraCover);
}

TEST_F(SharedDevices, CamerasAndDetectorsAreCountedBesideDataOrInsideIt) {
    Json response = Whole();
    Json& resource = Resource(response);
    resource["data"] = {{"cameraInfos", resource["cameraInfos"]}, {"detectorInfos", {1, 2}}};
    resource.erase("cameraInfos");
    resource.erase("detectorInfos");
    EXPECT_EQ(Device(response).at("cameraNum"), 2);
    EXPECT_EQ(Device(response).at("detectorNum"), 2);
    EXPECT_EQ(Device(response).at("cameraInfo").at(0).at("cameraName"), "camera 13@S");
}

TEST_F(SharedDevices, ListsOfAnotherTypeAreEmpty) {
    for (const MemberValue& value : NoArrays()) {
        const Json device = Device(WithValue(Whole(), "/data/resourceInfos/0/cameraInfos", value.sent));
        EXPECT_EQ(device.at("cameraNum"), 0) << value.sent;
        EXPECT_EQ(device.at("cameraInfo"), Json::array()) << value.sent;
        EXPECT_EQ(Device(WithValue(Whole(), "/data/resourceInfos/0/detectorInfos", value.sent)).at("detectorNum"), 0);
        const std::string place = "/data/resourceInfos/0/cameraInfos/0/videoQualityInfos";
        const Json camera = Device(WithValue(Whole(), place, value.sent)).at("cameraInfo").at(0);
        EXPECT_EQ(camera.at("videoQualityInfos"), Json::array()) << value.sent;
    }
}

TEST_F(SharedDevices, CamerasNumberIsThatOfEitherName) {
    const struct {
        const char* camera;
        int number;
        const char* name;
    } rows[] = {{R"({"cameraNo":3})", 3, "camera 3@S"},
                {R"({"channelNo":4})", 4, "camera 4@S"},
                {R"({"cameraNo":3,"channelNo":4})", 3, "camera 3@S"},
                {R"({"cameraNo":"3","channelNo":4})", 4, "camera 4@S"},
                {R"({"cameraNo":"3"})", 0, "camera 0@S"},
                {R"({"cameraNo":-1})", -1, "camera -1@S"},
                {R"({"cameraNo":2147483648})", 0, "camera 0@S"},
                {"{}", 0, "camera 0@S"},
                {"5", 0, "camera 0@S"},
                {"null", 0, "camera 0@S"}};
    for (const auto& row : rows) {
        const std::string body = WithValue(Whole(), "/data/resourceInfos/0/cameraInfos/0", row.camera);
        const Json camera = Device(body).at("cameraInfo").at(0);
        EXPECT_EQ(camera.at("cameraNo"), row.number) << row.camera;
        EXPECT_EQ(camera.at("cameraName"), row.name) << row.camera;
    }
}

TEST_F(SharedDevices, NameOfACameraOfANamelessDeviceEndsAtTheSign) {
    for (const char* value : {"5", "null", "\"\""}) {
        const Json device = Device(WithValue(Whole(), "/data/resourceInfos/0/deviceSerial", value));
        EXPECT_EQ(device.at("cameraInfo").at(0).at("cameraName"), "camera 13@") << value;
    }
}

TEST_F(SharedDevices, QualitiesHaveTheirTwoMembersOnly) {
    const std::string place = "/data/resourceInfos/0/cameraInfos/0/videoQualityInfos/0";
    for (const char* member : {"videoQualityName", "streamType"}) {
        const Json camera = Device(Without(Whole(), place + "/" + member)).at("cameraInfo").at(0);
        EXPECT_FALSE(camera.at("videoQualityInfos").at(0).contains(member));
        EXPECT_EQ(camera.at("videoQualityInfos").at(0).size(), 1U);
    }
    for (const char* value : {"5", "null", "[]", "{}"}) {
        const Json camera = Device(WithValue(Whole(), place, value)).at("cameraInfo").at(0);
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
    rows.emplace_back(Without(Whole(), "/data/resourceInfos"), "resourceInfos");
    for (const MemberValue& value : NoArrays()) {
        rows.emplace_back(WithValue(Whole(), "/data/resourceInfos", value.sent), "resourceInfos");
    }
    for (const MemberValue& value : NoObjects()) {
        rows.emplace_back(WithValue(Whole(), "/data", value.sent), "data");
    }
    for (const auto& [body, name] : rows) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kListsTag,
                                     "platform response invalid, szInfo = " + body + ", " + name + " not exist!")));
        EXPECT_EQ(list, "before");
    }
}

TEST_F(SharedDevices, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_EQ(list, "before");
        EXPECT_THAT(m_log.Lines(), ElementsAre(Line(5, "ERROR", kListsTag, "platform response bad, szInfo = " + body)));
    }
    ExpectTruncationIsNoJson(Whole().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(SharedDevices, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Whole(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(m_log.Lines(), ElementsAre(Line(3, "INFO ", kListsTag, row.line + body)));
            EXPECT_EQ(list, "before");
        }
    }
    EXPECT_EQ(Parse(Without(Whole(), "/meta")), 0);
}

TEST_F(SharedDevices, RequestHandsTheListOut) {
    transport.Respond(Whole().dump());
    EXPECT_EQ(GetB2CSharedDevListFromPlatform(Route(), 0, 50, list), 0);
    EXPECT_EQ(Json::parse(list), PlatformList());
    list = "before";
    transport.Respond(R"({"meta":{"code":401}})");
    EXPECT_EQ(GetB2CSharedDevListFromPlatform(Route(), 0, 50, list), 300401);
    EXPECT_EQ(list, "before");
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kListsRequest,
                                             R"(ParseB2CDeviceListFromPlatform:{"meta":{"code":401}} error:401)"))
                                   .Times(1));
    EXPECT_FALSE(m_log.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
