#include "platform/Recordings.h"

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/TimeText.h"
#include "transport/CRequest.h"
#include "transport/ResponseBody.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

namespace requests = platform_requests;

int GetDeviceFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                      const TimeSpan& span, int recordType, int location, bool sdkPath,
                                      RecordFileList& list) {
    return RequestCall(VANTIX_HERE, sdkPath ? requests::kDeviceFilesSdk : requests::kDeviceFiles, route)
        .With(deviceSerial, cameraNo, span.startTime, span.endTime, recordType, location)
        .Run(CheckResponseInfoFromPlatform, [&](const std::string& body) { return ParseDeviceRecordFile(body, list); });
}

int GetDeviceFileBySerialFromPlatformEx(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                        const TimeSpan& span, int recordType, bool withLocation, RecordFileList& list) {
    constexpr int kLocation = 2;
    RequestCall call(VANTIX_HERE, requests::kDeviceFilesEx, route);
    call.With(WithFirstBlankEscaped(span.startTime), WithFirstBlankEscaped(span.endTime), deviceSerial, channelNo);
    if (withLocation) {
        call.WithOptional("location", kLocation);
    }
    if (recordType != 0) {
        call.WithOptional("recordType", recordType);
    }
    return call.Run([&](const std::string& body) { return ParseLocalDeviceRecordFile(body, list); });
}

int GetCloudRecordFileFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                                   int spaceId, const TimeSpan& span, RecordFileList& list) {
    return RequestCall(VANTIX_HERE, requests::kCloudRecordFile, route)
        .With(spaceId, WithFirstBlankEscaped(span.startTime), WithFirstBlankEscaped(span.endTime), deviceSerial,
              localIndex)
        .Run([&](const std::string& body) { return ParseLocalDeviceRecordFile(body, list); });
}

int GetCloudFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                     const TimeSpan& span, int fileType, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kCloudFiles, route)
        .With(deviceSerial, cameraNo, span.startTime, span.endTime, fileType)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int GetCloudFileInfoBySerialEXFromPlatform(const PlatformRoute& route, const std::string& query, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kCloudFileDetails, route)
        .Body(query)
        .Run(Keeping(CheckCloudResponseInfoFromPlatform, json));
}

int GetCloudFileBySerialEXFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                       int videoType, const CloudFileQuery& query, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kCloudFilesPerDay, route)
        .With(deviceSerial, channelNo, videoType, query.searchDate, query.maxCreateTime, query.detailFileCount)
        .Run(Keeping(CheckCloudResponseInfoFromPlatform, json));
}

int GetLocalFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, const BusinessPlatform& business, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kLocalFiles, route)
        .With(business.bizType, deviceSerial, channelNo, business.platFormId, span.startTime, span.endTime)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int GetRecordByAlarmIdFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   const std::string& alarmId, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kRecordByAlarm, route).With(deviceSerial, channelNo, alarmId).Fetch(json);
}

int GetClouduploadUrlPlatform(const PlatformRoute& route, const UploadQuery& query, RecordFileList& list) {
    return RequestCall(VANTIX_HERE, requests::kCloudUploadUrl, route)
        .With(query.fileName, query.fileType, query.expireDays, query.urlExpireTime, query.bizType)
        .Run([&](const std::string& body) { return ParseLocalDeviceRecordFile(body, list); });
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
