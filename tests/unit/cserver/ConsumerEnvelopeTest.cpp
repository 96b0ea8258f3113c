// The envelope of the consumer servers, and where their groups stand.

#include "cserver/ConsumerEnvelope.h"

#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

using json::JsonCppDocument;
using json::JsonCppView;

TEST(ConsumerEnvelope, CodeIsThatOfMetaAndSuccessWithoutOne) {
    for (const MetaRow& row : MetaRows()) {
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(R"({"meta":)" + std::string(row.meta) + "}"));
        EXPECT_EQ(consumer::Code(document.Root()), row.code) << row.meta;
    }
    for (const char* root : {"{}", "[]", "5", "\"x\"", "null", R"({"code":401})", R"({"resultCode":"401"})"}) {
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(root));
        EXPECT_EQ(consumer::Code(document.Root()), 0) << root;
    }
}

TEST(ConsumerEnvelope, MemberIsLookedForBesideDataFirst) {
    const struct {
        const char* root;
        const char* found;
    } rows[] = {{R"({"group":1})", "1"},
                {R"({"data":{"group":2}})", "2"},
                {R"({"group":1,"data":{"group":2}})", "1"},
                {R"({"group":null,"data":{"group":2}})", "2"},
                {R"({"group":false,"data":{"group":2}})", "false"},
                {R"({"data":{"data":{"group":2}}})", ""},
                {R"({"data":[{"group":2}]})", ""},
                {R"({"data":"group"})", ""},
                {"[]", ""},
                {"5", ""}};
    for (const auto& row : rows) {
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.root));
        EXPECT_EQ(consumer::Find(document.Root(), "group").Compact(), row.found) << row.root;
    }
}

TEST(ConsumerEnvelope, EntryOfADeviceStandsUnderItsSerialOrNamesItOrIsTheOnlyOne) {
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

TEST(ConsumerEnvelope, OnlyAnotherTextNamesAnotherDevice) {
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
