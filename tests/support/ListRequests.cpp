// Requests for lists of devices and alarms.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

constexpr char kDevices[] =
    R"({"result":{"code":"200","page":{"total":6},"data":{"deviceInfos":[{"deviceSerial":"D1","deviceName":"Gate",)"
    R"("deviceType":"T","status":1,"isEncrypt":1,"cameraInfo":[{"cameraNo":2,"cameraName":"Gate@2","status":0}]}]}}})";

const Json kDevicesFill = {{"devices",
                            {{"total", 6},
                             {"devices",
                              {{{"deviceSerial", "D1"},
                                {"channelNo", 2},
                                {"name", "Gate@2"},
                                {"deviceName", "Gate"},
                                {"deviceType", "T"},
                                {"status", 0},
                                {"isEncrypt", 1}}}}}}};

RequestCase OwnDevices() {
    return {.name = "OwnDevices",
            .function = "GetDevListFromPlatform",
            .operation = "getDevList",
            .arguments = {.pageStart = 3, .pageSize = 50},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/list",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&featureCode=$feature"
                "&netType=UNKNOWN&osVersion=wins&pageSize=50&pageStart=3&sdkVersion=v5.25.0.20260515&version=2.0",
            .response = kDevices,
            .fills = kDevicesFill,
            .refusals =
                ParserRefusals("GetDevListFromPlatform", "ParseDeviceListFromPlatform", "ParseCameraListFromPlatform")};
}

RequestCase BusinessDevices() {
    return {.name = "BusinessDevices",
            .function = "GetDeviceListFromPlatform",
            .operation = "getDeviceList",
            .arguments = {.pageStart = 3, .pageSize = 50, .bizType = "GB"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/lapp/device/list",
            .body = "accessToken=access-token&bizType=GB&pageSize=50&pageStart=3&version=1.0",
            .response =
                R"({"result":{"code":"200","page":{"total":1},"data":[{"deviceSerial":"D2","deviceName":"Yard"}]}})",
            .fills = {{"devices",
                       {{"total", 1},
                        {"devices",
                         {{{"deviceSerial", "D2"},
                           {"channelNo", 0},
                           {"name", "Yard"},
                           {"deviceName", "Yard"},
                           {"deviceType", ""},
                           {"status", 0},
                           {"isEncrypt", 0}}}}}}},
            .unsent = "GetDevList_GBFromPlatform SyncRequest error:7",
            .refusals = ParserRefusals("GetDeviceListFromPlatform", "ParseDeviceListFromPlatform_GB",
                                       "ParseCameraListFromPlatform")};
}

RequestCase SharedDevices() {
    return {.name = "SharedDevices",
            .function = "GetShareDevListFromPlatform",
            .operation = "getShareDevList",
            .arguments = {.pageStart = 0, .pageSize = 20},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/sharelist",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&featureCode=$feature"
                "&netType=UNKNOWN&osVersion=wins&pageSize=20&pageStart=0&sdkVersion=v5.25.0.20260515&version=2.0",
            .response = kDevices,
            .fills = kDevicesFill,
            .refusals = ParserRefusals("GetShareDevListFromPlatform", "ParseDeviceListFromPlatform",
                                       "ParseCameraListFromPlatform")};
}

RequestCase Alarms() {
    return {.name = "Alarms",
            .function = "GetAlarmListFromPlatform",
            .operation = "getAlarmList",
            .arguments = {.ch = 5,
                          .pageStart = 1,
                          .pageSize = 20,
                          .span = {"2024-01-02 00:00:00", "2024-01-02 23:59:59"},
                          .alarmType = -1,
                          .alarmStatus = 2},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/alarm/list",
            .body =
                "accessToken=access-token&alarmType=-1&cameraNo=5&clientType=19&clientVersion=v5.25.0"
                "&deviceSerial=C10000001&endTime=2024-01-02 23:59:59&featureCode=$feature&netType=UNKNOWN"
                "&osVersion=wins&pageSize=20&pageStart=1&sdkVersion=v5.25.0.20260515"
                "&startTime=2024-01-02 00:00:00&status=2&version=2.0",
            .response = R"({"result":{"code":"200","data":[{"alarmId":"AL1"}]}})",
            .fills = {{"text", R"({"result":{"code":"200","data":[{"alarmId":"AL1"}]}})"}},
            .unsent = "SyncRequest, ERROR:7",
            .refusals = CheckRefusals("GetAlarmListFromPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatform")};
}

}  // namespace

std::vector<RequestCase> ListRequests() { return {OwnDevices(), BusinessDevices(), SharedDevices(), Alarms()}; }

}  // namespace vantix::test
