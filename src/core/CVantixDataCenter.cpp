#include "core/CVantixDataCenter.h"

#include "base/ProcessSwitches.h"
#include "core/CoreParts.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

CVantixDataCenter::CVantixDataCenter() : m_parts(std::make_unique<CoreParts>()) {}
CVantixDataCenter::~CVantixDataCenter() = default;

// ---- Device detail and its caches

int CVantixDataCenter::getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                        DevDetailInfo& detail, std::future<int32_t>& future, bool retried) {
    return m_parts->detail.getDevDetailInfo(serial, ch, channelInfo, detail, future, retried);
}

int CVantixDataCenter::getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail, bool retried) {
    return m_parts->detail.getDevDetailInfoSync(serial, ch, force, channelInfo, detail, retried);
}

int CVantixDataCenter::getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                                  DevDetailInfo& detail, bool retried) {
    return m_parts->detail.getDevDetailInfoByRelation(serial, ch, channelInfo, detail, retried);
}

int CVantixDataCenter::getChannelCacheValue(const std::string& serial, int ch) {
    return m_parts->caches.getChannelCacheValue(serial, ch);
}

void CVantixDataCenter::setChannelCacheValue(const std::string& serial, int ch, int value) {
    m_parts->caches.setChannelCacheValue(serial, ch, value);
}

int CVantixDataCenter::ClearAllCache() {
    m_parts->p2pUser.Invalidate();
    m_parts->servers.Invalidate();
    m_parts->caches.ClearChannels();
    m_parts->caches.ClearDevices();
    m_parts->p2pDevices.Clear();
    return ClearDeviceInfoCache();
}

int CVantixDataCenter::ClearDeviceInfoCache() { return m_parts->caches.ClearDeviceInfoCache(); }

int CVantixDataCenter::IsSupportSeekPlayback(const std::string& serial) {
    return m_parts->caches.IsSupportSeekPlayback(serial) ? 1 : 0;
}

int CVantixDataCenter::IsSupportPlaybackSpeed(const std::string& serial, int speed) {
    return m_parts->caches.IsSupportPlaybackSpeed(serial, speed) ? 1 : 0;
}

int CVantixDataCenter::getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) {
    return m_parts->caches.getDeviceRecord(serial, ch, detail);
}

int CVantixDataCenter::SetDevInfoCache(const std::string& serial, int ch) {
    return m_parts->caches.SetDevInfoCache(serial, ch);
}

int CVantixDataCenter::getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                       DevDetailInfo& detail) {
    return m_parts->caches.getDevInfoCache(serial, ch, channelInfo, detail);
}

// ---- Detail of other platforms, servers, P2P

int CVantixDataCenter::getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                                           const std::string& platFormId, DevChannelInfo& channelInfo,
                                           DevDetailInfo& detail, bool retried) {
    return m_parts->queries.getDeviceDetailInfo(serial, ch, bizType, platFormId, channelInfo, detail, retried);
}

int CVantixDataCenter::isP2PV3download(const std::string& serial, int ch) {
    return m_parts->p2pDevices.isP2PV3download(serial, ch);
}

int CVantixDataCenter::getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                                     bool retried) {
    return m_parts->servers.getServerInfo(token, serverInfo, future, retried);
}

int CVantixDataCenter::getServerInfoEx(const std::string& token, std::string& vtmAddr, const std::string& serial,
                                       int ch, bool retried) {
    return m_parts->relays.getServerInfoEx(token, vtmAddr, serial, ch, retried);
}

int CVantixDataCenter::getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried) {
    return m_parts->servers.getServerInfo(token, serverInfo, retried);
}

int CVantixDataCenter::getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) {
    return m_parts->relays.getVideoVtmAddr(serial, ch, json, retried);
}

int CVantixDataCenter::getRelayServerInfo(const std::string& serial, int ch, std::string& json) {
    return m_parts->queries.getRelayServerInfo(serial, ch, json);
}

int CVantixDataCenter::getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                                      bool retried) {
    return m_parts->p2pUser.getP2PUserInfo(userInfo, token, future, retried);
}

int CVantixDataCenter::getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried) {
    return m_parts->p2pUser.getP2PUserInfo(token, userInfo, retried);
}

int CVantixDataCenter::getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried) {
    return m_parts->p2pUser.getP2PUserInfo(serial, ch, userInfo, retried);
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                     std::future<int32_t>& future) {
    return m_parts->p2pDevices.getP2PDevInfo(devInfo, token, serial, future);
}

