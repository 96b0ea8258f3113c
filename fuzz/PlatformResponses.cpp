// All other parsers and checks of the platform's responses.

#include <deque>

#include "platform/Account.h"
#include "platform/Lists.h"
#include "platform/P2P.h"
#include "platform/Recordings.h"
#include "platform/ResponseChecks.h"
#include "platform/Server.h"
#include "platform/Tokens.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

/// A list that is read replaces the old one; one that is refused leaves it.
template <auto Parse>
void ReadDevices(const std::string& body) {
    DeviceList list;
    list.devices.emplace_back().deviceSerial = kUnchanged;
    Require(Parse(body, list) == 0 || (list.devices.size() == 1 && list.devices[0].deviceSerial == kUnchanged));
}

/// The token errors that a response can give: none, or those that hosts know.
void ReadVerifyError(const std::string& body) {
    const int error = VerifyErrorOf(body).value_or(-1);
    Require(error == 0 || error == -1 || error == -3 || error == -5 || error == -101);
}

constexpr Reader kRows[] = {
    {"servers", ReadRecord<ParseServerInfoFromPlatform, ServerInfo, &ServerInfo::vtmAddr>},
    {"relay server", ReadRecord<ParseRealyInfoFromPlatform, RelayServerInfo, &RelayServerInfo::domain>},
    {"P2P user", ReadRecord<ParseP2PUserInfo, P2PUserInfo, &P2PUserInfo::userId>},
    {"P2P device", ReadRecord<ParseP2PDevInfo, P2PDevInfo, &P2PDevInfo::defaultKey>},
    {"ticket", ReadText<ParseTicketInfoFromPlatform>},
    {"relay ticket", ReadText<ParseRealyTicketInfoFromPlatform>},
    {"stream tokens", ReadList<ParseTokensFromPlatform, std::deque<std::string>>},
    {"refreshed token", ReadRecord<ParseRefreshTokenFromPlatform, RefreshTokenInfo, &RefreshTokenInfo::access_token>},
    {"device list", ReadDevices<ParseDeviceListFromPlatform>},
    {"device list of a business type", ReadDevices<ParseDeviceListFromPlatform_GB>},
    {"recordings beside meta",
     ReadRecord<ParseLocalDeviceRecordFile, RecordFileList, &RecordFileList::strDeviceRecordList>},
    {"recordings", ReadRecord<ParseDeviceRecordFile, RecordFileList, &RecordFileList::strDeviceRecordList>},
    {"recordings alone", ReadRecord<ReadRecordFiles, RecordFileList, &RecordFileList::strDeviceRecordList>},
    {"configuration", ReadRecord<ParseConfigInfoFromPlatform, ConfigInfo, &ConfigInfo::pushAddr>},
    {"user name", ReadText<ParseUsernameFromPlatform>},
    {"user id", ReadText<ParseUserIdFromPlatform>},
    {"push session", ReadText<ParsePushSessionIdFromPlatform>},
    {"bandwidth check", ReadRecord<ParseBWCheckInfoFromPlatform, BWCheckInfo, &BWCheckInfo::url>},
    {"message", ReadRecord<ParseTransparentMsgDetailFromPlatform, TransparentMsgDetail, &TransparentMsgDetail::msgSeq>},
    {"envelope", ReadCode<CheckResponseInfoFromPlatform>},
    {"permission", ReadCode<CheckResponseAuthInfoFromPlatform>},
    {"cloud envelope", ReadCode<CheckCloudResponseInfoFromPlatform>},
    {"token error", ReadVerifyError},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
