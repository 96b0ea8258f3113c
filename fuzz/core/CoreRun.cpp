#include "core/CoreRun.h"

#include <algorithm>

#include "Fuzzer.h"
#include "base/Clock.h"
#include "base/ProcessSwitches.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

constexpr int kMostSteps = 16;

int64_t g_wallSeconds = 0;
int64_t g_steadyNanoseconds = 0;
const Clock kFakeClock{[] { return g_wallSeconds; }, [] { return g_steadyNanoseconds += 1'000'000; }};

template <class Texts>
const char* Chosen(const Texts& texts, uint8_t choice) {
    return texts[choice % texts.size()];
}

test::Arguments ArgumentsOf(Input& input) {
    const uint8_t first = input.Byte();
    const uint8_t second = input.Byte();
    test::Arguments arguments;
    arguments.serial = Chosen(kSerials, first);
    arguments.ch = kChannels[first / 4U % kChannels.size()];
    arguments.retried = (first & 16U) != 0;
    arguments.force = (first & 32U) != 0;
    arguments.sdkPath = (first & 64U) != 0;
    arguments.token = Chosen(kGivenTokens, second);
    arguments.number = second / 8;
    arguments.span = {"2024-01-02T00:00:00", "2024-01-02T23:59:59"};
    arguments.refreshSessionId = Chosen(kRefreshSessions, second);
    return arguments;
}

}  // namespace

void Trace(const std::string& text) {
    static const bool isTraced = std::getenv("VANTIX_FUZZ_TRACE") != nullptr;
    if (isTraced) {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
}

CoreRun::CoreRun(const std::string& text) : m_input(text) {
    g_wallSeconds = 1'800'000'000;
    SetClock(kFakeClock);
    SetServer([this](const SentRequest& request) { return Respond(request); });
    m_core.setDomain(kBDomain, kCDomain);
    m_core.setAppId("app-1");
    m_core.setAccessToken("at-1");
}

CoreRun::~CoreRun() {
    SetServer(nullptr);
    bB2CMode = false;
    bUtf8 = false;
}

void CoreRun::RunAll() {
    for (int step = 0; step < kMostSteps && !m_input.IsAtEnd(); ++step) {
        const uint8_t choice = m_input.Byte();
        if (choice >= 192) {
            ChangeSetting(choice);
        } else {
            RunOperation(kRules[choice % std::size(kRules)]);
        }
    }
}

void CoreRun::ChangeSetting(uint8_t choice) {
    const uint8_t value = m_input.Byte();
    Trace("setting " + std::to_string(choice % 16) + ": " + std::to_string(value));
    SetTokens(choice % 16, value);
    SetNumbers(choice % 16, value);
}

void CoreRun::SetTokens(uint8_t choice, uint8_t value) {
    switch (choice) {
        case 0: m_core.setAccessToken(Chosen(kAccessTokens, value)); break;
        case 1: m_core.setSessionId(Chosen(kSessions, value)); break;
        case 2:
            m_state.sharedAccessToken = Chosen(kSharedAccessTokens, value);
            m_core.setSharedAccessToken(m_state.sharedAccessToken);
            break;
        case 3:
            m_state.b2c = &kB2CTexts[value % std::size(kB2CTexts)];
            m_core.SetB2CTokens(m_state.b2c->json);
            break;
        case 4:
            m_state.tk = &kTkTexts[value % std::size(kTkTexts)];
            m_core.SetDeviceTkTokens(m_state.tk->json);
            break;
        case 5:
            if (const std::string token = Chosen(kGlobalTkTokens, value); !token.empty()) {
                m_state.globalTk = token;  // an empty one is ignored
            }
            m_core.setGlobalTkToken(Chosen(kGlobalTkTokens, value));
            break;
        case 6:
            m_core.setAuthAddr(value % 2 == 0 ? kAuthAddress : "");
            m_core.setRefreshToken("rt-1");
            m_core.setOpenID("open-1");
            break;
        default: break;
    }
}

void CoreRun::SetNumbers(uint8_t choice, uint8_t value) {
    switch (choice) {
        case 7:
        case 8:
            m_state.mode = value % 4;
            m_core.setPermissionMode(m_state.mode);
            break;
        case 9: m_core.setCacheTime(value); break;
        case 10: g_wallSeconds += int64_t{value} * 60; break;
        case 11: m_core.setCloseBelongSerial(value % 2); break;
        case 12: m_core.setDataUtf8(value % 2); break;
        case 13: m_core.setCloseP2P(value % 2); break;
        default: break;
    }
}

void CoreRun::RunOperation(const OperationRule& rule) {
    const std::vector<std::string> before = DetailCaches();
    m_rule = &rule;
    m_arguments = ArgumentsOf(m_input);
    m_accessTokenBefore = m_core.getAccessToken();
    m_requests = m_failed = 0;
    m_mayStoreDetail = m_isRenewed = false;
    test::Outputs outputs;
    outputs.text = kUnchanged;
    const auto operations = test::Operations();
    const test::Operation& operation = operations[static_cast<size_t>(rule.slot - 1)];
    Require(operation.slot == rule.slot);
    Trace(std::string(operation.name) + " " + m_arguments.serial + " " + std::to_string(m_arguments.ch) + " token " +
          m_arguments.token + (m_arguments.retried ? " retried" : ""));
    const test::CallResult call = Call(m_handle, operation, m_arguments, outputs);
    RequireEffects(call, outputs, before);
    RequireServedRecord(call, outputs);
    RequireStreamToken(call, outputs);
    m_rule = nullptr;
}

std::vector<std::string> CoreRun::DetailCaches() {
    constexpr std::pair<const char*, int> kEntries[] = {{"S1", 1}, {"S1", 2}, {"S2", 1}};
    std::vector<std::string> all;
    for (const auto& [serial, ch] : kEntries) {
        DevDetailInfo detail;
        const int result = m_core.getDeviceRecord(serial, ch, detail);
        all.push_back(std::to_string(result) + detail.deviceIP + "/" + detail.releaseVersion +
                      (detail.isUpdate ? "!" : "") + std::to_string(m_core.getChannelCacheValue(serial, ch)) +
                      std::to_string(m_core.IsSupportSeekPlayback(serial)));
    }
    return all;
}

}  // namespace vantix::fuzz