int CVantixDataCenter::getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers,
                                           P2PDevInfo& devInfo, bool forceFetch) {
    return m_parts->p2pDevices.getP2PDevInfoCached(serial, servers, devInfo, forceFetch);
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                     bool retried) {
    return m_parts->p2pDevices.getP2PDevInfo(serial, kFirstChannel, token, devInfo, retried);
}

int CVantixDataCenter::getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                                     bool retried) {
    return m_parts->p2pDevices.getP2PDevInfo(serial, ch, token, devInfo, retried);
}

void CVantixDataCenter::expireServerInfo() { m_parts->servers.expireServerInfo(); }

// ---- Stream tokens and credentials

int CVantixDataCenter::getStreamTokens(const std::string& token, int count, std::string& response, bool retried) {
    return m_parts->streamTokens.getStreamTokens(token, count, response, retried);
}

int CVantixDataCenter::getAuthInfo(const std::string& serial, int ch, bool playback) {
    return m_parts->queries.getAuthInfo(serial, ch, playback);
}

int CVantixDataCenter::RefreshToken(std::string& newToken) { return m_parts->refresh.RefreshToken(newToken); }

int CVantixDataCenter::getOneStreamToken(const std::string& accessToken, std::string& token) {
    return m_parts->streamTokens.getOneStreamToken(accessToken, token);
}

int CVantixDataCenter::GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) {
    return m_parts->firstToken.GetStreamTokenFromQueue(accessToken, buffer);
}

int CVantixDataCenter::GetStreamTokenFast() {
    m_parts->firstToken.GetStreamTokenFast();
    return VANTIX_NOERROR;
}

int CVantixDataCenter::RefreshSession(const std::string& refreshSessionId, std::string& newSession) {
    return m_parts->refresh.RefreshSession(refreshSessionId, newSession);
}

// ---- Queries

int CVantixDataCenter::getTicketInfo(const std::string& serial, int ch, std::string& ticket) {
    return m_parts->queries.getTicketInfo(serial, ch, ticket);
}

int CVantixDataCenter::getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket) {
    return m_parts->queries.getCloudTicketInfo(serial, localIndex, spaceId, ticket);
}

int CVantixDataCenter::getRelayTicket(const std::string& serial, int ch, std::string& ticket) {
    return m_parts->queries.getRelayTicket(serial, ch, ticket);
}

int CVantixDataCenter::getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried) {
    return m_parts->queries.getDeviceInfoBySerial(serial, ch, json, retried);
}

int CVantixDataCenter::getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return m_parts->queries.getDevList(pageStart, pageSize, list, retried);
}

int CVantixDataCenter::getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list,
                                     bool retried) {
    return m_parts->queries.getDeviceList(pageStart, pageSize, bizType, list, retried);
}

int CVantixDataCenter::getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return m_parts->queries.getShareDevList(pageStart, pageSize, list, retried);
}

int CVantixDataCenter::getB2CSharedDevList(int offset, int limit, std::string& json) {
    return m_parts->queries.getB2CSharedDevList(offset, limit, json);
}

int CVantixDataCenter::getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize,
                                    const std::string& startTime, const std::string& endTime, int alarmType, int status,
                                    std::string& json, bool retried) {
    return m_parts->queries.getAlarmList(serial, ch, pageStart, pageSize, startTime, endTime, alarmType, status, json,
                                         retried);
}

int CVantixDataCenter::getUsername(std::string& userName) { return m_parts->queries.getUsername(userName); }
int CVantixDataCenter::getConfigInfo(ConfigInfo& config) { return m_parts->queries.getConfigInfo(config); }

int CVantixDataCenter::getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq,
                                               TransparentMsgDetail& detail, bool retried) {
    return m_parts->queries.getTransparentMsgDetail(serial, msgSeq, detail, retried);
}

int CVantixDataCenter::setVideoDefinition(const std::string& serial, std::string& response, int ch, int videoLevel,
                                          bool retried) {
    return m_parts->queries.setVideoDefinition(serial, response, ch, videoLevel, retried);
}

int CVantixDataCenter::setAlarmRead(const std::string& alarmId) { return m_parts->queries.setAlarmRead(alarmId); }

int CVantixDataCenter::getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId,
                                          std::string& json) {
    return m_parts->queries.getRecordByAlarmID(serial, ch, alarmId, json);
}

