#pragma once

/// @file
/// What every parser of a consumer server's answer is put through. Answers come as JSON to be changed, and members as
/// rows: where they stand, and which field they fill.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/Logger.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/TestJson.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {

/// A case that watches the log.
class ConsumerAnswer : public testing::Test {
protected:
    CleanSwitches clean;
    LogCapture lines;
};

/// Texts that are no JSON at all.
inline const std::vector<std::string>& NoJson() {
    static const std::vector<std::string> texts = {"",
                                                   " ",
                                                   "x",
                                                   "<html>%s%n</html>",
                                                   "{",
                                                   "\xEF\xBB\xBF{}",
                                                   "{\"a\":NaN}",
                                                   "{\"a\":1e400}",
                                                   "{'a':1}",
                                                   "nul",
                                                   std::string(100'000, '[')};
    return texts;
}

/// Values of every kind, and numbers at the borders of the types.
inline const std::vector<std::string>& OddValues() {
    static const std::vector<std::string> values = {"null",
                                                    "true",
                                                    "false",
                                                    "[]",
                                                    "[1]",
                                                    "{}",
                                                    R"({"a":1})",
                                                    "\"text\"",
                                                    "\"\"",
                                                    "\"-1\"",
                                                    "0",
                                                    "-1",
                                                    "1.9",
                                                    "7.0",
                                                    "2147483647",
                                                    "2147483648",
                                                    "-2147483648",
                                                    "-2147483649",
                                                    "9223372036854775807",
                                                    "9223372036854775808",
                                                    "1e20",
                                                    "-1e20"};
    return values;
}

/// What a field holds after an odd value was read into it, or `before` when the value is not of its type.
inline Json AfterReading(bool isText, const std::string& value, const Json& before) {
    if (isText) {
        return value[0] == '"' ? Json::parse(value) : before;
    }
    for (const char* inRange : {"0", "-1", "7.0", "2147483647", "-2147483648"}) {
        if (value == inRange) {
            return Json::parse(value).get<int32_t>();
        }
    }
    return before;
}

/// The answer as text, with one value put in place of another.
inline std::string WithValue(const Json& answer, const std::string& place, const std::string& value) {
    Json changed = answer;
    changed[Json::json_pointer(place)] = "the place of the value";
    std::string text = changed.dump();
    const std::string mark = "\"the place of the value\"";
    return text.replace(text.find(mark), mark.size(), value);
}

inline std::string Without(const Json& answer, const std::string& place) {
    Json changed = answer;
    const Json::json_pointer pointer(place);
    changed[pointer.parent_pointer()].erase(pointer.back());
    return changed.dump();
}

/// The fields of a record that the rows name. A row's key is the JSON pointer of its member.
template <class Record>
Json Values(const std::vector<Member<Record>>& rows, const Record& record) {
    Json values;
    for (const auto& row : rows) {
        values[row.key] = row.Of(record);
    }
    return values;
}

/// Every row's member fills its field with the value that the answer has.
template <class Record>
void ExpectFilled(const std::vector<Member<Record>>& rows, const Json& answer, const Record& record) {
    for (const auto& row : rows) {
        EXPECT_EQ(row.Of(record), answer.at(Json::json_pointer(row.key))) << row.key;
    }
}

/// Every odd value in every row's place, and every row's member missing: that field alone differs from what the whole
/// answer gives, and it holds what it held before unless the value is of its type. `read` parses an answer into a copy
/// of `before`.
template <class Record, class Read>
void ExpectEveryMemberOnItsOwn(const std::vector<Member<Record>>& rows, const Json& answer, const Record& before,
                               Read read) {
    iLogLevel = level::kError + 1;
    const Json whole = Values(rows, read(answer.dump()));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        Json expected = whole;
        expected[row.key] = row.Of(before);
        EXPECT_EQ(Values(rows, read(Without(answer, row.key))), expected) << "missing";
        for (const std::string& value : OddValues()) {
            expected[row.key] = AfterReading(row.IsText(), value, row.Of(before));
            EXPECT_EQ(Values(rows, read(WithValue(answer, row.key, value))), expected) << value;
        }
    }
    iLogLevel = level::kInfo;
}

/// An answer that is cut at any byte is no JSON. `parse` takes a body and returns the parser's code.
template <class Parse>
void ExpectTruncationIsNoJson(const std::string& answer, Parse parse) {
    iLogLevel = level::kError + 1;
    for (size_t length = 0; length < answer.size(); ++length) {
        EXPECT_EQ(parse(answer.substr(0, length)), 1) << length;
    }
    EXPECT_EQ(parse(answer), 0);
    iLogLevel = level::kInfo;
}

/// How an envelope's code is judged, wherever "meta" is optional.
struct MetaRow {
    const char* meta;
    int code;  ///< 0 is success.
};
inline const std::vector<MetaRow>& MetaRows() {
    static const std::vector<MetaRow> rows = {{R"({"code":200})", 0},
                                              {R"({"code":0})", 0},
                                              {R"({"code":200.0})", 0},
                                              {R"({"code":201})", 201},
                                              {R"({"code":401})", 401},
                                              {R"({"code":1})", 1},
                                              {R"({"code":2})", 2},
                                              {R"({"code":-5})", -5},
                                              {R"({"code":2147483647})", 2147483647},
                                              {R"({"code":2147483648})", 0},
                                              {R"({"code":"401"})", 0},
                                              {R"({"code":true})", 0},
                                              {R"({"code":null})", 0},
                                              {R"({"code":[401]})", 0},
                                              {R"({})", 0},
                                              {R"([])", 0},
                                              {R"("401")", 0},
                                              {R"(401)", 0},
                                              {R"(null)", 0}};
    return rows;
}

}  // namespace vantix::test
