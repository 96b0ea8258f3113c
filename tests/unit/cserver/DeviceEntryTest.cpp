// Which entry of a group belongs to a device.

#include "cserver/DeviceEntry.h"

#include <gtest/gtest.h>

namespace vantix::test {
namespace {

using json::JsonCppDocument;
using json::JsonCppView;

TEST(DeviceEntry, StandsUnderTheSerialOrNamesItOrIsTheOnlyOne) {
    const struct {
        const char* rule;
        const char* group;
        const char* entry;
    } rows[] = {
        {"the serial as a key", R"({"X":{"a":1},"S":{"a":2}})", R"({"a":2})"},
        {"the key goes before the group's own members", R"({"S":{"a":2},"a":1})", R"({"a":2})"},
        {"a key whose entry names another device is trusted", R"({"S":{"deviceSerial":"X"}})",
         R"({"deviceSerial":"X"})"},
        {"a single object without keys", R"({"a":1})", R"({"a":1})"},
        {"a single object that names the device", R"({"deviceSerial":"S","a":1})", R"({"a":1,"deviceSerial":"S"})"},
        {"a single object that names another", R"({"deviceSerial":"X","a":1})", ""},
        {"a key without an object", R"({"S":5,"a":1})", R"({"S":5,"a":1})"},
        {"an element that names the device", R"([{"deviceSerial":"X"},{"deviceSerial":"S","a":1}])",
         R"({"a":1,"deviceSerial":"S"})"},
        {"the first of two", R"([{"deviceSerial":"S","a":1},{"deviceSerial":"S","a":2}])",
         R"({"a":1,"deviceSerial":"S"})"},
        {"the named one beside an unnamed one", R"([{"a":1},{"deviceSerial":"S"}])", R"({"deviceSerial":"S"})"},
        {"an only element without a name", R"([{"a":1}])", R"({"a":1})"},
        {"an only element whose name is no text", R"([{"deviceSerial":5}])", R"({"deviceSerial":5})"},
        {"an only element of another device", R"([{"deviceSerial":"X"}])", ""},
        {"two without names", R"([{"a":1},{"a":2}])", ""},
        {"an element that is no object", "[5]", ""},
        {"nothing", "[]", ""},
        {"an empty object", "{}", "{}"},
        {"a text", "\"S\"", ""},
        {"null", "null", ""},
    };
    for (const auto& row : rows) {
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.group));
        EXPECT_EQ(consumer::EntryOf(document.Root(), "S").Compact(), row.entry) << row.rule;
    }
    EXPECT_EQ(consumer::EntryOf(JsonCppView(), "S").Compact(), "");
}

TEST(DeviceEntry, NamesAnotherDeviceByAnotherTextOnly) {
    const struct {
        const char* entry;
        bool names;
    } rows[] = {{R"({"deviceSerial":"X"})", true},
                {R"({"deviceSerial":""})", true},
                {R"({"deviceSerial":"S"})", false},
                {R"({"deviceSerial":5})", false},
                {R"({"deviceSerial":null})", false},
                {"{}", false},
                {"[]", false},
                {"\"X\"", false}};
    for (const auto& row : rows) {
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.entry));
        EXPECT_EQ(consumer::NamesAnother(document.Root(), "S"), row.names) << row.entry;
    }
}

}  // namespace
}  // namespace vantix::test
