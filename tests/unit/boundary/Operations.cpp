#include "unit/boundary/Operations.h"

#include <array>

#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {
namespace {

/// Everything that operations write to.
struct Outputs {
    std::string text;
    DevChannelInfo channelInfo;
    DevDetailInfo detail;
    ServerInfo serverInfo;
    P2PUserInfo userInfo;
    P2PDevInfo devInfo;
    std::vector<P2PServerAddr> servers;
    DeviceList list;
    RecordFileList files;
    ConfigInfo config;
    TransparentMsgDetail message;
    BWCheckInfo bandwidth;
    std::array<char, 4097> buffer{};
    std::future<int32_t> future;
};

using Call = std::function<int(IVantixDataCenter&, const Arguments&, Outputs&)>;

/// Gives the call outputs of its own, and waits for what it started.
Operation Coded(const char* name, const Call& call) {
    return {name, [call](IVantixDataCenter& d, const Arguments& a) {
                Outputs outputs;
                const int result = call(d, a, outputs);
                if (outputs.future.valid()) {
                    outputs.future.get();
                }
                return result;
            }};
}

Operation Plain(const char* name, const std::function<void(IVantixDataCenter&, const Arguments&)>& call) {
    return {name, [call](IVantixDataCenter& d, const Arguments& a) {
                call(d, a);
                return 0;
            }};
}

// One operation a row; d is the data center, a the arguments, o the outputs.
#define CODED(name, ...)                                                           \
    Coded(#name, [](IVantixDataCenter& d, const Arguments& a, Outputs& o) -> int { \
        static_cast<void>(a);                                                      \
        static_cast<void>(o);                                                      \
        return d.name(__VA_ARGS__);                                                \
    })
#define PLAIN(name, ...)                                        \
    Plain(#name, [](IVantixDataCenter& d, const Arguments& a) { \
        static_cast<void>(a);                                   \
        std::string out;                                        \
        static_cast<void>(out);                                 \
        static_cast<void>(d.name(__VA_ARGS__));                 \
    })

std::vector<Operation> DetailAndServers() {
    return {
        CODED(getTicketInfo, a.serial, a.number, o.text),
        CODED(getCloudTicketInfo, a.serial, a.number, a.number, o.text),
        CODED(getRelayTicket, a.serial, a.number, o.text),
        CODED(getDevDetailInfo, a.serial, a.number, o.channelInfo, o.detail, o.future),
        CODED(getDevDetailInfoSync, a.serial, a.number, true, o.channelInfo, o.detail),
        CODED(getDeviceDetailInfo, a.serial, a.number, a.text, a.text, o.channelInfo, o.detail),
        CODED(isP2PV3download, a.serial, a.number),
        CODED(getDevDetailInfoByRelation, a.serial, a.number, o.channelInfo, o.detail),
        CODED(getServerInfoAsync, a.token, o.serverInfo, o.future),
        CODED(getServerInfoEx, a.token, o.text, a.serial, a.number),
        CODED(getServerInfoSync, a.token, o.serverInfo),
        CODED(getVideoVtmAddr, a.serial, a.number, o.text),
        CODED(getRelayServerInfo, a.serial, a.number, o.text),
        CODED(getDeviceInfoBySerial, a.serial, a.number, o.text),
    };
}

std::vector<Operation> ListsAndAccount() {
    return {
        CODED(getDevList, a.number, a.number, o.list),
        CODED(getDeviceList, a.number, a.number, a.text, o.list),
        CODED(getShareDevList, a.number, a.number, o.list),
        CODED(getB2CSharedDevList, a.number, a.number, o.text),
        CODED(getAlarmList, a.serial, a.number, a.number, a.number, a.text, a.text, a.number, a.number, o.text),
        CODED(getUsername, o.text),
        CODED(getConfigInfo, o.config),
        CODED(getTransparentMsgDetail, a.serial, a.text, o.message),
        CODED(getP2PUserInfoAsync, o.userInfo, a.token, o.future),
        CODED(getP2PUserInfoByToken, a.token, o.userInfo),
        CODED(getP2PUserInfoByDevice, a.serial, a.number, o.userInfo),
        CODED(getP2PDevInfoAsync, o.devInfo, a.token, a.serial, o.future),
        CODED(getP2PDevInfoCached, a.serial, o.servers, o.devInfo, true),
        CODED(getP2PDevInfoBySerial, o.devInfo, a.token, a.serial),
        CODED(getP2PDevInfoByChannel, a.serial, a.number, a.token, o.devInfo),
        CODED(getChannelCacheValue, a.serial, a.number),
        CODED(setVideoDefinition, a.serial, o.text, a.number, a.number),
        CODED(setAlarmRead, a.text),
    };
}

