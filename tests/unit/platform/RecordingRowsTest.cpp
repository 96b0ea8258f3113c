// The rows of requests about recordings.

#include <optional>
#include <string>
#include <vector>

#include "platform/Recordings.h"
#include "support/RowCase.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

PlatformRoute RecordingRoute() { return PlatformRouteTo("https://b.example", "T", "K"); }

void AddDeviceFiles(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "DeviceFiles",
        .function = "GetDeviceFileBySerialFromPlatform",
        .send =
            [] {
                RecordFileList list;
                return GetDeviceFileBySerialFromPlatform(RecordingRoute(), "S", 3, {"from 0", "to 9"}, 4, 5, false,
                                                         list);
            },
        .url = "https://b.example/api/v3/device/sdk/device/local/video",
        .body = "accessToken=T&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&endTime=to 9&"
                "featureCode=f-code&location=5&netType=UNKNOWN&osVersion=wins&recordType=4&"
                "sdkVersion=v5.25.0.20260515&startTime=from 0",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(GetLocalRecordFileBySerialFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"},
             {R"({"resultCode":"200"})", 300002, R"(ParseServerInfoFromPlatform:{"resultCode":"200"} error:2)"}},
    });
    cases.push_back({
        .name = "DeviceFilesBySdkPath",
        .function = "GetDeviceFileBySerialFromPlatform",
        .send =
            [] {
                RecordFileList list;
                return GetDeviceFileBySerialFromPlatform(RecordingRoute(), "S", 3, {"from 0", "to 9"}, 4, 5, true,
                                                         list);
            },
        .url = "https://b.example/api/sdk/device/local/video",
        .body = "accessToken=T&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&endTime=to 9&"
                "featureCode=f-code&location=5&netType=UNKNOWN&osVersion=wins&recordType=4&"
                "sdkVersion=v5.25.0.20260515&startTime=from 0",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(GetLocalRecordFileBySerialFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"},
             {R"({"resultCode":"200"})", 300002, R"(ParseServerInfoFromPlatform:{"resultCode":"200"} error:2)"}},
    });
    cases.push_back({
        .name = "DeviceFilesEx",
        .function = "GetDeviceFileBySerialFromPlatformEx",
        .send =
            [] {
                RecordFileList list;
                return GetDeviceFileBySerialFromPlatformEx(RecordingRoute(), "S", 3, {"from 0", "to 9 9"}, 4, true,
                                                           list);
            },
        .method = "GET",
        .url = "https://b.example/api/v3/das/device/local/video/query?accessToken=T&channelNo=3&"
               "deviceSerial=S&endTime=to%209 9&location=2&recordType=4&startTime=from%200",
        .headers = {"Content-Type: application/x-www-form-urlencoded"},
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseLocalDeviceRecordFile:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "DeviceFilesExWithoutOptions",
        .function = "GetDeviceFileBySerialFromPlatformEx",
        .send =
            [] {
                RecordFileList list;
                return GetDeviceFileBySerialFromPlatformEx(RecordingRoute(), "S", 3, {"from0", "to9"}, 0, false, list);
            },
        .method = "GET",
        .url = "https://b.example/api/v3/das/device/local/video/query?accessToken=T&channelNo=3&"
               "deviceSerial=S&endTime=to9&startTime=from0",
        .headers = {"Content-Type: application/x-www-form-urlencoded"},
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseLocalDeviceRecordFile:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddCloudFiles(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "CloudRecords",
        .function = "GetCloudRecordFileFromPlatform",
        .send =
            [] {
                RecordFileList list;
                return GetCloudRecordFileFromPlatform(RecordingRoute(), "S", 3, 4, {"from 0", "to 9 9"}, list);
            },
        .method = "GET",
        .url = "https://b.example/api/service/cloudrecord/video/info/list?accessToken=T&deviceSerial=S&"
               "endTime=to%209 9&localIndex=3&spaceId=4&startTime=from%200",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseLocalDeviceRecordFile:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "CloudFiles",
        .function = "GetCloudFileBySerialFromPlatform",
        .send =
            [] {
                std::string response;
                return GetCloudFileBySerialFromPlatform(RecordingRoute(), "S", 3, {"from 0", "to 9"}, 4, response);
            },
        .url = "https://b.example/api/cloud/files/get",
        .body = "accessToken=T&appKey=K&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&"
                "endTime=to 9&featureCode=f-code&fileType=4&netType=UNKNOWN&osVersion=wins&"
                "sdkVersion=v5.25.0.20260515&startTime=from 0&version=3.0",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(GetCloudFileBySerialFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "CloudFileDetails",
        .function = "GetCloudFileInfoBySerialEXFromPlatform",
        .send =
            [] {
                std::string response;
                return GetCloudFileInfoBySerialEXFromPlatform(RecordingRoute(), R"({"n":1})", response);
            },
        .url = "https://b.example/api/v3/open/cloud/v3/clouds/videoDetails",
        .body = R"({"n":1})",
        .headers = {"Content-Type:application/json"},
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(CheckCloudResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "CloudFilesPerDay",
        .function = "GetCloudFileBySerialEXFromPlatform",
        .send =
            [] {
                std::string response;
                return GetCloudFileBySerialEXFromPlatform(RecordingRoute(), "S", 3, 4, {"today", "now", 5}, response);
            },
        .url = "https://b.example/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
        .body = "accessToken=T&channelNo=3&detailFileCount=5&deviceSerial=S&maxCreateTime=now&"
                "searchDate=today&videoType=4",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(CheckCloudResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddOthers(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "LocalFiles",
        .function = "GetLocalFileBySerialFromPlatform",
        .send =
            [] {
                std::string response;
                return GetLocalFileBySerialFromPlatform(RecordingRoute(), "S", 3, {"from 0", "to 9"}, {"GB", "P-7"},
                                                        response);
            },
        .url = "https://b.example/api/lapp/video/by/time",
        .body = "accessToken=T&bizType=GB&channelNo=3&deviceSerial=S&endTime=to 9&platFormId=P-7&"
                "startTime=from 0&version=1.0",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(GetCloudFileBySerialFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "RecordOfAnAlarm",
        .function = "GetRecordByAlarmIdFromPlatform",
        .send =
            [] {
                std::string response;
                return GetRecordByAlarmIdFromPlatform(RecordingRoute(), "S", 3, "A-1", response);
            },
        .url = "https://b.example/api/lapp/video/by/id",
        .body = "accessToken=T&alarmId=A-1&channelNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&"
                "featureCode=f-code&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
    });
    cases.push_back({
        .name = "UploadAddress",
        .function = "GetClouduploadUrlPlatform",
        .send =
            [] {
                RecordFileList list;
                return GetClouduploadUrlPlatform(RecordingRoute(), {"a.jpg", 3, 4, 5, "GB"}, list);
            },
        .method = "GET",
        .url = "https://b.example/api/service/cloud/upload/url?accessToken=T&bizType=GB&expireDays=4&"
               "fileName=a.jpg&fileType=3&urlExpireTime=5",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseLocalDeviceRecordFile:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

std::vector<RowCase> RecordingCases() {
    std::vector<RowCase> cases;
    AddDeviceFiles(cases);
    AddCloudFiles(cases);
    AddOthers(cases);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Recordings, RequestRows, ::testing::ValuesIn(RecordingCases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