int CVantixDataCenter::getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                             const std::string& endTime, int recordType, int location,
                                             RecordFileList& list, bool sdkPath, bool retried) {
    return m_parts->queries.getDeviceFileBySerial(serial, ch, startTime, endTime, recordType, location, list, sdkPath,
                                                  retried);
}

int CVantixDataCenter::getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                               const std::string& endTime, int recordType, bool withLocation,
                                               RecordFileList& list) {
    return m_parts->queries.getDeviceFileBySerialEx(serial, ch, startTime, endTime, recordType, withLocation, list);
}

int CVantixDataCenter::getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span, int fileType,
                                            std::string& json, bool retried) {
    return m_parts->queries.getCloudFileBySerial(serial, ch, span, fileType, json, retried);
}

int CVantixDataCenter::getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                            const std::string& endTime, const std::string& bizType,
                                            const std::string& platFormId, std::string& json, bool retried) {
    return m_parts->queries.getLocalFileBySerial(serial, ch, startTime, endTime, bizType, platFormId, json, retried);
}

int CVantixDataCenter::getCloudFileBySerialEX(const std::string& serial, int ch, int videoType,
                                              const CloudFileQuery& query, std::string& json, bool retried) {
    return m_parts->queries.getCloudFileBySerialEX(serial, ch, videoType, query, json, retried);
}

int CVantixDataCenter::getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query,
                                                  std::string& json) {
    return m_parts->queries.getCloudFileInfoBySerialEX(serial, ch, query, json);
}

int CVantixDataCenter::GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId,
                                          const std::string& startTime, const std::string& endTime,
                                          RecordFileList& list) {
    return m_parts->queries.GetCloudRecordFile(serial, localIndex, spaceId, startTime, endTime, list);
}

int CVantixDataCenter::GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName, int fileType,
                                         int expireDays, int urlExpireTime, const std::string& bizType,
                                         std::string& url) {
    return m_parts->queries.GetClouduploadUrl(serial, ch, fileName, fileType, expireDays, urlExpireTime, bizType, url);
}

int CVantixDataCenter::UploadCloudPicFile(const std::string& url, const std::string& localPath) {
    return m_parts->queries.UploadCloudPicFile(url, localPath);
}

int CVantixDataCenter::getUserId(std::string& userId) { return m_parts->queries.getUserId(userId); }
int CVantixDataCenter::getPushSessionId(std::string& sessionId) { return m_parts->queries.getPushSessionId(sessionId); }

int CVantixDataCenter::getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info) {
    return m_parts->queries.getBWCheckInfo(type, checkTime, localIndex, info);
}

// ---- Tk and B2C tokens

void CVantixDataCenter::SetDeviceTkTokens(const std::string& szDeviceTkTokens) {
    m_parts->tkTokens.SetDeviceTkTokens(szDeviceTkTokens);
}

std::string CVantixDataCenter::getDeviceTkTokens(int tkType, const std::string& strSerial,
                                                 const std::string& strChannelNo) {
    return m_parts->tkTokens.getDeviceTkTokens(tkType, strSerial, strChannelNo, m_parts->settings.globalTkToken.Copy());
}

std::string CVantixDataCenter::getDeviceTkTokens(int tkType, const std::string& strSerial, int iChannelNo) {
    return m_parts->tkTokens.getDeviceTkTokens(tkType, strSerial, iChannelNo, m_parts->settings.globalTkToken.Copy());
}

void CVantixDataCenter::setGlobalTkToken(const std::string& token) { m_parts->settings.setGlobalTkToken(token); }
const std::string& CVantixDataCenter::getGlobalTkToken() { return m_parts->settings.globalTkToken.Live(); }
void CVantixDataCenter::SetB2CTokens(const std::string& text) { m_parts->b2cTokens.SetB2CTokens(text); }

std::string CVantixDataCenter::getB2CTokens(const std::string& serial, int ch) {
    return m_parts->b2cTokens.getB2CTokens(serial, std::to_string(ch));
}

std::string CVantixDataCenter::getB2CTokens(const std::string& serial, const std::string& ch) {
    return m_parts->b2cTokens.getB2CTokens(serial, ch);
}

bool CVantixDataCenter::isB2CSharedDevice(const std::string& token) { return m_parts->routes.isB2CSharedDevice(token); }

bool CVantixDataCenter::isB2CSharedDevice(const std::string& serial, int ch) {
    return m_parts->b2cTokens.isB2CSharedDevice(serial, ch);
}

