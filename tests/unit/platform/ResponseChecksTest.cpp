// The checks of answers without a payload, and the conversion of token errors.

#include "platform/ResponseChecks.h"

#include <gtest/gtest.h>

#include <climits>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

struct Row {
    std::string body;
    int code;
};

using Check = int (*)(const std::string& body);

class ResponseChecks : public testing::Test {
protected:
    void ExpectAll(Check check, const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            EXPECT_EQ(check(row.body), row.code) << row.body;
        }
    }

    CleanSwitches clean;
    LogCapture lines;
};

// ---- The common rule

TEST_F(ResponseChecks, TextualResultCodeCountsFirst) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {R"({"resultCode":"200"})", 0},
                                                 {R"({"resultCode":"0"})", 0},
                                                 {R"({"resultCode":"10002"})", 10002},
                                                 {R"({"resultCode":"10002","code":"200"})", 10002},
                                                 {R"({"resultCode":"200","code":"5","result":{"code":7}})", 0},
                                                 {R"({"resultCode":"-5"})", -5},
                                                 {R"({"code":"5","resultCode":"6"})", 6},
                                             });
    EXPECT_TRUE(lines.Lines().empty()) << "the rule logs nothing itself";
}

TEST_F(ResponseChecks, TextualCodeCountsSecond) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {R"({"code":"0"})", 0},
                                                 {R"({"code":"200"})", 0},
                                                 {R"({"code":"49999"})", 49999},
                                                 {R"({"code":"49999","result":{"code":"200"}})", 49999},
                                                 {R"({"resultCode":null,"code":"3"})", 3},
                                                 {R"({"resultCode":[],"code":"3"})", 3},
                                             });
}

TEST_F(ResponseChecks, NumbersAtTheTopAreNotRead) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {R"({"resultCode":200})", 2},
                                                 {R"({"code":200})", 2},
                                                 {R"({"resultCode":200,"code":200})", 2},
                                                 {R"({"resultCode":5,"code":"7"})", 7},
                                                 {R"({"resultCode":5,"code":6,"result":{"code":200}})", 0},
                                                 {R"({"resultCode":5,"code":6,"result":{"code":9}})", 9},
                                             });
}

TEST_F(ResponseChecks, CodeOfTheResultMayBeTextOrNumber) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {R"({"result":{"code":"200"}})", 0},
                                                 {R"({"result":{"code":200}})", 0},
                                                 {R"({"result":{"code":0}})", 0},
                                                 {R"({"result":{"code":10002}})", 10002},
                                                 {R"({"result":{"code":"10002"}})", 10002},
                                                 {R"({"result":{"code":-7}})", -7},
                                                 {R"({"result":{"code":2147483647}})", INT_MAX},
                                                 {R"({"result":{"code":-2147483648}})", INT_MIN},
                                                 {R"({"result":{"code":200.0}})", 0},
                                             });
}

TEST_F(ResponseChecks, AnythingElseIsMalformed) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {"{}", 2},
                                                 {R"({"result":{}})", 2},
                                                 {R"({"result":{"code":true}})", 2},
                                                 {R"({"result":{"code":null}})", 2},
                                                 {R"({"result":{"code":[]}})", 2},
                                                 {R"({"result":{"code":{}}})", 2},
                                                 {R"({"result":{"code":1.5}})", 2},
                                                 {R"({"result":{"code":2147483648}})", 2},
                                                 {R"({"result":{"code":-2147483649}})", 2},
                                                 {R"({"result":{"code":9223372036854775807}})", 2},
                                                 {R"({"result":{"code":18446744073709551616}})", 2},
                                                 {R"({"result":{"code":1e20}})", 2},
                                                 {R"({"result":[]})", 2},
                                                 {R"({"result":"200"})", 2},
                                                 {R"({"result":200})", 2},
                                                 {R"({"result":true})", 2},
                                                 {R"({"result":null})", 2},
                                                 {R"({"meta":{"code":200}})", 2},
                                                 {"[]", 2},
                                                 {R"([{"resultCode":"200"}])", 2},
                                                 {"\"200\"", 2},
                                                 {"200", 2},
                                                 {"true", 2},
                                                 {"null", 2},
                                             });
}

