#pragma once

/// @file
/// The interface of the data center, and the two functions that make and free handles.
///
/// All handles of a process share one core, which outlives them with its settings, tokens and caches. Any thread may
/// call any operation at any time, and no operation throws. An operation that sends a request blocks for up to 30
/// seconds for each, unless it takes a future. An int result is a code of `ReturnCodes.h`, unless the operation says
/// otherwise.

#include <cstdint>
#include <future>
#include <string>
#include <vector>

#include "vantix/Export.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

struct BWCheckInfo;
struct CloudFileQuery;
struct ConfigInfo;
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

/// The operations of the data center.
///
/// The order of the virtual functions is a contract with every host that was built before: new operations go to the
/// end, and each has a name of its own, since one family of compilers groups overloads in its tables. Overload sets are
/// the inline members at the end.
///
/// Common arguments: `serial` is a device serial of 1 to 128 characters, `ch` a channel number; `pageStart`,
/// `pageSize`, kinds and types go to the server unchanged; times of recordings and alarms are texts ("2026-01-02
/// 03:04:05"). `retried` forbids the renewal of an expired credential (hosts leave it false). Records and texts are
/// written through the reference that the host passes; after a failure their contents mean nothing.
///
/// An operation that has to send a request, and has no credential for it, returns -1 and sends nothing; an empty
/// consumer session is renewed first, if possible. An empty `token` is no credential in any mode. A future yields the
/// return code of its task. Until it is ready, the records of the call belong to the task: the host keeps them alive
/// and does not read them.
class IVantixDataCenter {
public:
    virtual ~IVantixDataCenter() = default;  // slot 0

