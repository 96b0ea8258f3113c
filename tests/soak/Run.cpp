#include "soak/Run.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <thread>

#include "soak/Choice.h"
#include "soak/Codes.h"
#include "soak/FaultTable.h"
#include "soak/Generations.h"
#include "soak/JournalRules.h"
#include "soak/LogRules.h"
#include "soak/Records.h"
#include "support/ProcessUsage.h"
#include "tvllog/tvllog.h"

namespace vantix::test {
namespace {

using namespace std::chrono_literals;

constexpr int kUsualLevel = 3;
constexpr int kSilent = 6;
constexpr int kStreamTokenSlot = 37;
constexpr size_t kSlice = 2000;
constexpr size_t kStreamTokenPrefix = 12;  ///< Of "st.5d1f3a0c.000123".

constexpr char kCodeRule[] = "return code is one that the operation may give";
constexpr char kRecordRule[] = "record is whole";
constexpr char kRequestRule[] = "request goes where it belongs, with its own credential";
constexpr char kLineRule[] = "log line shows no masked value";
constexpr char kOnceRule[] = "stream token is handed out once";
constexpr char kJournalRule[] = "every request was judged";
constexpr char kControlRule[] = "control interface responds";

}  // namespace

Run* Run::g_current = nullptr;

Run::Run(const SoakOptions& options)
    : m_options(options),
      m_account(MakeAccount(m_cloud)),
      m_samples(options.requests),
      m_handle(NewHandle()),
      m_picture(u8"gate.jpg"),
      m_tallies(static_cast<size_t>(options.threads)) {
    g_current = this;
}

int Run::LogLevel() const { return m_received / 1000 % 10 == 0 ? kUsualLevel : kSilent; }

void Run::OnLine(unsigned /*level*/, const char* /*module*/, const char* text) {
    ++g_current->m_lines;
    if (std::string wrong = WrongInLine(g_current->m_account, text); !wrong.empty()) {
        g_current->m_rules.Apply(kLineRule, wrong);
    }
}

/// Everything that a host sets; the refresh session id comes with a renewal.
void Run::PrepareCore() {
    IVantixDataCenter& center = *m_handle;
    center.setDomain(m_account.bDomain, m_account.cDomain);
    center.setAuthAddr(m_account.bDomain);
    center.setAppId(m_account.appIds.front());
    center.setAccessToken(m_account.accessTokens.front());
    center.setRefreshToken(m_account.refreshToken);
    center.setOpenID(m_account.openId);
    center.setSessionId(m_account.sessions.front());
    center.setGlobalTkToken(m_account.globalTkToken);
    center.SetDeviceTkTokens(m_account.tkTokens.front());
    center.SetB2CTokens(m_account.b2cTokens.front());
    center.setCacheTime(1);
    center.setPermissionMode(2);
    std::string session;
    const int renewed = center.RefreshSession(m_account.refreshSessionId, session);
    m_rules.Apply(kCodeRule, renewed == 0 ? "" : "the first RefreshSession returned " + std::to_string(renewed));
    center.setPermissionMode(0);
}

void Run::Call(const ChosenCall& call, CallerTally& tally) {
    const int slot = call.operation->slot;
    Outputs outputs;
    const int result = CallAmongThreads(*m_handle, *call.operation, call.arguments, outputs);
    const bool withFaults = m_options.faultPercent > 0;
    const Verdict verdict = Judged(slot, result, withFaults);
    m_rules.Apply(kCodeRule, verdict != Verdict::Wrong
                                 ? ""
                                 : std::string(call.operation->name) + " returned " + std::to_string(result));
    if (result == 0 && HandsOutRecord(slot)) {
        m_rules.Apply(kRecordRule, WrongInRecord(call, outputs, withFaults));
    }
    if (result == 0 && slot == kStreamTokenSlot && outputs.text.size() > kStreamTokenPrefix) {
        tally.streamTokens.push_back(
            static_cast<uint32_t>(std::strtoul(outputs.text.c_str() + kStreamTokenPrefix, nullptr, 10)));
    }
    ++tally.calls;
    tally.failures += verdict == Verdict::Expected ? 0U : 1U;
    ++tally.results[result];
    ++tally.byOperation[call.operation->name][result];
}

void Run::Caller(int number) {
    constexpr uint64_t kThreadsApart = 1000;
    const auto thread = static_cast<uint64_t>(number);
    Choice choice(m_account, m_picture.Path(), m_options.seed * kThreadsApart + thread);
    while (!m_isOver) {
        Call(choice.Next(LogLevel()), m_tallies[static_cast<size_t>(number)]);
    }
}

/// Makes calls of the control interface. One that fails breaks a rule, not the run: what it found is worth hours.
template <class Work>
bool Run::Control(const Work& work) {
    try {
        work();
    } catch (const std::exception& problem) {
        m_rules.Apply(kControlRule, problem.what());
        return false;
    }
    m_rules.Apply(kControlRule, "");
    return true;
}

/// The cloud's data and the log level change all the time.
void Run::Publish() {
    Publisher publisher(m_cloud);
    while (!m_isOver) {
        Control([&] { publisher.PublishNext(); });
        m_handle->setLogLevel(LogLevel());
        std::this_thread::sleep_for(20ms);
    }
}

size_t Run::JudgeSlice() {
    const std::vector<ReceivedRequest> slice = m_cloud.TakeRequests(kSlice);
    for (const ReceivedRequest& request : slice) {
        m_rules.Apply(kRequestRule, WrongInRequest(m_account, request));
        ++(IsOfConsumer(request) ? m_ofConsumer : m_ofPlatform);
        m_renewals += IsRenewal(request) ? 1U : 0U;
        ++m_paths[request.path];
    }
    m_received += slice.size();
    return slice.size();
}

/// A hang is the end of the run, not a time-out of whoever waits for it.
void Run::EndWhenNothingMoves(size_t received) {
    const auto now = std::chrono::steady_clock::now();
    if (received != 0) {
        m_lastMove = now;
    } else if (now - m_lastMove > 2min) {
        std::fputs("soak: no request for two minutes\n", stderr);
        std::_Exit(3);
    }
}

void Run::ReadFaults() { m_injected = m_cloud.Get("/fault-rate").at("injected").get<decltype(m_injected)>(); }

/// The next slice; none when the control interface does not respond.
size_t Run::JudgeNext() {
    size_t received = 0;
    Control([&] { received = JudgeSlice(); });
    return received;
}

/// Reads what the cloud received, slice by slice, until there is enough of it.
void Run::Judge() {
    while (m_received < m_options.requests) {
        const size_t received = JudgeNext();
        EndWhenNothingMoves(received);
        if (m_samples.IsDue(m_received)) {
            Control([this] { ReadFaults(); });
            const auto faults = std::accumulate(m_injected.begin(), m_injected.end(), size_t{0},
                                                [](size_t sum, const auto& fault) { return sum + fault.second; });
            m_samples.Add(m_received, m_renewals, faults);
        }
        if (received < kSlice / 10) {
            std::this_thread::sleep_for(20ms);
        }
    }
}

void Run::CheckStreamTokens() {
    std::vector<bool> seen;
    for (const CallerTally& tally : m_tallies) {
        for (const uint32_t token : tally.streamTokens) {
            seen.resize(std::max<size_t>(seen.size(), token + size_t{1}));
            m_rules.Apply(kOnceRule, seen[token] ? std::to_string(token) : "");
            seen[token] = true;
        }
    }
}

void Run::CheckJournal() {
    const Json statistics = m_cloud.Get("/stats");
    const size_t handled =
        statistics.at("B").at("requests").get<size_t>() + statistics.at("C").at("requests").get<size_t>();
    const bool areAll = statistics.at("journalDropped") == 0 && handled == m_received + 1;  // the first RefreshSession
    m_rules.Apply(kJournalRule, areAll ? ""
                                       : "the cloud handled " + std::to_string(handled) + " requests, " +
                                             std::to_string(m_received) + " were judged");
}

void Run::ApplyFinalRules() {
    m_rules.ApplyMany(kLineRule, m_lines);
    CheckStreamTokens();
    CheckGrowth();
}

bool Run::Execute() {
    PrepareCore();
    Publisher(m_cloud).PublishAll();
    m_handle->ClearAllCache();
    m_cloud.ForgetRequests();
    if (m_options.faultPercent > 0) {
        m_cloud.Put("/fault-rate", FaultSetting(m_options.faultPercent, m_options.seed));
    }
    TVLLOG_SetCallback(OnLine);
    const ProcessUsage before = ProcessUsage::Now();
    std::vector<std::thread> threads;
    threads.emplace_back([this] { Publish(); });
    for (int number = 0; number < m_options.threads; ++number) {
        threads.emplace_back([this, number] { Caller(number); });
    }
    Judge();
    m_seconds = m_samples.Seconds();
    m_processorSeconds = {ProcessorSeconds("self"), ProcessorSeconds(std::to_string(getppid()))};
    m_isOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    while (JudgeNext() != 0) {}
    Control([this] { ReadFaults(); });
    m_rules.Apply("descriptors and threads fall back", FellBackTo(before) ? "" : "more than before the run");
    TVLLOG_SetCallback(nullptr);
    Control([this] { CheckJournal(); });
    ApplyFinalRules();
    std::ofstream(m_options.output) << Result().dump(1) << "\n";
    return m_rules.Broken().empty();
}

}  // namespace vantix::test
