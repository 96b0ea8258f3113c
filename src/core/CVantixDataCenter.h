#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <string>
#include <vector>

namespace vantix {

struct BWCheckInfo;
struct CloudFileQuery;
struct ConfigInfo;
struct CoreParts;
struct DevChannelInfo;
struct DevDetailInfo;
struct DeviceList;
struct P2PDevInfo;
struct P2PServerAddr;
struct P2PUserInfo;
struct RecordFileList;
struct ServerInfo;
struct TimeSpan;
struct TransparentMsgDetail;

/// The one object behind every handle: it declares the operations, and its parts run them.
///
/// `IVantixDataCenter` documents the operations; each calls the part that owns the state it needs.
/// Every guarded value has a lock of its own; no operation holds two, and none is held across a request.
class CVantixDataCenter {
public:
    CVantixDataCenter();
    ~CVantixDataCenter();
    CVantixDataCenter(const CVantixDataCenter&) = delete;
    CVantixDataCenter& operator=(const CVantixDataCenter&) = delete;

    // ---- Device detail and its caches

    int getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                         std::future<int32_t>& future, bool retried);
    int getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                             DevDetailInfo& detail, bool retried);
    int getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                   DevDetailInfo& detail, bool retried);
    int getChannelCacheValue(const std::string& serial, int ch);
    void setChannelCacheValue(const std::string& serial, int ch, int value);
    int ClearAllCache();
    int ClearDeviceInfoCache();
    int IsSupportSeekPlayback(const std::string& serial);
    int IsSupportPlaybackSpeed(const std::string& serial, int speed);
    int getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail);
    int SetDevInfoCache(const std::string& serial, int ch);
    int getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail);

    // ---- Detail of other platforms, servers, P2P

    int getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                            const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                            bool retried);
    int isP2PV3download(const std::string& serial, int ch);
    int getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future, bool retried);
    int getServerInfoEx(const std::string& token, std::string& vtmAddr, const std::string& serial, int ch,
                        bool retried);
    int getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried);
    int getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried);
    int getRelayServerInfo(const std::string& serial, int ch, std::string& json);
    int getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future, bool retried);
    int getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried);
    int getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried);
    int getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                      std::future<int32_t>& future);
    int getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                            bool forceFetch);
    int getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial, bool retried);
    int getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo, bool retried);
    void expireServerInfo();

    // ---- Stream tokens and credentials

    int getStreamTokens(const std::string& token, int count, std::string& response, bool retried);
    int getAuthInfo(const std::string& serial, int ch, bool playback);
    int RefreshToken(std::string& newToken);
    int getOneStreamToken(const std::string& accessToken, std::string& token);
    int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer);
    int GetStreamTokenFast();
    int RefreshSession(const std::string& refreshSessionId, std::string& newSession);

    // ---- Queries

    int getTicketInfo(const std::string& serial, int ch, std::string& ticket);
    int getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket);
    int getRelayTicket(const std::string& serial, int ch, std::string& ticket);
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

    // ---- Tk and B2C tokens

    void SetDeviceTkTokens(const std::string& szDeviceTkTokens);
    std::string getDeviceTkTokens(int tkType, const std::string& strSerial, const std::string& strChannelNo);
    std::string getDeviceTkTokens(int tkType, const std::string& strSerial, int iChannelNo);
    void setGlobalTkToken(const std::string& token);
    const std::string& getGlobalTkToken();
    void SetB2CTokens(const std::string& text);
    std::string getB2CTokens(const std::string& serial, int ch);
    std::string getB2CTokens(const std::string& serial, const std::string& ch);
    bool isB2CSharedDevice(const std::string& token);
    bool isB2CSharedDevice(const std::string& serial, int ch);
    void setSharedAccessToken(const std::string& token);
    const std::string& getSharedAccessToken();

    // ---- Settings

    void setPermissionMode(const int& mode);
    const int* getPermissionMode();
    void setCloseP2P(int close);
    bool isOpenP2P();
    bool isVTDUType1();
    void setDomain(const std::string& bDomain, const std::string& cDomain);
    const std::string& getDomain(const std::string& serial, int ch);
    const std::string& getDomainByToken(const std::string& token);
    void setAuthAddr(const std::string& addr);
    const std::string& getAuthAddr();
    void setAppId(const std::string& appId);
    std::string getAppId();
    void setAccessToken(const std::string& token);
    const std::string& getAccessToken();
    void setTokenExpireTime(const std::string& text);
    const std::string& getTokenExpireTime();
    void setRefreshToken(const std::string& token);
    const std::string& getRefreshToken();
    void setOpenID(const std::string& openId);
    const std::string& getOpenID();
    void setScope(const std::string& scope);
    const std::string& getScope();
    void setState(const std::string& state);
    const std::string& getState();
    void setCacheTime(int minutes);
    int getCacheTime();
    void setLogLevel(int level);
    int getLogLevel();
    void setDataUtf8(int iDataUtf8);
    bool isDataUtf8();
    void setCloseBelongSerial(int close);
    bool isCloseBelongSerial();
    void setSessionId(const std::string& sessionId);
    const std::string& getSessionId();

    /// Whether something stored at this time (seconds since the epoch) is older than the cache time. Never, when the
    /// clock fails.
    bool isExpired(int64_t storeTime);

private:
    const std::unique_ptr<CoreParts> m_parts;
};

}  // namespace vantix
