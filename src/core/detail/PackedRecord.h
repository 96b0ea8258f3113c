#pragma once

#include <cstddef>
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
        for (const auto member : TextsOf<Record>::kAll) {
            if (std::string& text = m_record.*member; text.size() >= kLong) {
                m_longTexts.push_back({member, texts.Share(text)});
                std::string().swap(text);
            }
        }
        m_longTexts.shrink_to_fit();
    }

    /// Copies the whole record out.
    void CopyTo(Record& record) const {
        record = m_record;
        for (const LongText& text : m_longTexts) {
            record.*text.member = *text.text;
        }
    }
    /// The record without its long texts, which are empty.
    const Record& WithoutLongTexts() const { return m_record; }
    /// Whether two records have the same long texts; those of one pool are compared by their place.
    bool HasLongTextsOf(const PackedRecord& other) const { return m_longTexts == other.m_longTexts; }

private:
    /// A shorter text costs less in the record itself.
    static constexpr size_t kLong = 64;

    struct LongText {
        std::string Record::*member;
        SharedText text;

        friend bool operator==(const LongText&, const LongText&) = default;
    };

    Record m_record;
    std::vector<LongText> m_longTexts;
};

}  // namespace vantix
