#include "soak/Choice.h"

#include <utility>

namespace vantix::test {
namespace {

constexpr uint64_t kRetriedOneIn = 8;
constexpr uint64_t kSharedOneIn = 3;
constexpr uint64_t kVideoLevels = 3;
constexpr uint64_t kMostStreamTokens = 8;
constexpr uint64_t kRecordTypes = 2;
constexpr uint64_t kTkTypes = 6;

}  // namespace

Choice::Choice(const Account& account, std::string picture, uint64_t seed)
    : m_account(account), m_picture(std::move(picture)), m_numbers(seed) {}

ChosenCall Choice::Next(int logLevel) {
    const auto operations = Operations();
    const Operation& operation = operations[static_cast<size_t>(Below(operations.size()))];
    const Place& place = Below(kSharedOneIn) == 0 ? Places().back() : OneOf(Places());
    const int slot = operation.slot;
    return {&operation,
            &place,
            {.serial = place.serial,
             .ch = place.ch,
             .token = TokenFor(slot, place),
             .retried = Below(kRetriedOneIn) == 0,
             .force = Below(2) == 0,
             .alarmId = place.alarm,
             .videoLevel = static_cast<int>(Below(kVideoLevels)),
             .playback = Below(2) == 0,
             .streamTokens = 1 + static_cast<int>(Below(kMostStreamTokens)),
             .recordType = 1 + static_cast<int>(Below(kRecordTypes)),
             .withLocation = Below(2) == 0,
             .sdkPath = Below(2) == 0,
             .jsonQuery = std::string(R"({"deviceSerial":")").append(place.serial).append("\"}"),
             .url = m_account.bDomain + "/upload/unknown",
             .localPath = m_picture,
             .refreshSessionId = Below(2) == 0 ? m_account.refreshSessionId : "",
             .text = TextFor(slot, place),
             .channelText = std::to_string(place.ch),
             .number = NumberFor(slot, logLevel),
             .tkType = 1 + static_cast<int>(Below(kTkTypes))}};
}

/// A token of the shared channel selects the server family; as a credential it is good for that device alone. Whoever
/// fetches stream tokens one by one makes the token its access token.
std::string Choice::TokenFor(int slot, const Place& place) {
    switch (slot) {
        case 63: return m_account.globalTkToken;
        case 84: return m_account.refreshToken;
        case 105: return Below(2) == 0 ? "" : kOwnToken;
        case 107: return OneOf(m_account.sessions);
        default: break;
    }
    const bool isCurrentAlone = slot == 37 || slot == 38 || slot == 80;
    if (!isCurrentAlone && std::string(place.serial) == kSharedSerial) {
        return Below(2) == 0 ? kSharedToken : kOwnToken;
    }
    return OneOf(m_account.accessTokens);
}

std::string Choice::TextFor(int slot, const Place& place) {
    switch (slot) {
        case 60: return OneOf(m_account.tkTokens);
        case 76: return m_account.bDomain;
        case 78: return OneOf(m_account.appIds);
        case 86: return m_account.openId;
        case 100: return OneOf(m_account.b2cTokens);
        default: return place.serial;
    }
}

int Choice::NumberFor(int slot, int logLevel) {
    constexpr int kModes = 3;
    switch (slot) {
        case 94: return logLevel;
        case 69:
        case 96:
        case 98: return static_cast<int>(Below(2));
        default: return static_cast<int>(Below(kModes));
    }
}

}  // namespace vantix::test