std::vector<Operation> TokensAndRecordings() {
    return {
        CODED(getStreamTokens, a.token, a.number, o.text),
        CODED(getAuthInfo, a.serial, a.number, true),
        CODED(RefreshToken, o.text),
        CODED(getOneStreamToken, a.token, o.text),
        CODED(GetStreamTokenFromQueue, a.token, o.buffer.data()),
        CODED(GetStreamTokenFast),
        CODED(getRecordByAlarmID, a.serial, a.number, a.text, o.text),
        CODED(getDeviceFileBySerial, a.serial, a.number, a.text, a.text, a.number, a.number, o.files, true),
        CODED(getDeviceFileBySerialEx, a.serial, a.number, a.text, a.text, a.number, true, o.files),
        CODED(getCloudFileBySerial, a.serial, a.number, a.span, a.number, o.text),
        CODED(getLocalFileBySerial, a.serial, a.number, a.text, a.text, a.text, a.text, o.text),
        CODED(getCloudFileBySerialEX, a.serial, a.number, a.number, a.query, o.text),
        CODED(getCloudFileInfoBySerialEX, a.serial, a.number, a.text, o.text),
        CODED(GetCloudRecordFile, a.serial, a.number, a.number, a.text, a.text, o.files),
        CODED(GetClouduploadUrl, a.serial, a.number, a.text, a.number, a.number, a.number, a.text, o.text),
        CODED(UploadCloudPicFile, a.text, a.text),
        CODED(ClearAllCache),
        CODED(ClearDeviceInfoCache),
        CODED(IsSupportSeekPlayback, a.serial),
        CODED(IsSupportPlaybackSpeed, a.serial, a.number),
        CODED(getDeviceRecord, a.serial, a.number, o.detail),
        CODED(getDeviceRecordAlt, a.serial, a.number, o.detail),
        CODED(getUserId, o.text),
        CODED(getPushSessionId, o.text),
        CODED(getBWCheckInfo, a.number, a.text, a.number, o.bandwidth),
        CODED(SetDevInfoCache, a.serial, a.number),
        CODED(getDevInfoCache, a.serial, a.number, o.channelInfo, o.detail),
        CODED(RefreshSession, a.token, o.text),
        CODED(getCacheTime),
        CODED(getLogLevel),
    };
}

std::vector<Operation> Settings() {
    return {
        PLAIN(setChannelCacheValue, a.serial, a.number, a.number),
        PLAIN(expireServerInfo),
        PLAIN(SetDeviceTkTokens, a.text),
        PLAIN(getDeviceTkTokensByText, out, a.number, a.serial, a.text),
        PLAIN(getDeviceTkTokensByNumber, out, a.number, a.serial, a.number),
        PLAIN(setGlobalTkToken, a.token),
        PLAIN(getGlobalTkToken),
        PLAIN(setPermissionMode, a.number),
        PLAIN(getPermissionMode),
        PLAIN(setCloseP2P, a.number),
        PLAIN(isOpenP2P),
        PLAIN(isVTDUType1),
        PLAIN(setDomain, a.text, a.text),
        PLAIN(getDomain, a.serial, a.number),
        PLAIN(getDomainByToken, a.token),
        PLAIN(setAuthAddr, a.text),
        PLAIN(getAuthAddr),
        PLAIN(setAppId, a.text),
        PLAIN(getAppId, out),
        PLAIN(setAccessToken, a.token),
        PLAIN(getAccessToken),
        PLAIN(setTokenExpireTime, a.text),
        PLAIN(getTokenExpireTime),
        PLAIN(setRefreshToken, a.token),
        PLAIN(getRefreshToken),
        PLAIN(setOpenID, a.text),
        PLAIN(getOpenID),
        PLAIN(setScope, a.text),
        PLAIN(getScope),
        PLAIN(setState, a.text),
        PLAIN(getState),
        PLAIN(setCacheTime, a.number),
        PLAIN(setLogLevel, a.number),
        PLAIN(setDataUtf8, a.number),
        PLAIN(isDataUtf8),
        PLAIN(setCloseBelongSerial, a.number),
        PLAIN(isCloseBelongSerial),
        PLAIN(SetB2CTokens, a.text),
        PLAIN(getB2CTokensByNumber, a.serial, a.number, out),
        PLAIN(getB2CTokensByText, a.serial, a.text, out),
        PLAIN(isB2CSharedToken, a.token),
        PLAIN(isB2CSharedChannel, a.serial, a.number),
        PLAIN(setSharedAccessToken, a.token),
        PLAIN(getSharedAccessToken),
        PLAIN(setSessionId, a.token),
        PLAIN(getSessionId),
    };
}

#undef CODED
#undef PLAIN

}  // namespace

const std::vector<Operation>& OperationsWithCode() {
    static const std::vector<Operation> operations = [] {
        std::vector<Operation> all = DetailAndServers();
        for (const auto& part : {ListsAndAccount(), TokensAndRecordings()}) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    }();
    return operations;
}

const std::vector<Operation>& OperationsWithoutCode() {
    static const std::vector<Operation> operations = Settings();
    return operations;
}

Operation OperationNamed(const std::string& name) {
    for (const auto* operations : {&OperationsWithCode(), &OperationsWithoutCode()}) {
        for (const Operation& operation : *operations) {
            if (operation.name == name) {
                return operation;
            }
        }
    }
    return {"", nullptr};
}

}  // namespace vantix::test
