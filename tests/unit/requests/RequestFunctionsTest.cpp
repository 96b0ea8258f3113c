#include "requests/RequestFunctions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "transport/ResponseBody.h"
#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kBase = "https://cloud.test:8443";
constexpr uint32_t kAnyEndpoint = 1;
constexpr const char* kAnyPath = "/api/device/detail";

ParamMap Params() {
    ParamMap params;
    params.Add("deviceSerial", "D1");
    params.Add("accessToken", "at.secret");
    params.Add("appKey", "key.secret");
    params.Add("sessionId", "s.secret");
    params.Add("AccessToken", "shown");
    return params;
}

constexpr const char* kSent =
    "AccessToken=shown&accessToken=at.secret&appKey=key.secret&deviceSerial=D1&sessionId=s.secret";
constexpr const char* kMasked = "AccessToken=shown&accessToken=***&appKey=***&deviceSerial=D1&sessionId=***";

ParamMap Headers() {
    ParamMap headers;
    headers.Add("sessionId", "s.secret");
    headers.Add("accessToken", "at.secret");
    headers.Add("appKey", "shown");
    headers.Add("AccessToken", "shown");
    headers.Add("lang", "");
    return headers;
}

/// One of the six functions: how it is called, and what that comes to.
struct Function {
    const char* name;
    std::function<int(uint32_t endpoint, const char* base, char** response, uint32_t* length)> call;
    const char* operation;  ///< Log tag of the operation below.
    const char* method;
    bool inBody;               ///< Whether the parameters stand in the body.
    bool headers;              ///< Whether headers are sent.
    const char* path;          ///< A fixed one, or null.
    const char* sent = kSent;  ///< The parameters.
    const char* logged = kMasked;
};

const std::vector<Function>& Functions() {
    static const std::vector<Function> functions = {
        {"SyncRequest",
         [](uint32_t endpoint, const char* base, char** response, uint32_t* length) {
             return SyncRequest(endpoint, Params(), base, response, length);
         },
         "CRequest::SyncRequest", "POST", true, false, nullptr},
        {"SyncRequestjson",
         [](uint32_t, const char* base, char** response, uint32_t* length) {
             return SyncRequestjson(R"({"accessToken":"at.secret","n":1})", base, response, length);
         },
         "CRequest::SyncRequest", "POST", true, false, "/api/v3/open/cloud/v3/clouds/videoDetails",
         R"({"accessToken":"at.secret","n":1})", R"({"accessToken":"***","n":1})"},
        {"SyncRequest_v2",
         [](uint32_t, const char* base, char** response, uint32_t* length) {
             return SyncRequest_v2(Params(), base, response, length);
         },
         "CRequest::SyncRequest", "GET", false, false, "/api/route/userdevicetob/v3/cameras/ticketInfo"},
        {"SyncRequestHeader",
         [](uint32_t endpoint, const char* base, char** response, uint32_t* length) {
             return SyncRequestHeader(endpoint, Params(), Headers(), base, response, length);
         },
         "CRequest::SyncRequestHeader", "GET", false, true, nullptr},
        {"SyncRequestHeaderPost",
         [](uint32_t endpoint, const char* base, char** response, uint32_t* length) {
             return SyncRequestHeaderPost(endpoint, Params(), Headers(), base, response, length);
         },
         "CRequest::SyncRequesPostHeader", "POST", false, true, nullptr},
        {"SyncPutRequestHeader",
         [](uint32_t endpoint, const char* base, char** response, uint32_t* length) {
             return SyncPutRequestHeader(endpoint, Params(), Headers(), base, response, length);
         },
         "CRequest::SyncPutRequestHeader", "PUT", false, true, "/v3/apigateway/login"},
    };
    return functions;
}

class RequestFunctions : public testing::Test {
protected:
    /// Forgets what came before and calls a function.
    int Call(const Function& function, uint32_t endpoint, const char* base = kBase) {
        m_log.Clear();
        m_spy.Clear();
        m_spy.Respond(CURLE_OK, {"response"});
        ResponseBody body;
        const int result = function.call(endpoint, base, body.Data(), body.Length());
        m_response = body.Text();
        return result;
    }

