// Memory that runs out at any place of any request: what a host gets is whole or nothing.

#include <gtest/gtest.h>

#include <set>

#include "support/FailingNew.h"
#include "support/OutputJson.h"
#include "support/RequestCase.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class NoMemoryRequests : public HandleTest, public testing::WithParamInterface<RequestCase> {
protected:
    NoMemoryRequests() {
        TVLLOG_SetCallback(nullptr);  // a capture of lines would allocate inside the library
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAuthAddr("https://b.example");
        transport.Always([](const SentRequest& request) { return Respond(request); });
    }

    static const RequestCase& Row() { return GetParam(); }

    static ScriptedResponse Respond(const SentRequest& request) {
        const FailingNew::Suspended suspended;
        const auto isTo = [&](const char* path) { return request.url.find(path) != std::string::npos; };
        for (const auto* others : {&Row().before, &Row().after}) {
            for (const Exchange& exchange : *others) {
                if (isTo(exchange.path)) {
                    return {0, exchange.response};
                }
            }
        }
        return isTo(Row().path.c_str()) ? ScriptedResponse{0, Row().response} : ScriptedResponse{7, {}};
    }

    /// Makes the row's call from the same start, and returns its result.
    int Call(Outputs& outputs) {
        {
            const FailingNew::Suspended suspended;
            PrepareFor(Row(), *handle);
            if (Row().operation == "getOneStreamToken") {
                handle->setAccessToken("another token");  // so that nothing queued is served
            }
        }
        return test::Call(*handle, Row().operation, Row().arguments, outputs).result;
    }
    /// What the call writes when nothing fails.
    std::string Whole() {
        Outputs outputs;
        EXPECT_EQ(Call(outputs), 0);
        return ToJson(outputs).dump();
    }
};

TEST_P(NoMemoryRequests, SuccessIsWholeWhicheverAllocationFails) {
    const std::string whole = Whole();
    std::set<size_t> holes;  // by number of the allocation that failed
    std::set<size_t> sticky;
    int result = 0;
    std::string written;
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            Outputs outputs;
            result = Call(outputs);
            const FailingNew::Suspended suspended;
            written = ToJson(outputs).dump();
        },
        [&](size_t n) {
            if (result == 0 && written != whole) {
                holes.insert(n);
            }
            if (Whole() != whole) {
                sticky.insert(n);
            }
        });
    EXPECT_EQ(holes, std::set<size_t>()) << "of " << allocations;
    EXPECT_EQ(sticky, std::set<size_t>()) << "what failed was kept";
    EXPECT_GT(allocations, 10U);
}

INSTANTIATE_TEST_SUITE_P(Platform, NoMemoryRequests, testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Consumer, NoMemoryRequests, testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