void CVantixDataCenter::setSharedAccessToken(const std::string& token) {
    m_parts->settings.sharedAccessToken.Assign(token);
}

const std::string& CVantixDataCenter::getSharedAccessToken() { return m_parts->settings.sharedAccessToken.Live(); }

// ---- Settings

void CVantixDataCenter::setPermissionMode(const int& mode) { m_parts->settings.setPermissionMode(mode); }
const int* CVantixDataCenter::getPermissionMode() { return &m_parts->settings.permissionMode.Live(); }
void CVantixDataCenter::setCloseP2P(int close) { m_parts->settings.setCloseP2P(close); }
bool CVantixDataCenter::isOpenP2P() { return m_parts->settings.config.OpenP2P != 0; }
bool CVantixDataCenter::isVTDUType1() { return m_parts->settings.config.VTDUType == 1; }

void CVantixDataCenter::setDomain(const std::string& bDomain, const std::string& cDomain) {
    m_parts->settings.setDomain(bDomain, cDomain);
}

const std::string& CVantixDataCenter::getDomain(const std::string& serial, int ch) {
    return m_parts->routes.getDomain(serial, ch).Live();
}

const std::string& CVantixDataCenter::getDomainByToken(const std::string& token) {
    return m_parts->routes.getDomainByToken(token).Live();
}

void CVantixDataCenter::setAuthAddr(const std::string& addr) { m_parts->settings.setAuthAddr(addr); }
const std::string& CVantixDataCenter::getAuthAddr() { return m_parts->settings.AuthAddr.Live(); }
void CVantixDataCenter::setAppId(const std::string& appId) { m_parts->settings.appID.Assign(appId); }
std::string CVantixDataCenter::getAppId() { return m_parts->settings.appID.Copy(); }
void CVantixDataCenter::setAccessToken(const std::string& token) { m_parts->settings.accessToken.Assign(token); }
const std::string& CVantixDataCenter::getAccessToken() { return m_parts->settings.accessToken.Live(); }
void CVantixDataCenter::setTokenExpireTime(const std::string& text) { m_parts->settings.setTokenExpireTime(text); }
const std::string& CVantixDataCenter::getTokenExpireTime() { return m_parts->settings.TokenExpireTime.Live(); }
void CVantixDataCenter::setRefreshToken(const std::string& token) { m_parts->settings.RefreshToken.Assign(token); }
const std::string& CVantixDataCenter::getRefreshToken() { return m_parts->settings.RefreshToken.Live(); }
void CVantixDataCenter::setOpenID(const std::string& openId) { m_parts->settings.OpenID.Assign(openId); }
const std::string& CVantixDataCenter::getOpenID() { return m_parts->settings.OpenID.Live(); }
void CVantixDataCenter::setScope(const std::string& scope) { m_parts->settings.Scope.Assign(scope); }
const std::string& CVantixDataCenter::getScope() { return m_parts->settings.Scope.Live(); }
void CVantixDataCenter::setState(const std::string& state) { m_parts->settings.State.Assign(state); }
const std::string& CVantixDataCenter::getState() { return m_parts->settings.State.Live(); }
void CVantixDataCenter::setCacheTime(int minutes) { m_parts->settings.setCacheTime(minutes); }
int CVantixDataCenter::getCacheTime() { return m_parts->settings.iCacheTime; }
void CVantixDataCenter::setLogLevel(int level) { m_parts->settings.setLogLevel(level); }
int CVantixDataCenter::getLogLevel() { return iLogLevel; }
void CVantixDataCenter::setDataUtf8(int iDataUtf8) { m_parts->settings.setDataUtf8(iDataUtf8); }
bool CVantixDataCenter::isDataUtf8() { return bUtf8; }
void CVantixDataCenter::setCloseBelongSerial(int close) { m_parts->settings.setCloseBelongSerial(close); }
bool CVantixDataCenter::isCloseBelongSerial() { return m_parts->settings.isCloseBelongSerial(); }
void CVantixDataCenter::setSessionId(const std::string& sessionId) { m_parts->settings.sessionId.Assign(sessionId); }
const std::string& CVantixDataCenter::getSessionId() { return m_parts->settings.sessionId.Live(); }
bool CVantixDataCenter::isExpired(int64_t storeTime) { return m_parts->settings.isExpired(storeTime); }

}  // namespace vantix
