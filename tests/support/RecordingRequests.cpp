// Requests about recordings and the upload of pictures.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

constexpr char kFile[] =
    R"([{"endTime":"2024-01-02 01:10:00","fileId":"file-1","size":4096,"startTime":"2024-01-02 01:00:00","type":2}])";

const Json kFileFills = {{"files",
                          {{"files",
                            {{{"startTime", "2024-01-02 01:00:00"},
                              {"endTime", "2024-01-02 01:10:00"},
                              {"type", 2},
                              {"size", 4096},
                              {"fileId", "file-1"}}}},
                           {"data", Json::parse(kFile)}}}};

RequestCase DeviceFiles(bool sdkPath) {
    return {.name = sdkPath ? "DeviceFilesOnTheSdkPath" : "DeviceFiles",
            .function = "GetDeviceFileBySerialFromPlatform",
            .operation = "getDeviceFileBySerial",
            .arguments = {.serial = "R20000016", .ch = 2, .recordType = 2, .location = 1, .sdkPath = sdkPath},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = sdkPath ? "/api/sdk/device/local/video" : "/api/v3/device/sdk/device/local/video",
            .body =
                "accessToken=access-token&cameraNo=2&clientType=19&clientVersion=v5.25.0&deviceSerial=R20000016"
                "&endTime=2024-01-02 23:59:59&featureCode=$feature&location=1&netType=UNKNOWN&osVersion=wins"
                "&recordType=2&sdkVersion=v5.25.0.20260515&startTime=2024-01-02 00:00:00",
            .response = std::string(R"({"result":{"code":"200","data":)") + kFile + "}}",
            .fills = kFileFills,
            .refusals = CheckRefusals("GetDeviceFileBySerialFromPlatform", "CheckResponseInfoFromPlatform",
                                      "GetLocalRecordFileBySerialFromPlatform")};
}

/// The first blank of a time is escaped here; a record type of 0 and no location are not sent.
RequestCase DeviceFilesExtended(const std::string& name, const Arguments& arguments, const std::string& query) {
    return {.name = name,
            .function = "GetDeviceFileBySerialFromPlatformEx",
            .operation = "getDeviceFileBySerialEx",
            .arguments = arguments,
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/v3/das/device/local/video/query",
            .query = query,
            .headers = {"Content-Type: application/x-www-form-urlencoded"},
            .response = std::string(R"({"meta":{"code":200},"data":)") + kFile + "}",
            .fills = kFileFills,
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("GetDeviceFileBySerialFromPlatformEx", "ParseLocalDeviceRecordFile",
                                       "ParseLocalDeviceRecordFile")};
}

RequestCase CloudSpaceFiles() {
    return {.name = "CloudSpaceFiles",
            .function = "GetCloudRecordFileFromPlatform",
            .operation = "GetCloudRecordFile",
            .arguments = {.serial = "R20000016", .ch = 2, .spaceId = 77},
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/service/cloudrecord/video/info/list",
            .query =
                "accessToken=access-token&deviceSerial=R20000016&endTime=2024-01-02%2023:59:59&localIndex=2"
                "&spaceId=77&startTime=2024-01-02%2000:00:00",
            .response = std::string(R"({"meta":{"code":200},"data":)") + kFile + "}",
            .fills = kFileFills,
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("GetCloudRecordFileFromPlatform", "ParseLocalDeviceRecordFile",
                                       "ParseLocalDeviceRecordFile")};
}

RequestCase CloudFiles() {
    return {.name = "CloudFiles",
            .function = "GetCloudFileBySerialFromPlatform",
            .operation = "getCloudFileBySerial",
            .arguments = {.serial = "R20000016", .ch = 2, .fileType = 1},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/cloud/files/get",
            .body =
                "accessToken=access-token&appKey=app-key&cameraNo=2&clientType=19&clientVersion=v5.25.0"
                "&deviceSerial=R20000016&endTime=2024-01-02 23:59:59&featureCode=$feature&fileType=1"
                "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&startTime=2024-01-02 00:00:00"
                "&version=3.0",
            .response = R"({"result":{"code":"200","data":[{"fileId":"file-4"}]}})",
            .fills = {{"text", R"({"result":{"code":"200","data":[{"fileId":"file-4"}]}})"}},
            .refusals = CheckRefusals("GetCloudFileBySerialFromPlatform", "CheckResponseInfoFromPlatform",
                                      "GetCloudFileBySerialFromPlatform")};
}

/// The host's JSON text, with the core's credential in it.
RequestCase CloudFileDetails() {
    return {.name = "CloudFileDetails",
            .function = "GetCloudFileInfoBySerialEXFromPlatform",
            .operation = "getCloudFileInfoBySerialEX",
            .arguments = {.jsonQuery = R"({"deviceSerial": "C10000001"})"},
            .transport = "SyncRequestjson",
            .sender = "CRequest::SyncRequest",
            .path = "/api/v3/open/cloud/v3/clouds/videoDetails",
            .body = R"({"accessToken":"access-token","deviceSerial":"C10000001"})",
            .headers = {"Content-Type:application/json"},
            .response = R"({"meta":{"code":200},"videoDetails":[]})",
            .fills = {{"text", R"({"meta":{"code":200},"videoDetails":[]})"}},
            .refusals = CheckRefusals("GetCloudFileInfoBySerialEXFromPlatform", "CheckCloudResponseInfoFromPlatform",
                                      "CheckCloudResponseInfoFromPlatform")};
}

