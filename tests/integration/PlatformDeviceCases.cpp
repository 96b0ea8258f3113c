// Requests about one device.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "RecordJson.h"
#include "platform/DeviceDetail.h"

namespace vantix::test {
namespace {

Detail Before() {
    Detail detail;
    detail.channel.cameraId = "before";
    detail.device.deviceIP = "before";
    detail.device.iCloseBlong = 1;
    return detail;
}

/// The record's members that the cloud stores, and what the request itself notes.
void ExpectDetail(const Json& output, const SimulatorClient& cloud, const std::string& serial, int cameraNo) {
    const Json camera = cloud.Camera(serial, cameraNo);
    for (const auto& [key, value] : output.at("channel").items()) {
        EXPECT_EQ(value, camera.at(key)) << key;
    }
    const Json stored = cloud.Device(serial).at("device");
    Json device = output.at("device");
    EXPECT_EQ(device.at("iRequestCost"), kCost);
    EXPECT_EQ(device.at("tCacheTime"), 1'800'000'000);
    EXPECT_EQ(device.at("isUpdate"), false);
    EXPECT_EQ(device.at("isFromCache"), false);
    EXPECT_EQ(device.at("iCloseBlong"), 1) << "the host's flag is not touched";
    for (const char* key : {"iRequestCost", "tCacheTime", "isUpdate", "isFromCache", "iCloseBlong"}) {
        device.erase(key);
    }
    for (const auto& [key, value] : device.items()) {
        if (stored.contains(key)) {
            EXPECT_EQ(value, stored.at(key)) << key;
        } else if (key == "iShareVerif") {
            EXPECT_EQ(std::to_string(value.get<int>()), stored.at("qxDeviceSupportExt").at("ShareVerify"));
        } else {
            const std::string text = value.is_string() ? value.get<std::string>() : std::to_string(value.get<int>());
            EXPECT_EQ(text, stored.at("supportExt").at(key)) << key;
        }
    }
}

PlatformCase DevDetail() {
    return {.name = "DevDetail",
            .function = "GetDevDetailInfoFromPlatformBySerial",
            .transport = "SyncRequest",
            .path = "/api/device/detail",
            .parameters = WithClient({{"appKey", "$key"},
                                      {"deviceSerial", "B30000003"},
                                      {"cameraNo", "1"},
                                      {"version", "4.0"},
                                      {"isNewVersion", "true"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    Detail detail = Before();
                    std::optional<BelongDevInfo> parent;
                    const int result = GetDevDetailInfoFromPlatformBySerial(caller, "B30000003", 1, detail.channel,
                                                                            detail.device, parent);
                    output = ToJson(detail);
                    output["parent"] = parent ? ToJson(*parent) : Json();
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    ExpectDetail(output, cloud, "B30000003", 1);
                    const Json parent = cloud.Device("R20000016").at("device");
                    for (const auto& [key, value] : output.at("parent").items()) {
                        EXPECT_EQ(value, parent.at(key)) << key;
                    }
                },
            .parser = "ParseDevDetailInfoFromPlatform",
            .label = "ParseDevDetailInfoFromPlatform",
            .cost = "/api/device/detail"};
}

PlatformCase DeviceDetailOfAnotherPlatform() {
    return {.name = "DeviceDetailOfAnotherPlatform",
            .function = "GetDeviceDetailInfoFromPlatformBySerial",
            .transport = "SyncRequest",
            .path = "/api/device/detail",
            .parameters = WithClient({{"appKey", "$key"},
                                      {"deviceSerial", "R20000016"},
                                      {"cameraNo", "16"},
                                      {"bizType", "GB"},
                                      {"platFormId", "P-7"},
                                      {"version", "1.0"},
                                      {"isNewVersion", "true"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    Detail detail = Before();
                    const int result = GetDeviceDetailInfoFromPlatformBySerial(caller, "R20000016", 16, "GB", "P-7",
                                                                               detail.channel, detail.device);
                    output = ToJson(detail);
                    return result;
                },
            .expect = [](const Json& output,
                         const SimulatorClient& cloud) { ExpectDetail(output, cloud, "R20000016", 16); },
            .parser = "ParseDeviceDetailInfoFromPlatform",
            .label = "ParseDeviceDetailInfoFromPlatform",
            .cost = "/api/device/detail"};
}

PlatformCase DeviceInfo() {
    return {.name = "DeviceInfo",
            .function = "GetDeviceInfoBySerialFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/device/getDeviceInfo",
            .parameters = WithClient({{"deviceSerial", "C10000001"}, {"version", "2.0"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    std::string json = "before";
                    const int result = GetDeviceInfoBySerialFromPlatform(caller, "C10000001", json);
                    output = json;
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json data = Json::parse(output.get<std::string>()).at("result").at("data");
                    const Json device = cloud.Device("C10000001");
                    EXPECT_EQ(data.at("deviceSerial"), "C10000001");
                    EXPECT_EQ(data.at("deviceName"), device.at("deviceName"));
                    EXPECT_EQ(data.at("releaseVersion"), device.at("device").at("releaseVersion"));
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatform",
            .parserLogsCode = false};
}

}  // namespace

std::vector<PlatformCase> DeviceCases() { return {DevDetail(), DeviceDetailOfAnotherPlatform(), DeviceInfo()}; }

}  // namespace vantix::test
