#pragma once

#include "../Json.h"
#include "../Simulator.h"
#include "../http/Message.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace vantix::simulator {

/// The requests received, in order. Safe from any thread.
class Journal {
public:
    /// With more entries the oldest are dropped, so that long runs do not fill the memory.
    static constexpr std::size_t capacity = 100000;

    void Add(Domain domain, const Request& request);
    [[nodiscard]] std::vector<ReceivedRequest> Entries() const;

    /// Removes the oldest entries, at most so many, and returns them: each entry is taken once.
    std::vector<ReceivedRequest> Take(std::size_t most);
    void Clear();

    /// Number of entries dropped since the journal was cleared.
    [[nodiscard]] std::uint64_t Dropped() const;

private:
    mutable std::mutex m_mutex;
    std::deque<ReceivedRequest> m_entries;
    std::uint64_t m_dropped = 0;
};

/// The entry as the control interface shows it: text, and a hexadecimal member for each text that is not UTF-8.
Json ToJson(const ReceivedRequest& entry);

}  // namespace vantix::simulator
