// Operations whose behaviour comes later: each writes one line and fails.

#include "boundary/Logger.h"
#include "core/CVantixDataCenter.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

int NotAvailable(const CallSite& site) {
    LogErrorAt(site, level::kError, "operation is not available yet");
    return VANTIX_ERROR;
}

}  // namespace

int CVantixDataCenter::getTicketInfo(const std::string& /*serial*/, int /*ch*/, std::string& /*ticket*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getCloudTicketInfo(const std::string& /*serial*/, int /*localIndex*/, int /*spaceId*/,
                                          std::string& /*ticket*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getRelayTicket(const std::string& /*serial*/, int /*ch*/, std::string& /*ticket*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDeviceDetailInfo(const std::string& /*serial*/, int /*ch*/, const std::string& /*bizType*/,
                                           const std::string& /*platFormId*/, DevChannelInfo& /*channelInfo*/,
                                           DevDetailInfo& /*detail*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::isP2PV3download(const std::string& /*serial*/, int /*ch*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getServerInfo(const std::string& /*token*/, ServerInfo& /*serverInfo*/,
                                     std::future<int32_t>& /*future*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getServerInfoEx(const std::string& /*token*/, std::string& /*vtmAddr*/, std::string /*serial*/,
                                       int /*ch*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getServerInfo(const std::string& /*token*/, ServerInfo& /*serverInfo*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getVideoVtmAddr(const std::string& /*serial*/, int /*ch*/, std::string& /*json*/,
                                       bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getRelayServerInfo(const std::string& /*serial*/, int /*ch*/, std::string& /*json*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDeviceInfoBySerial(const std::string& /*serial*/, int /*ch*/, std::string& /*json*/,
                                             bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDevList(int /*pageStart*/, int /*pageSize*/, DeviceList& /*list*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDeviceList(int /*pageStart*/, int /*pageSize*/, const std::string& /*bizType*/,
                                     DeviceList& /*list*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getShareDevList(int /*pageStart*/, int /*pageSize*/, DeviceList& /*list*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getB2CSharedDevList(int /*offset*/, int /*limit*/, std::string& /*json*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getAlarmList(const std::string& /*serial*/, int /*ch*/, int /*pageStart*/, int /*pageSize*/,
                                    const std::string& /*startTime*/, const std::string& /*endTime*/, int /*alarmType*/,
                                    int /*status*/, std::string& /*json*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getUsername(std::string& /*userName*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getConfigInfo(ConfigInfo& /*config*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getTransparentMsgDetail(const std::string& /*serial*/, const std::string& /*msgSeq*/,
                                               TransparentMsgDetail& /*detail*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PUserInfo(P2PUserInfo& /*userInfo*/, const std::string& /*token*/,
                                      std::future<int32_t>& /*future*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PUserInfo(const std::string& /*token*/, P2PUserInfo& /*userInfo*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PUserInfo(const std::string& /*serial*/, int /*ch*/, P2PUserInfo& /*userInfo*/,
                                      bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& /*devInfo*/, const std::string& /*token*/,
                                     const std::string& /*serial*/, std::future<int32_t>& /*future*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PDevInfoCached(const std::string& /*serial*/, std::vector<P2PServerAddr>& /*servers*/,
                                           P2PDevInfo& /*devInfo*/, bool /*forceFetch*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& /*devInfo*/, const std::string& /*token*/,
                                     const std::string& /*serial*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getP2PDevInfo(const std::string& /*serial*/, int /*ch*/, const std::string& /*token*/,
                                     P2PDevInfo& /*devInfo*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::setVideoDefinition(const std::string& /*serial*/, std::string& /*answer*/, int /*ch*/,
                                          int /*videoLevel*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::setAlarmRead(const std::string& /*alarmId*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getStreamTokens(const std::string& /*token*/, int /*count*/, std::string& /*answer*/,
                                       bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getAuthInfo(const std::string& /*serial*/, int /*ch*/, bool /*playback*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getOneStreamToken(const std::string& /*accessToken*/, std::string& /*token*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::GetStreamTokenFromQueue(const std::string& /*accessToken*/, char* /*buffer*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::GetStreamTokenFast() { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getRecordByAlarmID(const std::string& /*serial*/, int /*ch*/, const std::string& /*alarmId*/,
                                          std::string& /*json*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDeviceFileBySerial(const std::string& /*serial*/, int /*ch*/,
                                             const std::string& /*startTime*/, const std::string& /*endTime*/,
                                             int /*recordType*/, int /*location*/, RecordFileList& /*list*/,
                                             bool /*sdkPath*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getDeviceFileBySerialEx(const std::string& /*serial*/, int /*ch*/,
                                               const std::string& /*startTime*/, const std::string& /*endTime*/,
                                               int /*recordType*/, bool /*withLocation*/, RecordFileList& /*list*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getCloudFileBySerial(const std::string& /*serial*/, int /*ch*/, const TimeSpan& /*span*/,
                                            int /*fileType*/, std::string& /*json*/, bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getLocalFileBySerial(const std::string& /*serial*/, int /*ch*/, const std::string& /*startTime*/,
                                            const std::string& /*endTime*/, const std::string& /*bizType*/,
                                            const std::string& /*platFormId*/, std::string& /*json*/,
                                            bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getCloudFileBySerialEX(const std::string& /*serial*/, int /*ch*/, int /*videoType*/,
                                              const CloudFileQuery& /*query*/, std::string& /*json*/,
                                              bool /*retried*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::getCloudFileInfoBySerialEX(const std::string& /*serial*/, int /*ch*/,
                                                  const std::string& /*query*/, std::string& /*json*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::GetCloudRecordFile(const std::string& /*serial*/, int /*localIndex*/, int /*spaceId*/,
                                          const std::string& /*startTime*/, const std::string& /*endTime*/,
                                          RecordFileList& /*list*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::GetClouduploadUrl(const std::string& /*serial*/, int /*ch*/, const std::string& /*fileName*/,
                                         int /*fileType*/, int /*expireDays*/, int /*urlExpireTime*/,
                                         const std::string& /*bizType*/, std::string& /*url*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::UploadCloudPicFile(const std::string& /*url*/, const std::string& /*localPath*/) {
    return NotAvailable(VANTIX_HERE);
}

void CVantixDataCenter::expireServerInfo() { NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getUserId(std::string& /*userId*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getPushSessionId(std::string& /*sessionId*/) { return NotAvailable(VANTIX_HERE); }

int CVantixDataCenter::getBWCheckInfo(int /*type*/, const std::string& /*checkTime*/, int /*localIndex*/,
                                      BWCheckInfo& /*info*/) {
    return NotAvailable(VANTIX_HERE);
}

int CVantixDataCenter::RefreshSession(const std::string& /*refreshSessionId*/, std::string& /*newSession*/) {
    return NotAvailable(VANTIX_HERE);
}

}  // namespace vantix
