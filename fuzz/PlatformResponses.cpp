// All parsers and checks of the platform's responses.

#include <deque>
#include <optional>

#include "Fuzzer.h"
#include "platform/Account.h"
#include "platform/DeviceDetailParser.h"
#include "platform/Lists.h"
#include "platform/P2P.h"
#include "platform/Recordings.h"
#include "platform/ResponseChecks.h"
#include "platform/Server.h"
#include "platform/Tokens.h"

namespace vantix::fuzz {
namespace {

constexpr char kUnchanged[] = "unchanged";

template <class Record>
void Read(int (*parse)(TextView body, Record& record), const std::string& body) {
    Record record{};
    parse(body, record);
}

using DetailParser = int (*)(TextView, DevChannelInfo&, DevDetailInfo&, std::optional<BelongDevInfo>&);

/// Parses a detail; a response that is refused must not change the records.
void ReadDetail(DetailParser parse, const std::string& body) {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    channel.deviceSerial = device.deviceSerial = kUnchanged;
    device.iCloseBlong = 1;
    const int result = parse(body, channel, device, parent);
    Require(device.iCloseBlong == 1);
    Require(result == 0 || (channel.deviceSerial == kUnchanged && device.deviceSerial == kUnchanged && !parent));
}

}  // namespace

void FuzzOne(const std::string& text) {
    ReadDetail(ParseDevDetailInfoFromPlatform, text);
    ReadDetail(ParseDeviceDetailInfoFromPlatform, text);
    Read<ServerInfo>(ParseServerInfoFromPlatform, text);
    Read<RelayServerInfo>(ParseRealyInfoFromPlatform, text);
    Read<P2PUserInfo>(ParseP2PUserInfo, text);
    Read<P2PDevInfo>(ParseP2PDevInfo, text);
    Read<std::string>(ParseTicketInfoFromPlatform, text);
    Read<std::string>(ParseRealyTicketInfoFromPlatform, text);
    Read<std::deque<std::string>>(ParseTokensFromPlatform, text);
    Read<RefreshTokenInfo>(ParseRefreshTokenFromPlatform, text);
    Read<DeviceList>(ParseDeviceListFromPlatform, text);
    Read<DeviceList>(ParseDeviceListFromPlatform_GB, text);
    Read<RecordFileList>(ParseLocalDeviceRecordFile, text);
    Read<RecordFileList>(ParseDeviceRecordFile, text);
    Read<ConfigInfo>(ParseConfigInfoFromPlatform, text);
    Read<std::string>(ParseUsernameFromPlatform, text);
    Read<std::string>(ParseUserIdFromPlatform, text);
    Read<std::string>(ParsePushSessionIdFromPlatform, text);
    Read<BWCheckInfo>(ParseBWCheckInfoFromPlatform, text);
    Read<TransparentMsgDetail>(ParseTransparentMsgDetailFromPlatform, text);
    CheckResponseInfoFromPlatform(text);
    CheckResponseAuthInfoFromPlatform(text);
    CheckCloudResponseInfoFromPlatform(text);
}

}  // namespace vantix::fuzz
