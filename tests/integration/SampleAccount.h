#pragma once

namespace vantix::test {

/// Devices of the loopback cloud's sample account.
inline constexpr char kCamera[] = "C10000001";  ///< One of the account's own, with Tk and B2C tokens.
inline constexpr char kRecorder[] = "R20000016";
inline constexpr char kBehindOnline[] = "B30000003";   ///< Channel 3 of the recorder.
inline constexpr char kBehindOffline[] = "B30000004";  ///< Channel 2 of the offline recorder.
inline constexpr char kOtherRelease[] = "V40000004";
inline constexpr char kOffline[] = "F50000005";
inline constexpr char kShared[] =
    "S60000006";  ///< Somebody else's camera that the account may watch, with a B2C token.
inline constexpr char kUnknown[] = "X99999999";  ///< No device of the account.

}  // namespace vantix::test
