// The capability texts of P2P devices, of either server family.

#include "cserver/P2P.h"
#include "platform/P2P.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

constexpr Reader kRows[] = {
    {"platform", ReadRecord<ParseP2PQXDevCap, P2PDevInfo, &P2PDevInfo::strV3>},
    {"consumer servers", ReadRecord<ParseP2PQXDevCapFromCServer, P2PDevInfo, &P2PDevInfo::strV3>},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
