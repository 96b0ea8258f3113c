// Every request of the consumer servers over HTTPS: its exact form on the wire, what a good answer fills, what each
// kind of failure becomes, and its log lines.

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>

#include "ConsumerCase.h"
#include "cserver/Recordings.h"
#include "requests/FeatureCode.h"
#include "support/CoreFixture.h"
#include "support/FakeClock.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

class ConsumerWireTest : public CoreFixture, public ::testing::WithParamInterface<ConsumerCase> {
protected:
    void SetUp() override {
        CoreFixture::SetUp();
        PublicGetHDSign();  // its line is written once in a process
        m_clock.SetSteadyStep(kTransferCost * 1'000'000LL);
        m_log.Clear();
    }

    int Send(Json& output) const { return SendTo(CDomain(), output); }
    int SendTo(const std::string& url, Json& output) const {
        return GetParam().call({url, Account("sessionId"), Account("appKey")}, AccountData(), output);
    }
    void Answer(const ConsumerTransfer& transfer, Json plan) const {
        plan["path"] = transfer.path;
        Cloud().ScriptResponse(plan);
    }
    bool IsUnchecked() const { return GetParam().name == "StreamTokens"; }

    /// What a request leaves in its output when it fails before anything was read.
    Json Untouched() const {
        Json output;
        SendTo(Cloud().ClosedPort(), output);
        return output;
    }

    /// The text with the caller's values in their places, or with what the log shows instead.
    std::string Filled(std::string text, bool masked) const {
        const std::pair<const char*, std::string> places[] = {{"$session", masked ? "***" : Account("sessionId")},
                                                              {"$refresher", Account("refreshSessionId")},
                                                              {"$feature", ExpectedFeatureCode()}};
        for (const auto& [place, value] : places) {
            if (const size_t at = text.find(place); at != std::string::npos) {
                text.replace(at, std::string(place).size(), value);
            }
        }
        return text;
    }

    void ExpectLine(const LogLine& line, const std::string& message, unsigned level, const std::string& tag) const {
        EXPECT_EQ(line.Message(), message);
        EXPECT_EQ(line.level, level) << line.text;
        EXPECT_EQ(line.Word(), level == 5 ? "ERROR" : "INFO ") << line.text;
        EXPECT_EQ(line.Tag(), tag) << line.text;
    }
    void ExpectLogged(const std::string& message, unsigned level, const std::string& tag) const {
        EXPECT_EQ(m_log.Count(message), 1U) << message;
        ExpectLine(m_log.Find(message), message, level, tag);
    }
    void ExpectCostOf(const ConsumerTransfer& transfer) const {
        if (!transfer.cost.empty()) {
            ExpectLogged(transfer.cost + " CostTime: = 3 milliseconds", 3, GetParam().function);
        }
    }
    /// The body that the transport logged last.
    std::string LoggedBody() const {
        std::string body = "<none>";
        for (const std::string& message : m_log.Messages()) {
            if (message.rfind("strRsp:", 0) == 0) {
                body = message.substr(7);
            }
        }
        return body;
    }
    /// The lines of one good transfer, from `at` on; `at` is behind them afterwards.
    void ExpectTransferLogged(const ConsumerTransfer& transfer, const std::vector<LogLine>& lines, size_t& at) const {
        const ConsumerCase& row = GetParam();
        const std::string operation = row.transport == "SyncRequestHeaderPost" ? "SyncRequesPostHeader" : row.transport;
        ASSERT_LE(at + row.headers.size() + 3 + (transfer.cost.empty() ? 0U : 1U), lines.size());
        ExpectLine(lines[at++],
                   "start Posts url and Param = " + CDomain() + transfer.path + "?" + Filled(row.query, true), 3,
                   row.transport);
        for (const auto& [name, value] : row.headers) {
            ExpectLine(lines[at++], "heads = " + name + ": " + Filled(value, true), 3, row.transport);
        }
        EXPECT_EQ(lines[at].Message().rfind("strRsp", 0), 0U);
        ExpectLine(lines[at], lines[at].Message(), 3, "CRequest::" + operation);
        ExpectLine(lines[++at], "end Posts url and Param result = 0", 3, row.transport);
        ++at;
        if (!transfer.cost.empty()) {
            ExpectLine(lines[at++], transfer.cost + " CostTime: = 3 milliseconds", 3, row.function);
        }
    }
    void ExpectRefused(const ConsumerTransfer& transfer, const ConsumerRefusal& refusal, size_t requests);

