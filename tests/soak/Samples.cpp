#include "soak/Samples.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "support/ProcessUsage.h"

namespace vantix::test {
namespace {

constexpr size_t kSamplesOfARun = 500;

size_t ResidentKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::stoul(line.substr(line.find_first_of("0123456789")));
        }
    }
    return 0;
}

}  // namespace

double Samples::Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
}

bool Samples::IsDue(size_t requests) const {
    return m_samples.empty() || requests >= m_samples.back().requests + std::max<size_t>(m_wanted / kSamplesOfARun, 1);
}

void Samples::Add(size_t requests, size_t renewals, size_t faults) {
    const ProcessUsage usage = ProcessUsage::Now();
    m_samples.push_back({Seconds(), requests, renewals, faults, ResidentKiB(), usage.descriptors, usage.threads});
}

Samples::Range Samples::RangeOf(size_t Sample::*member) const {
    Range range;
    for (const Sample& sample : m_samples) {
        const size_t value = sample.*member;
        range.peak = std::max(range.peak, value);
        if (sample.requests * 10 <= m_wanted) {
            range.first = std::max(range.first, value);
        }
        if (sample.requests * 10 >= m_wanted * 9) {
            range.last = std::max(range.last, value);
        }
    }
    return range;
}

Json ToJson(const Samples& samples) {
    Json all = Json::array();
    for (const Sample& one : samples.All()) {
        all.push_back({{"seconds", one.seconds},
                       {"requests", one.requests},
                       {"renewals", one.renewals},
                       {"faults", one.faults},
                       {"residentKiB", one.residentKiB},
                       {"descriptors", one.descriptors},
                       {"threads", one.threads}});
    }
    return all;
}

double ProcessorSeconds(const std::string& processId) {
    std::ifstream file("/proc/" + processId + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const size_t name = text.rfind(')');
    if (name == std::string::npos) {
        return 0;
    }
    // After the name: state, ten numbers, then the ticks of the user and of the system.
    std::istringstream fields(text.substr(name + 1));
    std::string skipped;
    for (int i = 0; i < 11; ++i) {
        fields >> skipped;
    }
    double user = 0;
    double system = 0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace vantix::test
