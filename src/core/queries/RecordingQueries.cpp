// Queries about recordings, on devices and in the cloud, and the upload of pictures.

#include "core/queries/Queries.h"
#include "cserver/Recordings.h"
#include "json/JsonCppReader.h"
#include "json/JsonText.h"
#include "platform/Recordings.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// The consumer servers' recordings, in the platform's list.
int ConsumerDeviceFiles(const ConsumerRoute& route, const std::string& serial, int ch, const TimeSpan& span,
                        int recordType, RecordFileList& list) {
    std::string records;
    const int result = GetDeviceFileBySerialFromCServer(route, serial, ch, span, recordType, records);
    if (result != VANTIX_NOERROR) {
        return result;
    }
    const int read = ReadRecordFiles(records, list);
    return read == VANTIX_NOERROR ? static_cast<int>(VANTIX_NOERROR) : VANTIX_PLATFORM_ERROR_BASE + read;
}

}  // namespace

int Queries::getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId, std::string& json) {
    return Run(queries::kRecordByAlarm, Subject::OfChannel(serial, ch), false, [&](const PlatformRoute& route) {
        return GetRecordByAlarmIdFromPlatform(route, serial, ch, alarmId, json);
    });
}

int Queries::getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                   const std::string& endTime, int recordType, int location, RecordFileList& list,
                                   bool sdkPath, bool retried) {
    using queries::kDeviceFiles;
    const TimeSpan span{startTime, endTime};
    return m_renewal.Run(kDeviceFiles.site, kDeviceFiles.repeats, retried, Subject::OfChannel(serial, ch),
                         [&](const Attempt& attempt) {
                             return SendAlong(
                                 m_routes.Decide(kDeviceFiles.site, kDeviceFiles.route, attempt.subject),
                                 [&](const PlatformRoute& route) {
                                     return GetDeviceFileBySerialFromPlatform(route, serial, ch, span, recordType,
                                                                              location, sdkPath, list);
                                 },
                                 [&](const ConsumerRoute& route) {
                                     return ConsumerDeviceFiles(route, serial, ch, span, recordType, list);
                                 });
                         });
}

int Queries::getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                     const std::string& endTime, int recordType, bool withLocation,
                                     RecordFileList& list) {
    const TimeSpan span{startTime, endTime};
    return Run(queries::kDeviceFilesEx, Subject::OfChannel(serial, ch), false, [&](const PlatformRoute& route) {
        return GetDeviceFileBySerialFromPlatformEx(route, serial, ch, span, recordType, withLocation, list);
    });
}

int Queries::getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType,
                                  std::string& json, bool retried) {
    return Run(queries::kCloudFiles, Subject::OfChannel(serial, ch), retried, [&](const PlatformRoute& route) {
        return GetCloudFileBySerialFromPlatform(route, serial, ch, span, fileType, json);
    });
}

int Queries::getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                  const std::string& endTime, const std::string& bizType, const std::string& platFormId,
                                  std::string& json, bool retried) {
    const TimeSpan span{startTime, endTime};
    const BusinessPlatform business{bizType, platFormId};
    return Run(queries::kLocalFiles, Subject::OfChannel(serial, ch), retried, [&](const PlatformRoute& route) {
        return GetLocalFileBySerialFromPlatform(route, serial, ch, span, business, json);
    });
}

int Queries::getCloudFileBySerialEX(const std::string& serial, int ch, int videoType, const CloudFileQuery& cloudQuery,
                                    std::string& json, bool retried) {
    return Run(queries::kCloudFilesEx, Subject::OfChannel(serial, ch), retried, [&](const PlatformRoute& route) {
        return GetCloudFileBySerialEXFromPlatform(route, serial, ch, videoType, cloudQuery, json);
    });
}

int Queries::getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& jsonQuery,
                                        std::string& json) {
    json::JsonCppDocument document;
    if (!document.ParseObjectStrictly(jsonQuery)) {
        VANTIX_LOG_ERROR(queries::kCloudFileDetails.site, level::kError, "query is no JSON object");
        return VANTIX_ERROR;
    }
    auto body = json::JsonBuilder::CopyOf(document.Root());
    return Run(queries::kCloudFileDetails, Subject::OfChannel(serial, ch), false, [&](const PlatformRoute& route) {
        return GetCloudFileInfoBySerialEXFromPlatform(route, body.Set("accessToken", route.AccessToken()).Compact(),
                                                      json);
    });
}

int Queries::GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId, const std::string& startTime,
                                const std::string& endTime, RecordFileList& list) {
    const TimeSpan span{startTime, endTime};
    return Run(queries::kCloudRecords, Subject::OfChannel(serial, localIndex), false, [&](const PlatformRoute& route) {
        const int result = GetCloudRecordFileFromPlatform(route, serial, localIndex, spaceId, span, list);
        if (result != VANTIX_NOERROR) {
            VANTIX_LOG_ERROR(queries::kCloudRecords.site, level::kWarning, "GetCloudRecordFileFromPlatform error [%d]",
                             result);
        }
        return result;
    });
}

int Queries::GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType,
                               int expireDays, int urlExpireTime, const std::string& bizType, std::string& url) {
    const UploadQuery picture{fileName, fileType, expireDays, urlExpireTime, bizType};
    return Run(queries::kUploadAddress, Subject::OfChannel(serial, ch), false, [&](const PlatformRoute& route) {
        RecordFileList list;
        const int result = GetClouduploadUrlPlatform(route, picture, list);
        if (result != VANTIX_NOERROR) {
            VANTIX_LOG_ERROR(queries::kUploadAddress.site, level::kWarning, "GetClouduploadUrlPlatform error [%d]",
                             result);
            return result;
        }
        url = std::move(list.strDeviceRecordList);
        return static_cast<int>(VANTIX_NOERROR);
    });
}

int Queries::UploadCloudPicFile(const std::string& url, const std::string& localPath) {
    const int result = vantix::UploadCloudPicFile(url, localPath);
    if (result != VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(VANTIX_CORE_HERE("UploadCloudPicFile"), level::kWarning, "UploadCloudPic error [%d]", result);
    }
    return result;
}

}  // namespace vantix
