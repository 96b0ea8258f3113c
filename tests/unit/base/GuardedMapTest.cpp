#include "base/GuardedMap.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <unordered_map>

namespace vantix::test {
namespace {

template <class Map>
class GuardedMapTest : public testing::Test {
protected:
    using Table = GuardedMap<Map>;
    Table table;
};
using Maps = testing::Types<std::map<std::string, std::string>, std::unordered_map<std::string, std::string>>;
TYPED_TEST_SUITE(GuardedMapTest, Maps);

TYPED_TEST(GuardedMapTest, AbsentKeyLeavesTheValueAsItWas) {
    std::string value = "before";
    EXPECT_FALSE(this->table.CopyOut("key", value));
    EXPECT_EQ(value, "before");
    EXPECT_FALSE(this->table.Find("key"));
    EXPECT_EQ((this->table.Read("key", -1, [](const std::string&) { return 5; })), -1);
    EXPECT_FALSE(this->table.Edit("key", [](std::string& text) { text = "edited"; }));
    EXPECT_FALSE(this->table.Find("key"));
}

TYPED_TEST(GuardedMapTest, EntryIsCopiedOutAndEdited) {
    this->table.Put(TestFixture::Table::EntryFor("key", "value"));
    std::string value;
    EXPECT_TRUE(this->table.CopyOut("key", value));
    EXPECT_EQ(value, "value");
    EXPECT_TRUE(this->table.Edit("key", [](std::string& text) { text = "edited"; }));
    EXPECT_EQ(this->table.Find("key"), "edited");
    EXPECT_EQ((this->table.Read("key", size_t{0}, [](const std::string& text) { return text.size(); })), 6U);
    EXPECT_EQ(value, "value") << "the copy is the caller's own";
}

TYPED_TEST(GuardedMapTest, LaterEntryReplacesAndPutIfAbsentDoesNot) {
    this->table.Put(TestFixture::Table::EntryFor("key", "first"));
    this->table.Put(TestFixture::Table::EntryFor("key", "second"));
    EXPECT_EQ(this->table.Find("key"), "second");
    this->table.PutIfAbsent(TestFixture::Table::EntryFor("key", "third"));
    EXPECT_EQ(this->table.Find("key"), "second");
    this->table.PutIfAbsent(TestFixture::Table::EntryFor("other", "third"));
    EXPECT_EQ(this->table.Find("other"), "third");
}

TYPED_TEST(GuardedMapTest, ClearEmpties) {
    this->table.Put(TestFixture::Table::EntryFor("key", "value"));
    this->table.Clear();
    EXPECT_FALSE(this->table.Find("key"));
}

}  // namespace
}  // namespace vantix::test
