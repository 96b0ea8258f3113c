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
        return m_kept.With([&](const Kept& kept) {
            if (kept.isValid) {
                record = kept.record;
                record.iRequestCost = 0;
            }
            return kept.isValid;
        });
    }

    /// Keeps a record as fetched now.
    void Keep(Record record) {
        Kept fresh{std::move(record), true, TruncatedWallSeconds()};
        m_kept.With([&](Kept& kept) { std::swap(kept, fresh); });
    }

    /// The record is not served any more.
    void Invalidate() {
        m_kept.With([](Kept& kept) { kept.isValid = false; });
    }

    /// The same, when the record was kept more than this many seconds ago.
    void InvalidateOlderThan(int32_t seconds) {
        const int32_t now = TruncatedWallSeconds();
        m_kept.With([&](Kept& kept) { kept.isValid = kept.isValid && SecondsBetween(kept.storeTime, now) <= seconds; });
    }

private:
    struct Kept {
        Record record{};
        bool isValid = false;
        int32_t storeTime = 0;  ///< Seconds since the epoch, truncated.
    };

    Guarded<Kept> m_kept;
};

}  // namespace vantix
