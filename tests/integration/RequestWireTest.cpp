// Every request of the platform family over HTTPS: its exact form on the wire, what a good answer fills, what each kind
// of failure becomes, and its log lines.

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>

#include "PlatformCase.h"
#include "requests/FeatureCode.h"
#include "support/CoreFixture.h"
#include "support/FakeClock.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

class RequestWireTest : public CoreFixture, public ::testing::WithParamInterface<PlatformCase> {
protected:
    void SetUp() override {
        CoreFixture::SetUp();
        PublicGetHDSign();  // its line is written once in a process
        m_clock.SetSteadyStep(kCost * 1'000'000LL);
        m_log.Clear();
    }

    std::string Domain() const { return GetParam().isOnConsumer ? CDomain() : BDomain(); }
    std::string Credential() const { return Account(GetParam().isOnConsumer ? "sessionId" : "accessToken"); }
    int Send(Json& output) const { return SendTo(Domain(), output); }
    int SendTo(const std::string& url, Json& output) const {
        return GetParam().call({url, Credential(), Account("appKey")}, output);
    }
    void Answer(Json plan) const {
        plan["path"] = GetParam().path;
        Cloud().ScriptResponse(plan);
    }

    /// What a request leaves in its output when it fails before a parser was asked.
    Json Untouched() const {
        Json output;
        SendTo(Cloud().ClosedPort(), output);
        return output;
    }

    /// The text with the caller's values in their places, or with what the log shows instead.
    std::string Filled(std::string text, bool masked) const {
        const Pairs places = {{"$token", masked ? "***" : Account("accessToken")},
                              {"$session", masked ? "***" : Account("sessionId")},
                              {"$key", masked ? "***" : Account("appKey")},
                              {"$feature", ExpectedFeatureCode()}};
        for (const auto& [place, value] : places) {
            if (const size_t at = text.find(place); at != std::string::npos) {
                text.replace(at, place.size(), value);
            }
        }
        return text;
    }
    std::string Parameters(bool masked) const {
        if (GetParam().IsJson()) {
            return Filled(GetParam().body, masked);
        }
        Pairs parameters = GetParam().parameters;
        std::sort(parameters.begin(), parameters.end());
        std::string text;
        for (const auto& [key, value] : parameters) {
            // The log masks by key: what goes under another key is shown.
            const bool isMasked = masked && (key == "accessToken" || key == "appKey");
            text += (text.empty() ? "" : "&") + key + "=" + Filled(value, isMasked);
        }
        return text;
    }

    void ExpectLine(const LogLine& line, unsigned level, const std::string& word, const std::string& tag) const {
        EXPECT_EQ(line.level, level) << line.text;
        EXPECT_EQ(line.Word(), word) << line.text;
        EXPECT_EQ(line.Tag(), tag) << line.text;
    }
    /// The line, found by its message.
    void ExpectLogged(const std::string& message, unsigned level, const std::string& word,
                      const std::string& tag) const {
        EXPECT_EQ(m_log.Count(message), 1U) << message;
        ExpectLine(m_log.Find(message), level, word, tag);
    }
    /// The body that the transport logged.
    std::string LoggedBody() const {
        for (const std::string& message : m_log.Messages()) {
            if (message.rfind("strRsp:", 0) == 0) {
                return message.substr(7);
            }
        }
        return "<none>";
    }

    /// Meets the answer, expects its code, and the line that names it; everything that was filled before stays.
    void ExpectRefused(const Json& answer, int code) {
        SCOPED_TRACE(answer.dump());
        const Json untouched = Untouched();
        Answer(answer);
        m_log.Clear();
        Json output;
        const bool isUnchecked = GetParam().label.empty();
        EXPECT_EQ(Send(output), isUnchecked ? 0 : 300000 + code);
        const std::string body = LoggedBody();
        if (isUnchecked) {
            EXPECT_EQ(output, body);
            return;
        }
        EXPECT_EQ(output, untouched);
        ExpectLogged(GetParam().label + ":" + body + " error:" + std::to_string(code), 5, "ERROR", GetParam().function);
        const std::string refusal =
            std::string("Platform Response Error:").append(std::to_string(code)) + ", Resp:" + body;
        if (code > 2 && GetParam().parserLogsCode) {
            ExpectLogged(refusal, 3, "INFO ", GetParam().parser);
        } else if (code > 2) {
            EXPECT_EQ(m_log.Count(refusal), 0U);
        }
        if (code == 1) {
            ExpectLogged("platform response bad, szInfo = " + body, 5, "ERROR", GetParam().parser);
        }
    }

    FakeClock m_clock;
    LogCapture m_log;
};

TEST_P(RequestWireTest, GoesOverTheWireExactlySo) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    const ReceivedRequest& request = requests[0];
    const PlatformCase& row = GetParam();
    const bool hasBody = row.IsForm() || row.IsJson();
    EXPECT_EQ(request.domain, row.isOnConsumer ? "C" : "B");
    EXPECT_EQ(request.method, hasBody || row.transport == "SyncRequestHeaderPost" ? "POST" : "GET");
    EXPECT_EQ(request.path, row.path);
    EXPECT_EQ(request.query, hasBody ? "" : Parameters(false));
    EXPECT_EQ(request.body, hasBody ? Parameters(false) : "");

    std::vector<std::string> names = {"accept", "host"};
    Pairs headers = row.headers;
    if (row.IsForm()) {
        headers.emplace_back("Content-Type", "application/x-www-form-urlencoded");
    }
    for (const auto& [name, value] : headers) {
        names.push_back(LowerCase(name));
    }
    if (hasBody) {
        names.emplace_back("content-length");
    }
    EXPECT_THAT(request.HeaderNames(), ::testing::UnorderedElementsAreArray(names));
    for (const auto& [name, value] : headers) {
        EXPECT_EQ(request.Header(name), Filled(value, false)) << name;
    }
}

