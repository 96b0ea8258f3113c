#pragma once

#include <string>

namespace vantix {

/// Where the parts of the feature code come from: the signatures are those of the hardware and digest libraries.
struct HardwareSource {
    int (*diskSerial)(char* serial, char* second);
    int (*macAddress)(char* mac);
    int (*md5)(const void* data, unsigned length, char* digestText, unsigned* digestLength);
};

/// This machine.
extern const HardwareSource kThisMachine;

/// Writes the feature code, the digest of "serial|mac", into a buffer of at least 64 bytes. 0, or -1 on a null buffer
/// or a failed digest. Hardware that cannot be read counts as an empty text.
int GetHDSign(char* buffer, const HardwareSource& source = kThisMachine);

/// The feature code of the process, made on first use and cached. Empty when that failed; the next call tries again.
std::string PublicGetHDSign(const HardwareSource& source = kThisMachine);

/// Forgets the cached feature code. For tests.
void ForgetFeatureCode();

}  // namespace vantix
