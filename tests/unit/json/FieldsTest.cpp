#include "json/Fields.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

struct Record {
    std::string name = "old name";
    std::string serial = "old serial";
    int32_t status = -5;
    bool online = true;

    friend bool operator==(const Record&, const Record&) = default;
};

constexpr json::Field<Record> kFields[] = {
    {"name", &Record::name},
    {"deviceSerial", &Record::serial},
    {"status", &Record::status},
    {"online", &Record::online},
};

template <class Reader>
class Fields : public testing::Test {
protected:
    static Record ReadInto(Record record, const std::string& text) {
        typename Reader::Document document;
        EXPECT_TRUE(document.Parse(text)) << text;
        json::ReadFields<kFields>(document.Root(), record);
        return record;
    }
    static Record Read(const std::string& text) { return ReadInto(Record(), text); }
};
TYPED_TEST_SUITE(Fields, BothReaders, ReaderName);

TYPED_TEST(Fields, PresentMembersOfTheRightTypeAreCopied) {
    EXPECT_EQ(this->Read(R"({"name": "Door", "deviceSerial": "D1", "status": 1, "online": false, "more": [1]})"),
              (Record{"Door", "D1", 1, false}));
}

TYPED_TEST(Fields, AbsentMembersLeaveTheirField) {
    EXPECT_EQ(this->Read("{}"), Record());
    EXPECT_EQ(this->Read(R"({"status": 7})"), (Record{"old name", "old serial", 7, true}));
}

TYPED_TEST(Fields, EmptyTextsZeroAndFalseAreValues) {
    EXPECT_EQ(this->Read(R"({"name": "", "deviceSerial": "", "status": 0, "online": false})"),
              (Record{"", "", 0, false}));
}

TYPED_TEST(Fields, EveryWrongTypeLeavesEveryField) {
    struct Row {
        const char* value = nullptr;
        Record expected;
    };
    const Record old;
    const Row rows[] = {
        {"null", old},
        {"[]", old},
        {R"(["text"])", old},
        {"{}", old},
        {R"({"name": "inner"})", old},
        {R"("text")", {"text", "text", old.status, old.online}},
        {"1", {old.name, old.serial, 1, old.online}},
        {"2147483648", old},
        {"1e20", old},
        {"false", {old.name, old.serial, old.status, false}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        std::string text = "{";
        for (const auto& field : kFields) {
            text += (text.size() == 1 ? "\"" : ", \"") + std::string(field.key) + "\": " + row.value;
        }
        EXPECT_EQ(this->Read(text + "}"), row.expected);
    }
}

TYPED_TEST(Fields, MembersInAnyOrderAmongAnyOthersAreFound) {
    EXPECT_EQ(this->Read(R"({"zz": 1, "status": 3, "": 0, "nam": 2, "online": false, "names": 2, "name": "n",
                            "Name": "N", "deviceSeria": "-", "deviceSerial": "D", "deviceSerial2": "-", "é": 1})"),
              (Record{"n", "D", 3, false}));
    EXPECT_EQ(this->Read(R"({"zz": 1, "a": 2})"), Record());
    EXPECT_EQ(this->Read(R"({"status": 1, "status": 2})").status, 2) << "the last one counts";
}

constexpr json::Field<Record> kSameMemberTwice[] = {{"name", &Record::name}, {"name", &Record::serial}};
constexpr json::Field<Record> kSameFieldTwice[] = {{"name", &Record::name}, {"other", &Record::name}};

TEST(FieldTables, AreReadInTheByteOrderOfTheirKeys) {
    static constexpr json::Field<Record> kRows[] = {
        {"b", &Record::name}, {"B", &Record::serial}, {"bb", &Record::status}, {"a", &Record::online}};
    EXPECT_EQ(json::SortedRows<kRows>::kKeys, (std::array<std::string_view, 4>{"B", "a", "b", "bb"}));
    EXPECT_EQ(json::SortedRows<kRows>::kRows[0].member, kRows[1].member);
    EXPECT_EQ(json::SortedRows<kRows>::kRows[3].member, kRows[2].member);
}

// Whose rows depend on their order does not compile.
static_assert(json::ReadEachMemberOnce(json::SortedRows<kFields>::kKeys));
static_assert(!json::ReadEachMemberOnce(json::SortedRows<kSameMemberTwice>::kKeys));
static_assert(json::FillEachFieldOnce(json::SortedRows<kFields>::kRows));
static_assert(!json::FillEachFieldOnce(json::SortedRows<kSameFieldTwice>::kRows));

TYPED_TEST(Fields, SomethingThatIsNoObjectHasNoMembers) {
    for (const char* text : {"null", "[]", R"([{"name": "x"}])", R"("name")", "1", "true"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(this->Read(text), Record());
    }
    Record record;
    json::ReadFields<kFields>(typename TypeParam::View(), record);
    EXPECT_EQ(record, Record());
}

TYPED_TEST(Fields, ALaterObjectOverwritesOnlyWhatItHolds) {
    const Record first = this->Read(R"({"name": "Door", "status": 1})");
    EXPECT_EQ(this->ReadInto(first, R"({"name": 5, "status": 2})"), (Record{"Door", "old serial", 2, true}));
}

TYPED_TEST(Fields, EachElementOfAnArrayAppendsARecord) {
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse(R"([{"status": 1}, 5, {"status": 2, "name": "x"}, null, [{"status": 3}]])"));
    std::vector<Record> records(1);
    json::AppendRecords<kFields>(document.Root(), records);
    const Record fresh;
    EXPECT_EQ(records,
              (std::vector<Record>{
                  fresh, {"old name", "old serial", 1, true}, fresh, {"x", "old serial", 2, true}, fresh, fresh}));
}

TYPED_TEST(Fields, OnlyObjectsOfAnArrayAreVisited) {
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse(R"([{"status": 1}, 5, null, "x", [{"status": 3}], {"status": 2}, {}, true])"));
    std::vector<int32_t> numbers;
    json::ForEachObject(document.Root(), [&](const typename TypeParam::View& element) {
        int32_t number = -1;
        element.Member("status").Read(number);
        numbers.push_back(number);
    });
    EXPECT_EQ(numbers, (std::vector<int32_t>{1, 2, -1}));
}

TYPED_TEST(Fields, WhatIsNoArrayHasNoElements) {
    for (const char* text : {"{}", R"({"status": 1})", "null", R"("text")", "1"}) {
        typename TypeParam::Document document;
        ASSERT_TRUE(document.Parse(std::string("{\"list\":").append(text) + "}"));
        std::vector<Record> records;
        json::AppendRecords<kFields>(document.Root().Member("list"), records);
        EXPECT_TRUE(records.empty()) << text;
        json::ForEachObject(document.Root().Member("list"),
                            [&](const typename TypeParam::View& /*element*/) { ADD_FAILURE() << text; });
    }
}

}  // namespace
}  // namespace vantix::test
