#pragma once

/// @file
/// Members that are copied "when present and of this type", as rows: a key and a pointer to the record's member.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantix::json {

/// One row: the member's key, and where its value goes. The field's type decides which JSON type is accepted.
template <class Record>
struct Field {
    const char* key = nullptr;
    std::variant<std::string Record::*, int32_t Record::*, bool Record::*> member;
};

/// The keys of a table's rows, and the rows, in the order in which readers walk through an object.
template <const auto& Rows>
struct SortedRows {
    static constexpr size_t kCount = std::size(Rows);
    using Row = std::remove_cvref_t<decltype(Rows[0])>;

    static constexpr std::array<Row, kCount> kRows = [] {
        std::array<Row, kCount> rows;
        std::copy(std::begin(Rows), std::end(Rows), rows.begin());
        std::sort(rows.begin(), rows.end(),
                  [](const Row& a, const Row& b) { return std::string_view(a.key) < std::string_view(b.key); });
        return rows;
    }();
    static constexpr std::array<std::string_view, kCount> kKeys = [] {
        std::array<std::string_view, kCount> keys;
        std::transform(kRows.begin(), kRows.end(), keys.begin(), [](const Row& row) { return row.key; });
        return keys;
    }();
};

/// Whether no two rows read the same member.
template <size_t Count>
constexpr bool ReadEachMemberOnce(const std::array<std::string_view, Count>& sortedKeys) {
    return std::adjacent_find(sortedKeys.begin(), sortedKeys.end()) == sortedKeys.end();
}

/// Whether no two rows fill the same field: which one came last would decide.
template <class Row, size_t Count>
constexpr bool FillEachFieldOnce(const std::array<Row, Count>& rows) {
    for (size_t i = 0; i < Count; ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (rows[i].member == rows[j].member) {
                return false;
            }
        }
    }
    return true;
}

/// Calls `use(row, value)` for each row whose key is a member of the object. `View` is one of the readers of this
/// folder; a value that is no object has no members.
template <const auto& Rows, class View, class Use>
void VisitRows(const View& object, const Use& use) {
    using Sorted = SortedRows<Rows>;
    static_assert(ReadEachMemberOnce(Sorted::kKeys), "a table reads each member once");
    object.VisitMembers(Sorted::kKeys, [&](size_t i, const View& value) { use(Sorted::kRows[i], value); });
}

/// Copies every member that is present with the right type; all others leave their field as it was.
template <const auto& Fields, class View, class Record>
void ReadFields(const View& object, Record& record) {
    static_assert(FillEachFieldOnce(SortedRows<Fields>::kRows), "rows of a table are read in the order of their keys");
    VisitRows<Fields>(object, [&](const auto& field, const View& value) {
        std::visit([&](auto member) { value.Read(record.*member); }, field.member);
    });
}

/// Makes room for a record for each element of an array, so that a usual list does not move while it grows. A server
/// can send many elements that are no records: their room is made when they come.
template <class View, class Record>
void ReserveFor(const View& array, std::vector<Record>& records) {
    constexpr size_t kMost = 1024;
    records.reserve(records.size() + std::min(array.Size(), kMost));
}

/// Appends a record for each element of an array, in order; an element that is no object gives an empty record.
template <const auto& Fields, class View, class Record>
void AppendRecords(const View& array, std::vector<Record>& records) {
    ReserveFor(array, records);
    for (size_t i = 0; i < array.Size(); ++i) {
        ReadFields<Fields>(array.Element(i), records.emplace_back());
    }
}

/// Calls `use` with each element of an array that is an object, in order.
template <class View, class Use>
void ForEachObject(const View& array, const Use& use) {
    for (size_t i = 0; i < array.Size(); ++i) {
        if (const View element = array.Element(i); element.IsObject()) {
            use(element);
        }
    }
}

}  // namespace vantix::json
