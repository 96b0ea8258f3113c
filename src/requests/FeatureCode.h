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
/// or a failed digest. Hardware that cannot be read stands as an empty text.
int GetHDSign(char* buffer, const HardwareSource& source = kThisMachine);

/// The feature code of the process, made on first use and kept; empty when it could not be made, and tried again then.
std::string PublicGetHDSign(const HardwareSource& source = kThisMachine);

/// Forgets the kept feature code. For tests.
void ForgetFeatureCode();

}  // namespace vantix
