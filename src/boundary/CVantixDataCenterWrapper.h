#pragma once

#include "vantix/IVantixDataCenter.h"

namespace vantix {

class CVantixDataCenter;

/// A handle: every slot is a single forward to the process-wide core, and an exception ends here as -1 or, where the
/// slot has no code, as its neutral result.
class CVantixDataCenterWrapper final : public IVantixDataCenter {
public:
    explicit CVantixDataCenterWrapper(CVantixDataCenter* dataCenter) : core(dataCenter) {}

    // Tickets
    int getTicketInfo(const std::string& serial, int ch, std::string& ticket) override;
    int getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket) override;
    int getRelayTicket(const std::string& serial, int ch, std::string& ticket) override;

    // Device detail
    int getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                         std::future<int32_t>& future, bool retried) override;
    int getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                             DevDetailInfo& detail, bool retried) override;
    int getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                            const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                            bool retried) override;
    int isP2PV3download(const std::string& serial, int ch) override;
    int getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                   DevDetailInfo& detail, bool retried) override;

    // Servers
    int getServerInfoAsync(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                           bool retried) override;
    int getServerInfoEx(const std::string& token, std::string& vtmAddr, std::string serial, int ch,
                        bool retried) override;
    int getServerInfoSync(const std::string& token, ServerInfo& serverInfo, bool retried) override;
    int getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) override;
    int getRelayServerInfo(const std::string& serial, int ch, std::string& json) override;
    int getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried) override;

    // Lists and account
    int getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) override;
    int getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list, bool retried) override;
    int getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) override;
    int getB2CSharedDevList(int offset, int limit, std::string& json) override;
    int getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize, const std::string& startTime,
                     const std::string& endTime, int alarmType, int status, std::string& json, bool retried) override;
    int getUsername(std::string& userName) override;
    int getConfigInfo(ConfigInfo& config) override;
    int getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq, TransparentMsgDetail& detail,
                                bool retried) override;

    // P2P
    int getP2PUserInfoAsync(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                            bool retried) override;
    int getP2PUserInfoByToken(const std::string& token, P2PUserInfo& userInfo, bool retried) override;
    int getP2PUserInfoByDevice(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried) override;
    int getP2PDevInfoAsync(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                           std::future<int32_t>& future) override;
    int getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                            bool forceFetch) override;
    int getP2PDevInfoBySerial(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                              bool retried) override;
    int getP2PDevInfoByChannel(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                               bool retried) override;

    // Channel settings
    int getChannelCacheValue(const std::string& serial, int ch) override;
    void setChannelCacheValue(const std::string& serial, int ch, int value) override;
    int setVideoDefinition(const std::string& serial, std::string& answer, int ch, int videoLevel,
                           bool retried) override;
    int setAlarmRead(const std::string& alarmId) override;

    // Stream tokens and credentials
    int getStreamTokens(const std::string& token, int count, std::string& answer, bool retried) override;
    int getAuthInfo(const std::string& serial, int ch, bool playback) override;
    int RefreshToken(std::string& newToken) override;
    int getOneStreamToken(const std::string& accessToken, std::string& token) override;
    int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) override;
    int GetStreamTokenFast() override;

    // Recordings
    int getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId, std::string& json) override;
    int getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                              const std::string& endTime, int recordType, int location, RecordFileList& list,
                              bool sdkPath, bool retried) override;
    int getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                const std::string& endTime, int recordType, bool withLocation,
                                RecordFileList& list) override;
    int getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType, std::string& json,
                             bool retried) override;
    int getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                             const std::string& endTime, const std::string& bizType, const std::string& platFormId,
                             std::string& json, bool retried) override;
    int getCloudFileBySerialEX(const std::string& serial, int ch, int videoType, const CloudFileQuery& query,
                               std::string& json, bool retried) override;
    int getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query,
                                   std::string& json) override;
    int GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId, const std::string& startTime,
                           const std::string& endTime, RecordFileList& list) override;
    int GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType, int expireDays,
                          int urlExpireTime, const std::string& bizType, std::string& url) override;
    int UploadCloudPicFile(const std::string& url, const std::string& localPath) override;

    // Caches
    int ClearAllCache() override;
    void expireServerInfo() override;
    int ClearDeviceInfoCache() override;
    int IsSupportSeekPlayback(const std::string& serial) override;
    int IsSupportPlaybackSpeed(const std::string& serial, int speed) override;
    int getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) override;
    int getDeviceRecordAlt(const std::string& serial, int ch, DevDetailInfo& detail) override;

    // Account identity
    int getUserId(std::string& userId) override;
    int getPushSessionId(std::string& sessionId) override;
    int getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info) override;

    // Device Tk tokens
    void SetDeviceTkTokens(const std::string& json) override;
    std::string& getDeviceTkTokensByText(std::string& token, int tkType, const std::string& serial,
                                         const std::string& ch) override;
    std::string& getDeviceTkTokensByNumber(std::string& token, int tkType, const std::string& serial, int ch) override;
    void setGlobalTkToken(const std::string& token) override;
    const std::string& getGlobalTkToken() override;

    // Modes
    void setPermissionMode(const int& mode) override;
    const int* getPermissionMode() override;
    int SetDevInfoCache(const std::string& serial, int ch) override;
    int getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail) override;
    void setCloseP2P(int close) override;
    bool isOpenP2P() override;
    bool isVTDUType1() override;
    int RefreshSession(const std::string& refreshSessionId, std::string& newSession) override;

    // Domains and credentials
    void setDomain(const std::string& bDomain, const std::string& cDomain) override;
    const std::string& getDomain(const std::string& serial, int ch) override;
    const std::string& getDomainByToken(const std::string& token) override;
    void setAuthAddr(const std::string& addr) override;
    const std::string& getAuthAddr() override;
    void setAppId(const std::string& appId) override;
    std::string& getAppId(std::string& appId) override;
    void setAccessToken(const std::string& token) override;
    const std::string& getAccessToken() override;
    void setTokenExpireTime(const std::string& text) override;
    const std::string& getTokenExpireTime() override;
    void setRefreshToken(const std::string& token) override;
    const std::string& getRefreshToken() override;
    void setOpenID(const std::string& openId) override;
    const std::string& getOpenID() override;
    void setScope(const std::string& scope) override;
    const std::string& getScope() override;
    void setState(const std::string& state) override;
    const std::string& getState() override;

    // Switches
    void setCacheTime(int minutes) override;
    int getCacheTime() override;
    void setLogLevel(int level) override;
    int getLogLevel() override;
    void setDataUtf8(int iDataUtf8) override;
    bool isDataUtf8() override;
    void setCloseBelongSerial(int close) override;
    bool isCloseBelongSerial() override;

    // B2C tokens and the consumer session
    void SetB2CTokens(const std::string& json) override;
    std::string& getB2CTokensByNumber(const std::string& serial, int ch, std::string& token) override;
    std::string& getB2CTokensByText(const std::string& serial, const std::string& ch, std::string& token) override;
    bool isB2CSharedToken(const std::string& token) override;
    bool isB2CSharedChannel(const std::string& serial, int ch) override;
    void setSharedAccessToken(const std::string& token) override;
    const std::string& getSharedAccessToken() override;
    void setSessionId(const std::string& sessionId) override;
    const std::string& getSessionId() override;

private:
    CVantixDataCenter* core;  ///< Not owned.
};

}  // namespace vantix
