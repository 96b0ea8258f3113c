// One capability read from a device's short list.

#include "requests/CapabilityByNumber.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CleanSwitches.h"

namespace vantix::test {
namespace {

struct Row {
    std::string list;
    unsigned number;
    int value;
};

std::string Shown(const Row& row) { return row.list.substr(0, 60) + " at " + std::to_string(row.number); }

/// A list of this many values, the last of which is `last`, all others 9.
std::string ListOf(unsigned count, const std::string& last) {
    std::string list;
    for (unsigned i = 1; i < count; ++i) {
        list += "9|";
    }
    return list + last;
}

const std::vector<Row>& Lists() {
    static const std::vector<Row> rows = {
        {"", 1, 0},
        {"", 257, 0},
        {"5", 1, 5},
        {"5", 2, 0},
        {"1|2|3", 1, 1},
        {"1|2|3", 2, 2},
        {"1|2|3", 3, 3},
        {"1|2|3", 4, 0},
        {"1|2|3|", 4, 0},
        {"|2", 1, 0},
        {"|2", 2, 2},
        {"||3", 2, 0},
        {"||3", 3, 3},
        {"|", 1, 0},
        {"|", 2, 0},
        {"0|-1|-2147483648", 1, 0},
        {"0|-1|-2147483648", 2, 0},
        {"0|-1|-2147483648", 3, 0},
        {" 7|+8|9x|x9|0x10", 1, 7},
        {" 7|+8|9x|x9|0x10", 2, 8},
        {" 7|+8|9x|x9|0x10", 3, 9},
        {" 7|+8|9x|x9|0x10", 4, 0},
        {" 7|+8|9x|x9|0x10", 5, 0},
        {"2147483647", 1, 2147483647},
        {ListOf(257, "1"), 257, 1},
        {ListOf(257, "1"), 256, 9},
        {ListOf(257, "1"), 258, 0},
        {ListOf(836, "3"), 836, 3},
        {"1|2", 4294967295U, 0},
    };
    return rows;
}

TEST(CapabilityByNumber, ListIsCountedFromOne) {
    const CleanSwitches clean;
    for (const Row& row : Lists()) {
        EXPECT_EQ(CapabilityByNumber(row.list, row.number), row.value) << Shown(row);
    }
}

TEST(CapabilityByNumber, ListStaysAListInTheB2CMode) {
    const CleanSwitches clean;
    bB2CMode = true;
    for (const Row& row : Lists()) {
        EXPECT_EQ(CapabilityByNumber(row.list, row.number), row.value) << Shown(row);
    }
}

const std::vector<Row>& Objects() {
    static const std::vector<Row> rows = {
        {R"({"149":"2"})", 149, 2},
        {R"({"149":2})", 149, 2},
        {R"({"149" : "2"})", 149, 2},
        {"{\"149\" \t:\r\n \t\"2\"}", 149, 2},
        {R"({"1":"7","149":"2","257":3})", 1, 7},
        {R"({"1":"7","149":"2","257":3})", 257, 3},
        {R"({"1":"7","149":"2","257":3})", 7, 2},  // a value that looks like the key; the text is not parsed
        {R"({"1149":"7","149":"2"})", 149, 2},
        {R"({"149":5,"1":1})", 149, 5},
        {R"({"149":5 })", 149, 5},
        {R"({"149":"5,6"})", 149, 5},
        {R"({"149":-1})", 149, 0},
        {R"({"149":"-1"})", 149, 0},
        {R"({"149":0})", 149, 0},
        {R"({"149":true})", 149, 0},
        {R"({"149":null})", 149, 0},
        {R"({"149":""})", 149, 0},
        {R"({"149":"7)", 149, 7},
        {R"({"149":7)", 149, 7},
        {R"({"149":)", 149, 0},
        {R"({"149":   )", 149, 0},
        {R"({"149":")", 149, 0},
        {R"({"149")", 149, 0},
        {R"({"149)", 149, 0},
        {R"({149:2})", 149, 0},
        {R"({"x":"149","149":2})", 149, 2},
        {"{", 149, 0},
        {"{}", 149, 0},
        {R"({"149":99999999999})", 149, 2147483647},
        {R"({"4294967295":8})", 4294967295U, 8},
    };
    return rows;
}

TEST(CapabilityByNumber, ObjectIsReadByItsKeysInTheB2CMode) {
    const CleanSwitches clean;
    bB2CMode = true;
    for (const Row& row : Objects()) {
        EXPECT_EQ(CapabilityByNumber(row.list, row.number), row.value) << Shown(row);
    }
}

TEST(CapabilityByNumber, ObjectIsAListOutsideTheB2CMode) {
    const CleanSwitches clean;
    for (const Row& row : Objects()) {
        EXPECT_EQ(CapabilityByNumber(row.list, row.number), 0) << Shown(row);
    }
    EXPECT_EQ(CapabilityByNumber(R"({"2":1|6)", 2), 6);
}

TEST(CapabilityByNumber, OnlyABraceInFirstPlaceMakesAnObject) {
    const CleanSwitches clean;
    bB2CMode = true;
    EXPECT_EQ(CapabilityByNumber(R"( {"1":5})", 1), 0);
    EXPECT_EQ(CapabilityByNumber(R"(3|{"2":5})", 1), 3);
    EXPECT_EQ(CapabilityByNumber(R"(["1":5])", 1), 0);
}

TEST(CapabilityByNumber, OneListGivesThemInAnyOrder) {
    const CleanSwitches switches;
    const std::string text = "1|2|33|4";
    ShortList list(text);
    EXPECT_EQ(list.Value(3), 33);
    EXPECT_EQ(list.Value(3), 33);
    EXPECT_EQ(list.Value(4), 4);
    EXPECT_EQ(list.Value(1), 1);
    EXPECT_EQ(list.Value(9), 0);
    EXPECT_EQ(list.Value(2), 2);
    EXPECT_EQ(list.Value(0), 0) << "the first one has number 1";
    EXPECT_EQ(list.Value(4), 4);
}

TEST(CapabilityByNumber, TruncationAtAnyByteIsSurvived) {
    const CleanSwitches clean;
    for (const bool b2c : {false, true}) {
        bB2CMode = b2c;
        for (const std::string whole : {R"({"1":"7","149" : "12345","257":3})", "1|2|3|45|6"}) {
            for (size_t length = 0; length <= whole.size(); ++length) {
                for (const unsigned number : {1U, 4U, 149U, 257U}) {
                    const int value = CapabilityByNumber(whole.substr(0, length), number);
                    EXPECT_GE(value, 0);
                    EXPECT_LE(value, 12345);
                }
            }
        }
    }
}

TEST(CapabilityByNumber, AnyBytesAreSurvived) {
    const CleanSwitches clean;
    bB2CMode = true;
    const std::string nul("{\"1\":\0005}", 8);
    EXPECT_EQ(CapabilityByNumber(nul, 1), 0);
    EXPECT_EQ(CapabilityByNumber("\xFF\xFE|\xC3(|3", 3), 3);
    EXPECT_EQ(CapabilityByNumber(std::string(1'000'000, '|'), 999'999), 0);
    EXPECT_EQ(CapabilityByNumber("{" + std::string(1'000'000, '"'), 1), 0);
}

}  // namespace
}  // namespace vantix::test
