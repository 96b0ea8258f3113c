// Requests about recordings and the upload of pictures.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "platform/Recordings.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

const TimeSpan kDay{"2024-01-02 00:00:00", "2024-01-02 23:59:59"};

template <class Request>
auto IntoFiles(Request request) {
    return [request](const Caller& caller, Json& output) {
        RecordFileList list;
        list.files.push_back({.startTime = "before", .endTime = "", .fileId = ""});
        list.strDeviceRecordList = "\"before\"";
        const int result = request(caller, list);
        output = ToJson(list);
        return result;
    };
}

template <class Request>
auto IntoAnswer(Request request) {
    return [request](const Caller& caller, Json& output) {
        std::string json = "before";
        const int result = request(caller, json);
        output = json;
        return result;
    };
}

/// The cloud's recordings of a channel that lie in one place, as answers carry them.
Json Stored(const SimulatorClient& cloud, const std::string& serial, int channel, const std::string& place,
            int type = 0) {
    Json found = Json::array();
    const Json device = cloud.Device(serial);
    for (Json recording : device.at("recordings")) {
        const bool fits = recording.at("channelNo") == channel && recording.at("place") == place;
        if (fits && (type == 0 || recording.at("type") == type)) {
            recording.erase("place");
            recording["deviceSerial"] = serial;
            found.push_back(recording);
        }
    }
    EXPECT_FALSE(found.empty());
    return found;
}

void ExpectFiles(const Json& output, const Json& stored) {
    EXPECT_EQ(output.at("data"), stored);
    ASSERT_EQ(output.at("files").size(), stored.size());
    for (size_t i = 0; i < stored.size(); ++i) {
        for (const auto& [key, value] : output.at("files").at(i).items()) {
            EXPECT_EQ(value, stored.at(i).at(key)) << key;
        }
    }
}

/// Expects the answer, word for word, to hold the stored recordings at this place.
auto AnswerHolds(const std::string& pointer, const std::string& serial, int channel, const std::string& place) {
    return [=](const Json& output, const SimulatorClient& cloud) {
        const Json answer = Json::parse(output.get<std::string>());
        EXPECT_EQ(answer.at(Json::json_pointer(pointer)), Stored(cloud, serial, channel, place));
    };
}

PlatformCase DeviceFiles(bool sdkPath) {
    return {
        .name = sdkPath ? "DeviceFilesOnTheSdkPath" : "DeviceFiles",
        .function = "GetDeviceFileBySerialFromPlatform",
        .transport = "SyncRequest",
        .path = sdkPath ? "/api/sdk/device/local/video" : "/api/v3/device/sdk/device/local/video",
        .parameters = WithClient({{"deviceSerial", "R20000016"},
                                  {"cameraNo", "2"},
                                  {"startTime", kDay.startTime},
                                  {"endTime", kDay.endTime},
                                  {"recordType", "2"},
                                  {"location", "1"}}),
        .call = IntoFiles([sdkPath](const Caller& caller, RecordFileList& list) {
            return GetDeviceFileBySerialFromPlatform(caller, "R20000016", 2, kDay, 2, 1, sdkPath, list);
        }),
        .expect = [](const Json& output,
                     const SimulatorClient& cloud) { ExpectFiles(output, Stored(cloud, "R20000016", 2, "device", 2)); },
        .parser = "CheckResponseInfoFromPlatform",
        .label = "GetLocalRecordFileBySerialFromPlatform",
        .parserLogsCode = false};
}

PlatformCase DeviceFilesEx() {
    return {
        .name = "DeviceFilesExtended",
        .function = "GetDeviceFileBySerialFromPlatformEx",
        .transport = "SyncRequestHeader",
        .path = "/api/v3/das/device/local/video/query",
        .parameters = {{"startTime", "2024-01-02%2000:00:00"},
                       {"endTime", "2024-01-02%2023:59:59"},
                       {"location", "2"},
                       {"recordType", "1"},
                       {"accessToken", "$token"},
                       {"deviceSerial", "R20000016"},
                       {"channelNo", "2"}},
        .call = IntoFiles([](const Caller& caller, RecordFileList& list) {
            return GetDeviceFileBySerialFromPlatformEx(caller, "R20000016", 2, kDay, 1, true, list);
        }),
        .expect = [](const Json& output,
                     const SimulatorClient& cloud) { ExpectFiles(output, Stored(cloud, "R20000016", 2, "device", 1)); },
        .parser = "ParseLocalDeviceRecordFile",
        .label = "ParseLocalDeviceRecordFile",
        .transportFailure = "SyncRequestHeader error:",
        .headers = {{"Content-Type", "application/x-www-form-urlencoded"}}};
}

