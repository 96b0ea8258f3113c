#pragma once

/// @file
/// What every parser of a consumer server's response is put through.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/Logger.h"
#include "support/CleanSwitches.h"
#include "support/JsonEdit.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"
#include "support/MemberValues.h"
#include "support/RecordFields.h"
#include "support/TestJson.h"
#include "support/TestRoutes.h"

namespace vantix::test {

/// A case that watches the log.
class ConsumerResponse : public testing::Test {
protected:
    static ConsumerRoute Route() { return ConsumerRouteTo("https://c.example", "the-session"); }

    CleanSwitches m_switches;
    LogCapture m_log;
};

/// Texts that are no JSON at all.
inline const std::vector<std::string>& NoJson() {
    static const std::vector<std::string> texts = {
        "", " ", "x", "<html>%s%n</html>", "{", "\xEF\xBB\xBF{}", "{\"a\":NaN}", "{\"a\":1e400}", "{'a':1}", "nul"};
    return texts;
}

/// A text that is nested too deeply to be JSON, and too long for a log line.
inline std::string TooDeep() { return std::string(100'000, '['); }

/// A response that is cut at any byte is no JSON. `parse` takes a body and returns the parser's code.
template <class Parse>
void ExpectTruncationIsNoJson(const std::string& response, Parse parse) {
    iLogLevel = level::kError + 1;
    for (size_t length = 0; length < response.size(); ++length) {
        EXPECT_EQ(parse(response.substr(0, length)), 1) << length;
    }
    EXPECT_EQ(parse(response), 0);
    iLogLevel = level::kInfo;
}

/// What "meta" may hold, and the code of a response with it.
struct MetaRow {
    const char* meta;
    int code;          ///< 0 is success.
    const char* line;  ///< How the line about a failure begins.
};
inline const std::vector<MetaRow>& MetaRows() {
    static const std::vector<MetaRow> rows = {
        {R"({"code":200})", 0, ""},
        {R"({"code":0})", 0, ""},
        {R"({"code":200.0})", 0, ""},
        {R"({"code":201})", 201, "Platform Response Error:201, Resp:"},
        {R"({"code":401})", 401, "Platform Response Error:401, Resp:"},
        {R"({"code":1})", 1, "Platform Response Error:1, Resp:"},
        {R"({"code":-5})", -5, "Platform Response Error:-5, Resp:"},
        {R"({"code":2147483648})", 0, ""},
        {R"({"code":"401"})", 0, ""},
        {R"({"code":null})", 0, ""},
        {"{}", 0, ""},
        {"[]", 0, ""},
        {"\"401\"", 0, ""},
        {"401", 0, ""},
        {"null", 0, ""},
    };
    return rows;
}

}  // namespace vantix::test
