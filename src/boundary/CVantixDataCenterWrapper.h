#pragma once

#include "boundary/CVantixDataCenterWrapperSettings.h"

namespace vantix {

/// A handle: every slot is a single forward to the process-wide core, and an exception ends here as -1 or, where the
/// slot has no code, as its neutral result. Here are slots 1 to 59: fetches, queries and caches.
class CVantixDataCenterWrapper final : public CVantixDataCenterWrapperSettings {
public:
    explicit CVantixDataCenterWrapper(CVantixDataCenter* dataCenter) : CVantixDataCenterWrapperSettings(dataCenter) {}

    // Tickets
    int getTicketInfo(const std::string& serial, int ch, std::string& ticket) override {
        return Code([&] { return core->getTicketInfo(serial, ch, ticket); });
    }
    int getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket) override {
        return Code([&] { return core->getCloudTicketInfo(serial, localIndex, spaceId, ticket); });
    }
    int getRelayTicket(const std::string& serial, int ch, std::string& ticket) override {
        return Code([&] { return core->getRelayTicket(serial, ch, ticket); });
    }

    // Device detail. A host may pass the serial of the very record that is written into: the core gets a copy.
    int getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                         std::future<int32_t>& future, bool retried) override {
        return Code(
            [&] { return core->getDevDetailInfo(std::string(serial), ch, channelInfo, detail, future, retried); });
    }
    int getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                             DevDetailInfo& detail, bool retried) override {
        return Code(
            [&] { return core->getDevDetailInfoSync(std::string(serial), ch, force, channelInfo, detail, retried); });
    }
    int getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                            const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                            bool retried) override {
        return Code(
            [&] { return core->getDeviceDetailInfo(serial, ch, bizType, platFormId, channelInfo, detail, retried); });
    }
    int isP2PV3download(const std::string& serial, int ch) override {
        return Code([&] { return core->isP2PV3download(serial, ch); });
    }
    int getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                   DevDetailInfo& detail, bool retried) override {
        return Code(
            [&] { return core->getDevDetailInfoByRelation(std::string(serial), ch, channelInfo, detail, retried); });
    }

    // Servers
    int getServerInfoAsync(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                           bool retried) override {
        return Code([&] { return core->getServerInfo(token, serverInfo, future, retried); });
    }
    int getServerInfoEx(const std::string& token, std::string& vtmAddr, std::string serial, int ch,
                        bool retried) override {
        return Code([&] { return core->getServerInfoEx(token, vtmAddr, serial, ch, retried); });
    }
    int getServerInfoSync(const std::string& token, ServerInfo& serverInfo, bool retried) override {
        return Code([&] { return core->getServerInfo(token, serverInfo, retried); });
    }
    int getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) override {
        return Code([&] { return core->getVideoVtmAddr(serial, ch, json, retried); });
    }
    int getRelayServerInfo(const std::string& serial, int ch, std::string& json) override {
        return Code([&] { return core->getRelayServerInfo(serial, ch, json); });
    }
    int getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried) override {
        return Code([&] { return core->getDeviceInfoBySerial(serial, ch, json, retried); });
    }

    // Lists and account
    int getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) override {
        return Code([&] { return core->getDevList(pageStart, pageSize, list, retried); });
    }
    int getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list,
                      bool retried) override {
        return Code([&] { return core->getDeviceList(pageStart, pageSize, bizType, list, retried); });
    }
    int getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) override {
        return Code([&] { return core->getShareDevList(pageStart, pageSize, list, retried); });
    }
    int getB2CSharedDevList(int offset, int limit, std::string& json) override {
        return Code([&] { return core->getB2CSharedDevList(offset, limit, json); });
    }
    int getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize, const std::string& startTime,
                     const std::string& endTime, int alarmType, int status, std::string& json, bool retried) override {
        return Code([&] {
            return core->getAlarmList(serial, ch, pageStart, pageSize, startTime, endTime, alarmType, status, json,
                                      retried);
        });
    }
    int getUsername(std::string& userName) override {
        return Code([&] { return core->getUsername(userName); });
    }
    int getConfigInfo(ConfigInfo& config) override {
        return Code([&] { return core->getConfigInfo(config); });
    }
    int getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq, TransparentMsgDetail& detail,
                                bool retried) override {
        return Code([&] { return core->getTransparentMsgDetail(serial, msgSeq, detail, retried); });
    }

    // P2P
    int getP2PUserInfoAsync(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                            bool retried) override {
        return Code([&] { return core->getP2PUserInfo(userInfo, token, future, retried); });
    }
    int getP2PUserInfoByToken(const std::string& token, P2PUserInfo& userInfo, bool retried) override {
        return Code([&] { return core->getP2PUserInfo(token, userInfo, retried); });
    }
    int getP2PUserInfoByDevice(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried) override {
        return Code([&] { return core->getP2PUserInfo(serial, ch, userInfo, retried); });
    }
    int getP2PDevInfoAsync(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                           std::future<int32_t>& future) override {
        return Code([&] { return core->getP2PDevInfo(devInfo, token, serial, future); });
    }
    int getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                            bool forceFetch) override {
        return Code([&] { return core->getP2PDevInfoCached(serial, servers, devInfo, forceFetch); });
    }
    int getP2PDevInfoBySerial(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                              bool retried) override {
        return Code([&] { return core->getP2PDevInfo(devInfo, token, serial, retried); });
    }
    int getP2PDevInfoByChannel(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                               bool retried) override {
        return Code([&] { return core->getP2PDevInfo(serial, ch, token, devInfo, retried); });
    }

    // Channel settings
    int getChannelCacheValue(const std::string& serial, int ch) override {
        return Code([&] { return core->getChannelCacheValue(serial, ch); });
    }
    void setChannelCacheValue(const std::string& serial, int ch, int value) override {
        NoThrow([&] { core->setChannelCacheValue(serial, ch, value); });
    }
    int setVideoDefinition(const std::string& serial, std::string& response, int ch, int videoLevel,
                           bool retried) override {
        return Code([&] { return core->setVideoDefinition(serial, response, ch, videoLevel, retried); });
    }
    int setAlarmRead(const std::string& alarmId) override {
        return Code([&] { return core->setAlarmRead(alarmId); });
    }

    // Stream tokens and credentials
    int getStreamTokens(const std::string& token, int count, std::string& response, bool retried) override {
        return Code([&] { return core->getStreamTokens(token, count, response, retried); });
    }
    int getAuthInfo(const std::string& serial, int ch, bool playback) override {
        return Code([&] { return core->getAuthInfo(serial, ch, playback); });
    }
    int RefreshToken(std::string& newToken) override {
        return Code([&] { return core->RefreshToken(newToken); });
    }
    int getOneStreamToken(const std::string& accessToken, std::string& token) override {
        return Code([&] { return core->getOneStreamToken(accessToken, token); });
    }
    int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) override {
        return Code([&] { return core->GetStreamTokenFromQueue(accessToken, buffer); });
    }
    int GetStreamTokenFast() override {
        return Code([&] { return core->GetStreamTokenFast(); });
    }

    // Recordings
    int getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId, std::string& json) override {
        return Code([&] { return core->getRecordByAlarmID(serial, ch, alarmId, json); });
    }
    int getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                              const std::string& endTime, int recordType, int location, RecordFileList& list,
                              bool sdkPath, bool retried) override {
        return Code([&] {
            return core->getDeviceFileBySerial(serial, ch, startTime, endTime, recordType, location, list, sdkPath,
                                               retried);
        });
    }
    int getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                const std::string& endTime, int recordType, bool withLocation,
                                RecordFileList& list) override {
        return Code([&] {
            return core->getDeviceFileBySerialEx(serial, ch, startTime, endTime, recordType, withLocation, list);
        });
    }
    int getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType, std::string& json,
                             bool retried) override {
        return Code([&] { return core->getCloudFileBySerial(serial, ch, span, fileType, json, retried); });
    }
    int getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                             const std::string& endTime, const std::string& bizType, const std::string& platFormId,
                             std::string& json, bool retried) override {
        return Code([&] {
            return core->getLocalFileBySerial(serial, ch, startTime, endTime, bizType, platFormId, json, retried);
        });
    }
    int getCloudFileBySerialEX(const std::string& serial, int ch, int videoType, const CloudFileQuery& query,
                               std::string& json, bool retried) override {
        return Code([&] { return core->getCloudFileBySerialEX(serial, ch, videoType, query, json, retried); });
    }
    int getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query,
                                   std::string& json) override {
        return Code([&] { return core->getCloudFileInfoBySerialEX(serial, ch, query, json); });
    }
    int GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId, const std::string& startTime,
                           const std::string& endTime, RecordFileList& list) override {
        return Code([&] { return core->GetCloudRecordFile(serial, localIndex, spaceId, startTime, endTime, list); });
    }
    int GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType, int expireDays,
                          int urlExpireTime, const std::string& bizType, std::string& url) override {
        return Code([&] {
            return core->GetClouduploadUrl(serial, ch, fileName, fileType, expireDays, urlExpireTime, bizType, url);
        });
    }
    int UploadCloudPicFile(const std::string& url, const std::string& localPath) override {
        return Code([&] { return core->UploadCloudPicFile(url, localPath); });
    }

    // Caches
    int ClearAllCache() override {
        return Code([&] { return core->ClearAllCache(); });
    }
    void expireServerInfo() override {
        NoThrow([&] { core->expireServerInfo(); });
    }
    int ClearDeviceInfoCache() override {
        return Code([&] { return core->ClearDeviceInfoCache(); });
    }
    int IsSupportSeekPlayback(const std::string& serial) override {
        return Code([&] { return core->IsSupportSeekPlayback(serial); });
    }
    int IsSupportPlaybackSpeed(const std::string& serial, int speed) override {
        return Code([&] { return core->IsSupportPlaybackSpeed(serial, speed); });
    }
    int getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) override {
        return Code([&] { return core->getDeviceRecord(serial, ch, detail); });
    }
    int getDeviceRecordAlt(const std::string& serial, int ch, DevDetailInfo& detail) override {
        return Code([&] { return core->getDeviceRecord(serial, ch, detail); });
    }

    // Account identity
    int getUserId(std::string& userId) override {
        return Code([&] { return core->getUserId(userId); });
    }
    int getPushSessionId(std::string& sessionId) override {
        return Code([&] { return core->getPushSessionId(sessionId); });
    }
    int getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info) override {
        return Code([&] { return core->getBWCheckInfo(type, checkTime, localIndex, info); });
    }
};

}  // namespace vantix
