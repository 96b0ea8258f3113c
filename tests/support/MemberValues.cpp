#include "support/MemberValues.h"

namespace vantix::test {

const MemberValues& TextValues() {
    static const MemberValues values = {
        {"\"text\"", "\"text\""}, {"\"\"", "\"\""},  {"\"-1\"", "\"-1\""},    {R"("a \"b\" %s")", R"("a \"b\" %s")"},
        {"null", nullptr},        {"true", nullptr}, {"false", nullptr},      {"[]", nullptr},
        {"[\"text\"]", nullptr},  {"{}", nullptr},   {R"({"a":1})", nullptr}, {"0", nullptr},
        {"-1", nullptr},          {"1.9", nullptr},  {"2147483648", nullptr}, {"1e20", nullptr},
    };
    return values;
}

const MemberValues& IntValues() {
    static const MemberValues values = {
        {"0", "0"},
        {"-1", "-1"},
        {"7.0", "7"},
        {"2147483647", "2147483647"},
        {"-2147483648", "-2147483648"},
        {"2147483648", nullptr},
        {"-2147483649", nullptr},
        {"9223372036854775807", nullptr},
        {"9223372036854775808", nullptr},
        {"1.9", nullptr},
        {"-1.9", nullptr},
        {"1e20", nullptr},
        {"-1e20", nullptr},
        {"\"5\"", nullptr},
        {"\"\"", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"false", nullptr},
        {"[]", nullptr},
        {"[5]", nullptr},
        {"{}", nullptr},
        {R"({"a":1})", nullptr},
    };
    return values;
}

const MemberValues& FlagValues() {
    static const MemberValues values = {
        {"true", "true"}, {"false", "false"},    {"0", nullptr},      {"1", nullptr},
        {"1.0", nullptr}, {"\"true\"", nullptr}, {"\"\"", nullptr},   {"null", nullptr},
        {"[]", nullptr},  {"{}", nullptr},       {"[true]", nullptr},
    };
    return values;
}

const MemberValues& NumberValues() {
    static const MemberValues values = {
        {"0", "0"},
        {"-1", "-1"},
        {"1.9", "1"},
        {"-1.9", "-1"},
        {"7.2e3", "7200"},
        {"2147483648", "2147483648"},
        {"-2147483649", "-2147483649"},
        {"9223372036854775807", "9223372036854775807"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"9223372036854775808", nullptr},
        {"18446744073709551616", nullptr},
        {"1e20", nullptr},
        {"-1e20", nullptr},
        {"\"5\"", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"[]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& NumberAsTextValues() {
    static const MemberValues values = {
        {"0", "\"0\""},
        {"-1", "\"-1\""},
        {"1.9", "\"1\""},
        {"-1.9", "\"-1\""},
        {"7.2e3", "\"7200\""},
        {"2147483648", "\"2147483648\""},
        {"9223372036854775807", "\"9223372036854775807\""},
        {"9223372036854775808", nullptr},
        {"1e20", nullptr},
        {"\"5\"", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"[]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& TextOrNumberValues() {
    static const MemberValues values = {
        {"\"text\"", "\"text\""},
        {"\"\"", "\"\""},
        {"0", "\"0\""},
        {"-1", "\"-1\""},
        {"7.0", "\"7\""},
        {"2147483648", "\"2147483648\""},
        {"9223372036854775807", "\"9223372036854775807\""},
        {"-9223372036854775808", "\"-9223372036854775808\""},
        {"9223372036854775808", nullptr},
        {"1.9", nullptr},
        {"1e20", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"false", nullptr},
        {"[]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& IntOrTextValues() {
    static const MemberValues values = {
        {"0", "0"},
        {"-1", "-1"},
        {"7.0", "7"},
        {"2147483647", "2147483647"},
        {"\"5\"", "5"},
        {"\" -12 and more\"", "-12"},
        {"\"text\"", "0"},
        {"\"\"", "0"},
        {"\"99999999999\"", "2147483647"},
        {"2147483648", nullptr},
        {"1.9", nullptr},
        {"1e20", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"[]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& DecimalTextValues() {
    static const MemberValues values = {
        {"\"5\"", "5"},
        {"\" -12 and more\"", "-12"},
        {"\"text\"", "0"},
        {"\"\"", "0"},
        {"\"99999999999\"", "2147483647"},
        {"\"-99999999999\"", "-2147483648"},
        {"5", nullptr},
        {"1.9", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"[]", nullptr},
        {"[\"5\"]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& Json11IntValues() {
    static const MemberValues values = {
        {"0", "0"},
        {"-1", "-1"},
        {"7.0", "7"},
        {"1.9", "1"},
        {"-1.9", "-1"},
        {"2147483647", "2147483647"},
        {"2147483647.9", "2147483647"},
        {"-2147483648", "-2147483648"},
        {"-2147483648.9", "-2147483648"},
        {"2147483648", nullptr},
        {"-2147483649", nullptr},
        {"9223372036854775807", nullptr},
        {"1e20", nullptr},
        {"-1e20", nullptr},
        {"1e400", nullptr},
        {"\"5\"", nullptr},
        {"\"\"", nullptr},
        {"null", nullptr},
        {"true", nullptr},
        {"false", nullptr},
        {"[]", nullptr},
        {"[5]", nullptr},
        {"{}", nullptr},
    };
    return values;
}

const MemberValues& NoObjects() {
    static const MemberValues values = {
        {"null", nullptr}, {"true", nullptr}, {"false", nullptr}, {"0", nullptr},        {"5", nullptr},
        {"1.9", nullptr},  {"[]", nullptr},   {"[{}]", nullptr},  {"\"\"", nullptr},     {"\"{}\"", nullptr},
        {"1e20", nullptr}, {"-1", nullptr},   {"[1]", nullptr},   {"\"text\"", nullptr},
    };
    return values;
}

const MemberValues& NoArrays() {
    static const MemberValues values = {
        {"null", nullptr}, {"true", nullptr}, {"false", nullptr},      {"0", nullptr},    {"5", nullptr},
        {"1.9", nullptr},  {"{}", nullptr},   {R"({"a":1})", nullptr}, {"\"\"", nullptr}, {"\"[]\"", nullptr},
        {"1e20", nullptr}, {"-1", nullptr},   {"\"text\"", nullptr},
    };
    return values;
}

const MemberValues& NoTexts() {
    static const MemberValues values = {
        {"null", nullptr}, {"true", nullptr}, {"false", nullptr}, {"0", nullptr},  {"5", nullptr},
        {"1.9", nullptr},  {"[]", nullptr},   {"[1]", nullptr},   {"{}", nullptr}, {R"({"a":1})", nullptr},
    };
    return values;
}

const std::vector<std::string>& AnyValues() {
    static const std::vector<std::string> values = {"null",       "true",        "false", "[]",     "[1]", "{}",
                                                    R"({"a":1})", "\"text\"",    "\"\"",  "\"-1\"", "0",   "2147483647",
                                                    "2147483648", "-2147483649", "1.9",   "1e20"};
    return values;
}

}  // namespace vantix::test
