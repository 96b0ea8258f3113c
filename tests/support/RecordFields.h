#pragma once

/// @file
/// Fields of a record as rows: which member of a response fills each, and with what value a whole response does.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "support/JsonEdit.h"
#include "support/MemberValues.h"
#include "support/TestJson.h"

namespace vantix::test {

template <class Record>
struct RecordField {
    std::string place;  ///< JSON pointer into the response.
    std::variant<std::string Record::*, int32_t Record::*> field;
    Json value;  ///< What the whole response gives it.

    bool IsText() const { return field.index() == 0; }
    /// The field's value as JSON.
    Json Of(const Record& record) const {
        return std::visit([&](auto pointer) { return Json(record.*pointer); }, field);
    }
    void Set(Record& record, const Json& to) const {
        std::visit([&](auto pointer) { to.get_to(record.*pointer); }, field);
    }
};

template <class Record>
using RecordFields = std::vector<RecordField<Record>>;

/// What the fields hold, by their places.
template <class Record>
Json ValuesOf(const RecordFields<Record>& fields, const Record& record) {
    Json values;
    for (const auto& field : fields) {
        values[field.place] = field.Of(record);
    }
    return values;
}

/// What the whole response gives them.
template <class Record>
Json WholeValues(const RecordFields<Record>& fields) {
    Json values;
    for (const auto& field : fields) {
        values[field.place] = field.value;
    }
    return values;
}

/// Each value of `MemberValues` in each field's place, and each member missing: that field alone differs from what the
/// whole response gives, and holds what it held before unless the value is of its type. `read` parses a response into a
/// copy of `before`.
template <class Record, class Read>
void ExpectEachFieldOnItsOwn(const RecordFields<Record>& fields, const Json& response, const Record& before,
                             const MemberValues& ints, Read read) {
    for (const auto& field : fields) {
        SCOPED_TRACE(field.place);
        Json expected = WholeValues(fields);
        expected[field.place] = field.Of(before);
        EXPECT_EQ(ValuesOf(fields, read(Without(response, field.place))), expected) << "missing";
        for (const MemberValue& value : field.IsText() ? TextValues() : ints) {
            expected[field.place] = value.taken == nullptr ? field.Of(before) : Json::parse(value.taken);
            EXPECT_EQ(ValuesOf(fields, read(WithValue(response, field.place, value.sent))), expected) << value.sent;
        }
    }
}

}  // namespace vantix::test