TEST_F(ResponseChecks, TextIsReadAsAStreamReadsANumber) {
    const struct {
        const char* text;
        int code;
    } rows[] = {{" 10002abc", 10002},
                {"abc", 0},
                {"", 0},
                {" ", 0},
                {"\\t\\n 5", 5},
                {"+5", 5},
                {"-5", -5},
                {"- 5", 0},
                {"5 6", 5},
                {"0x10", 0},
                {"1e3", 1},
                {"007", 7},
                {"200.9", 0},
                {"\\u0000200", 0},
                {"２００", 0},
                {"2147483647", INT_MAX},
                {"2147483648", INT_MAX},
                {"99999999999999999999", INT_MAX},
                {"-2147483648", INT_MIN},
                {"-99999999999999999999", INT_MIN}};
    for (const auto& row : rows) {
        const std::string text(row.text);
        EXPECT_EQ(CheckResponseInfoFromPlatform(R"({"resultCode":")" + text + "\"}"), row.code) << text;
        EXPECT_EQ(CheckResponseInfoFromPlatform(R"({"code":")" + text + "\"}"), row.code) << text;
        EXPECT_EQ(CheckResponseInfoFromPlatform(R"({"result":{"code":")" + text + "\"}}"), row.code) << text;
    }
}

// ---- The permission query

TEST_F(ResponseChecks, PermissionQueryTakesOnlyATextualCodeOfTheResult) {
    ExpectAll(CheckResponseAuthInfoFromPlatform, {
                                                     {R"({"result":{"code":"200"}})", 0},
                                                     {R"({"result":{"code":"0"}})", 0},
                                                     {R"({"result":{"code":"20018"}})", 20018},
                                                     {R"({"result":{"code":"abc"}})", 0},
                                                     {R"({"result":{"code":" 7x"}})", 7},
                                                     {R"({"result":{"code":"-3"}})", -3},
                                                     {R"({"result":{"code":200}})", 2},
                                                     {R"({"result":{"code":0}})", 2},
                                                     {R"({"result":{"code":true}})", 2},
                                                     {R"({"result":{"code":null}})", 2},
                                                     {R"({"result":{}})", 2},
                                                     {R"({"resultCode":"200"})", 2},
                                                     {R"({"code":"200"})", 2},
                                                     {R"({"result":"200"})", 2},
                                                     {R"({"result":["code"]})", 2},
                                                     {R"({"result":5})", 2},
                                                     {R"({"result":true})", 2},
                                                     {R"({"result":null})", 2},
                                                     {"{}", 2},
                                                     {"[]", 2},
                                                     {"5", 2},
                                                     {"\"x\"", 2},
                                                     {"null", 2},
                                                 });
    EXPECT_TRUE(lines.Lines().empty());
}

// ---- The cloud requests

TEST_F(ResponseChecks, CloudCheckNeedsAnIntegerInMeta) {
    ExpectAll(CheckCloudResponseInfoFromPlatform, {
                                                      {R"({"meta":{"code":200}})", 0},
                                                      {R"({"meta":{"code":0}})", 0},
                                                      {R"({"meta":{"code":10002}})", 10002},
                                                      {R"({"meta":{"code":-1}})", -1},
                                                      {R"({"meta":{"code":2147483647}})", INT_MAX},
                                                      {R"({"meta":{}})", 2},
                                                      {R"({"meta":{"code":"200"}})", 2},
                                                      {R"({"meta":{"code":2147483648}})", 2},
                                                      {R"({"meta":{"code":1.5}})", 2},
                                                      {R"({"meta":{"code":true}})", 2},
                                                      {R"({"meta":{"code":null}})", 2},
                                                      {R"({"meta":{"code":{}}})", 2},
                                                  });
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ResponseChecks, CloudCheckLogsAMetaThatIsNoObject) {
    for (const char* body : {"{}", R"({"meta":[]})", R"({"meta":5})", R"({"meta":"x"})", R"({"meta":null})",
                             R"({"result":{"code":200}})", "[]", "5", "null"}) {
        lines.Clear();
        EXPECT_EQ(CheckCloudResponseInfoFromPlatform(body), 2) << body;
        ASSERT_EQ(lines.Lines().size(), 1U) << body;
        const LogLine line = lines.Lines()[0];
        EXPECT_EQ(line.Message(), std::string("platform response bad, [result] is not object, Resp:") + body);
        EXPECT_EQ(line.Word(), "INFO ");
        EXPECT_EQ(line.Tag(), "CheckCloudResponseInfoFromPlatform");
    }
}

