// Requests about one device.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

constexpr char kDetail[] =
    R"({"result":{"code":"200","data":{"camera":{"cameraId":"cam-1","cameraNo":1},"device":{"deviceSerial":"C10000001",)"
    R"("deviceIP":"203.0.113.7","releaseVersion":"VERSION_17","supportExt":{"support_ptz":"1"}}}}})";

/// The record is a fresh one but for the host's flag.
const Json kDetailFills = {{"channel", {{"cameraId", "cam-1"}, {"cameraNo", 1}}},
                           {"detail",
                            {{"deviceSerial", "C10000001"},
                             {"deviceIP", "203.0.113.7"},
                             {"releaseVersion", "VERSION_17"},
                             {"support_ptz", 1},
                             {"iRequestCost", 3},
                             {"tCacheTime", 1'800'000'000},
                             {"isFromCache", false}}}};

RequestCase DevDetail() {
    return {.name = "DevDetail",
            .function = "GetDevDetailInfoFromPlatformBySerial",
            .operation = "getDevDetailInfoSync",
            .arguments = {.force = true},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/detail",
            .body =
                "accessToken=access-token&appKey=app-key&cameraNo=1&clientType=19&clientVersion=v5.25.0"
                "&deviceSerial=C10000001&featureCode=$feature&isNewVersion=true&netType=UNKNOWN&osVersion=wins"
                "&sdkVersion=v5.25.0.20260515&version=4.0",
            .response = kDetail,
            .fills = kDetailFills,
            .costLines = {"/api/device/detail CostTime: = 3 milliseconds"},
            .costFills = {{"detail", {{"iRequestCost", 3}}}},
            .refusals = ParserRefusals("GetDevDetailInfoFromPlatformBySerial", "ParseDevDetailInfoFromPlatform",
                                       "ParseDevDetailInfoFromPlatform")};
}

RequestCase DeviceDetailOfAnotherPlatform() {
    return {.name = "DeviceDetailOfAnotherPlatform",
            .function = "GetDeviceDetailInfoFromPlatformBySerial",
            .operation = "getDeviceDetailInfo",
            .arguments = {.ch = 16, .bizType = "GB", .platFormId = "P-7"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/detail",
            .body =
                "accessToken=access-token&appKey=app-key&bizType=GB&cameraNo=16&clientType=19"
                "&clientVersion=v5.25.0&deviceSerial=C10000001&featureCode=$feature&isNewVersion=true"
                "&netType=UNKNOWN&osVersion=wins&platFormId=P-7&sdkVersion=v5.25.0.20260515&version=1.0",
            .response = kDetail,
            .fills = kDetailFills,
            .costLines = {"/api/device/detail CostTime: = 3 milliseconds"},
            .costFills = {{"detail", {{"iRequestCost", 3}}}},
            .refusals = ParserRefusals("GetDeviceDetailInfoFromPlatformBySerial", "ParseDeviceDetailInfoFromPlatform",
                                       "ParseDeviceDetailInfoFromPlatform")};
}

RequestCase DeviceInfo() {
    return {.name = "DeviceInfo",
            .function = "GetDeviceInfoBySerialFromPlatform",
            .operation = "getDeviceInfoBySerial",
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/getDeviceInfo",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&deviceSerial=C10000001"
                "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0",
            .response = R"({"result":{"code":"200","data":{"deviceName":"Gate camera"}}})",
            .fills = {{"text", R"({"result":{"code":"200","data":{"deviceName":"Gate camera"}}})"}},
            .refusals = CheckRefusals("GetDeviceInfoBySerialFromPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatform")};
}

}  // namespace

std::vector<RequestCase> DeviceRequests() { return {DevDetail(), DeviceDetailOfAnotherPlatform(), DeviceInfo()}; }

}  // namespace vantix::test