    CleanSwitches m_switches;
    LogCapture m_log;
    CurlSpy m_spy;
    std::string m_response;
};

TEST_F(RequestFunctions, SendTheirParametersToTheirPath) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        EXPECT_EQ(Call(function, kAnyEndpoint), 0);
        const std::string address = std::string(kBase) + (function.path == nullptr ? kAnyPath : function.path);
        EXPECT_EQ(m_spy.Method(), function.method);
        EXPECT_EQ(m_spy.Url(), function.inBody ? address : address + "?" + function.sent);
        EXPECT_EQ(m_spy.Body(), function.inBody ? function.sent : "");
        EXPECT_EQ(m_response, "response");
        EXPECT_EQ(m_spy.Count("perform"), 1U);
        EXPECT_EQ(m_spy.Unreleased(), 0);
    }
}

TEST_F(RequestFunctions, WithHeadersSendThemAll) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        Call(function, kAnyEndpoint);
        if (function.headers) {
            EXPECT_THAT(m_spy.Headers(), ElementsAre("AccessToken: shown", "accessToken: at.secret", "appKey: shown",
                                                     "lang;", "sessionId: s.secret"));
        } else {
            EXPECT_LE(m_spy.Headers().size(), 1U) << "the JSON post's content type alone";
        }
    }
}

TEST_F(RequestFunctions, LogStartHeadersResponseAndEnd) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        Call(function, kAnyEndpoint);
        const std::string address = std::string(kBase) + (function.path == nullptr ? kAnyPath : function.path);
        std::vector<std::string> expected{"start Posts url and Param = " + address + "?" + function.logged};
        if (function.headers) {
            expected.insert(expected.end(), {"heads = AccessToken: shown", "heads = accessToken: ***",
                                             "heads = appKey: shown", "heads = lang: ", "heads = sessionId: ***"});
        }
        expected.insert(expected.end(), {"strRsp:response", "end Posts url and Param result = 0"});
        EXPECT_EQ(m_log.Messages(), expected);
        for (const LogLine& line : m_log.Lines()) {
            EXPECT_EQ(line.Word(), "INFO ");
            EXPECT_EQ(line.level, 3U);
            EXPECT_EQ(line.Tag(), line.Message() == "strRsp:response" ? function.operation : function.name);
        }
        EXPECT_FALSE(m_log.Contains("secret"));
    }
}

TEST_F(RequestFunctions, ReturnWhatTheTransferReturned) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        m_log.Clear();
        m_spy.Clear();
        m_spy.Respond(CURLE_OPERATION_TIMEDOUT, {"part"});
        ResponseBody body;
        EXPECT_EQ(function.call(kAnyEndpoint, kBase, body.Data(), body.Length()), 28);
        EXPECT_EQ(body.Text(), "part");
        EXPECT_EQ(m_log.Messages().back(), "end Posts url and Param result = 28");
        EXPECT_EQ(m_log.Lines().back().Word(), "INFO ");
        EXPECT_EQ(m_log.Lines().back().level, 3U);
    }
}

TEST_F(RequestFunctions, WithoutAPlaceForTheLengthGiveSevenInSilence) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        char before = 'x';
        char* response = &before;
        EXPECT_EQ(function.call(kAnyEndpoint, kBase, &response, nullptr), 7);
        EXPECT_EQ(function.call(kAnyEndpoint, nullptr, nullptr, nullptr), 7);
        EXPECT_EQ(response, &before);
    }
    EXPECT_THAT(m_log.Lines(), IsEmpty());
    EXPECT_THAT(m_spy.Calls(), IsEmpty());
}

