// Queries about recordings, on devices and in the cloud, and the upload of pictures.

#include "core/CVantixDataCenter.h"
#include "cserver/Recordings.h"
#include "json/JsonCppReader.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "platform/Recordings.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int CVantixDataCenter::getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId,
                                          std::string& json) {
    return query(VANTIX_HERE, queries::kRecordByAlarm, {serial, ch}, false, [&](const Caller& caller) {
        return GetRecordByAlarmIdFromPlatform(caller, serial, ch, alarmId, json);
    });
}

int CVantixDataCenter::getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                             const std::string& endTime, int recordType, int location,
                                             RecordFileList& list, bool sdkPath, bool retried) {
    const CallSite site = VANTIX_HERE;
    const TimeSpan span{startTime, endTime};
    return query(site, queries::kDeviceFiles, {serial, ch}, retried, [&](const Caller& caller) {
        if (isServedByConsumer(serial, ch)) {
            const Caller session = callerFor(caller.url, m_settings.sessionId.Copy());
            return hasCredential(site, session.credential)
                       ? consumerDeviceFiles(session, serial, ch, span, recordType, list)
                       : VANTIX_ERROR;
        }
        return GetDeviceFileBySerialFromPlatform(caller, serial, ch, span, recordType, location, sdkPath, list);
    });
}

int CVantixDataCenter::consumerDeviceFiles(const Caller& caller, const std::string& serial, int ch,
                                           const TimeSpan& span, int recordType, RecordFileList& list) {
    std::string records;
    const int result = GetDeviceFileBySerialFromCServer(caller, serial, ch, span, recordType, records);
    if (result != VANTIX_NOERROR) {
        return result;
    }
    const int read = ReadRecordFiles(records, list);
    return read == VANTIX_NOERROR ? VANTIX_NOERROR : VANTIX_PLATFORM_ERROR_BASE + read;
}

int CVantixDataCenter::getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                               const std::string& endTime, int recordType, bool withLocation,
                                               RecordFileList& list) {
    const TimeSpan span{startTime, endTime};
    return query(VANTIX_HERE, queries::kDeviceFilesEx, {serial, ch}, false, [&](const Caller& caller) {
        return GetDeviceFileBySerialFromPlatformEx(caller, serial, ch, span, recordType, withLocation, list);
    });
}

int CVantixDataCenter::getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType,
                                            std::string& json, bool retried) {
    return query(VANTIX_HERE, queries::kCloudFiles, {serial, ch}, retried, [&](const Caller& caller) {
        return GetCloudFileBySerialFromPlatform(caller, serial, ch, span, fileType, json);
    });
}

int CVantixDataCenter::getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                            const std::string& endTime, const std::string& bizType,
                                            const std::string& platFormId, std::string& json, bool retried) {
    const TimeSpan span{startTime, endTime};
    const BusinessPlatform business{bizType, platFormId};
    return query(VANTIX_HERE, queries::kLocalFiles, {serial, ch}, retried, [&](const Caller& caller) {
        return GetLocalFileBySerialFromPlatform(caller, serial, ch, span, business, json);
    });
}

int CVantixDataCenter::getCloudFileBySerialEX(const std::string& serial, int ch, int videoType,
                                              const CloudFileQuery& cloudQuery, std::string& json, bool retried) {
    return query(VANTIX_HERE, queries::kCloudFilesEx, {serial, ch}, retried, [&](const Caller& caller) {
        return GetCloudFileBySerialEXFromPlatform(caller, serial, ch, videoType, cloudQuery, json);
    });
}

int CVantixDataCenter::getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& jsonQuery,
                                                  std::string& json) {
    json::JsonCppDocument document;
    if (!document.Parse(jsonQuery) || !document.Root().IsObject()) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "query is no JSON object");
        return VANTIX_ERROR;
    }
    auto body = json::JsonBuilder::CopyOf(document.Root());
    return query(VANTIX_HERE, queries::kCloudFileDetails, {serial, ch}, false, [&](const Caller& caller) {
        return GetCloudFileInfoBySerialEXFromPlatform(caller, body.Set("accessToken", caller.credential).Compact(),
                                                      json);
    });
}

int CVantixDataCenter::GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId,
                                          const std::string& startTime, const std::string& endTime,
                                          RecordFileList& list) {
    const CallSite site = VANTIX_HERE;
    const TimeSpan span{startTime, endTime};
    return query(site, queries::kCloudRecords, {serial, localIndex}, false, [&](const Caller& caller) {
        const int result = GetCloudRecordFileFromPlatform(caller, serial, localIndex, spaceId, span, list);
        if (result != VANTIX_NOERROR) {
            VANTIX_LOG_ERROR(site, level::kWarning, "GetCloudRecordFileFromPlatform error [%d]", result);
        }
        return result;
    });
}

int CVantixDataCenter::GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType,
                                         int expireDays, int urlExpireTime, const std::string& bizType,
                                         std::string& url) {
    const CallSite site = VANTIX_HERE;
    const UploadQuery picture{fileName, fileType, expireDays, urlExpireTime, bizType};
    return query(site, queries::kUploadAddress, {serial, ch}, false, [&](const Caller& caller) {
        RecordFileList list;
        const int result = GetClouduploadUrlPlatform(caller, picture, list);
        if (result != VANTIX_NOERROR) {
            VANTIX_LOG_ERROR(site, level::kWarning, "GetClouduploadUrlPlatform error [%d]", result);
            return result;
        }
        url = std::move(list.strDeviceRecordList);
        return static_cast<int>(VANTIX_NOERROR);
    });
}

int CVantixDataCenter::UploadCloudPicFile(const std::string& url, const std::string& localPath) {
    const int result = vantix::UploadCloudPicFile(url, localPath);
    if (result != VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kWarning, "UploadCloudPic error [%d]", result);
    }
    return result;
}

}  // namespace vantix
