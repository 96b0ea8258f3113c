#include "platform/Recordings.h"

#include <optional>

#include "log/Logger.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/RequestCall.h"
#include "requests/TimeText.h"
#include "transport/CRequest.h"
#include "transport/ResponseBody.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

namespace requests = platform_requests;

namespace {

/// Asks for the recordings of a device by one of the two paths.
template <const RequestRow& Row>
int SendDeviceFiles(const CallSite& site, const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                    const TimeSpan& span, int recordType, int location, RecordFileList& list) {
    return RequestCall<Row>(site, route, "deviceSerial"_key = deviceSerial, "cameraNo"_key = cameraNo,
                            "startTime"_key = span.startTime, "endTime"_key = span.endTime,
                            "recordType"_key = recordType, "location"_key = location)
        .Run(CheckResponseInfoFromPlatform, [&](TextView body) { return ParseDeviceRecordFile(body, list); });
}

}  // namespace

int GetDeviceFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                      const TimeSpan& span, int recordType, int location, bool sdkPath,
                                      RecordFileList& list) {
    const auto send = sdkPath ? SendDeviceFiles<requests::kDeviceFilesSdk> : SendDeviceFiles<requests::kDeviceFiles>;
    return send(VANTIX_HERE, route, deviceSerial, cameraNo, span, recordType, location, list);
}

int GetDeviceFileBySerialFromPlatformEx(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                        const TimeSpan& span, int recordType, bool withLocation, RecordFileList& list) {
    constexpr int kLocation = 2;
    const std::optional<int32_t> location = withLocation ? std::optional(kLocation) : std::nullopt;
    const std::optional<int32_t> type = recordType != 0 ? std::optional(recordType) : std::nullopt;
    return RequestCall<requests::kDeviceFilesEx>(
               VANTIX_HERE, route, "startTime"_key = WithFirstBlankEscaped(span.startTime),
               "endTime"_key = WithFirstBlankEscaped(span.endTime), "deviceSerial"_key = deviceSerial,
               "channelNo"_key = channelNo, "location"_key = location, "recordType"_key = type)
        .Run([&](TextView body) { return ParseLocalDeviceRecordFile(body, list); });
}

int GetCloudRecordFileFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                                   int spaceId, const TimeSpan& span, RecordFileList& list) {
    return RequestCall<requests::kCloudRecordFile>(VANTIX_HERE, route, "spaceId"_key = spaceId,
                                                   "startTime"_key = WithFirstBlankEscaped(span.startTime),
                                                   "endTime"_key = WithFirstBlankEscaped(span.endTime),
                                                   "deviceSerial"_key = deviceSerial, "localIndex"_key = localIndex)
        .Run([&](TextView body) { return ParseLocalDeviceRecordFile(body, list); });
}

int GetCloudFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                     const TimeSpan& span, int fileType, std::string& json) {
    return RequestCall<requests::kCloudFiles>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                              "cameraNo"_key = cameraNo, "startTime"_key = span.startTime,
                                              "endTime"_key = span.endTime, "fileType"_key = fileType)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int GetCloudFileInfoBySerialEXFromPlatform(const PlatformRoute& route, const std::string& query, std::string& json) {
    return RequestCall<requests::kCloudFileDetails>(VANTIX_HERE, route, JsonBody{query})
        .Run(Keeping(CheckCloudResponseInfoFromPlatform, json));
}

int GetCloudFileBySerialEXFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                       int videoType, const CloudFileQuery& query, std::string& json) {
    return RequestCall<requests::kCloudFilesPerDay>(
               VANTIX_HERE, route, "deviceSerial"_key = deviceSerial, "channelNo"_key = channelNo,
               "videoType"_key = videoType, "searchDate"_key = query.searchDate,
               "maxCreateTime"_key = query.maxCreateTime, "detailFileCount"_key = query.detailFileCount)
        .Run(Keeping(CheckCloudResponseInfoFromPlatform, json));
}

int GetLocalFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, const BusinessPlatform& business, std::string& json) {
    return RequestCall<requests::kLocalFiles>(VANTIX_HERE, route, "bizType"_key = business.bizType,
                                              "deviceSerial"_key = deviceSerial, "channelNo"_key = channelNo,
                                              "platFormId"_key = business.platFormId, "startTime"_key = span.startTime,
                                              "endTime"_key = span.endTime)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int GetRecordByAlarmIdFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   const std::string& alarmId, std::string& json) {
    return RequestCall<requests::kRecordByAlarm>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                                 "channelNo"_key = channelNo, "alarmId"_key = alarmId)
        .FetchText(json);
}

int GetClouduploadUrlPlatform(const PlatformRoute& route, const UploadQuery& query, RecordFileList& list) {
    return RequestCall<requests::kCloudUploadUrl>(VANTIX_HERE, route, "fileName"_key = query.fileName,
                                                  "fileType"_key = query.fileType, "expireDays"_key = query.expireDays,
                                                  "urlExpireTime"_key = query.urlExpireTime,
                                                  "bizType"_key = query.bizType)
        .Run([&](TextView body) { return ParseLocalDeviceRecordFile(body, list); });
}

int UploadCloudPicFile(const std::string& url, const std::string& localPath) {
    ParamMap form;
    form.Add("url", url);
    ResponseBody response;
    const int sent =
        CRequest().SyncRequestUpload(url.c_str(), localPath.c_str(), form, response.Data(), response.Length());
    VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "[test] pOutBuffer = [%s]", response.Text().c_str());
    if (sent != 0) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "SyncRequestHeader error:%d", sent);
        return VANTIX_NET_ERROR_BASE + sent;
    }
    return VANTIX_NOERROR;
}

}  // namespace vantix
