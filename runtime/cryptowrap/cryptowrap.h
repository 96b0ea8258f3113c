#pragma once

/// @file
/// The one digest that the library needs.

extern "C" {

/// Writes the MD5 of `length` bytes as 32 lower-case hexadecimal digits and a zero into `digestText` (64 bytes), and
/// their number into `*digestLength`. Returns 0, or a negative value on failure. Any thread.
int ssl_md5_digest(const void* data, unsigned length, char* digestText, unsigned* digestLength);
}
