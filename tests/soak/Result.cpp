// What a run found, as the file that scripts/soak reads.

#include <thread>

#include "soak/Run.h"

namespace vantix::test {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kHasOwnMemory = false;  // a sanitizer keeps freed blocks and shadow
#else
constexpr bool kHasOwnMemory = true;
#endif

/// What the allocator's arenas, one for each of many threads, take on after the first tenth of a run. A leak of 20
/// bytes a request would exceed it in a run of a million.
constexpr size_t kMostGrowthKiB = 16 * 1024;

/// A caller has one transfer at a time, of its own or of its task: a socket and what libcurl wakes itself with. So have
/// the judge and the publisher. The rest is what any process has open.
constexpr size_t kDescriptorsOfATransfer = 3;
constexpr size_t kOtherDescriptors = 16;
/// A caller has one task at most.
constexpr size_t kThreadsOfACaller = 2;
constexpr size_t kOtherThreads = 4;

Json ToJson(const Samples::Range& range) {
    return {{"first", range.first}, {"peak", range.peak}, {"last", range.last}};
}

std::string MoreThan(size_t value, size_t most) {
    return value <= most ? "" : std::to_string(value) + ", more than " + std::to_string(most);
}

}  // namespace

void Run::CheckGrowth() {
    const auto callers = static_cast<size_t>(m_options.threads);
    const Samples::Range memory = m_samples.RangeOf(&Sample::residentKiB);
    const Samples::Range descriptors = m_samples.RangeOf(&Sample::descriptors);
    const Samples::Range threads = m_samples.RangeOf(&Sample::threads);
    if (kHasOwnMemory) {
        m_rules.Apply("memory grows by 16 MiB at most after the first tenth",
                      MoreThan(memory.last, memory.first + kMostGrowthKiB));
    }
    m_rules.Apply("descriptors stay bounded by the callers",
                  MoreThan(descriptors.peak, kDescriptorsOfATransfer * (callers + 2) + kOtherDescriptors));
    m_rules.Apply("threads stay bounded by the callers",
                  MoreThan(threads.peak, kThreadsOfACaller * callers + kOtherThreads));
}

Json Run::Result() const {
    const MemoryGrowth growth = m_samples.Growth();
    CallerTally all;
    for (const CallerTally& tally : m_tallies) {
        all.calls += tally.calls;
        all.failures += tally.failures;
        for (const auto& [code, count] : tally.results) {
            all.results[code] += count;
        }
        for (const auto& [name, results] : tally.byOperation) {
            for (const auto& [code, count] : results) {
                all.byOperation[name][code] += count;
            }
        }
    }
    const auto named = [](const std::map<int, size_t>& results) {
        Json json = Json::object();
        for (const auto& [code, count] : results) {
            json[std::to_string(code)] = count;
        }
        return json;
    };
    Json operations = Json::object();
    for (const auto& [name, results] : all.byOperation) {
        operations[name] = named(results);
    }
    return {{"wanted", m_options.requests},
            {"requests", m_received.load()},
            {"platform", m_ofPlatform},
            {"consumer", m_ofConsumer},
            {"renewals", m_renewals},
            {"paths", m_paths},
            {"faultPercent", m_options.faultPercent},
            {"faults", m_injected},
            {"seed", m_options.seed},
            {"callers", m_options.threads},
            {"calls", all.calls},
            {"callsWithAFailure", all.failures},
            {"results", named(all.results)},
            {"operations", operations},
            {"logLines", m_lines.load()},
            {"seconds", m_seconds},
            {"processorSeconds", m_processorSeconds},
            {"cores", std::thread::hardware_concurrency()},
            {"memoryChecked", kHasOwnMemory},
            {"residentKiB", ToJson(m_samples.RangeOf(&Sample::residentKiB))},
            {"memoryGrowth", {{"mebibytesAnHour", growth.mebibytesAnHour}, {"bytesARequest", growth.bytesARequest}}},
            {"descriptors", ToJson(m_samples.RangeOf(&Sample::descriptors))},
            {"threads", ToJson(m_samples.RangeOf(&Sample::threads))},
            {"applied", m_rules.Applied()},
            {"broken", m_rules.Broken()},
            {"violations", m_rules.Texts()},
            {"samples", test::ToJson(m_samples)}};
}

}  // namespace vantix::test
