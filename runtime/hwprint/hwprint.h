#pragma once

/// @file
/// Reads what identifies this computer, without administrator rights.

extern "C" {

/// Writes the system disk's serial number, zero-terminated, into `serial` (64 bytes). `second` (64 bytes) is kept for
/// compatibility and left as it is. Returns 0, or -1 when there is nothing to read; `serial` is then left empty.
int HWP_GetDiskSerial(char* serial, char* second);

/// Writes the first network adapter's address ("00-11-22-33-44-55"), zero-terminated, into `mac` (48 bytes). Returns 0,
/// or -1 when there is none; `mac` is then left empty.
int HWP_GetMacAddr(char* mac);
}
