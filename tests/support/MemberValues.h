#pragma once

/// @file
/// Values of every kind, and numbers at the borders of the types, in the place of a member: what its field then holds.

#include <string>
#include <vector>

namespace vantix::test {

struct MemberValue {
    const char* sent;   ///< As it stands in the response.
    const char* taken;  ///< What the field holds then, as JSON; null when it keeps what it held.
};
using MemberValues = std::vector<MemberValue>;

/// Fields that are read with JsonCpp, as all responses but the device detail are.
const MemberValues& TextValues();
const MemberValues& IntValues();           ///< 32 bits; a real without fraction is an integer.
const MemberValues& FlagValues();          ///< true or false alone.
const MemberValues& NumberValues();        ///< Any number within 64 bits, truncated.
const MemberValues& NumberAsTextValues();  ///< The same, kept as decimal text.
const MemberValues& TextOrNumberValues();  ///< A text, or an integer kept as decimal text.
const MemberValues& IntOrTextValues();     ///< An integer, or the number that a text begins with.
const MemberValues& DecimalTextValues();   ///< The number that a text begins with.

/// Integers that are read with json11, which truncates reals. Its texts are those of JsonCpp.
const MemberValues& Json11IntValues();

/// Values that are no object, no array, no text; each leaves what it held.
const MemberValues& NoObjects();
const MemberValues& NoArrays();
const MemberValues& NoTexts();

/// One value of every kind, and some more.
const std::vector<std::string>& AnyValues();

}  // namespace vantix::test
