#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "soak/Account.h"
#include "soak/Choice.h"
#include "soak/Rules.h"
#include "soak/Samples.h"
#include "support/Handle.h"
#include "support/LocalFile.h"

namespace vantix::test {

struct SoakOptions {
    size_t requests = 0;
    double faultPercent = 0;
    uint64_t seed = 1;
    int threads = 16;
    std::string output;  ///< The file for the result.
};

/// Calls per result, by operation, and stream tokens that were handed out.
struct CallerTally {
    size_t calls = 0;
    size_t failures = 0;
    std::map<int, size_t> results;
    std::map<std::string, std::map<int, size_t>> byOperation;
    std::vector<uint32_t> streamTokens;
};

/// One run: callers that do whatever an interface offers, a cloud that changes and fails, and a judge that reads
/// everything that the cloud received.
class Run {
public:
    explicit Run(const SoakOptions& options);

    /// Returns whether nothing was wrong. Writes the result.
    bool Execute();

private:
    void PrepareCore();
    void Caller(int number);
    void Call(const ChosenCall& call, CallerTally& tally);
    void Publish();
    void Judge();
    size_t JudgeNext();
    size_t JudgeSlice();
    void ReadFaults();
    template <class Work>
    bool Control(const Work& work);
    void EndWhenNothingMoves(size_t received);
    void CheckJournal();
    void ApplyFinalRules();
    void CheckStreamTokens();
    void CheckGrowth();
    Json Result() const;

    /// The usual level in every tenth thousand of requests.
    int LogLevel() const;
    static void OnLine(unsigned level, const char* module, const char* text);

    SoakOptions m_options;
    SimulatorClient m_cloud;
    Account m_account;
    Rules m_rules;
    Samples m_samples;
    Handle m_handle;
    LocalFile m_picture;
    std::vector<CallerTally> m_tallies;
    std::atomic<bool> m_isOver{false};
    std::atomic<size_t> m_received{0};
    std::atomic<size_t> m_lines{0};
    size_t m_ofPlatform = 0;
    size_t m_ofConsumer = 0;
    size_t m_renewals = 0;
    std::map<std::string, size_t> m_paths;
    std::map<std::string, size_t> m_injected;  ///< Faults by name, as the cloud last said.
    std::chrono::steady_clock::time_point m_lastMove = std::chrono::steady_clock::now();
    double m_seconds = 0;
    std::array<double, 2> m_processorSeconds{};  ///< Of this process and of the cloud.

    static Run* g_current;
};

}  // namespace vantix::test
