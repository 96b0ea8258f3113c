// Every request of both server families over HTTPS: its exact form on the wire, and what becomes of transfers that
// fail.

#include <gmock/gmock.h>

#include "support/CoreFixture.h"
#include "support/LineMatcher.h"
#include "support/RequestCase.h"

namespace vantix::test {
namespace {

class WireTest : public CoreFixture, public ::testing::WithParamInterface<RequestCase> {
protected:
    void SetUp() override {
        CoreFixture::SetUp();
        Center().setAuthAddr(BDomain());
        PrepareFor(Row(), Center());
        for (const Exchange& exchange : Row().before) {
            Respond(exchange.path, {{"body", exchange.response}, {"times", 0}});
        }
    }

    static const RequestCase& Row() { return GetParam(); }
    void Respond(const std::string& path, Json response) const {
        response["path"] = path;
        Cloud().Script(response);
    }
    int Call() const { return test::Call(Center(), Row().operation, Row().arguments); }
};

/// What libcurl adds to the library's headers, as "name: value".
std::vector<std::string> HeadersOfTheTransport(const ReceivedRequest& request) {
    std::vector<std::string> headers = {"Accept: */*", "Host: " + request.Header("Host")};
    if (!request.body.empty()) {
        headers.push_back("Content-Length: " + std::to_string(request.body.size()));
    }
    return headers;
}

/// libcurl writes a blank behind each header's name.
std::string OnTheWire(std::string header) {
    const size_t value = header.find(':') + 1;
    return header[value] == ' ' ? header : header.insert(value, " ");
}

TEST_P(WireTest, GoesOverTheWireExactlySo) {
    Respond(Row().path, {{"body", Row().response}});
    for (const Exchange& exchange : Row().after) {
        Respond(exchange.path, {{"body", exchange.response}});
    }
    ASSERT_EQ(Call(), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), Row().before.size() + 1 + Row().after.size());
    const ReceivedRequest& request = requests[Row().before.size()];
    EXPECT_EQ(request.domain, Row().domain);
    EXPECT_EQ(request.method, Row().method);
    EXPECT_EQ(request.path, Row().path);
    EXPECT_EQ(request.query, WithFeatureCode(Row().query));
    EXPECT_EQ(request.body, WithFeatureCode(Row().body));

    std::vector<std::string> expected = HeadersOfTheTransport(request);
    for (const std::string& header : Row().headers) {
        expected.push_back(OnTheWire(WithFeatureCode(header)));
    }
    if (Row().IsForm()) {
        expected.emplace_back("Content-Type: application/x-www-form-urlencoded");
    }
    std::vector<std::string> received;
    for (const auto& [name, value] : request.headers) {
        received.push_back(std::string(name).append(": ").append(value));
    }
    EXPECT_THAT(received, ::testing::UnorderedElementsAreArray(expected));
}

/// libcurl's code for a connection that ends inside a response. The system's TLS on Windows first reports that
/// close_notify is missing.
#if defined(_WIN32)
constexpr char kCutShort[] = "56";
constexpr int kCutShortResult = 100056;
#else
constexpr char kCutShort[] = "18";
constexpr int kCutShortResult = 100018;
#endif

TEST_P(WireTest, TransferThatBreaksOffGivesTheTransportsCode) {
    const std::string failed = Row().unsent.substr(0, Row().unsent.rfind(':') + 1);
    const struct {
        Json response;
        const char* code;
        int result;
    } rows[] = {{{{"reset", true}}, "56", 100056},
                {{{"truncated", true}, {"body", Row().response}}, kCutShort, kCutShortResult}};
    for (const auto& row : rows) {
        Respond(Row().path, row.response);
        Cloud().ForgetRequests();
        const LogCapture log;
        // Some operations return the same for every failure.
        EXPECT_EQ(Call(), Row().unsentResult == 100007 ? row.result : Row().unsentResult);
        EXPECT_EQ(Cloud().RequestCount(), Row().before.size() + 1);
        const auto line = Line(5, "ERROR", Row().function, std::string(failed).append(row.code));
        EXPECT_THAT(log.Lines(), ::testing::Contains(line).Times(1));
        EXPECT_FALSE(log.Contains("platform response"));
    }
}

INSTANTIATE_TEST_SUITE_P(Platform, WireTest, ::testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Consumer, WireTest, ::testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
