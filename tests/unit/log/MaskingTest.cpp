#include "log/Masking.h"

#include <gtest/gtest.h>

#include <string>

namespace vantix {
namespace {

struct KeyRow {
    const char* key;
    bool parameter;
    bool header;
};

constexpr KeyRow kKeys[] = {
    {"accessToken", true, true},    {"sessionId", true, true},      {"appKey", true, false},
    {"AccessToken", false, false},  {"accesstoken", false, false},  {"ACCESSTOKEN", false, false},
    {"SessionId", false, false},    {"sessionID", false, false},    {"AppKey", false, false},
    {"appkey", false, false},       {"accessToken ", false, false}, {" accessToken", false, false},
    {"accessTokens", false, false}, {"access", false, false},       {"", false, false},
    {"featureCode", false, false},  {"refreshToken", false, false},
};

TEST(Masking, CoversTheSecretKeysInExactCase) {
    for (const KeyRow& row : kKeys) {
        SCOPED_TRACE(row.key);
        EXPECT_EQ(IsSecretParameter(row.key), row.parameter);
        EXPECT_EQ(IsSecretHeader(row.key), row.header);
    }
}

struct Row {
    const char* json;
    const char* masked;
};

constexpr Row kTexts[] = {
    {"", ""},
    {"{}", "{}"},
    {R"({"deviceSerial":"D1","n":5})", R"({"deviceSerial":"D1","n":5})"},
    {R"({"accessToken":"at.secret"})", R"({"accessToken":"***"})"},
    {R"({"appKey":"k","sessionId":"s","accessToken":"t","x":"y"})",
     R"({"appKey":"***","sessionId":"***","accessToken":"***","x":"y"})"},
    {R"({ "accessToken" : "t" , "x" : 1 })", R"({ "accessToken" : "***" , "x" : 1 })"},
    {"{\"accessToken\"\n\t:\r\n \"t\"}", "{\"accessToken\"\n\t:\r\n \"***\"}"},
    {R"({"accessToken":""})", R"({"accessToken":"***"})"},
    {R"({"a":{"b":[{"sessionId":"s"}]}})", R"({"a":{"b":[{"sessionId":"***"}]}})"},
    {R"({"accessToken":"t1","accessToken":"t2"})", R"({"accessToken":"***","accessToken":"***"})"},
    {R"({"AccessToken":"shown","accessTokenX":"shown"})", R"({"AccessToken":"shown","accessTokenX":"shown"})"},
    // Numbers and words are masked too, and only as values.
    {R"({"accessToken":5,"x":"y"})", R"({"accessToken":***,"x":"y"})"},
    {R"({"accessToken":null,"sessionId": 12 })", R"({"accessToken":***,"sessionId": *** })"},
    {R"({"accessToken":5)", R"({"accessToken":***)"},
    {R"({"x":"accessToken","y":"z"})", R"({"x":"accessToken","y":"z"})"},
    {R"({"x""accessToken":"t"})", R"({"x""accessToken":"***"})"},
    {R"(["accessToken","t"])", R"(["accessToken","t"])"},
};

constexpr Row kEscapes[] = {
    {R"({"accessToken":"a\"b","x":"y"})", R"({"accessToken":"***","x":"y"})"},
    {R"({"accessToken":"a\\","x":"y"})", R"({"accessToken":"***","x":"y"})"},
    {R"({"accessToken":"\\\"\\","x":"y"})", R"({"accessToken":"***","x":"y"})"},
    {R"({"accessToken":"\u0022","x":"y"})", R"({"accessToken":"***","x":"y"})"},
    {R"({"x":"\"","accessToken":"t"})", R"({"x":"\"","accessToken":"***"})"},
    {R"({"x":"\\","accessToken":"t"})", R"({"x":"\\","accessToken":"***"})"},
    {R"({"x\"y":"z","accessToken":"t"})", R"({"x\"y":"z","accessToken":"***"})"},
};

constexpr Row kMalformed[] = {
    {R"("accessToken":"t")", R"("accessToken":"***")"},
    {R"({"accessToken":"t)", R"({"accessToken":"***)"},
    {R"({"accessToken":"t\)", R"({"accessToken":"***)"},
    {R"({"accessToken":"t\")", R"({"accessToken":"***)"},
    {R"({"accessToken":")", R"({"accessToken":"***)"},
    {R"({"accessToken":)", R"({"accessToken":)"},
    {R"({"accessToken")", R"({"accessToken")"},
    {R"({"accessToken)", R"({"accessToken)"},
    {R"({"accessToken" "t"})", R"({"accessToken" "t"})"},
    {R"({"accessToken":"t""sessionId":"s"})", R"({"accessToken":"***""sessionId":"***"})"},
    {R"(garbage {{"accessToken":"t"]] garbage)", R"(garbage {{"accessToken":"***"]] garbage)"},
    {"\"", "\""},
    {"\\", "\\"},
    {"\"\\", "\"\\"},
    {"\"\\\"", "\"\\\""},
    {"\"\"", "\"\""},
};

template <size_t Count>
void ExpectRows(const Row (&rows)[Count]) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.json);
        EXPECT_EQ(MaskedJson(row.json), row.masked);
    }
}

TEST(MaskedJson, MasksTheValuesOfSecretKeys) { ExpectRows(kTexts); }

TEST(MaskedJson, KnowsEscapes) { ExpectRows(kEscapes); }

TEST(MaskedJson, WorksOnTextsThatAreNoJson) { ExpectRows(kMalformed); }

TEST(MaskedJson, NothingOfASecretRemainsWhereverTheTextIsCut) {
    const std::string whole = R"({"accessToken" : "SECRET\"SECRET","x":"y"})";
    for (size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        SCOPED_TRACE(cut);
        EXPECT_EQ(MaskedJson(cut).find('S'), std::string::npos);
    }
}

TEST(MaskedJson, ZerosAndOddBytesAreKept) {
    const std::string text("{\"a\0b\":\"\xFF\", \"accessToken\":\"t\0t\"}\0", 33);
    EXPECT_EQ(MaskedJson(text), std::string("{\"a\0b\":\"\xFF\", \"accessToken\":\"***\"}\0", 33));
}

TEST(MaskedJson, ManySecretsInALongText) {
    std::string text;
    std::string masked;
    for (int i = 0; i < 20'000; ++i) {
        text += R"({"accessToken":"0123456789","x":"y"})";
        masked += R"({"accessToken":"***","x":"y"})";
    }
    EXPECT_EQ(MaskedJson(text), masked);
}

}  // namespace
}  // namespace vantix
