#pragma once

/// @file
/// Answers with odd values in the places of good ones.

#include <string>
#include <vector>

#include "support/TestJson.h"

namespace vantix::test {

/// Values of every kind, and numbers at the borders of the types, as they stand in a text.
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
                                                    "-1.9",
                                                    "2147483647",
                                                    "2147483648",
                                                    "-2147483648",
                                                    "-2147483649",
                                                    "9223372036854775807",
                                                    "9223372036854775808",
                                                    "1e20",
                                                    "-1e20",
                                                    "1e400",
                                                    "-1e400"};
    return values;
}

/// The golden answer as text, with one value put in place of another.
inline std::string WithValue(const nlohmann::json& answer, const nlohmann::json::json_pointer& place,
                             const std::string& value) {
    nlohmann::json changed = answer;
    changed[place] = "the place of the value";
    std::string text = changed.dump();
    const std::string mark = "\"the place of the value\"";
    return text.replace(text.find(mark), mark.size(), value);
}

}  // namespace vantix::test
