#pragma once

#include <string>

#include "core/queries/QueryTable.h"
#include "core/renewal/Renewal.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

struct BWCheckInfo;
struct CloudFileQuery;
struct ConfigInfo;
struct DevChannelInfo;
struct DevDetailInfo;
struct DeviceList;
struct RecordFileList;
struct TimeSpan;
struct TransparentMsgDetail;
class Settings;

/// The one-shot queries: each finds its route, sends one request and returns the response; nothing is cached. The rules
/// of each are a row of the query table. `IVantixDataCenter` documents the operations.
class Queries {
public:
    /// The parts outlive this one.
    Queries(Settings& settings, const Routes& routes, Renewal& renewal)
        : m_settings(settings), m_routes(routes), m_renewal(renewal) {}

    int getTicketInfo(const std::string& serial, int ch, std::string& ticket);
    int getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket);
    int getRelayTicket(const std::string& serial, int ch, std::string& ticket);
    int getRelayServerInfo(const std::string& serial, int ch, std::string& json);
    int getAuthInfo(const std::string& serial, int ch, bool playback);
    int getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried);
    int getDevList(int pageStart, int pageSize, DeviceList& list, bool retried);
    int getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list, bool retried);
    int getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried);
    int getB2CSharedDevList(int offset, int limit, std::string& json);
    int getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize, const std::string& startTime,
                     const std::string& endTime, int alarmType, int status, std::string& json, bool retried);
    int getUsername(std::string& userName);
    int getConfigInfo(ConfigInfo& config);
    int getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq, TransparentMsgDetail& detail,
                                bool retried);
    int setVideoDefinition(const std::string& serial, std::string& response, int ch, int videoLevel, bool retried);
    int setAlarmRead(const std::string& alarmId);
    int getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId, std::string& json);
    int getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                              const std::string& endTime, int recordType, int location, RecordFileList& list,
                              bool sdkPath, bool retried);
    int getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                const std::string& endTime, int recordType, bool withLocation, RecordFileList& list);
    int getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType, std::string& json,
                             bool retried);
    int getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                             const std::string& endTime, const std::string& bizType, const std::string& platFormId,
                             std::string& json, bool retried);
    int getCloudFileBySerialEX(const std::string& serial, int ch, int videoType, const CloudFileQuery& query,
                               std::string& json, bool retried);
    int getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query, std::string& json);
    int GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId, const std::string& startTime,
                           const std::string& endTime, RecordFileList& list);
    int GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType, int expireDays,
                          int urlExpireTime, const std::string& bizType, std::string& url);
    int UploadCloudPicFile(const std::string& url, const std::string& localPath);
    int getUserId(std::string& userId);
    int getPushSessionId(std::string& sessionId);
    int getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info);
    int getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                            const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                            bool retried);

private:
    /// Runs a query that has the platform's form only: `send` gets the route.
    template <class Send>
    int Run(const QueryRow& row, const Subject& subject, bool retried, Send send) {
        return m_renewal.Run(row.site, row.repeats, retried, subject, [&](const Attempt& attempt) {
            return SendAlong(m_routes.DecidePlatform(row.site, row.route, attempt.subject), send);
        });
    }

    Settings& m_settings;
    const Routes& m_routes;
    Renewal& m_renewal;
};

}  // namespace vantix
