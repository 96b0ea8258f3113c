#include "support/MemberValues.h"

namespace vantix::test {
namespace {

/// Values that are taken, with what the field then holds, and values that are not.
MemberValues Table(MemberValues taken, const std::vector<const char*>& refused) {
    for (const char* sent : refused) {
        taken.push_back({sent, nullptr});
    }
    return taken;
}

}  // namespace

const MemberValues& TextValues() {
    static const MemberValues values = Table(
        {{"\"text\"", "\"text\""}, {"\"\"", "\"\""}, {"\"-1\"", "\"-1\""}, {R"("a \"b\" %s")", R"("a \"b\" %s")"}},
        {"null", "true", "false", "[]", "[\"text\"]", "{}", R"({"a":1})", "0", "-1", "1.9", "2147483648", "1e20"});
    return values;
}

const MemberValues& IntValues() {
    static const MemberValues values =
        Table({{"0", "0"}, {"-1", "-1"}, {"7.0", "7"}, {"2147483647", "2147483647"}, {"-2147483648", "-2147483648"}},
              {"2147483648", "-2147483649", "9223372036854775807", "9223372036854775808", "1.9", "-1.9", "1e20",
               "-1e20", "\"5\"", "\"\"", "null", "true", "false", "[]", "[5]", "{}", R"({"a":1})"});
    return values;
}

const MemberValues& FlagValues() {
    static const MemberValues values = Table({{"true", "true"}, {"false", "false"}},
                                             {"0", "1", "1.0", "\"true\"", "\"\"", "null", "[]", "{}", "[true]"});
    return values;
}

const MemberValues& NumberValues() {
    static const MemberValues values =
        Table({{"0", "0"},
               {"-1", "-1"},
               {"1.9", "1"},
               {"-1.9", "-1"},
               {"7.2e3", "7200"},
               {"2147483648", "2147483648"},
               {"-2147483649", "-2147483649"},
               {"9223372036854775807", "9223372036854775807"},
               {"-9223372036854775808", "-9223372036854775808"}},
              {"9223372036854775808", "18446744073709551616", "1e20", "-1e20", "\"5\"", "null", "true", "[]", "{}"});
    return values;
}

const MemberValues& NumberAsTextValues() {
    static const MemberValues values = Table({{"0", "\"0\""},
                                              {"-1", "\"-1\""},
                                              {"1.9", "\"1\""},
                                              {"-1.9", "\"-1\""},
                                              {"7.2e3", "\"7200\""},
                                              {"2147483648", "\"2147483648\""},
                                              {"9223372036854775807", "\"9223372036854775807\""}},
                                             {"9223372036854775808", "1e20", "\"5\"", "null", "true", "[]", "{}"});
    return values;
}

const MemberValues& TextOrNumberValues() {
    static const MemberValues values =
        Table({{"\"text\"", "\"text\""},
               {"\"\"", "\"\""},
               {"0", "\"0\""},
               {"-1", "\"-1\""},
               {"7.0", "\"7\""},
               {"2147483648", "\"2147483648\""},
               {"9223372036854775807", "\"9223372036854775807\""},
               {"-9223372036854775808", "\"-9223372036854775808\""}},
              {"9223372036854775808", "1.9", "1e20", "null", "true", "false", "[]", "{}"});
    return values;
}

const MemberValues& IntOrTextValues() {
    static const MemberValues values = Table({{"0", "0"},
                                              {"-1", "-1"},
                                              {"7.0", "7"},
                                              {"2147483647", "2147483647"},
                                              {"\"5\"", "5"},
                                              {"\" -12 and more\"", "-12"},
                                              {"\"text\"", "0"},
                                              {"\"\"", "0"},
                                              {"\"99999999999\"", "2147483647"}},
                                             {"2147483648", "1.9", "1e20", "null", "true", "[]", "{}"});
    return values;
}

const MemberValues& DecimalTextValues() {
    static const MemberValues values = Table({{"\"5\"", "5"},
                                              {"\" -12 and more\"", "-12"},
                                              {"\"text\"", "0"},
                                              {"\"\"", "0"},
                                              {"\"99999999999\"", "2147483647"},
                                              {"\"-99999999999\"", "-2147483648"}},
                                             {"5", "1.9", "null", "true", "[]", "[\"5\"]", "{}"});
    return values;
}

const MemberValues& Json11IntValues() {
    static const MemberValues values = Table({{"0", "0"},
                                              {"-1", "-1"},
                                              {"7.0", "7"},
                                              {"1.9", "1"},
                                              {"-1.9", "-1"},
                                              {"2147483647", "2147483647"},
                                              {"2147483647.9", "2147483647"},
                                              {"-2147483648", "-2147483648"},
                                              {"-2147483648.9", "-2147483648"}},
                                             {"2147483648", "-2147483649", "9223372036854775807", "1e20", "-1e20",
                                              "1e400", "\"5\"", "\"\"", "null", "true", "false", "[]", "[5]", "{}"});
    return values;
}

const MemberValues& NoObjects() {
    static const MemberValues values = Table({}, {"null", "true", "false", "0", "5", "1.9", "[]", "[{}]", "\"\"",
                                                  "\"{}\"", "1e20", "-1", "[1]", "\"text\""});
    return values;
}

const MemberValues& NoArrays() {
    static const MemberValues values = Table(
        {}, {"null", "true", "false", "0", "5", "1.9", "{}", R"({"a":1})", "\"\"", "\"[]\"", "1e20", "-1", "\"text\""});
    return values;
}

const MemberValues& NoTexts() {
    static const MemberValues values =
        Table({}, {"null", "true", "false", "0", "5", "1.9", "[]", "[1]", "{}", R"({"a":1})"});
    return values;
}

const std::vector<std::string>& AnyValues() {
    static const std::vector<std::string> values = {"null",       "true",        "false", "[]",     "[1]", "{}",
                                                    R"({"a":1})", "\"text\"",    "\"\"",  "\"-1\"", "0",   "2147483647",
                                                    "2147483648", "-2147483649", "1.9",   "1e20"};
    return values;
}

}  // namespace vantix::test