TEST_F(RequestFunctions, WithoutABaseGiveSevenAndTheOperationsLine) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        m_log.Clear();
        char before = 'x';
        char* response = &before;
        uint32_t length = 4711;
        EXPECT_EQ(function.call(kAnyEndpoint, nullptr, &response, &length), 7);
        EXPECT_EQ(response, &before);
        EXPECT_EQ(length, 4711U);
        const LogLine line = m_log.Find("param is NULL");
        EXPECT_EQ(line.Word(), "ERROR");
        EXPECT_EQ(line.level, 5U);
        EXPECT_EQ(line.Tag(), function.operation);
        EXPECT_EQ(m_log.Messages().front(), std::string("start Posts url and Param = ?") + function.logged);
        EXPECT_EQ(m_log.Messages().back(), "end Posts url and Param result = 7");
    }
    EXPECT_THAT(m_spy.Calls(), IsEmpty());
}

TEST_F(RequestFunctions, WithoutAPlaceForTheResponseReturnItsLengthAlone) {
    for (const Function& function : Functions()) {
        SCOPED_TRACE(function.name);
        m_spy.Respond(CURLE_OK, {"response"});
        uint32_t length = 4711;
        EXPECT_EQ(function.call(kAnyEndpoint, kBase, nullptr, &length), 0);
        EXPECT_EQ(length, 8U);
    }
}

TEST_F(RequestFunctions, AnIndexOutsideTheTableGoesToTheBareBase) {
    for (const Function& function : Functions()) {
        for (const uint32_t endpoint : {47U, std::numeric_limits<uint32_t>::max()}) {
            SCOPED_TRACE(function.name);
            EXPECT_EQ(Call(function, endpoint), 0);
            const std::string address = std::string(kBase) + (function.path == nullptr ? "" : function.path);
            EXPECT_EQ(m_spy.Url(), function.inBody ? address : address + "?" + function.sent);
        }
    }
}

TEST_F(RequestFunctions, AnEmptyBaseIsHandedToLibcurlAsItIs) {
    EXPECT_EQ(Call(Functions()[0], kAnyEndpoint, ""), 0);
    EXPECT_EQ(m_spy.Url(), kAnyPath);
}

TEST_F(RequestFunctions, EmptyMapsGiveAnAddressThatEndsInAQuestionMark) {
    ResponseBody body;
    EXPECT_EQ(SyncRequestHeader(kAnyEndpoint, ParamMap(), ParamMap(), kBase, body.Data(), body.Length()), 0);
    const std::string expected = std::string(kBase) + kAnyPath + "?";
    EXPECT_EQ(m_spy.Url(), expected);
    EXPECT_THAT(m_log.Messages(), ElementsAre("start Posts url and Param = " + expected,
                                              "strRsp:", "end Posts url and Param result = 0"));
}

TEST_F(RequestFunctions, ANullJsonTextGivesSevenAndTheOperationsLine) {
    char before = 'x';
    char* response = &before;
    uint32_t length = 4711;
    EXPECT_EQ(SyncRequestjson(nullptr, kBase, &response, &length), 7);
    EXPECT_EQ(response, &before);
    EXPECT_EQ(length, 4711U);
    EXPECT_THAT(m_log.Messages(), ElementsAre(std::string("start Posts url and Param = ") + kBase +
                                                  "/api/v3/open/cloud/v3/clouds/videoDetails?",
                                              "param is NULL", "end Posts url and Param result = 7"));
    EXPECT_EQ(m_log.Find("param is NULL").Tag(), "CRequest::SyncRequest");
    EXPECT_THAT(m_spy.Calls(), IsEmpty());
}

TEST_F(RequestFunctions, ParametersThatLookLikeFormatsAreTexts) {
    ParamMap params;
    params.Add("%s", "%n%d");
    ResponseBody body;
    EXPECT_EQ(SyncRequest(kAnyEndpoint, params, kBase, body.Data(), body.Length()), 0);
    EXPECT_EQ(m_spy.Body(), "%s=%n%d");
    EXPECT_EQ(m_log.Messages().front(), std::string("start Posts url and Param = ") + kBase + kAnyPath + "?%s=%n%d");
}

TEST_F(RequestFunctions, BelowTheThresholdWriteNothing) {
    iLogLevel = level::kWarning;
    for (const Function& function : Functions()) {
        EXPECT_EQ(Call(function, kAnyEndpoint), 0);
        EXPECT_THAT(m_log.Lines(), IsEmpty());
    }
}

}  // namespace
}  // namespace vantix::test
