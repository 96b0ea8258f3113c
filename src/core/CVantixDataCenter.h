#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <vector>

#include "base/Guarded.h"
#include "core/DeviceCaches.h"
#include "core/Query.h"
#include "core/Settings.h"
#include "core/SingleRecordCache.h"
#include "core/Source.h"
#include "core/StreamTokens.h"
#include "core/TokenRecords.h"
#include "log/Logger.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix {

/// The one object behind every handle: settings, tokens and caches, and the operations that fill them from the cloud.
///
/// What the operations mean is told at `IVantixDataCenter`; each file of this folder holds one concern of them. Every
/// guarded value has a lock of its own; no operation holds two, and none is held across a request.
class CVantixDataCenter {
public:
    CVantixDataCenter() = default;
    ~CVantixDataCenter() = default;
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
    /// The key of a channel: serial, "_", channel number. A serial of no or more than 128 characters is logged and is
    /// itself the key.
    static std::string getDevDetailInfoMapKey(const std::string& serial, int ch);
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

    int getStreamTokens(const std::string& token, int count, std::string& answer, bool retried);
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
    int setVideoDefinition(const std::string& serial, std::string& answer, int ch, int videoLevel, bool retried);
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
    /// The domain that requests for this channel go to. Internal callers copy it under its lock.
    const GuardedText& getDomain(const std::string& serial, int ch);
    const GuardedText& getDomainByToken(const std::string& token);
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
    // ---- Device caches, internal reads and the refill
    int getDevDetailInfoFromLocal(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                  DevDetailInfo& detail);
    int getDevDetailInfoFromLocalByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail);
    int updateDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail);
    int fetchDevDetailInfo(const CallSite& site, const std::string& serial, int ch, DevChannelInfo& channelInfo,
                           DevDetailInfo& detail, std::optional<BelongDevInfo>& parent);
    void storeDevDetailInfo(const std::string& key, const DevChannelInfo& channelInfo, const DevDetailInfo& detail,
                            const std::optional<BelongDevInfo>& parent);
    /// Copies a channel's record out; false when it is not cached.
    bool readChannel(const std::string& key, DevChannelInfo& channelInfo);
    std::optional<DevDetailInfo> cachedDevice(const std::string& serial);
    bool supportsPlayback(const CallSite& site, const std::string& serial,
                          const std::function<bool(const DevDetailInfo&)>& test);

    // ---- Credentials
    std::string tkToken(const CallSite& site, int tkType, const std::string& key);
    /// The device's Tk token of this type in the small-permission mode, the access token in every other.
    std::string ownCredential(const std::string& serial, int ch, int tkType);
    /// The same, but in B2C mode the channel's B2C token.
    std::string detailCredential(const std::string& serial, int ch);
    /// Whether there is one; when not, the line and the thread's last error have been written.
    bool hasCredential(const CallSite& site, const std::string& credential);
    /// Whether the consumer servers answer for this token, or for this channel.
    bool isServedByConsumer(const std::string& token);
    bool isServedByConsumer(const std::string& serial, int ch);
    Caller callerFor(const std::string& domain, const std::string& token);
    /// Renew the access token or the session: the new one, or empty.
    std::string refreshedToken();
    std::string refreshedSession();

    /// Whether the credential of a channel's fetch had expired, by its result, and is renewed now.
    bool isRenewed(const std::string& serial, int ch, int result);

    // ---- Fetches that either server family may answer
    FetchTokens tokensOf(const std::string& token);
    FetchTokens tokensOf(const std::string& serial, int ch, int tkType);
    /// Family and credential, still without a domain; nothing when the credential is empty.
    std::optional<Source> sourceOf(const CallSite& site, const FetchTokens& tokens);
    /// Renews the credential when the result says that it has expired. Nothing when the fetch is not to be repeated,
    /// else the token to repeat it with.
    std::optional<std::string> tokenForRepeat(const Source& source, int result, const std::string& token, bool retried);
    int refillServerInfo(const CallSite& site, const std::string& token, ServerInfo& serverInfo, bool retried);
    int videoRelays(const CallSite& site, const std::string& token, const std::string& serial, int ch,
                    std::string& json, bool retried);
    int refillP2PUserInfo(const CallSite& site, const FetchTokens& tokens, P2PUserInfo& userInfo, bool retried);
    int getP2PDevInfoFromLocal(const std::string& serial, P2PDevInfo& devInfo);
    /// Serves a cached record that is not marked; `result` is that of the read in any case.
    bool serveP2PDevInfo(const CallSite& site, const std::string& serial, P2PDevInfo& devInfo, int& result);
    int updateP2PDevInfo(const CallSite& site, const std::string& serial, int ch, const FetchTokens& tokens,
                         P2PDevInfo& devInfo, bool retried);

    // ---- Stream tokens
    /// Takes a queued token of this access token. Another access token empties the queue.
    bool takeQueuedToken(const std::string& accessToken, std::string& token);
    void prefetchStreamToken(const CallSite& site);

    // ---- Queries
    int query(const CallSite& site, const QueryRow& row, const Subject& subject, bool retried, const SendQuery& send);
    /// Whether the credential had expired, by the result, and is renewed now.
    bool isRenewedFor(const QueryRow& row, const Subject& subject, int result);
    std::string queryDomain(const CallSite& site, const QueryRow& row, const Subject& subject,
                            const std::string& token);
    /// One of the two domains, told in the name of the call site.
    std::string domainInPlace(const CallSite& site, bool isShared);
    int consumerDeviceFiles(const Caller& caller, const std::string& serial, int ch, const TimeSpan& span,
                            int recordType, RecordFileList& list);

    Settings m_settings;
    Guarded<DeviceTkTokenMap> m_mapDeviceTkTokens;
    Guarded<B2CTokenMap> m_mapB2CTokens;
    Guarded<ChannelMap> m_mapDevDetailInfo;
    Guarded<DeviceMap> m_mapDeviceInfoCache;   ///< By channel key.
    Guarded<DeviceMap> m_mapSerialDetailInfo;  ///< By serial; parents too.
    SingleRecordCache<ServerInfo> m_serverInfo;
    SingleRecordCache<P2PUserInfo> m_p2pUserInfo;
    Guarded<P2PDevMap> m_mapP2PDevInfo;               ///< By serial.
    Guarded<std::deque<std::string>> m_streamTokens;  ///< Of the current access token.
    Guarded<FirstToken> m_firstToken;
};

}  // namespace vantix