// ---- What is no JSON

TEST_F(ResponseChecks, TextThatIsNoJsonIsLoggedWholeAndGivesOne) {
    const struct {
        Check check;
        const char* name;
    } checks[] = {{CheckResponseInfoFromPlatform, "CheckResponseInfoFromPlatform"},
                  {CheckResponseAuthInfoFromPlatform, "CheckResponseAuthInfoFromPlatform"},
                  {CheckCloudResponseInfoFromPlatform, "CheckCloudResponseInfoFromPlatform"}};
    for (const auto& check : checks) {
        for (const std::string body : {"", " ", "x", "{", "{]", "<html><body>502 %s%n</body></html>", "{\"a\"}",
                                       "\xEF\xBB\xBF{}", R"({"a":NaN})", R"({"a":1e400})", "nul"}) {
            SCOPED_TRACE(check.name + (": " + body));
            lines.Clear();
            EXPECT_EQ(check.check(body), 1);
            ASSERT_EQ(lines.Lines().size(), 1U);
            const LogLine line = lines.Lines()[0];
            EXPECT_EQ(line.Message(), "platform response bad, szInfo = " + body);
            EXPECT_EQ(line.Word(), "ERROR");
            EXPECT_EQ(line.level, 5U);
            EXPECT_EQ(line.Tag(), check.name);
        }
    }
}

TEST_F(ResponseChecks, HostileTextsAreSurvived) {
    iLogLevel = 6;
    const std::string code = R"("resultCode":"200","result":{"code":"200"},"meta":{"code":200})";
    const std::vector<Row> rows = {
        {std::string(100'000, '['), 1},
        {std::string(999, '[') + std::string(999, ']'), 2},
        {"{" + code + "} trailing", 0},
        {"{" + code + ",\"a\":\"\xFF\xC0\"}", 0},
        {"{" + code + R"(,"a":"\u0000"})", 0},
        {"{\"resultCode\":\"5\",\"result\":{\"code\":\"5\"},\"meta\":{\"code\":5}," + code + "}", 0},
        {"{" + code + ",\"a\":\"" + std::string(1U << 20U, 'x') + "\"}", 0},
        {R"({"resultCode":")" + std::string(1U << 20U, '9') + R"(","result":{"code":")" + std::string(1000, '9') +
             R"("},"meta":{"code":2147483647}})",
         INT_MAX},
    };
    for (const Check check :
         {CheckResponseInfoFromPlatform, CheckResponseAuthInfoFromPlatform, CheckCloudResponseInfoFromPlatform}) {
        ExpectAll(check, rows);
    }
}

TEST_F(ResponseChecks, TruncationAtAnyByteIsNoJson) {
    iLogLevel = 6;
    const std::string whole = R"({"resultCode":"200","code":"0","result":{"code":"200"},"meta":{"code":200}})";
    for (size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(CheckResponseInfoFromPlatform(whole.substr(0, length)), 1) << length;
        EXPECT_EQ(CheckResponseAuthInfoFromPlatform(whole.substr(0, length)), 1) << length;
        EXPECT_EQ(CheckCloudResponseInfoFromPlatform(whole.substr(0, length)), 1) << length;
    }
}

// ---- Token errors

TEST_F(ResponseChecks, TokenErrorsAreConvertedAndLogged) {
    const struct {
        int code;
        int error;
    } rows[] = {{200, 0}, {10001, -3}, {10002, -5}, {20031, -101}, {0, -1},       {1, -1},
                {-1, -1}, {201, -1},   {10003, -1}, {310002, -1},  {INT_MAX, -1}, {INT_MIN, -1}};
    for (const auto& row : rows) {
        lines.Clear();
        EXPECT_EQ(ConvertVerifyErrorCode(row.code), row.error) << row.code;
        ASSERT_EQ(lines.Lines().size(), 1U);
        const LogLine line = lines.Lines()[0];
        EXPECT_EQ(line.Message(), "Authentication server response: OpenAPIRet:" + std::to_string(row.code) +
                                      ", TokenError:" + std::to_string(row.error));
        EXPECT_EQ(line.Word(), "INFO ");
        EXPECT_EQ(line.level, 3U);
        EXPECT_EQ(line.Tag(), "ConvertVerifyErrorCode");
    }
}

}  // namespace
}  // namespace vantix::test
