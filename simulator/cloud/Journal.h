#pragma once

#include "../Json.h"
#include "../Simulator.h"
#include "../http/Message.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace vantix::simulator {

/// What was received, in the order received. Safe from any thread.
class Journal {
public:
    /// Beyond so many entries the oldest go, so that a day of load does not fill the memory.
    static constexpr std::size_t capacity = 100000;

    void Add(Domain domain, const Request& request);
    [[nodiscard]] std::vector<Exchange> Entries() const;
    void Clear();

    /// How many entries went because the journal was full, since it was cleared.
    [[nodiscard]] std::uint64_t Dropped() const;

private:
    mutable std::mutex m_mutex;
    std::deque<Exchange> m_entries;
    std::uint64_t m_dropped = 0;
};

/// The entry as the control interface shows it: text, with hexadecimal members beside what is no UTF-8.
Json ToJson(const Exchange& entry);

}  // namespace vantix::simulator