    FakeClock m_clock;
    LogCapture m_log;
};

TEST_P(ConsumerWireTest, GoesOverTheWireExactlySo) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    const ConsumerCase& row = GetParam();
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), row.transfers.size());
    std::vector<std::string> names = {"accept", "host"};
    for (const auto& [name, value] : row.headers) {
        std::string lower = name;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        names.push_back(lower);
    }
    const char* method = row.transport == "SyncPutRequestHeader"    ? "PUT"
                         : row.transport == "SyncRequestHeaderPost" ? "POST"
                                                                    : "GET";
    for (size_t i = 0; i < requests.size(); ++i) {
        const ReceivedRequest& request = requests[i];
        EXPECT_EQ(request.domain, "C");
        EXPECT_EQ(request.method, method);
        EXPECT_EQ(request.path, row.transfers[i].path);
        EXPECT_EQ(request.query, Filled(row.query, false));
        EXPECT_EQ(request.body, "");
        EXPECT_THAT(request.HeaderNames(), ::testing::UnorderedElementsAreArray(names));
        for (const auto& [name, value] : row.headers) {
            EXPECT_EQ(request.Header(name), Filled(value, false)) << name;
        }
    }
}

TEST_P(ConsumerWireTest, HeadersStandInTheOrderOfTheirNames) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    std::vector<std::string> expected;
    for (const auto& [name, value] : GetParam().headers) {
        expected.push_back(name);
    }
    for (const ReceivedRequest& request : Cloud().Requests()) {
        std::vector<std::string> names;
        for (const auto& [name, value] : request.headers) {
            if (name != "Host" && name != "Accept") {
                names.push_back(name);
            }
        }
        EXPECT_EQ(names, expected);
    }
}

TEST_P(ConsumerWireTest, FillsItsOutputFromTheAnswer) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    GetParam().expect(output, Cloud());
}

TEST_P(ConsumerWireTest, LogsWhatItSendsAndWhatItTakes) {
    Json output;
    ASSERT_EQ(Send(output), 0);
    const std::vector<LogLine> lines = m_log.Lines();
    size_t at = 0;
    for (const ConsumerTransfer& transfer : GetParam().transfers) {
        ASSERT_NO_FATAL_FAILURE(ExpectTransferLogged(transfer, lines, at));
    }
    // Behind them stand the lines in which a body is shown on purpose, and nothing else.
    for (; at < lines.size(); ++at) {
        const std::string message = lines[at].Message();
        EXPECT_TRUE(message.rfind("ParseDevDetailInfoFromCServer = {", 0) == 0 ||
                    message.rfind("ZQR TEST GetDeviceFileBySerialFromCServer:{", 0) == 0)
            << message;
    }
    EXPECT_FALSE(m_log.Contains(Account("sessionId")));
    EXPECT_FALSE(m_log.Contains(Account("appKey")));
}

TEST_P(ConsumerWireTest, PassesATransportFailureOn) {
    const ConsumerTransfer& first = GetParam().transfers.front();
    Json untouched;
    EXPECT_EQ(SendTo(Cloud().ClosedPort(), untouched), 100007);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
    ExpectLogged(first.transportFailure + "7", 5, GetParam().function);
    ExpectCostOf(first);
    EXPECT_FALSE(m_log.Contains("platform response"));
    size_t requests = 0;
    for (const ConsumerTransfer& transfer : GetParam().transfers) {
        Cloud().ForgetRequests();
        Answer(transfer, {{"reset", true}});
        m_log.Clear();
        Json output;
        EXPECT_EQ(Send(output), 100056);
        EXPECT_EQ(Cloud().RequestCount(), ++requests);
        EXPECT_EQ(output, untouched);
        ExpectLogged(transfer.transportFailure + "56", 5, GetParam().function);
        ExpectCostOf(transfer);
    }
}