/// A type of 0 and no location are not sent, and times without a blank go as they are.
PlatformCase DeviceFilesExOfAnyType() {
    PlatformCase row = DeviceFilesEx();
    row.name = "DeviceFilesExtendedWithoutTypeAndLocation";
    row.parameters = {{"startTime", "2024-01-02T00:00:00"},
                      {"endTime", "2024-01-02T23:59:59"},
                      {"accessToken", "$token"},
                      {"deviceSerial", "R20000016"},
                      {"channelNo", "2"}};
    row.call = IntoFiles([](const Caller& caller, RecordFileList& list) {
        const TimeSpan span{"2024-01-02T00:00:00", "2024-01-02T23:59:59"};
        return GetDeviceFileBySerialFromPlatformEx(caller, "R20000016", 2, span, 0, false, list);
    });
    row.expect = [](const Json& output, const SimulatorClient& cloud) {
        ExpectFiles(output, Stored(cloud, "R20000016", 2, "device"));
    };
    return row;
}

PlatformCase CloudSpaceFiles() {
    return {.name = "CloudSpaceFiles",
            .function = "GetCloudRecordFileFromPlatform",
            .transport = "SyncRequestHeader",
            .path = "/api/service/cloudrecord/video/info/list",
            .parameters = {{"spaceId", "77"},
                           {"startTime", "2024-01-02%2000:00:00"},
                           {"endTime", "2024-01-02%2023:59:59"},
                           {"accessToken", "$token"},
                           {"deviceSerial", "R20000016"},
                           {"localIndex", "2"}},
            .call = IntoFiles([](const Caller& caller, RecordFileList& list) {
                return GetCloudRecordFileFromPlatform(caller, "R20000016", 2, 77, kDay, list);
            }),
            .expect = [](const Json& output,
                         const SimulatorClient& cloud) { ExpectFiles(output, Stored(cloud, "R20000016", 2, "cloud")); },
            .parser = "ParseLocalDeviceRecordFile",
            .label = "ParseLocalDeviceRecordFile",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase CloudFiles() {
    return {.name = "CloudFiles",
            .function = "GetCloudFileBySerialFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/cloud/files/get",
            .parameters = WithClient({{"deviceSerial", "R20000016"},
                                      {"cameraNo", "2"},
                                      {"startTime", kDay.startTime},
                                      {"endTime", kDay.endTime},
                                      {"fileType", "0"},
                                      {"appKey", "$key"},
                                      {"version", "3.0"}}),
            .call = IntoAnswer([](const Caller& caller, std::string& json) {
                return GetCloudFileBySerialFromPlatform(caller, "R20000016", 2, kDay, 0, json);
            }),
            .expect = AnswerHolds("/result/data", "R20000016", 2, "cloud"),
            .parser = "CheckResponseInfoFromPlatform",
            .label = "GetCloudFileBySerialFromPlatform",
            .parserLogsCode = false};
}

PlatformCase CloudFileDetails() {
    return {.name = "CloudFileDetails",
            .function = "GetCloudFileInfoBySerialEXFromPlatform",
            .transport = "SyncRequestjson",
            .path = "/api/v3/open/cloud/v3/clouds/videoDetails",
            .parameters = {},
            .call = IntoAnswer([](const Caller& caller, std::string& json) {
                const Json query = {{"accessToken", caller.credential}, {"deviceSerial", "C10000001"}};
                return GetCloudFileInfoBySerialEXFromPlatform(caller, query.dump(), json);
            }),
            .expect = AnswerHolds("/videoDetails", "C10000001", 1, "cloud"),
            .parser = "CheckCloudResponseInfoFromPlatform",
            .label = "CheckCloudResponseInfoFromPlatform",
            .headers = {{"Content-Type", "application/json"}},
            .body = R"({"accessToken":"$token","deviceSerial":"C10000001"})",
            .parserLogsCode = false};
}

PlatformCase CloudFilesOfADay() {
    return {.name = "CloudFilesOfADay",
            .function = "GetCloudFileBySerialEXFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
            .parameters = {{"accessToken", "$token"},
                           {"deviceSerial", "C10000001"},
                           {"channelNo", "1"},
                           {"videoType", "0"},
                           {"searchDate", "2024-01-02"},
                           {"maxCreateTime", ""},
                           {"detailFileCount", "10"}},
            .call = IntoAnswer([](const Caller& caller, std::string& json) {
                return GetCloudFileBySerialEXFromPlatform(caller, "C10000001", 1, 0, {"2024-01-02", "", 10}, json);
            }),
            .expect = AnswerHolds("/videos", "C10000001", 1, "cloud"),
            .parser = "CheckCloudResponseInfoFromPlatform",
            .label = "CheckCloudResponseInfoFromPlatform",
            .parserLogsCode = false};
}

PlatformCase LocalFiles() {
    return {.name = "LocalFilesOfAnotherPlatform",
            .function = "GetLocalFileBySerialFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/lapp/video/by/time",
            .parameters = {{"accessToken", "$token"},
                           {"bizType", "GB"},
                           {"version", "1.0"},
                           {"deviceSerial", "C10000001"},
                           {"channelNo", "1"},
                           {"platFormId", "P-7"},
                           {"startTime", kDay.startTime},
                           {"endTime", kDay.endTime}},
            .call = IntoAnswer([](const Caller& caller, std::string& json) {
                return GetLocalFileBySerialFromPlatform(caller, "C10000001", 1, kDay, {"GB", "P-7"}, json);
            }),
            .expect = AnswerHolds("/result/data", "C10000001", 1, "platform"),
            .parser = "CheckResponseInfoFromPlatform",
            .label = "GetCloudFileBySerialFromPlatform",
            .parserLogsCode = false};
}

PlatformCase RecordOfAnAlarm() {
    return {.name = "RecordOfAnAlarm",
            .function = "GetRecordByAlarmIdFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/lapp/video/by/id",
            .parameters = WithClient({{"deviceSerial", "C10000001"}, {"channelNo", "1"}, {"alarmId", "AL1001"}}),
            .call = IntoAnswer([](const Caller& caller, std::string& json) {
                return GetRecordByAlarmIdFromPlatform(caller, "C10000001", 1, "AL1001", json);
            }),
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json answer = Json::parse(output.get<std::string>());
                    EXPECT_EQ(answer.at("result").at("data").at(0), Stored(cloud, "C10000001", 1, "device").at(0));
                },
            .parser = "",
            .label = ""};
}

PlatformCase UploadAddress() {
    return {.name = "UploadAddress",
            .function = "GetClouduploadUrlPlatform",
            .transport = "SyncRequestHeader",
            .path = "/api/service/cloud/upload/url",
            .parameters = {{"fileName", "gate.jpg"},
                           {"fileType", "1"},
                           {"expireDays", "7"},
                           {"urlExpireTime", "3600"},
                           {"bizType", "alarm"},
                           {"accessToken", "$token"}},
            .call = IntoFiles([](const Caller& caller, RecordFileList& list) {
                return GetClouduploadUrlPlatform(caller, {"gate.jpg", 1, 7, 3600, "alarm"}, list);
            }),
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json uploads = cloud.Get("/uploads");
                    ASSERT_EQ(uploads.size(), 1U);
                    EXPECT_EQ(output.at("data").at("url"), uploads[0].at("url"));
                    EXPECT_EQ(output.at("data").at("fileId"), uploads[0].at("id"));
                    EXPECT_EQ(output.at("data").at("expireDays"), 7);
                    EXPECT_EQ(output.at("data").at("urlExpireTime"), 3600);
                    EXPECT_TRUE(output.at("files").empty());
                },
            .parser = "ParseLocalDeviceRecordFile",
            .label = "ParseLocalDeviceRecordFile",
            .transportFailure = "SyncRequestHeader error:"};
}

}  // namespace

std::vector<PlatformCase> RecordingCases() {
    return {DeviceFiles(false), DeviceFiles(true), DeviceFilesEx(),    DeviceFilesExOfAnyType(),
            CloudSpaceFiles(),  CloudFiles(),      CloudFileDetails(), CloudFilesOfADay(),
            LocalFiles(),       RecordOfAnAlarm(), UploadAddress()};
}

}  // namespace vantix::test
