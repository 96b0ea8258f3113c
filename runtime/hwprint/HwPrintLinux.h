#pragma once

#include <cstddef>
#include <string>

namespace hwprint {

/// The serial number of the disk that holds the root file system, or of the first disk. `root` is "/" but in tests.
/// Empty when nothing can be read.
std::string ReadDiskSerial(const std::string& root);

/// The address of the first physical network adapter, or of the first one at all but loopback, in upper-case
/// hexadecimal with dashes. Empty when there is none.
std::string ReadMacAddress(const std::string& root);

/// Writes a text, zero-terminated and cut where need be, into a buffer of `size` bytes. Returns 0, or -1 when the text
/// is empty or there is no buffer.
int CopyText(const std::string& text, char* buffer, size_t size);

}  // namespace hwprint
