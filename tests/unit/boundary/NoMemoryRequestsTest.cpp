// Memory that runs out at any place of any request: what a host gets is whole or nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/OutputJson.h"
#include "unit/boundary/NoMemoryRequest.h"

namespace vantix::test {
namespace {

class NoMemoryRequests : public NoMemoryRequest {
protected:
    /// Makes the row's call from the same start, and returns its result.
    int Call(Outputs& outputs) {
        Prepare();
        return test::Call(*handle, Row().operation, Row().arguments, outputs).result;
    }
    /// What went over the wire, each request that differs from all others once.
    std::set<std::string> Sent() const {
        std::set<std::string> requests;
        for (const SentRequest& request : transport.Sent()) {
            std::string text = request.method + " " + request.url + "\n" + request.body;
            for (const std::string& header : request.headers) {
                text.append("\n").append(header);
            }
            requests.insert(text);
        }
        return requests;
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
    const std::set<std::string> sent = Sent();
    std::set<size_t> holes;  // by number of the allocation that failed
    std::set<size_t> sticky;
    std::set<int> results;
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
            results.insert(result);
            if (result == 0 && written != whole) {
                holes.insert(n);
            }
            if (Whole() != whole) {
                sticky.insert(n);
            }
        });
    EXPECT_EQ(holes, std::set<size_t>()) << "of " << allocations;
    EXPECT_THAT(results, testing::ElementsAre(-1, 0)) << "a body that cannot grow by much grows by what it needs";
    EXPECT_EQ(sticky, std::set<size_t>()) << "what failed was kept";
    EXPECT_EQ(Sent(), sent) << "no request lacks a header or a part of its parameters";
    EXPECT_GT(allocations, 10U);
}

INSTANTIATE_TEST_SUITE_P(Platform, NoMemoryRequests, testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Consumer, NoMemoryRequests, testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
