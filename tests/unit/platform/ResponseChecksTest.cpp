// The checks of responses without a payload, and the conversion of token errors.

#include "platform/ResponseChecks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;

struct Row {
    std::string body;
    int code;
};

using Check = int (*)(TextView body);

class ResponseChecks : public testing::Test {
protected:
    void ExpectAll(Check check, const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            EXPECT_EQ(check(row.body), row.code) << row.body;
        }
    }

    CleanSwitches m_switches;
    LogCapture m_log;
};

// ---- The common rule

TEST_F(ResponseChecks, CommonRuleFindsTheCode) {
    ExpectAll(CheckResponseInfoFromPlatform, {
                                                 {R"({"resultCode":"200"})", 0},
                                                 {R"({"resultCode":"10002","code":"200"})", 10002},
                                                 {R"({"code":"49999","result":{"code":"200"}})", 49999},
                                                 {R"({"result":{"code":200}})", 0},
                                                 {R"({"result":{"code":"10002"}})", 10002},
                                                 {R"({"resultCode":200,"code":200})", 2},
                                                 {R"({"meta":{"code":200}})", 2},
                                                 {"{}", 2},
                                                 {"[]", 2},
                                             });
    EXPECT_TRUE(m_log.Lines().empty()) << "the rule logs nothing itself";
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
    EXPECT_TRUE(m_log.Lines().empty());
}

// ---- The cloud requests

TEST_F(ResponseChecks, CloudCheckNeedsAnIntegerInMeta) {
    ExpectAll(CheckCloudResponseInfoFromPlatform, {
                                                      {R"({"meta":{"code":200}})", 0},
                                                      {R"({"meta":{"code":10002}})", 10002},
                                                      {R"({"meta":{"code":"200"}})", 2},
                                                      {R"({"meta":{}})", 2},
                                                  });
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(ResponseChecks, CloudCheckLogsAMetaThatIsNoObject) {
    for (const char* body : {"{}", R"({"meta":[]})", R"({"meta":5})", R"({"meta":"x"})", R"({"meta":null})",
                             R"({"result":{"code":200}})", "[]", "5", "null"}) {
        m_log.Clear();
        EXPECT_EQ(CheckCloudResponseInfoFromPlatform(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(3, "INFO ", "CheckCloudResponseInfoFromPlatform",
                                     std::string("platform response bad, [result] is not object, Resp:") + body)));
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
            m_log.Clear();
            EXPECT_EQ(check.check(body), 1);
            EXPECT_THAT(m_log.Lines(),
                        ElementsAre(Line(5, "ERROR", check.name, "platform response bad, szInfo = " + body)));
        }
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
        const char* line;
    } rows[] = {
        {200, 0, "Authentication server response: OpenAPIRet:200, TokenError:0"},
        {10001, -3, "Authentication server response: OpenAPIRet:10001, TokenError:-3"},
        {10002, -5, "Authentication server response: OpenAPIRet:10002, TokenError:-5"},
        {20031, -101, "Authentication server response: OpenAPIRet:20031, TokenError:-101"},
        {0, -1, "Authentication server response: OpenAPIRet:0, TokenError:-1"},
        {1, -1, "Authentication server response: OpenAPIRet:1, TokenError:-1"},
        {201, -1, "Authentication server response: OpenAPIRet:201, TokenError:-1"},
        {10003, -1, "Authentication server response: OpenAPIRet:10003, TokenError:-1"},
        {INT_MAX, -1, "Authentication server response: OpenAPIRet:2147483647, TokenError:-1"},
        {INT_MIN, -1, "Authentication server response: OpenAPIRet:-2147483648, TokenError:-1"},
    };
    for (const auto& row : rows) {
        m_log.Clear();
        EXPECT_EQ(ConvertVerifyErrorCode(row.code), row.error) << row.code;
        EXPECT_THAT(m_log.Lines(), ElementsAre(Line(3, "INFO ", "ConvertVerifyErrorCode", row.line)));
    }
}

TEST_F(ResponseChecks, TokenErrorOfAResponseIsThatOfItsTextualResultCode) {
    const struct {
        const char* body = nullptr;
        std::optional<int> error;
    } rows[] = {
        {R"({"resultCode":"200"})", 0},
        {R"({"resultCode":"10002"})", -5},
        {R"({"resultCode":"10002x"})", -5},
        {R"({"resultCode":""})", -1},
        {R"({"resultCode":10002})", 0},
        {R"({"resultCode":null})", 0},
        {R"({"result":{"code":"10002"}})", 0},
        {"[]", 0},
        {"", std::nullopt},
        {"no json", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(VerifyErrorOf(row.body), row.error) << row.body;
    }
}

}  // namespace
}  // namespace vantix::test