    // ---- Tickets
    /// Fetches the ticket that opens a stream of a channel.
    virtual int getTicketInfo(const std::string& serial, int ch, std::string& ticket) = 0;  // slot 1
    /// Fetches the ticket that opens cloud recordings in a storage space. `localIndex` is the channel.
    virtual int getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId,
                                   std::string& ticket) = 0;  // slot 2
    /// Fetches the ticket for a relay server.
    virtual int getRelayTicket(const std::string& serial, int ch, std::string& ticket) = 0;  // slot 3

    // ---- Device detail
    /// Serves a fresh cached detail (0, future untouched), or starts a fetch and returns its future.
    ///
    /// Returns 0 when a cached copy was found, also an expired or marked one that is fetched again; -1 or 600001 when
    /// nothing usable was cached. `future.valid()` is true when a fetch runs.
    virtual int getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                                 std::future<int32_t>& future,
                                 bool retried = false) = 0;  // slot 4
    /// Unless `force` is set, serves a cached detail of release "VERSION_17" at any age; otherwise fetches now.
    virtual int getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                                     DevDetailInfo& detail,
                                     bool retried = false) = 0;  // slot 5
    /// Fetches the detail of a device of another business platform; caches nothing.
    virtual int getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                                    const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                                    bool retried = false) = 0;  // slot 6
    /// 1 when the device downloads over P2P version 3, 0 when it does not or its P2P information cannot be fetched; 1
    /// without a credential. Fetches the information unless it is cached.
    virtual int isP2PV3download(const std::string& serial, int ch) = 0;  // slot 7
    /// Like `getDevDetailInfoSync`, for a device that may be behind a parent.
    ///
    /// `detail` is read as well. A fresh record comes back as that of the online parent; one that already has the
    /// relation comes back as the device's own. `iCloseBlong` of 1 in it prevents this. A device with an unknown parent
    /// comes back as itself.
    virtual int getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                           DevDetailInfo& detail,
                                           bool retried = false) = 0;  // slot 8

    // ---- Servers
    /// Asynchronous `getServerInfo`: 0, with the cached copy (future untouched) or a future for the fetch.
    virtual int getServerInfoAsync(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                                   bool retried = false) = 0;  // slot 9
    /// `getVideoVtmAddr` with the given token as credential.
    virtual int getServerInfoEx(const std::string& token, std::string& vtmAddr, std::string serial, int ch,
                                bool retried = false) = 0;  // slot 10
    /// Synchronous `getServerInfo`: the servers of the user's area, from the cache at any age, else fetched. In the B2C
    /// mode the token selects the server family.
    virtual int getServerInfoSync(const std::string& token, ServerInfo& serverInfo,
                                  bool retried = false) = 0;  // slot 11
    /// The video relays of a channel as JSON: {"vtmBackups":[{"addr":…,"port":…},…]}. -1 when there is none, and for
    /// every failure.
    virtual int getVideoVtmAddr(const std::string& serial, int ch, std::string& json,
                                bool retried = false) = 0;  // slot 12
    /// The relay server of a channel as compact JSON: "domain", "port", "publicKey", "version".
    virtual int getRelayServerInfo(const std::string& serial, int ch, std::string& json) = 0;  // slot 13
    /// The platform's device information: the body of its response.
    virtual int getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json,
                                      bool retried = false) = 0;  // slot 14

    // ---- Lists and account
    /// One page of the account's devices.
    virtual int getDevList(int pageStart, int pageSize, DeviceList& list, bool retried = false) = 0;  // slot 15
    /// One page of the devices of a business type.
    virtual int getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list,
                              bool retried = false) = 0;  // slot 16
    /// One page of the devices that others share with the account.
    virtual int getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried = false) = 0;  // slot 17
    /// The devices shared on the consumer servers, in the platform's JSON shape.
    virtual int getB2CSharedDevList(int offset, int limit, std::string& json) = 0;  // slot 18
    /// One page of a channel's alarms: the body of the response.
    virtual int getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize,
                             const std::string& startTime, const std::string& endTime, int alarmType, int status,
                             std::string& json,
                             bool retried = false) = 0;  // slot 19
    /// The account's user name.
    virtual int getUsername(std::string& userName) = 0;  // slot 20
    /// The platform's configuration, without a credential. The core takes over stream type and data collection, not
    /// P2P.
    virtual int getConfigInfo(ConfigInfo& config) = 0;  // slot 21
    /// A message that the platform passed through from a device.
    virtual int getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq,
                                        TransparentMsgDetail& detail,
                                        bool retried = false) = 0;  // slot 22

    // ---- P2P
    /// Asynchronous `getP2PUserInfo`: 0, with the cached copy (future untouched) or a future for the fetch.
    virtual int getP2PUserInfoAsync(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                                    bool retried = false) = 0;  // slot 23
    /// Synchronous `getP2PUserInfo`: the user's P2P identity, from the cache at any age, else fetched. In the B2C mode
    /// the token selects the server family. A refusal by the consumer servers is 0 with an unfilled record.
    virtual int getP2PUserInfoByToken(const std::string& token, P2PUserInfo& userInfo,
                                      bool retried = false) = 0;  // slot 24
    /// Synchronous `getP2PUserInfo` for a device: sends its Tk token in the small-permission mode, else the access
    /// token; in the B2C mode the channel's B2C token selects the server family.
    virtual int getP2PUserInfoByDevice(const std::string& serial, int ch, P2PUserInfo& userInfo,
                                       bool retried = false) = 0;  // slot 25
    /// Asynchronous `getP2PDevInfo`: the cached copy (0, future untouched), or a future for the fetch (0 when a marked
    /// copy was found, -1 when none was, which is no failure).
    virtual int getP2PDevInfoAsync(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                   std::future<int32_t>& future) = 0;  // slot 26
    /// The cached P2P information of a device, also a marked copy; fetched when absent or when `forceFetch` is set.
    virtual int getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                                    bool forceFetch) = 0;  // slot 27
    /// Synchronous `getP2PDevInfo`. In the B2C mode the token selects the server family.
    virtual int getP2PDevInfoBySerial(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                      bool retried = false) = 0;  // slot 28
    /// The same for a channel, which selects the base address of the platform's request.
    virtual int getP2PDevInfoByChannel(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                                       bool retried = false) = 0;  // slot 29

    // ---- Channel settings
    /// The cached channel's `iIsTrust`, or -1 when the channel is not cached.
    virtual int getChannelCacheValue(const std::string& serial, int ch) = 0;  // slot 30
    /// Overwrites the cached channel's `iIsTrust`; does nothing when the channel is not cached.
    virtual void setChannelCacheValue(const std::string& serial, int ch, int value) = 0;  // slot 31
    /// Sets a channel's picture quality level, one of its `videoQualityInfos`. `response` receives the body.
    virtual int setVideoDefinition(const std::string& serial, std::string& response, int ch, int videoLevel,
                                   bool retried = false) = 0;  // slot 32
    /// Marks an alarm as read.
    virtual int setAlarmRead(const std::string& alarmId) = 0;  // slot 33

    // ---- Stream tokens and credentials
    /// Requests `count` stream tokens; `response` receives the body. In the B2C mode the token selects the
    /// server family; the consumer servers choose the number of tokens themselves.
    virtual int getStreamTokens(const std::string& token, int count, std::string& response,
                                bool retried = false) = 0;  // slot 34
    /// 0 when the account may view the channel live, or with `playback` its recordings. An expired token gives -1 and
    /// is not renewed.
    virtual int getAuthInfo(const std::string& serial, int ch, bool playback) = 0;  // slot 35
    /// Renews the access token: 0 and the new one, or -1 and an empty text. -1 in the small-permission mode, and
    /// without authorisation address, OpenID, refresh token or app id.
    virtual int RefreshToken(std::string& newToken) = 0;  // slot 36
    /// One stream token, from the queue or from a fresh batch of 20.
    ///
    /// A token other than the core's access token empties the queue and, on success, becomes the core's. -1 in the
    /// small-permission mode.
    virtual int getOneStreamToken(const std::string& accessToken, std::string& token) = 0;  // slot 37
    /// Takes the prefetched body of `getStreamTokens`: once, within five hours of its fetch, with the access token that
    /// it was fetched with; else -1. `buffer` has at least 4097 bytes, and receives a terminating zero.
    virtual int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) = 0;  // slot 38
    /// Prefetches ten stream tokens, as one body of `getStreamTokens`, for the current access token. Does nothing in
    /// the modes 1 and 2, or when one is already there. Always 0.
    virtual int GetStreamTokenFast() = 0;  // slot 39

    // ---- Recordings
    /// The recording that belongs to an alarm: the body of the response.
    virtual int getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId,
                                   std::string& json) = 0;  // slot 40
    /// Recordings on the device between two times. `sdkPath` selects the platform's path for SDKs. The consumer servers
    /// return at most 100 recordings of a shared channel.
    virtual int getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                      const std::string& endTime, int recordType, int location, RecordFileList& list,
                                      bool sdkPath,
                                      bool retried = false) = 0;  // slot 41
    /// Recordings on the device, by the platform's newer query. `recordType` 0 is not sent; `withLocation` sends
    /// location 2.
    virtual int getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                        const std::string& endTime, int recordType, bool withLocation,
                                        RecordFileList& list) = 0;  // slot 42
    /// Cloud recordings of a channel: the body of the response.
    virtual int getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType,
                                     std::string& json,
                                     bool retried = false) = 0;  // slot 43
    /// Local recordings of a device of a business platform: the body of the response.
    virtual int getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                     const std::string& endTime, const std::string& bizType,
                                     const std::string& platFormId, std::string& json,
                                     bool retried = false) = 0;  // slot 44
    /// Cloud recordings of a day: the body of the response.
    virtual int getCloudFileBySerialEX(const std::string& serial, int ch, int videoType, const CloudFileQuery& query,
                                       std::string& json,
                                       bool retried = false) = 0;  // slot 45
    /// Details of cloud recordings: the body of the response. `query` is exactly one JSON object, with nothing but
    /// blanks around it; the core sets its "accessToken". Anything else is refused with -1 before any request.
    virtual int getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query,
                                           std::string& json) = 0;  // slot 46
    /// Recordings in a cloud storage space. `localIndex` is the channel.
    virtual int GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId, const std::string& startTime,
                                   const std::string& endTime,
                                   RecordFileList& list) = 0;  // slot 47
    /// Requests an address to upload a picture to; `url` is the "data" of the response as compact JSON.
    virtual int GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType,
                                  int expireDays, int urlExpireTime, const std::string& bizType,
                                  std::string& url) = 0;  // slot 48
    /// Uploads a local picture (UTF-8 path) to an address from `GetClouduploadUrl`: 0 when it was sent, whatever the
    /// response is. 100026 when the path is no regular file, 100001 when the address is neither http nor https.
    virtual int UploadCloudPicFile(const std::string& url, const std::string& localPath) = 0;  // slot 49

    // ---- Caches
    /// Empties every cache; settings and tokens stay, stream tokens too. Always 0.
    virtual int ClearAllCache() = 0;  // slot 50
    /// Invalidates the cached server information when it was stored more than 120 seconds ago.
    virtual void expireServerInfo() = 0;  // slot 51
    /// Empties the device cache by channel; the cache by serial and the channels stay. Always 0.
    virtual int ClearDeviceInfoCache() = 0;  // slot 52
    /// 1 when the cached device can seek in a playback, else 0. Sends nothing.
    virtual int IsSupportSeekPlayback(const std::string& serial) = 0;  // slot 53
    /// 1 when the cached device can play back at this speed, else 0. Sends nothing. Speeds 2, 3, 5, 7 and 9 need
    /// `support_device_playback_small_speed`, all others `support_quickplay_way`.
    virtual int IsSupportPlaybackSpeed(const std::string& serial, int speed) = 0;  // slot 54
    /// The device record cached for a channel, at any age and of any release: 0, or -1 when absent.
    virtual int getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) = 0;  // slot 55
    /// The same as `getDeviceRecord`.
    virtual int getDeviceRecordAlt(const std::string& serial, int ch, DevDetailInfo& detail) = 0;  // slot 56

    // ---- Account identity
    /// The account's user id.
    virtual int getUserId(std::string& userId) = 0;  // slot 57
    /// Registers this client for push messages; returns the push session's id.
    virtual int getPushSessionId(std::string& sessionId) = 0;  // slot 58
    /// The address where this client may measure its bandwidth.
    virtual int getBWCheckInfo(int type, const std::string& checkTime, int localIndex,
                               BWCheckInfo& info) = 0;  // slot 59

    // ---- Device Tk tokens
    /// Replaces all Tk tokens by those of a JSON array. A text that is not JSON changes nothing.
    virtual void SetDeviceTkTokens(const std::string& json) = 0;  // slot 60
    /// The token of a kind: 1 global, 2 device, 3 video, 4 preview, 5 playback, 6 talk; empty when there is none.
    /// Returns `token`.
    virtual std::string& getDeviceTkTokensByText(std::string& token, int tkType, const std::string& serial,
                                                 const std::string& ch) = 0;  // slot 61
    /// The same with the channel as a number.
    virtual std::string& getDeviceTkTokensByNumber(std::string& token, int tkType, const std::string& serial,
                                                   int ch) = 0;  // slot 62
    /// Sets the account-wide Tk token; an empty one is ignored.
    virtual void setGlobalTkToken(const std::string& token) = 0;  // slot 63
    /// The account-wide Tk token (live reference: copy it at once).
    virtual const std::string& getGlobalTkToken() = 0;  // slot 64

    // ---- Modes
    /// 0 ordinary (default), 1 small permissions (per-device Tk tokens), 2 B2C (shared devices use the consumer
    /// servers).
    virtual void setPermissionMode(const int& mode) = 0;  // slot 65
    /// The permission mode (live pointer: copy the value at once).
    virtual const int* getPermissionMode() = 0;  // slot 66
    /// Marks a cached device so that the next `getDevDetailInfo` fetches it again: 0, or -1 when absent.
    virtual int SetDevInfoCache(const std::string& serial, int ch) = 0;  // slot 67
    /// The cached records of a channel, at any age: 0, -1 (absent) or 600001 (another release).
    virtual int getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                DevDetailInfo& detail) = 0;  // slot 68
    /// 1 closes P2P, any other value opens it.
    virtual void setCloseP2P(int close) = 0;  // slot 69
    /// Whether P2P is open; true until the host closes it.
    virtual bool isOpenP2P() = 0;  // slot 70
    /// Whether the stream type is 1; true until `getConfigInfo` brings another.
    virtual bool isVTDUType1() = 0;  // slot 71
    /// Renews the consumer session (B2C mode only): 0 and the new one, or -1 and an empty text.
    ///
    /// A `refreshSessionId` that is not empty is stored first; the stored one is used, and replaced on success. No
    /// other operation sets it.
    virtual int RefreshSession(const std::string& refreshSessionId, std::string& newSession) = 0;  // slot 72

    // ---- Domains and credentials
    /// Sets the base addresses of the platform and of the consumer servers ("https://host", without a trailing slash);
    /// an empty one keeps the old.
    virtual void setDomain(const std::string& bDomain, const std::string& cDomain) = 0;  // slot 73
    /// The base address of requests for this channel (live reference: copy it at once).
    virtual const std::string& getDomain(const std::string& serial, int ch) = 0;  // slot 74
    /// The base address of requests with this token (live reference: copy it at once).
    virtual const std::string& getDomainByToken(const std::string& token) = 0;  // slot 75
    /// Sets the authorisation service's address, which `RefreshToken` needs.
    virtual void setAuthAddr(const std::string& addr) = 0;  // slot 76
    /// The authorisation service's address (live reference).
    virtual const std::string& getAuthAddr() = 0;  // slot 77
    /// Sets the application's id, sent as "appKey" and "client_id".
    virtual void setAppId(const std::string& appId) = 0;  // slot 78
    /// Copies the application's id into `appId`, and returns that.
    virtual std::string& getAppId(std::string& appId) = 0;  // slot 79
    /// Sets the platform's access token.
    virtual void setAccessToken(const std::string& token) = 0;  // slot 80
    /// The access token (live reference: copy it at once).
    virtual const std::string& getAccessToken() = 0;  // slot 81
    /// Stores when the access token expires; the text is never read.
    virtual void setTokenExpireTime(const std::string& text) = 0;  // slot 82
    /// That text (live reference).
    virtual const std::string& getTokenExpireTime() = 0;  // slot 83
    /// Sets the refresh token, which `RefreshToken` needs.
    virtual void setRefreshToken(const std::string& token) = 0;  // slot 84
    /// The refresh token (live reference).
    virtual const std::string& getRefreshToken() = 0;  // slot 85
    /// Sets the OpenID, which `RefreshToken` needs.
    virtual void setOpenID(const std::string& openId) = 0;  // slot 86
    /// The OpenID (live reference).
    virtual const std::string& getOpenID() = 0;  // slot 87
    /// Sets the scope that `RefreshToken` sends.
    virtual void setScope(const std::string& scope) = 0;  // slot 88
    /// The scope (live reference).
    virtual const std::string& getScope() = 0;  // slot 89
    /// Sets the state that `RefreshToken` sends.
    virtual void setState(const std::string& state) = 0;  // slot 90
    /// The state (live reference).
    virtual const std::string& getState() = 0;  // slot 91

    // ---- Switches
    /// Sets the age, in minutes, after which a cached device detail counts as expired. Default: one day.
    virtual void setCacheTime(int minutes) = 0;  // slot 92
    /// That age in seconds.
    virtual int getCacheTime() = 0;  // slot 93
    /// Drops log lines below this level (1 to 5; default 3). 0 and below let everything through, 6 nothing.
    virtual void setLogLevel(int level) = 0;  // slot 94
    /// The log level.
    virtual int getLogLevel() = 0;  // slot 95
    /// 1 keeps response texts in UTF-8; any other value converts them to the system's code page on Windows.
    virtual void setDataUtf8(int iDataUtf8) = 0;  // slot 96
    /// Whether response texts stay in UTF-8.
    virtual bool isDataUtf8() = 0;  // slot 97
    /// 1 stops resolving devices through their parents; any other value allows it.
    virtual void setCloseBelongSerial(int close) = 0;  // slot 98
    /// Whether that is stopped.
    virtual bool isCloseBelongSerial() = 0;  // slot 99

    // ---- B2C tokens and the consumer session
    /// Replaces all B2C tokens by those of a JSON array. A text that is not JSON changes nothing.
    virtual void SetB2CTokens(const std::string& json) = 0;  // slot 100
    /// The B2C token of a channel; empty when there is none. Returns `token`.
    virtual std::string& getB2CTokensByNumber(const std::string& serial, int ch, std::string& token) = 0;  // slot 101
    /// The same with the channel as text.
    virtual std::string& getB2CTokensByText(const std::string& serial, const std::string& ch,
                                            std::string& token) = 0;  // slot 102
    /// Whether a token belongs to a channel that is shared with the account, or is the shared access token, unless that
    /// is unset. Never true for the account's own access token.
    virtual bool isB2CSharedToken(const std::string& token) = 0;  // slot 103
    /// Whether a channel is shared with the account, by the B2C tokens.
    virtual bool isB2CSharedChannel(const std::string& serial, int ch) = 0;  // slot 104
    /// Sets the token that marks requests for shared devices; an empty one matches nothing.
    virtual void setSharedAccessToken(const std::string& token) = 0;  // slot 105
    /// That token (live reference: copy it at once).
    virtual const std::string& getSharedAccessToken() = 0;  // slot 106
    /// Sets the consumer session's id.
    virtual void setSessionId(const std::string& sessionId) = 0;  // slot 107
    /// The consumer session's id (live reference: copy it at once).
    virtual const std::string& getSessionId() = 0;  // slot 108

    // ---- Overload sets: each member forwards to the slot of the same meaning.

    int getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                      bool retried = false) {
        return getServerInfoAsync(token, serverInfo, future, retried);
    }
    int getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried = false) {
        return getServerInfoSync(token, serverInfo, retried);
    }

    int getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                       bool retried = false) {
        return getP2PUserInfoAsync(userInfo, token, future, retried);
    }
    int getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried = false) {
        return getP2PUserInfoByToken(token, userInfo, retried);
    }
    int getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried = false) {
        return getP2PUserInfoByDevice(serial, ch, userInfo, retried);
    }

    int getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                      std::future<int32_t>& future) {
        return getP2PDevInfoAsync(devInfo, token, serial, future);
    }
    int getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial, bool retried = false) {
        return getP2PDevInfoBySerial(devInfo, token, serial, retried);
    }
    int getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                      bool retried = false) {
        return getP2PDevInfoByChannel(serial, ch, token, devInfo, retried);
    }

    std::string& getDeviceTkTokens(std::string& token, int tkType, const std::string& serial, const std::string& ch) {
        return getDeviceTkTokensByText(token, tkType, serial, ch);
    }
    std::string& getDeviceTkTokens(std::string& token, int tkType, const std::string& serial, int ch) {
        return getDeviceTkTokensByNumber(token, tkType, serial, ch);
    }

    std::string& getB2CTokens(const std::string& serial, int ch, std::string& token) {
        return getB2CTokensByNumber(serial, ch, token);
    }
    std::string& getB2CTokens(const std::string& serial, const std::string& ch, std::string& token) {
        return getB2CTokensByText(serial, ch, token);
    }

    bool isB2CSharedDevice(const std::string& token) { return isB2CSharedToken(token); }
    bool isB2CSharedDevice(const std::string& serial, int ch) { return isB2CSharedChannel(serial, ch); }

protected:
    IVantixDataCenter() = default;
    IVantixDataCenter(const IVantixDataCenter&) = default;
    IVantixDataCenter& operator=(const IVantixDataCenter&) = default;
};

}  // namespace vantix

/// Returns a new handle on the data center of the process; the first call builds its core.
///
/// The host owns the handle until `DestroyVantixDataCenterInstance`. Throws only `std::bad_alloc`. Any thread.
extern "C" VANTIX_API vantix::IVantixDataCenter* CreateVantixDataCenterInstance();

/// Frees a handle; null is ignored. The core stays, with its settings and caches. Any thread, once for each handle.
extern "C" VANTIX_API void DestroyVantixDataCenterInstance(vantix::IVantixDataCenter* instance);
