#pragma once

#include <cstdint>
#include <utility>

#include "base/Clock.h"
#include "base/Guarded.h"

namespace vantix {

/// A cache of one record, which is served for as long as it is valid: it has no age of its own.
template <class Record>
class SingleRecordCache {
public:
    /// Copies a valid record out, as one that took no request; false when there is none.
    bool Serve(Record& record) const {
        return m_entry.With([&](const Entry& entry) {
            if (entry.isValid) {
                record = entry.record;
                record.iRequestCost = 0;
            }
            return entry.isValid;
        });
    }

    /// Stores a record as fetched now.
    void Store(Record record) {
        Entry fresh{std::move(record), true, TruncatedWallSeconds()};
        m_entry.With([&](Entry& entry) { std::swap(entry, fresh); });
    }

    /// The record is not served any more.
    void Invalidate() {
        m_entry.With([](Entry& entry) { entry.isValid = false; });
    }

    /// The same, when the record was stored more than this many seconds ago.
    void InvalidateOlderThan(int32_t seconds) {
        const int32_t now = TruncatedWallSeconds();
        m_entry.With(
            [&](Entry& entry) { entry.isValid = entry.isValid && SecondsBetween(entry.storeTime, now) <= seconds; });
    }

private:
    struct Entry {
        Record record{};
        bool isValid = false;
        int32_t storeTime = 0;  ///< Seconds since the epoch, truncated.
    };

    Guarded<Entry> m_entry;
};

}  // namespace vantix
