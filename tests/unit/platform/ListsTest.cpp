// The lists of devices: one item a channel, in both shapes of the response.

#include "platform/Lists.h"

#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

constexpr char kInvalid[] = "platform response invalid, szInfo = $body";

DeviceList ListBefore() {
    DeviceList list;
    list.total = 4711;
    list.devices.push_back({.deviceSerial = "before", .name = "", .deviceName = "", .deviceType = ""});
    return list;
}

Json Item(const std::string& serial, int channel, const std::string& name, const std::string& deviceName, int status) {
    return {{"deviceSerial", serial}, {"channelNo", channel}, {"name", name},  {"deviceName", deviceName},
            {"deviceType", "type"},   {"status", status},     {"isEncrypt", 1}};
}

/// A recorder with two channels, and a device that has none.
const Json kDevices = {{{"deviceSerial", "R1"},
                        {"deviceName", "recorder"},
                        {"deviceType", "type"},
                        {"status", 1},
                        {"isEncrypt", 1},
                        {"cameraInfo",
                         {{{"cameraNo", 1}, {"cameraName", "gate"}, {"status", 1}},
                          {{"cameraNo", 2}, {"cameraName", "yard"}, {"status", 2}}}}},
                       {{"deviceSerial", "C2"},
                        {"deviceName", "door"},
                        {"deviceType", "type"},
                        {"status", 1},
                        {"isEncrypt", 1},
                        {"cameraInfo", Json::array()}}};

/// Members of a channel and of a device without channels; of a recorder each field is in two items.
std::vector<ResponseMember> DeviceMembers(const std::string& devices) {
    std::vector<ResponseMember> members = MembersOf(
        devices + "/1/", "/devices/2/",
        {{"deviceSerial", TextValues}, {"deviceType", TextValues}, {"status", IntValues}, {"isEncrypt", IntValues}});
    const std::string camera = devices + "/0/cameraInfo/1/";
    members.push_back({.place = camera + "cameraNo", .values = IntValues, .fields = {"/devices/1/channelNo"}});
    // What a channel does not say is the device's.
    members.push_back({.place = camera + "cameraName", .fields = {"/devices/1/name"}, .otherwise = "recorder"});
    members.push_back(
        {.place = camera + "status", .values = IntValues, .fields = {"/devices/1/status"}, .otherwise = 1});
    members.push_back({.place = devices + "/1", .values = NoObjects, .fields = {"/devices"}});
    members.back().otherwise =
        Json::array({Item("R1", 1, "gate", "recorder", 1), Item("R1", 2, "yard", "recorder", 2)});
    members.push_back({.place = devices + "/0/cameraInfo", .values = NoArrays, .fields = {"/devices"}});
    members.back().otherwise =
        Json::array({Item("R1", 0, "recorder", "recorder", 1), Item("C2", 0, "door", "door", 1)});
    members.push_back({.place = "/result/page/total", .values = IntValues, .fields = {"/total"}});
    members.push_back({.place = "/result/page", .values = NoObjects, .fields = {"/total"}});
    members.push_back({.place = "/result",
                       .values = NoObjects,
                       .isRequired = true,
                       .line = "Platform Response Error:$code, Resp:$body",
                       .word = "INFO "});
    members.push_back({.place = "/result/data",
                       .values = devices == "/result/data" ? NoArrays : NoObjects,
                       .isRequired = true,
                       .line = kInvalid});
    return members;
}

ParserCase Devices(const std::string& name, int (*parser)(TextView, DeviceList&), const Json& data,
                   const std::string& devices) {
    ParserCase row = CaseOf(name, parser, ListBefore());
    row.payload = {{"result", {{"data", data}, {"page", {{"total", 2}, {"page", 0}, {"size", 50}}}}}};
    row.after = {{"total", 2},
                 {"devices",
                  {Item("R1", 1, "gate", "recorder", 1), Item("R1", 2, "yard", "recorder", 2),
                   Item("C2", 0, "door", "door", 1)}}};
    const Json empty = ToJson(DeviceList{.total = 0, .devices = {DeviceListItem()}}).at("devices").at(0);
    row.defaults = {{"total", 0}, {"devices", {empty, empty, empty}}};
    row.members = DeviceMembers(devices);
    return row;
}

ParserCase OwnOrShared() {
    ParserCase row = Devices("ParseDeviceListFromPlatform", ParseDeviceListFromPlatform, {{"deviceInfos", kDevices}},
                             "/result/data/deviceInfos");
    row.members.push_back(
        {.place = "/result/data/deviceInfos", .values = NoArrays, .isRequired = true, .line = kInvalid});
    return row;
}

ParserCase OfABusiness() {
    return Devices("ParseDeviceListFromPlatform_GB", ParseDeviceListFromPlatform_GB, kDevices, "/result/data");
}

INSTANTIATE_TEST_SUITE_P(Lists, PlatformParser, ::testing::Values(OwnOrShared(), OfABusiness()),
                         [](const auto& row) { return row.param.name; });

class DeviceListResponse : public testing::Test {
protected:
    /// Reads a list of these devices.
    Json Read(const Json& devices) {
        DeviceList list = ListBefore();
        EXPECT_EQ(ParseDeviceListFromPlatform_GB(Json{{"result", {{"code", "200"}, {"data", devices}}}}.dump(), list),
                  0);
        EXPECT_TRUE(m_log.Lines().empty());
        return ToJson(list);
    }

    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(DeviceListResponse, EmptyListReplacesWhatWasThere) {
    EXPECT_EQ(Read(Json::array()), (Json{{"total", 0}, {"devices", Json::array()}}));
}

TEST_F(DeviceListResponse, NameOfADeviceIsThatOfItsOnlyItemAndOfItsNamelessChannels) {
    const Json list = Read({{{"deviceSerial", "C1"}, {"deviceName", "door"}},
                            {{"deviceSerial", "R2"},
                             {"deviceName", "recorder"},
                             {"status", 1},
                             {"cameraInfo", {{{"cameraNo", 7}}, {{"cameraNo", 8}, {"cameraName", ""}}}}}});
    ASSERT_EQ(list.at("devices").size(), 3U);
    EXPECT_EQ(list["devices"][0]["name"], "door");
    EXPECT_EQ(list["devices"][0]["channelNo"], 0);
    EXPECT_EQ(list["devices"][1]["name"], "recorder");
    EXPECT_EQ(list["devices"][1]["status"], 1);
    EXPECT_EQ(list["devices"][1]["channelNo"], 7);
    EXPECT_EQ(list["devices"][2]["name"], "") << "an empty name is a name";
}

TEST_F(DeviceListResponse, DevicesThatAreNoObjectsAreSkipped) {
    const Json list = Read({1, "C1", nullptr, Json::array(), {{"deviceSerial", "C2"}}, true});
    ASSERT_EQ(list.at("devices").size(), 1U);
    EXPECT_EQ(list["devices"][0]["deviceSerial"], "C2");
}

}  // namespace
}  // namespace vantix::test
