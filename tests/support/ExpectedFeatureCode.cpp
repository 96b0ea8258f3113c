#include "support/ExpectedFeatureCode.h"

#include "cryptowrap/cryptowrap.h"
#include "hwprint/hwprint.h"

namespace vantix::test {

std::string ExpectedFeatureCode() {
    char serial[64] = {};
    char second[64] = {};
    char mac[48] = {};
    HWP_GetDiskSerial(serial, second);
    HWP_GetMacAddr(mac);
    const std::string joined = std::string(serial) + "|" + mac;
    char digest[64] = {};
    unsigned length = 0;
    ssl_md5_digest(joined.data(), static_cast<unsigned>(joined.size()), digest, &length);
    return digest;
}

}  // namespace vantix::test
