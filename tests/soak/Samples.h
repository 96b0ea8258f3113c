#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "support/TestJson.h"

namespace vantix::test {

/// What this process held of the system at one moment of the run.
struct Sample {
    double seconds = 0;
    size_t requests = 0;
    size_t renewals = 0;
    size_t faults = 0;
    size_t residentKiB = 0;
    size_t descriptors = 0;
    size_t threads = 0;
};

/// How memory grows behind the first tenth of a run, by the straight line through the samples.
struct MemoryGrowth {
    double mebibytesAnHour = 0;
    double bytesARequest = 0;
};
MemoryGrowth GrowthOf(const std::vector<Sample>& samples, size_t wantedRequests);

/// Samples over a run, of which there are a few hundred at most.
class Samples {
public:
    explicit Samples(size_t wantedRequests) : m_wanted(wantedRequests) {}

    /// Whether enough requests went by since the last one.
    bool IsDue(size_t requests) const;
    void Add(size_t requests, size_t renewals, size_t faults);

    const std::vector<Sample>& All() const { return m_samples; }
    double Seconds() const;

    /// The largest value of a member in the first tenth of the requests, after it, and in the last tenth.
    struct Range {
        size_t first = 0;
        size_t peak = 0;
        size_t last = 0;
    };
    Range RangeOf(size_t Sample::*member) const;
    MemoryGrowth Growth() const { return GrowthOf(m_samples, m_wanted); }

private:
    size_t m_wanted;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::vector<Sample> m_samples;
};

Json ToJson(const Samples& samples);

/// Seconds of processor time that a process took; 0 when it cannot be read.
double ProcessorSeconds(const std::string& processId);

}  // namespace vantix::test
