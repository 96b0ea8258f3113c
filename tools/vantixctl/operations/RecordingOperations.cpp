#include <array>
#include <ctime>

#include <vantix/records/CloudFileQuery.h>
#include <vantix/records/RecordFileList.h>

#include "operations/Arguments.h"
#include "operations/Operations.h"
#include "operations/Outcomes.h"

namespace vantix::ctl {
namespace {

constexpr Argument kStart{"start", kEarliest};
constexpr Argument kEnd{"end", kLatest};

/// Today, as the day of a search.
std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> text{};
    const std::tm* local = std::localtime(&now);
    return local == nullptr ? "" : std::string(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", local));
}

Outcome DeviceFiles(const Call& call) {
    return outcomes::Filled<RecordFileList>([&](RecordFileList& list) {
        return call.center.getDeviceFileBySerial(call.Serial(), call.Channel(), call.Text("start"), call.Text("end"),
                                                 call.Number("record-type"), call.Number("location"), list,
                                                 call.Flag("sdk-path"));
    });
}

Outcome DeviceFilesEx(const Call& call) {
    return outcomes::Filled<RecordFileList>([&](RecordFileList& list) {
        return call.center.getDeviceFileBySerialEx(call.Serial(), call.Channel(), call.Text("start"), call.Text("end"),
                                                   call.Number("record-type"), call.Flag("with-location"), list);
    });
}

Outcome CloudFiles(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        const TimeSpan span{call.Text("start"), call.Text("end")};
        return call.center.getCloudFileBySerial(call.Serial(), call.Channel(), span, call.Number("file-type"), json);
    });
}

Outcome LocalFiles(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        return call.center.getLocalFileBySerial(call.Serial(), call.Channel(), call.Text("start"), call.Text("end"),
                                                call.Text("biz-type"), call.Text("platform-id"), json);
    });
}

Outcome CloudFilesEx(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        const std::string& day = call.Text("date");
        const CloudFileQuery query{day.empty() ? Today() : day, call.Text("before"), call.Number("detail-count")};
        return call.center.getCloudFileBySerialEX(call.Serial(), call.Channel(), call.Number("video-type"), query,
                                                  json);
    });
}

Outcome CloudFileDetails(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        const Json ofChannel = {{"deviceSerial", call.Serial()}, {"channelNo", call.Channel()}};
        const std::string query = call.Text("query").empty() ? Dumped(ofChannel, -1) : call.Text("query");
        return call.center.getCloudFileInfoBySerialEX(call.Serial(), call.Channel(), query, json);
    });
}

Outcome CloudRecords(const Call& call) {
    return outcomes::Filled<RecordFileList>([&](RecordFileList& list) {
        return call.center.GetCloudRecordFile(call.Serial(), call.Number("local-index"), call.Number("space-id"),
                                              call.Text("start"), call.Text("end"), list);
    });
}

Outcome UploadAddress(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        return call.center.GetClouduploadUrl(call.Serial(), call.Channel(), call.Text("file-name"),
                                             call.Number("file-type"), call.Number("expire-days"),
                                             call.Number("url-expire"), call.Text("biz-type"), json);
    });
}

constexpr std::array kRecordingOperations = {
    Command{"getRecordByAlarmID",
            40,
            {kSerial, {"alarm-id"}, kChannel},
            "the recording that belongs to an alarm",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& json) {
                    return call.center.getRecordByAlarmID(call.Serial(), call.Channel(), call.Text("alarm-id"), json);
                });
            }},
    Command{"getDeviceFileBySerial",
            41,
            {kSerial, kChannel, kStart, kEnd, {"record-type", "0"}, {"location", "0"}, {"sdk-path", "0"}},
            "recordings on a device",
            &DeviceFiles},
    Command{"getDeviceFileBySerialEx",
            42,
            {kSerial, kChannel, kStart, kEnd, {"record-type", "0"}, {"with-location", "0"}},
            "recordings on a device, by the newer query",
            &DeviceFilesEx},
    Command{"getCloudFileBySerial",
            43,
            {kSerial, kChannel, kStart, kEnd, {"file-type", "0"}},
            "cloud recordings of a channel",
            &CloudFiles},
    Command{"getLocalFileBySerial",
            44,
            {kSerial, kChannel, kStart, kEnd, {"biz-type", ""}, {"platform-id", ""}},
            "recordings of a device of a business platform",
            &LocalFiles},
    Command{"getCloudFileBySerialEX",
            45,
            {kSerial, kChannel, {"date", ""}, {"video-type", "0"}, {"before", ""}, {"detail-count", "10"}},
            "cloud recordings of a day",
            &CloudFilesEx},
    Command{"getCloudFileInfoBySerialEX",
            46,
            {kSerial, kChannel, {"query", ""}},
            "details of cloud recordings",
            &CloudFileDetails},
    Command{"GetCloudRecordFile",
            47,
            {kSerial, {"local-index", "1"}, {"space-id", "0"}, kStart, kEnd},
            "recordings in a storage space",
            &CloudRecords},
    Command{"GetClouduploadUrl",
            48,
            {kSerial,
             {"file-name"},
             kChannel,
             {"file-type", "0"},
             {"expire-days", "7"},
             {"url-expire", "3600"},
             {"biz-type", ""}},
            "an address to upload a picture to",
            &UploadAddress},
    Command{"UploadCloudPicFile",
            49,
            {{"url"}, {"file"}},
            "uploads a picture",
            [](const Call& call) {
                return outcomes::Code(
                    [&] { return call.center.UploadCloudPicFile(call.Text("url"), call.Text("file")); });
            }},
};

}  // namespace

std::span<const Command> RecordingOperations() { return kRecordingOperations; }

}  // namespace vantix::ctl
