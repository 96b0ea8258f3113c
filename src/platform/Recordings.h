#pragma once

/// @file
/// Recordings on devices and in the cloud, and the upload of pictures.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.
/// Times are texts ("2026-01-02 03:04:05").

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/RecordFileList.h"

namespace vantix {

/// Recordings on a device. `sdkPath` chooses the older of the platform's two paths.
int GetDeviceFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                      const TimeSpan& span, int recordType, int location, bool sdkPath,
                                      RecordFileList& list);

/// Recordings on a device, by the newer query. A record type of 0 and no location are not sent.
int GetDeviceFileBySerialFromPlatformEx(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                        const TimeSpan& span, int recordType, bool withLocation, RecordFileList& list);

/// Recordings in a cloud storage space.
int GetCloudRecordFileFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                                   int spaceId, const TimeSpan& span, RecordFileList& list);

/// Cloud recordings of a channel, as the platform returns them.
int GetCloudFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                     const TimeSpan& span, int fileType, std::string& json);

/// Details of cloud recordings; `query` is the whole JSON text to send.
int GetCloudFileInfoBySerialEXFromPlatform(const PlatformRoute& route, const std::string& query, std::string& json);

/// Cloud recordings of a day, as the platform returns them.
int GetCloudFileBySerialEXFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                       int videoType, const CloudFileQuery& query, std::string& json);

/// Which business platform a device belongs to.
struct BusinessPlatform {
    std::string bizType;
    std::string platFormId;
};

/// Local recordings of a device of a business platform, as the platform returns them.
int GetLocalFileBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, const BusinessPlatform& business, std::string& json);

/// The recording of an alarm, as the platform returns it; the response's envelope is not looked at.
int GetRecordByAlarmIdFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   const std::string& alarmId, std::string& json);

/// The picture that an upload address is asked for.
struct UploadQuery {
    std::string fileName;
    int fileType = 0;
    int expireDays = 0;     ///< How long the cloud keeps the picture.
    int urlExpireTime = 0;  ///< How long the address stays good, in seconds.
    std::string bizType;
};

/// Asks for an address to upload a picture to; the response's "data" is in the list's text.
int GetClouduploadUrlPlatform(const PlatformRoute& route, const UploadQuery& query, RecordFileList& list);

/// Uploads a local file to an address that was handed out. Only the transfer can fail.
int UploadCloudPicFile(const std::string& url, const std::string& localPath);

/// Reads "data" of a response with "meta".
int ParseLocalDeviceRecordFile(TextView body, RecordFileList& list);

/// Reads "result"."data", which must be an array.
int ParseDeviceRecordFile(TextView body, RecordFileList& list);

/// Reads recordings that arrive as the text {"data":[…]}: 0, or 2 when it is no such text.
int ReadRecordFiles(const std::string& text, RecordFileList& list);

}  // namespace vantix
