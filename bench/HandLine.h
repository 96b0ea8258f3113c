#pragma once

namespace vantix::bench {

/// A log line as it is written by hand: a buffer of 40,960 zeros, the text formatted into it, two sinks called.
void HandLine(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// The same into a buffer that is not zeroed first.
void UnzeroedHandLine(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace vantix::bench
