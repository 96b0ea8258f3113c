// The parsers of the consumer servers' responses, but for those of page lists.

#include "cserver/P2P.h"
#include "cserver/Recordings.h"
#include "cserver/Server.h"
#include "cserver/Tokens.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

constexpr Reader kRows[] = {
    {"servers", ReadRecord<ParseServerInfoFromCServer, ServerInfo, &ServerInfo::vtmAddr>},
    {"P2P user", ReadRecord<ParseP2PUserInfoFromCServer, P2PUserInfo, &P2PUserInfo::userId>},
    {"session", ReadRecord<ParseRefreshSessionnFromCServer, SessionInfo, &SessionInfo::sessionId>},
    {"recordings", ReadText<ParseDeviceRecordFileFromCServer>},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
