// Requests for lists of devices and alarms.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "cserver/Lists.h"
#include "platform/Lists.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

/// The channels of the cloud's devices, own or shared ones, as the list shows them.
Json StoredList(const SimulatorClient& cloud, bool shared) {
    Json list = {{"total", 0}, {"devices", Json::array()}};
    const Json devices = cloud.Get("/devices");
    for (const Json& device : devices) {
        if (device.at("shared") != shared) {
            continue;
        }
        list["total"] = list["total"].get<int>() + 1;
        for (const Json& camera : device.at("cameras")) {
            list["devices"].push_back({{"deviceSerial", device.at("deviceSerial")},
                                       {"channelNo", camera.at("cameraNo")},
                                       {"name", camera.at("cameraName")},
                                       {"deviceName", device.at("deviceName")},
                                       {"deviceType", device.at("deviceType")},
                                       {"status", camera.at("status")},
                                       {"isEncrypt", device.at("device").at("isEncrypt")}});
        }
    }
    return list;
}

template <class Request>
auto IntoList(Request request) {
    return [request](const Caller& caller, Json& output) {
        DeviceList list;
        list.total = 4711;
        list.devices.push_back({.deviceSerial = "before", .name = "", .deviceName = "", .deviceType = ""});
        const int result = request(caller, list);
        output = ToJson(list);
        return result;
    };
}

PlatformCase OwnDevices() {
    return {
        .name = "OwnDevices",
        .function = "GetDevListFromPlatform",
        .transport = "SyncRequest",
        .path = "/api/device/list",
        .parameters = WithClient({{"pageStart", "0"}, {"pageSize", "50"}, {"version", "2.0"}}),
        .call = IntoList(
            [](const Caller& caller, DeviceList& list) { return GetDevListFromPlatform(caller, 0, 50, list); }),
        .expect = [](const Json& output, const SimulatorClient& cloud) { EXPECT_EQ(output, StoredList(cloud, false)); },
        .parser = "ParseDeviceListFromPlatform",
        .label = "ParseCameraListFromPlatform"};
}

PlatformCase BusinessDevices() {
    PlatformCase row = OwnDevices();
    row.name = "BusinessDevices";
    row.function = "GetDeviceListFromPlatform";
    row.path = "/api/lapp/device/list";
    row.parameters = {
        {"accessToken", "$token"}, {"pageStart", "0"}, {"pageSize", "50"}, {"bizType", "GB"}, {"version", "1.0"}};
    row.call = IntoList(
        [](const Caller& caller, DeviceList& list) { return GetDeviceListFromPlatform(caller, 0, 50, "GB", list); });
    row.parser = "ParseDeviceListFromPlatform_GB";
    row.transportFailure = "GetDevList_GBFromPlatform SyncRequest error:";
    return row;
}

PlatformCase SharedDevices() {
    PlatformCase row = OwnDevices();
    row.name = "SharedDevices";
    row.function = "GetShareDevListFromPlatform";
    row.path = "/api/device/sharelist";
    row.call = IntoList(
        [](const Caller& caller, DeviceList& list) { return GetShareDevListFromPlatform(caller, 0, 50, list); });
    row.expect = [](const Json& output, const SimulatorClient& cloud) { EXPECT_EQ(output, StoredList(cloud, true)); };
    return row;
}

PlatformCase Alarms() {
    return {.name = "Alarms",
            .function = "GetAlarmListFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/alarm/list",
            .parameters = WithClient({{"deviceSerial", "C10000001"},
                                      {"cameraNo", "1"},
                                      {"pageStart", "0"},
                                      {"pageSize", "20"},
                                      {"startTime", "2024-01-02 00:00:00"},
                                      {"endTime", "2024-01-02 23:59:59"},
                                      {"alarmType", "-1"},
                                      {"status", "2"},
                                      {"version", "2.0"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    std::string json = "before";
                    const AlarmQuery query{0, 20, "2024-01-02 00:00:00", "2024-01-02 23:59:59", -1, 2};
                    const int result = GetAlarmListFromPlatform(caller, "C10000001", 1, query, json);
                    output = json;
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    Json alarms = Json::array();
                    const Json account = cloud.Get("/account");
                    for (const Json& alarm : account.at("alarms")) {
                        if (alarm.at("deviceSerial") == "C10000001") {
                            alarms.push_back(alarm);
                        }
                    }
                    EXPECT_EQ(Json::parse(output.get<std::string>()).at("result").at("data"), alarms);
                    EXPECT_EQ(alarms.size(), 2U);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatform",
            .transportFailure = "SyncRequest, ERROR:",
            .parserLogsCode = false};
}

/// What others share on the consumer servers comes as a text in the shape of the platform's own list.
PlatformCase ConsumerSharedDevices() {
    return {.name = "ConsumerSharedDevices",
            .function = "GetB2CSharedDevListFromPlatform",
            .transport = "SyncRequestHeader",
            .path = "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
            .parameters = {{"offset", "0"}, {"limit", "20"}},
            .call =
                [](const Caller& caller, Json& output) {
                    std::string text = "before";
                    const int result = GetB2CSharedDevListFromPlatform(caller, 0, 20, text);
                    output = text;
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    DeviceList list;
                    ASSERT_EQ(ParseDeviceListFromPlatform(output.get<std::string>(), list), 0) << output;
                    const Json stored = StoredList(cloud, true).at("devices");
                    const Json devices = ToJson(list).at("devices");
                    ASSERT_EQ(devices.size(), stored.size());
                    for (size_t i = 0; i < stored.size(); ++i) {
                        for (const char* key : {"deviceSerial", "channelNo", "deviceName", "deviceType"}) {
                            EXPECT_EQ(devices[i].at(key), stored[i].at(key)) << key;
                        }
                    }
                },
            .parser = "ParseB2CDeviceListFromPlatform",
            .label = "ParseB2CDeviceListFromPlatform",
            .transportFailure = "SyncRequestHeader error:",
            .headers = {{"Content-Type", "application/x-www-form-urlencoded"}, {"sessionId", "$session"}},
            .isOnConsumer = true};
}

}  // namespace

std::vector<PlatformCase> ListCases() {
    return {OwnDevices(), BusinessDevices(), SharedDevices(), Alarms(), ConsumerSharedDevices()};
}

}  // namespace vantix::test