void ConsumerWireTest::ExpectRefused(const ConsumerTransfer& transfer, const ConsumerRefusal& refusal,
                                     size_t requests) {
    SCOPED_TRACE(transfer.path + " " + refusal.plan.dump());
    const Json untouched = Untouched();
    Answer(transfer, refusal.plan);
    Cloud().ForgetRequests();
    m_log.Clear();
    Json output;
    EXPECT_EQ(Send(output), refusal.result);
    EXPECT_EQ(Cloud().RequestCount(), requests);
    const std::string body = LoggedBody();
    EXPECT_EQ(output, IsUnchecked() ? Json(body) : untouched);
    for (const ExpectedLine& line : refusal.lines) {
        std::string message = line.message;
        message.replace(message.find("$body"), 5, body);
        ExpectLogged(message, line.level, line.tag);
    }
    size_t errors = 0;
    size_t expectedErrors = 0;
    for (const LogLine& line : m_log.Lines()) {
        errors += line.Word() == "ERROR" ? 1U : 0U;
    }
    for (const ExpectedLine& line : refusal.lines) {
        expectedErrors += line.level == 5 ? 1U : 0U;
    }
    if (!refusal.lines.empty() || IsUnchecked()) {
        EXPECT_EQ(errors, expectedErrors);
    }
    EXPECT_EQ(Send(output), 0) << "the next one succeeds";
}

TEST_P(ConsumerWireTest, TurnsARefusalIntoItsCode) {
    size_t requests = 0;
    for (const ConsumerTransfer& transfer : GetParam().transfers) {
        ++requests;
        for (const ConsumerRefusal& refusal : transfer.refusals) {
            Cloud().Reset();
            ExpectRefused(transfer, refusal, requests);
        }
    }
}

TEST_P(ConsumerWireTest, ExpiredSessionHasACodeOfItsOwn) {
    Cloud().Post("/expire", {{"what", "session"}});
    Json output;
    EXPECT_EQ(std::to_string(Send(output)), GetParam().expiredAs);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Consumer, ConsumerWireTest, ::testing::ValuesIn(ConsumerCases()),
                         [](const auto& row) { return row.param.name; });

/// The joined answer is shown where it is refused, without the user's secret.
TEST_F(CoreFixture, ConsumerP2PUserIsRefusedWithItsSecretMasked) {
    const Caller caller{CDomain(), Account("sessionId"), Account("appKey")};
    Cloud().ScriptResponse({{"path", "/v3/users/info"}, {"json", {{"meta", {{"code", 200}}}}}});
    const LogCapture log;
    Json output;
    for (const ConsumerCase& row : ConsumerCases()) {
        if (row.name == "P2PUser") {
            EXPECT_EQ(row.call(caller, AccountData(), output), 300002);
        }
    }
    const std::string secret = AccountData().at("p2pUser").at("data");
    size_t shown = 0;
    for (const LogLine& line : log.Lines()) {
        if (line.Tag().rfind("CRequest", 0) != 0) {
            EXPECT_EQ(line.text.find(secret), std::string::npos) << line.text;
            shown += line.text.find(R"("secret":"***")") != std::string::npos ? 1U : 0U;
        }
    }
    EXPECT_EQ(shown, 2U) << "the parser's line and the request's";
}

/// A blank that is left in a time stops the request before it is sent.
TEST_F(CoreFixture, ConsumerRecordingsKeepTheSecondBlankOfATime) {
    const Caller caller{CDomain(), Account("sessionId"), Account("appKey")};
    const LogCapture log;
    std::string records = "before";
    EXPECT_EQ(GetDeviceFileBySerialFromCServer(caller, "R20000016", 1, {"2024-01-02 00:00 00", ""}, 0, records),
              100003);
    EXPECT_TRUE(log.Contains("&startTime=2024-01-02%2000:00 00&stopTime="));
    EXPECT_EQ(log.Count("ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:3"), 1U);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
    EXPECT_EQ(records, "before");
}

}  // namespace
}  // namespace vantix::test
