#pragma once

/// @file
/// Turns a record into JSON by a table of its fields.

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

#include "records/RecordJson.h"

namespace vantix::ctl {

/// One field of a record: its name and how it is read.
template <class Record>
struct Field {
    std::string_view name;
    Json (*read)(const Record&);
};

template <class Member>
struct MemberTraits;

template <class RecordType, class ValueType>
struct MemberTraits<ValueType RecordType::*> {
    using Record = RecordType;
    using Value = ValueType;
};

/// The row for a member: `Row<&VtmAddr::iVtmPort>("iVtmPort")`.
template <auto Member>
constexpr auto Row(std::string_view name) {
    using Record = typename MemberTraits<decltype(Member)>::Record;
    using Value = typename MemberTraits<decltype(Member)>::Value;
    return Field<Record>{name, [](const Record& record) -> Json {
                             if constexpr (std::is_arithmetic_v<Value> || std::is_same_v<Value, std::string>) {
                                 return record.*Member;
                             } else {
                                 return ToJson(record.*Member);
                             }
                         }};
}

template <class Record, size_t Count>
Json AsObject(const Record& record, const std::array<Field<Record>, Count>& fields) {
    Json object = Json::object();
    for (const Field<Record>& field : fields) {
        object[std::string(field.name)] = field.read(record);
    }
    return object;
}

}  // namespace vantix::ctl
