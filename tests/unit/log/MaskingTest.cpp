#include "log/Masking.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

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

TEST(MaskedJson, ZerosAndUnusualBytesAreKept) {
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

constexpr std::string_view kNames[] = {"secret", "userId"};

constexpr Row kMembers[] = {
    {"", ""},
    {"{}", "{}"},
    {R"({"secret":"s","x":"y","userId":"u"})", R"({"secret":"***","x":"y","userId":"***"})"},
    {R"({"secret":""})", R"({"secret":"***"})"},
    {R"({ "secret" : "s" , "x" : 1 })", R"({ "secret" : "***" , "x" : 1 })"},
    // However deep, and in arrays.
    {R"([{"a":{"b":[[{"secret":"s"}],{"userId":"u"}]}}])", R"([{"a":{"b":[[{"secret":"***"}],{"userId":"***"}]}}])"},
    // Values of every kind.
    {R"({"secret":5,"x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":-1.5e3})", R"({"secret":"***"})"},
    {R"({"secret":null,"userId":true})", R"({"secret":"***","userId":"***"})"},
    {R"({"secret":{"a":1,"b":{"c":"s"}},"x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":["s",["s"],{"a":"]"}],"x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":{},"x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":"a\"}","x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":"a\\","x":1})", R"({"secret":"***","x":1})"},
    {R"({"secret":{"a":"\"}"},"x":1})", R"({"secret":"***","x":1})"},
    // Names in other words and in other places.
    {R"({"Secret":"shown","secrets":"shown","ecret":"shown","a secret":"shown"})",
     R"({"Secret":"shown","secrets":"shown","ecret":"shown","a secret":"shown"})"},
    {R"({"x":"secret","y":["secret","userId"]})", R"({"x":"secret","y":["secret","userId"]})"},
    {R"({"\u0073ecret":"s","us\u0065r\u0049d":"u"})", R"({"\u0073ecret":"***","us\u0065r\u0049d":"***"})"},
    {R"({"\u0173ecret":"shown","\u00zzecret":"shown","secre\u007":"shown"})",
     R"({"\u0173ecret":"shown","\u00zzecret":"shown","secre\u007":"shown"})"},
    // Texts that are no JSON.
    {R"({"secret":"s)", R"({"secret":"***")"},
    {R"({"secret":"s\)", R"({"secret":"***")"},
    {R"({"secret":)", R"({"secret":)"},
    {R"({"secret": )", R"({"secret": )"},
    {R"({"secret":})", R"({"secret":"***"})"},
    {R"({"secret":["s",{"a":1)", R"({"secret":"***")"},
    {R"({"secret" "s"})", R"({"secret" "s"})"},
    {R"({"secret")", R"({"secret")"},
    {R"({"secre)", R"({"secre)"},
    {R"({"\u007)", R"({"\u007)"},
    {R"(" {"secret":"s"})", R"(" {"secret":"***"})"},
    {R"(<html>"userId":"u"</html>)", R"(<html>"userId":"***"</html>)"},
};

TEST(MaskedMembers, MasksTheValuesOfTheseNames) {
    for (const Row& row : kMembers) {
        SCOPED_TRACE(row.json);
        EXPECT_EQ(MaskedMembers(row.json, kNames), row.masked);
    }
    EXPECT_EQ(MaskedMembers(R"({"secret":"s"})", {}), R"({"secret":"s"})") << "without names nothing is masked";
}

TEST(MaskedMembers, NothingOfASecretRemainsWhereverTheTextIsCut) {
    const std::string whole = R"([{"secret" : {"x":"SECRET\"SECRET"},"userId":"SE CRET","y":["z"]}])";
    for (size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        EXPECT_EQ(MaskedMembers(cut, kNames).find('S'), std::string::npos) << cut;
    }
}

TEST(MaskedMembers, KeepsZerosAndAnyBytes) {
    EXPECT_EQ(MaskedMembers(std::string("{\"a\0b\":\"\xFF\",\"secret\":\"s\0s\"}\0", 27), kNames),
              std::string("{\"a\0b\":\"\xFF\",\"secret\":\"***\"}\0", 27));
}

TEST(MaskedMembers, DeepAndLongTextsAreSurvived) {
    const std::string deep = R"({"secret":)" + std::string(100'000, '[') + R"("s")" + std::string(100'000, ']') + "}";
    EXPECT_EQ(MaskedMembers(deep, kNames), R"({"secret":"***"})");
    EXPECT_EQ(MaskedMembers(R"({"secret":)" + std::string(1'000'000, '{'), kNames), R"({"secret":"***")");
}

}  // namespace
}  // namespace vantix