TEST_P(RequestWireTest, FillsItsOutputFromTheAnswer) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    GetParam().expect(output, Cloud());
}

TEST_P(RequestWireTest, LogsWhatItSendsAndWhatItTakes) {
    const PlatformCase& row = GetParam();
    Json output;
    ASSERT_EQ(Send(output), 0);
    const std::vector<LogLine> lines = m_log.Lines();
    const bool isHeaderStyle = row.transport.rfind("SyncRequestHeader", 0) == 0;
    const bool isTimed = !row.cost.empty();
    const Pairs headers = isHeaderStyle ? row.headers : Pairs();
    ASSERT_GE(lines.size(), 3U + headers.size() + (isTimed ? 1U : 0U));
    size_t at = 0;
    EXPECT_EQ(lines[at].Message(), "start Posts url and Param = " + Domain() + row.path + "?" + Parameters(true));
    ExpectLine(lines[at++], 3, "INFO ", row.transport);
    for (const auto& [name, value] : headers) {
        EXPECT_EQ(lines[at].Message(), "heads = " + name + ": " + Filled(value, true));
        ExpectLine(lines[at++], 3, "INFO ", row.transport);
    }
    const std::string operation = row.transport == "SyncRequestHeader"       ? "SyncRequestHeader"
                                  : row.transport == "SyncRequestHeaderPost" ? "SyncRequesPostHeader"
                                                                             : "SyncRequest";
    EXPECT_EQ(lines[at].Message().rfind("strRsp", 0), 0U);
    ExpectLine(lines[at++], 3, "INFO ", "CRequest::" + operation);
    EXPECT_EQ(lines[at].Message(), "end Posts url and Param result = 0");
    ExpectLine(lines[at++], 3, "INFO ", row.transport);
    if (isTimed) {
        EXPECT_EQ(lines[at].Message(), row.cost + " CostTime: = 3 milliseconds");
        ExpectLine(lines[at], 3, "INFO ", row.function);
    } else {
        EXPECT_FALSE(m_log.Contains("CostTime"));
    }
    EXPECT_FALSE(m_log.Contains(Credential()));
}

/// libcurl's code for a connection that ends inside an answer. The system's TLS on Windows misses its goodbye first.
#if defined(_WIN32)
constexpr int kCutShort = 56;
#else
constexpr int kCutShort = 18;
#endif

TEST_P(RequestWireTest, PassesATransportFailureOn) {
    Json output;
    EXPECT_EQ(SendTo(Cloud().ClosedPort(), output), 100007);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
    ExpectLogged(GetParam().transportFailure + "7", 5, "ERROR", GetParam().function);
    EXPECT_FALSE(m_log.Contains("platform response"));
    if (!GetParam().cost.empty()) {
        ExpectLogged(GetParam().cost + " CostTime: = 3 milliseconds", 3, "INFO ", GetParam().function);
    }
    const Json untouched = output;
    Answer({{"reset", true}});
    EXPECT_EQ(Send(output), 100056);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
    EXPECT_EQ(output, untouched);
    EXPECT_EQ(m_log.Count(GetParam().transportFailure + "56"), 1U);
    m_log.Clear();
    Answer({{"truncated", true}});
    EXPECT_EQ(Send(output), 100000 + kCutShort);
    EXPECT_EQ(output, untouched);
    ExpectLogged(GetParam().transportFailure + std::to_string(kCutShort), 5, "ERROR", GetParam().function);
    EXPECT_FALSE(m_log.Contains("platform response"));
}

TEST_P(RequestWireTest, TurnsARefusalIntoItsCode) {
    ExpectRefused({{"body", "no json"}}, 1);
    ExpectRefused({{"body", ""}}, 1);
    ExpectRefused({{"status", 502}, {"body", "<html>502</html>"}}, 1);
    ExpectRefused({{"json", Json::object()}}, 2);
    ExpectRefused({{"json", {{"result", 5}, {"meta", "x"}}}}, 2);
    ExpectRefused({{"body", "[]"}}, 2);
    ExpectRefused({{"body", "null"}}, 2);
    ExpectRefused({{"code", "20002"}}, 20002);
    ExpectRefused({{"code", "10002"}}, 10002);
    const bool hasNoToken = GetParam().isOnConsumer || GetParam().path == "/api/config/info" ||
                            GetParam().path == "/oauth/token/refreshToken";
    if (!hasNoToken && !GetParam().label.empty()) {
        Cloud().Post("/expire", {{"what", "accessToken"}});
        Json output;
        EXPECT_EQ(Send(output), 310002);
    }
}

TEST_P(RequestWireTest, HalfOfAGoodAnswerIsNoJson) {
    const Json untouched = Untouched();
    Answer({{"malformed", true}});
    m_log.Clear();
    Json output;
    if (GetParam().label.empty()) {
        EXPECT_EQ(Send(output), 0);
        EXPECT_EQ(output, LoggedBody());
        return;
    }
    EXPECT_EQ(Send(output), 300001);
    EXPECT_EQ(output, untouched);
    const std::vector<LogLine> lines = m_log.Lines();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines.back().Message().rfind(GetParam().label + ":{", 0), 0U);
    EXPECT_TRUE(lines.back().Message().ends_with(" error:1"));
    ExpectLine(lines.back(), 5, "ERROR", GetParam().function);
    EXPECT_EQ(Send(output), 0);
}

INSTANTIATE_TEST_SUITE_P(Platform, RequestWireTest, ::testing::ValuesIn(PlatformCases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
