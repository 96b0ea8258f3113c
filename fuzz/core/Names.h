#pragma once

/// @file
/// What the host of the whole-core fuzzer sets: addresses, credentials, devices. Each kind of credential has a prefix
/// of its own, so that one can be recognised wherever it turns up.

#include <array>
#include <span>
#include <string_view>

namespace vantix::fuzz {

inline constexpr char kBDomain[] = "https://b.example";
inline constexpr char kCDomain[] = "https://c.example";
inline constexpr char kAuthAddress[] = "https://auth.example";

inline constexpr std::array<const char*, 4> kAccessTokens{"", "at-1", "at-2", "at-3"};
inline constexpr std::array<const char*, 4> kSessions{"", "se-1", "se-2", "se-3"};
inline constexpr std::array<const char*, 4> kRefreshSessions{"", "rs-1", "rs-2", "rs-3"};
inline constexpr std::array<const char*, 2> kSharedAccessTokens{"", "sh-1"};
inline constexpr std::array<const char*, 2> kGlobalTkTokens{"", "gt-1"};

/// The token argument of operations that take one.
inline constexpr std::array<const char*, 8> kGivenTokens{"",        "at-1",    "at-2",    "sh-1",
                                                         "b2-S1-1", "b2-S1-2", "b2-S2-1", "at-unknown"};

inline constexpr std::array<const char*, 4> kSerials{"S1", "S2", "", "S3"};
inline constexpr std::array<int, 4> kChannels{1, 2, 0, -1};

struct B2CEntry {
    std::string_view serial;
    int ch = 0;
    std::string_view token;
    bool isShared = false;
};

/// A text that the host sets as B2C tokens, and what it says.
struct B2CText {
    const char* json = nullptr;
    std::array<B2CEntry, 3> entries;
};
inline constexpr B2CText kB2CTexts[] = {
    {.json = "[]", .entries = {}},
    {.json = R"([{"token":"b2-S1-1","deviceSerial":"S1","channelNo":"1","isShared":1},)"
             R"({"token":"b2-S1-2","deviceSerial":"S1","channelNo":"2","isShared":0},)"
             R"({"token":"b2-S2-1","deviceSerial":"S2","channelNo":"1","isShared":2}])",
     .entries = {{{"S1", 1, "b2-S1-1", true}, {"S1", 2, "b2-S1-2", false}, {"S2", 1, "b2-S2-1", true}}}},
    {.json = R"([{"token":"b2-S1-1","deviceSerial":"S1","channelNo":"1","isShared":0},)"
             R"({"token":"b2-S2-1","deviceSerial":"S2","channelNo":"1"}])",
     .entries = {{{"S1", 1, "b2-S1-1", false}, {"S2", 1, "b2-S2-1", false}, {}}}},
};

struct TkEntry {
    std::string_view serial;
    int ch = 0;
    std::string_view ofDevice;  ///< Kind 2.
    std::string_view ofVideo;   ///< Kind 3.
};

struct TkText {
    const char* json = nullptr;
    std::array<TkEntry, 2> entries;
};
inline constexpr TkText kTkTexts[] = {
    {.json = "[]", .entries = {}},
    {.json = R"([{"deviceTkToken":"tk2-S1-1","deviceVideoTkToken":"tk3-S1-1","deviceSerial":"S1","channelNo":"1"},)"
             R"({"deviceTkToken":"tk2-S2-2","deviceVideoTkToken":"tk3-S2-2","deviceSerial":"S2","channelNo":"2"}])",
     .entries = {{{"S1", 1, "tk2-S1-1", "tk3-S1-1"}, {"S2", 2, "tk2-S2-2", "tk3-S2-2"}}}},
};

}  // namespace vantix::fuzz