RequestCase CloudFilesOfADay() {
    return {.name = "CloudFilesOfADay",
            .function = "GetCloudFileBySerialEXFromPlatform",
            .operation = "getCloudFileBySerialEX",
            .arguments = {.videoType = 2, .cloudQuery = {"2024-01-02", "", 10}},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
            .body =
                "accessToken=access-token&channelNo=1&detailFileCount=10&deviceSerial=C10000001&maxCreateTime="
                "&searchDate=2024-01-02&videoType=2",
            .response = R"({"meta":{"code":200},"videos":[]})",
            .fills = {{"text", R"({"meta":{"code":200},"videos":[]})"}},
            .refusals = CheckRefusals("GetCloudFileBySerialEXFromPlatform", "CheckCloudResponseInfoFromPlatform",
                                      "CheckCloudResponseInfoFromPlatform")};
}

RequestCase LocalFiles() {
    return {.name = "LocalFilesOfAnotherPlatform",
            .function = "GetLocalFileBySerialFromPlatform",
            .operation = "getLocalFileBySerial",
            .arguments = {.bizType = "GB", .platFormId = "P-7"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/lapp/video/by/time",
            .body =
                "accessToken=access-token&bizType=GB&channelNo=1&deviceSerial=C10000001"
                "&endTime=2024-01-02 23:59:59&platFormId=P-7&startTime=2024-01-02 00:00:00&version=1.0",
            .response = R"({"result":{"code":"200","data":[{"fileId":"file-6"}]}})",
            .fills = {{"text", R"({"result":{"code":"200","data":[{"fileId":"file-6"}]}})"}},
            .refusals = CheckRefusals("GetLocalFileBySerialFromPlatform", "CheckResponseInfoFromPlatform",
                                      "GetCloudFileBySerialFromPlatform")};
}

/// Nobody looks at this response: it is handed on as it comes.
RequestCase RecordOfAnAlarm() {
    RequestCase row{.name = "RecordOfAnAlarm",
                    .function = "GetRecordByAlarmIdFromPlatform",
                    .operation = "getRecordByAlarmID",
                    .arguments = {.alarmId = "AL1001"},
                    .transport = "SyncRequest",
                    .sender = "CRequest::SyncRequest",
                    .path = "/api/lapp/video/by/id",
                    .body =
                        "accessToken=access-token&alarmId=AL1001&channelNo=1&clientType=19&clientVersion=v5.25.0"
                        "&deviceSerial=C10000001&featureCode=$feature&netType=UNKNOWN&osVersion=wins"
                        "&sdkVersion=v5.25.0.20260515",
                    .response = R"({"result":{"code":"200","data":[{"fileId":"file-1"}]}})",
                    .fills = {{"text", R"({"result":{"code":"200","data":[{"fileId":"file-1"}]}})"}}};
    for (const char* body : {"no json", "", "[]", R"({"resultCode":"10002"})"}) {
        row.refusals.push_back({.body = body, .result = 0, .fills = {{"text", body}}});
    }
    return row;
}

RequestCase UploadAddress() {
    return {
        .name = "UploadAddress",
        .function = "GetClouduploadUrlPlatform",
        .operation = "GetClouduploadUrl",
        .arguments =
            {.fileName = "gate.jpg", .fileType = 1, .expireDays = 7, .urlExpireTime = 3600, .uploadBizType = "alarm"},
        .transport = "SyncRequestHeader",
        .sender = "CRequest::SyncRequestHeader",
        .method = "GET",
        .path = "/api/service/cloud/upload/url",
        .query =
            "accessToken=access-token&bizType=alarm&expireDays=7&fileName=gate.jpg&fileType=1"
            "&urlExpireTime=3600",
        .response = R"({"meta":{"code":200},"data":{"url": "https://upload.example/1"}})",
        .fills = {{"text", R"({"url":"https://upload.example/1"})"}},
        .unsent = "SyncRequestHeader error:7",
        .refusals =
            ParserRefusals("GetClouduploadUrlPlatform", "ParseLocalDeviceRecordFile", "ParseLocalDeviceRecordFile")};
}

}  // namespace

std::vector<RequestCase> RecordingRequests() {
    return {DeviceFiles(false),
            DeviceFiles(true),
            DeviceFilesExtended("DeviceFilesExtended", {.recordType = 1, .withLocation = true},
                                "accessToken=access-token&channelNo=1&deviceSerial=C10000001"
                                "&endTime=2024-01-02%2023:59:59&location=2&recordType=1"
                                "&startTime=2024-01-02%2000:00:00"),
            DeviceFilesExtended(
                "DeviceFilesExtendedWithoutTypeAndLocation",
                {.span = {"2024-01-02T00:00:00", "2024-01-02T23:59:59"}, .recordType = 0, .withLocation = false},
                "accessToken=access-token&channelNo=1&deviceSerial=C10000001"
                "&endTime=2024-01-02T23:59:59&startTime=2024-01-02T00:00:00"),
            CloudSpaceFiles(),
            CloudFiles(),
            CloudFileDetails(),
            CloudFilesOfADay(),
            LocalFiles(),
            RecordOfAnAlarm(),
            UploadAddress()};
}

}  // namespace vantix::test
