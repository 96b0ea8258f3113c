// Slots 1 to 59: fetches, queries and caches.

#include "boundary/CVantixDataCenterWrapper.h"
#include "boundary/NoThrow.h"
#include "core/CVantixDataCenter.h"

namespace vantix {

int CVantixDataCenterWrapper::getTicketInfo(const std::string& serial, int ch, std::string& ticket) {
    return NoThrow([&] { return core->getTicketInfo(serial, ch, ticket); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId,
                                                 std::string& ticket) {
    return NoThrow([&] { return core->getCloudTicketInfo(serial, localIndex, spaceId, ticket); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getRelayTicket(const std::string& serial, int ch, std::string& ticket) {
    return NoThrow([&] { return core->getRelayTicket(serial, ch, ticket); }, VANTIX_ERROR);
}

// A host may pass the serial of the very record that the details are written into: the core gets a copy.

int CVantixDataCenterWrapper::getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                               DevDetailInfo& detail, std::future<int32_t>& future, bool retried) {
    return NoThrow(
        [&] { return core->getDevDetailInfo(std::string(serial), ch, channelInfo, detail, future, retried); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDevDetailInfoSync(const std::string& serial, int ch, bool force,
                                                   DevChannelInfo& channelInfo, DevDetailInfo& detail, bool retried) {
    return NoThrow(
        [&] { return core->getDevDetailInfoSync(std::string(serial), ch, force, channelInfo, detail, retried); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                                                  const std::string& platFormId, DevChannelInfo& channelInfo,
                                                  DevDetailInfo& detail, bool retried) {
    return NoThrow(
        [&] { return core->getDeviceDetailInfo(serial, ch, bizType, platFormId, channelInfo, detail, retried); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::isP2PV3download(const std::string& serial, int ch) {
    return NoThrow([&] { return core->isP2PV3download(serial, ch); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                                         DevDetailInfo& detail, bool retried) {
    return NoThrow(
        [&] { return core->getDevDetailInfoByRelation(std::string(serial), ch, channelInfo, detail, retried); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getServerInfoAsync(const std::string& token, ServerInfo& serverInfo,
                                                 std::future<int32_t>& future, bool retried) {
    return NoThrow([&] { return core->getServerInfo(token, serverInfo, future, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getServerInfoEx(const std::string& token, std::string& vtmAddr, std::string serial,
                                              int ch, bool retried) {
    return NoThrow([&] { return core->getServerInfoEx(token, vtmAddr, serial, ch, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getServerInfoSync(const std::string& token, ServerInfo& serverInfo, bool retried) {
    return NoThrow([&] { return core->getServerInfo(token, serverInfo, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) {
    return NoThrow([&] { return core->getVideoVtmAddr(serial, ch, json, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getRelayServerInfo(const std::string& serial, int ch, std::string& json) {
    return NoThrow([&] { return core->getRelayServerInfo(serial, ch, json); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json,
                                                    bool retried) {
    return NoThrow([&] { return core->getDeviceInfoBySerial(serial, ch, json, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return NoThrow([&] { return core->getDevList(pageStart, pageSize, list, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list,
                                            bool retried) {
    return NoThrow([&] { return core->getDeviceList(pageStart, pageSize, bizType, list, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return NoThrow([&] { return core->getShareDevList(pageStart, pageSize, list, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getB2CSharedDevList(int offset, int limit, std::string& json) {
    return NoThrow([&] { return core->getB2CSharedDevList(offset, limit, json); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize,
                                           const std::string& startTime, const std::string& endTime, int alarmType,
                                           int status, std::string& json, bool retried) {
    return NoThrow(
        [&] {
            return core->getAlarmList(serial, ch, pageStart, pageSize, startTime, endTime, alarmType, status, json,
                                      retried);
        },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getUsername(std::string& userName) {
    return NoThrow([&] { return core->getUsername(userName); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getConfigInfo(ConfigInfo& config) {
    return NoThrow([&] { return core->getConfigInfo(config); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq,
                                                      TransparentMsgDetail& detail, bool retried) {
    return NoThrow([&] { return core->getTransparentMsgDetail(serial, msgSeq, detail, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PUserInfoAsync(P2PUserInfo& userInfo, const std::string& token,
                                                  std::future<int32_t>& future, bool retried) {
    return NoThrow([&] { return core->getP2PUserInfo(userInfo, token, future, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PUserInfoByToken(const std::string& token, P2PUserInfo& userInfo, bool retried) {
    return NoThrow([&] { return core->getP2PUserInfo(token, userInfo, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PUserInfoByDevice(const std::string& serial, int ch, P2PUserInfo& userInfo,
                                                     bool retried) {
    return NoThrow([&] { return core->getP2PUserInfo(serial, ch, userInfo, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PDevInfoAsync(P2PDevInfo& devInfo, const std::string& token,
                                                 const std::string& serial, std::future<int32_t>& future) {
    return NoThrow([&] { return core->getP2PDevInfo(devInfo, token, serial, future); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers,
                                                  P2PDevInfo& devInfo, bool forceFetch) {
    return NoThrow([&] { return core->getP2PDevInfoCached(serial, servers, devInfo, forceFetch); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PDevInfoBySerial(P2PDevInfo& devInfo, const std::string& token,
                                                    const std::string& serial, bool retried) {
    return NoThrow([&] { return core->getP2PDevInfo(devInfo, token, serial, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getP2PDevInfoByChannel(const std::string& serial, int ch, const std::string& token,
                                                     P2PDevInfo& devInfo, bool retried) {
    return NoThrow([&] { return core->getP2PDevInfo(serial, ch, token, devInfo, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getChannelCacheValue(const std::string& serial, int ch) {
    return NoThrow([&] { return core->getChannelCacheValue(serial, ch); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::setChannelCacheValue(const std::string& serial, int ch, int value) {
    NoThrow([&] { core->setChannelCacheValue(serial, ch, value); });
}

int CVantixDataCenterWrapper::setVideoDefinition(const std::string& serial, std::string& answer, int ch, int videoLevel,
                                                 bool retried) {
    return NoThrow([&] { return core->setVideoDefinition(serial, answer, ch, videoLevel, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::setAlarmRead(const std::string& alarmId) {
    return NoThrow([&] { return core->setAlarmRead(alarmId); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getStreamTokens(const std::string& token, int count, std::string& answer, bool retried) {
    return NoThrow([&] { return core->getStreamTokens(token, count, answer, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getAuthInfo(const std::string& serial, int ch, bool playback) {
    return NoThrow([&] { return core->getAuthInfo(serial, ch, playback); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::RefreshToken(std::string& newToken) {
    return NoThrow([&] { return core->RefreshToken(newToken); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getOneStreamToken(const std::string& accessToken, std::string& token) {
    return NoThrow([&] { return core->getOneStreamToken(accessToken, token); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) {
    return NoThrow([&] { return core->GetStreamTokenFromQueue(accessToken, buffer); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::GetStreamTokenFast() {
    return NoThrow([&] { return core->GetStreamTokenFast(); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getRecordByAlarmID(const std::string& serial, int ch, const std::string& alarmId,
                                                 std::string& json) {
    return NoThrow([&] { return core->getRecordByAlarmID(serial, ch, alarmId, json); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                                    const std::string& endTime, int recordType, int location,
                                                    RecordFileList& list, bool sdkPath, bool retried) {
    return NoThrow(
        [&] {
            return core->getDeviceFileBySerial(serial, ch, startTime, endTime, recordType, location, list, sdkPath,
                                               retried);
        },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceFileBySerialEx(const std::string& serial, int ch, const std::string& startTime,
                                                      const std::string& endTime, int recordType, bool withLocation,
                                                      RecordFileList& list) {
    return NoThrow(
        [&] { return core->getDeviceFileBySerialEx(serial, ch, startTime, endTime, recordType, withLocation, list); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getCloudFileBySerial(const std::string& serial, int ch, const TimeSpan& span,
                                                   int fileType, std::string& json, bool retried) {
    return NoThrow([&] { return core->getCloudFileBySerial(serial, ch, span, fileType, json, retried); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getLocalFileBySerial(const std::string& serial, int ch, const std::string& startTime,
                                                   const std::string& endTime, const std::string& bizType,
                                                   const std::string& platFormId, std::string& json, bool retried) {
    return NoThrow(
        [&] { return core->getLocalFileBySerial(serial, ch, startTime, endTime, bizType, platFormId, json, retried); },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getCloudFileBySerialEX(const std::string& serial, int ch, int videoType,
                                                     const CloudFileQuery& query, std::string& json, bool retried) {
    return NoThrow([&] { return core->getCloudFileBySerialEX(serial, ch, videoType, query, json, retried); },
                   VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getCloudFileInfoBySerialEX(const std::string& serial, int ch, const std::string& query,
                                                         std::string& json) {
    return NoThrow([&] { return core->getCloudFileInfoBySerialEX(serial, ch, query, json); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::GetCloudRecordFile(const std::string& serial, int localIndex, int spaceId,
                                                 const std::string& startTime, const std::string& endTime,
                                                 RecordFileList& list) {
    return NoThrow([&] { return core->GetCloudRecordFile(serial, localIndex, spaceId, startTime, endTime, list); },
                   VANTIX_ERROR);
}

int CVantixDataCenterWrapper::GetClouduploadUrl(const std::string& serial, int ch, const std::string& fileName,
                                                int fileType, int expireDays, int urlExpireTime,
                                                const std::string& bizType, std::string& url) {
    return NoThrow(
        [&] {
            return core->GetClouduploadUrl(serial, ch, fileName, fileType, expireDays, urlExpireTime, bizType, url);
        },
        VANTIX_ERROR);
}

int CVantixDataCenterWrapper::UploadCloudPicFile(const std::string& url, const std::string& localPath) {
    return NoThrow([&] { return core->UploadCloudPicFile(url, localPath); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::ClearAllCache() {
    return NoThrow([&] { return core->ClearAllCache(); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::expireServerInfo() {
    NoThrow([&] { core->expireServerInfo(); });
}

int CVantixDataCenterWrapper::ClearDeviceInfoCache() {
    return NoThrow([&] { return core->ClearDeviceInfoCache(); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::IsSupportSeekPlayback(const std::string& serial) {
    return NoThrow([&] { return core->IsSupportSeekPlayback(serial); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::IsSupportPlaybackSpeed(const std::string& serial, int speed) {
    return NoThrow([&] { return core->IsSupportPlaybackSpeed(serial, speed); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) {
    return NoThrow([&] { return core->getDeviceRecord(serial, ch, detail); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDeviceRecordAlt(const std::string& serial, int ch, DevDetailInfo& detail) {
    return NoThrow([&] { return core->getDeviceRecord(serial, ch, detail); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getUserId(std::string& userId) {
    return NoThrow([&] { return core->getUserId(userId); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getPushSessionId(std::string& sessionId) {
    return NoThrow([&] { return core->getPushSessionId(sessionId); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getBWCheckInfo(int type, const std::string& checkTime, int localIndex,
                                             BWCheckInfo& info) {
    return NoThrow([&] { return core->getBWCheckInfo(type, checkTime, localIndex, info); }, VANTIX_ERROR);
}

}  // namespace vantix
