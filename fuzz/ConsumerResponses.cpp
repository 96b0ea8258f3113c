// All parsers of the consumer servers' responses.

#include <vector>

#include "Fuzzer.h"
#include "cserver/DeviceDetail.h"
#include "cserver/Lists.h"
#include "cserver/P2P.h"
#include "cserver/Recordings.h"
#include "cserver/Server.h"
#include "cserver/Tokens.h"

namespace vantix::fuzz {
namespace {

constexpr char kSerial[] = "S60000006";

template <class Record>
void Read(int (*parse)(TextView body, Record& record), const std::string& body) {
    Record record{};
    parse(body, record);
}

}  // namespace

void FuzzOne(const std::string& text) {
    std::vector<ConsumerChannel> channels;
    ParseDevDetailInfoFromCServer(text, kSerial, channels);
    P2PDevInfo devInfo;
    ParseP2PDevInfoFromCServer(text, kSerial, devInfo);
    Read<ServerInfo>(ParseServerInfoFromCServer, text);
    Read<P2PUserInfo>(ParseP2PUserInfoFromCServer, text);
    Read<P2PDevInfo>(ParseP2PQXDevCapFromCServer, text);
    Read<SessionInfo>(ParseRefreshSessionnFromCServer, text);
    Read<std::string>(ParseDeviceRecordFileFromCServer, text);
    Read<std::string>(ParseB2CDeviceListFromPlatform, text);
}

}  // namespace vantix::fuzz
