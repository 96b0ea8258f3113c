#pragma once

/// @file
/// Members that are copied "when present and of this type", as rows: a key and a pointer to the record's member.

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vantix::json {

/// One row: the member's key, and where its value goes. The field's type decides which JSON type is accepted.
template <class Record>
struct Field {
    const char* key;
    std::variant<std::string Record::*, int32_t Record::*, bool Record::*> member;
};

/// Copies every member that is present with the right type; all others leave their field as it was. `View` is one of
/// the readers of this folder; a value that is no object has no members.
template <class View, class Record, size_t Count>
void ReadFields(const View& object, const Field<Record> (&fields)[Count], Record& record) {
    for (const Field<Record>& field : fields) {
        const View value = object.Member(field.key);
        std::visit([&](auto member) { value.Read(record.*member); }, field.member);
    }
}

/// Appends a record for each element of an array, in order; an element that is no object gives an empty record.
template <class View, class Record, size_t Count>
void AppendRecords(const View& array, const Field<Record> (&fields)[Count], std::vector<Record>& records) {
    for (size_t i = 0; i < array.Size(); ++i) {
        ReadFields(array.Element(i), fields, records.emplace_back());
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
