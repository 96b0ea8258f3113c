#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/detail/RecordMembers.h"
#include "core/detail/SharedTexts.h"

namespace vantix {

/// A record as the caches hold it: it never changes, so that it is copied without a lock, and its long texts are shared
/// with other records.
template <class Record>
class PackedRecord {
public:
    PackedRecord(Record record, SharedTexts& texts) : m_record(std::move(record)) {
        std::vector<SharedText> found;
        for (size_t i = 0; i < std::size(kTexts); ++i) {
            if (std::string& text = m_record.*kTexts[i]; text.size() >= kLong) {
                found.push_back(texts.Share(text));
                m_long |= 1U << i;
                std::string().swap(text);
            }
        }
        m_longTexts = std::make_unique<SharedText[]>(found.size());
        std::move(found.begin(), found.end(), m_longTexts.get());
    }

    /// Copies the whole record out.
    void CopyTo(Record& record) const {
        record = m_record;
        const SharedText* next = m_longTexts.get();
        for (uint32_t rest = m_long; rest != 0; rest &= rest - 1) {
            record.*kTexts[std::countr_zero(rest)] = **next++;
        }
    }
    /// The record without its long texts, which are empty.
    const Record& WithoutLongTexts() const { return m_record; }
    /// Whether two records have the same long texts; those of one pool are compared by their place.
    bool HasLongTextsOf(const PackedRecord& other) const {
        const auto count = static_cast<size_t>(std::popcount(m_long));
        return m_long == other.m_long &&
               std::equal(m_longTexts.get(), m_longTexts.get() + count, other.m_longTexts.get());
    }

private:
    /// A shorter text costs as much in the record itself, when only a few share it.
    static constexpr size_t kLong = 48;
    static constexpr auto& kTexts = TextsOf<Record>::kAll;
    static_assert(std::size(kTexts) <= 32, "each text has a bit");

    Record m_record;
    uint32_t m_long = 0;  ///< A bit for each text that is long.
    std::unique_ptr<SharedText[]> m_longTexts;
};

}  // namespace vantix
