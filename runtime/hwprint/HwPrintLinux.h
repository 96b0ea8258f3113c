#pragma once

#include <string>

namespace hwprint {

/// The serial number of the disk that holds the root file system, or of the first disk. `root` is "/" but in tests.
/// Empty when nothing can be read.
std::string ReadDiskSerial(const std::string& root);

/// The address of the first physical network adapter, or of the first one at all but loopback, in upper-case
/// hexadecimal with dashes. Empty when there is none.
std::string ReadMacAddress(const std::string& root);

}  // namespace hwprint
