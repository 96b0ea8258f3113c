#include "soak/Choice.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantix::test {
namespace {

constexpr uint64_t kRetriedOneIn = 8;
/// Of so many choices all but one are those that send requests to the consumer servers, which are few operations: the
/// shared place, the token and the map that say so, the B2C mode.
constexpr uint64_t kConsumerAllButOneIn = 6;
/// Slots whose requests the consumer servers serve too, and how often one of them is chosen besides all others.
constexpr int kSlotsOfConsumer[] = {4, 5, 7, 8, 9, 11, 18, 23, 24, 25, 26, 27, 28, 29, 34, 41, 72};
constexpr uint64_t kOfConsumerOneIn = 3;
constexpr uint64_t kVideoLevels = 3;
constexpr uint64_t kMostStreamTokens = 8;
constexpr uint64_t kRecordTypes = 2;
constexpr uint64_t kTkTypes = 6;

}  // namespace

Choice::Choice(const Account& account, std::string picture, uint64_t seed)
    : m_account(account), m_picture(std::move(picture)), m_numbers(seed) {}

const Operation& Choice::NextOperation() {
    const auto operations = Operations();
    if (Below(kOfConsumerOneIn) != 0) {
        return OneOf(operations);
    }
    const int slot = OneOf(kSlotsOfConsumer);
    return *std::find_if(operations.begin(), operations.end(),
                         [slot](const Operation& operation) { return operation.slot == slot; });
}

ChosenCall Choice::Next(int logLevel) {
    const Operation& operation = NextOperation();
    const Place& place = IsForConsumer() ? Places().back() : OneOf(Places());
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
             .consumerDomain = m_account.cDomain,
             .channelText = std::to_string(place.ch),
             .number = NumberFor(slot, logLevel),
             .tkType = 1 + static_cast<int>(Below(kTkTypes))}};
}

bool Choice::IsForConsumer() { return Below(kConsumerAllButOneIn) != 0; }

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
        return IsForConsumer() ? kSharedToken : kOwnToken;
    }
    return OneOf(m_account.accessTokens);
}

std::string Choice::TextFor(int slot, const Place& place) {
    switch (slot) {
        case 60: return OneOf(m_account.tkTokens);
        case 73:
        case 76: return m_account.bDomain;
        case 78: return OneOf(m_account.appIds);
        case 86: return m_account.openId;
        case 100: return m_account.b2cTokens[IsForConsumer() ? 0 : 1];
        default: return place.serial;
    }
}

int Choice::NumberFor(int slot, int logLevel) {
    constexpr int kModes = 3;
    constexpr int kB2CMode = 2;
    switch (slot) {
        case 65: return IsForConsumer() ? kB2CMode : static_cast<int>(Below(kB2CMode));
        case 94: return logLevel;
        case 69:
        case 96:
        case 98: return static_cast<int>(Below(2));
        default: return static_cast<int>(Below(kModes));
    }
}

}  // namespace vantix::test
