// A host that wants no lines gets none, and everything else as ever: records, results and refusals of every request.

#include <gtest/gtest.h>

#include "support/OutputJson.h"
#include "support/RequestCase.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class QuietRequests : public HandleTest, public testing::WithParamInterface<RequestCase> {
protected:
    QuietRequests() {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAuthAddr("https://b.example");
        clock.SetSteadyStep(3'000'000);
        handle->setLogLevel(6);
    }

    static const RequestCase& Row() { return GetParam(); }

    void Prepare() {
        PrepareFor(Row(), *handle);
        transport.DropScript();
        for (const Exchange& exchange : Row().before) {
            transport.Respond(exchange.response);
        }
        lines.Clear();
    }
    /// Calls the operation, and expects this result and that the outputs change so.
    void ExpectCall(int result, const Json& fills) {
        Outputs outputs = Prefilled();
        const Json before = ToJson(outputs);
        EXPECT_EQ(Call(*handle, Row().operation, Row().arguments, outputs).result, result);
        EXPECT_EQ(Changes(before, ToJson(outputs)), fills);
        EXPECT_EQ(lines.Messages(), std::vector<std::string>());
    }
};

TEST_P(QuietRequests, FillItsOutputs) {
    Prepare();
    transport.Respond(Row().response);
    for (const Exchange& exchange : Row().after) {
        transport.Respond(exchange.response);
    }
    ExpectCall(0, Row().fills);
}

TEST_P(QuietRequests, PassATransportFailureOn) {
    Prepare();
    transport.Fail(7);
    ExpectCall(Row().unsentResult, Row().costFills);
}

TEST_P(QuietRequests, TurnARefusalIntoItsResult) {
    for (const Refusal& refusal : Row().refusals) {
        SCOPED_TRACE(refusal.body);
        Prepare();
        transport.Always([&](const SentRequest&) { return ScriptedResponse{0, refusal.body}; });
        Json fills = Row().costFills;
        fills.update(refusal.fills);
        ExpectCall(refusal.result, fills);
        transport.Always(nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Platform, QuietRequests, testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Consumer, QuietRequests, testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
