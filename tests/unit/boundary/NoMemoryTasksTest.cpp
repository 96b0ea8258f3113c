// Memory that runs out in a background task: its future yields a failure, the record is whole or none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "support/OutputJson.h"
#include "unit/boundary/NoMemoryRequest.h"

namespace vantix::test {
namespace {

/// The asynchronous form of an operation, by the name of the one that waits.
const std::map<std::string, std::string>& AsynchronousForms() {
    static const std::map<std::string, std::string> forms = {
        {"getDevDetailInfoSync", "getDevDetailInfo"},
        {"getServerInfoSync", "getServerInfoAsync"},
        {"getP2PUserInfoByToken", "getP2PUserInfoAsync"},
        {"getP2PDevInfoBySerial", "getP2PDevInfoAsync"},
    };
    return forms;
}

std::vector<RequestCase> TaskRequests() {
    std::vector<RequestCase> rows;
    for (const auto& family : {PlatformRequests(), ConsumerRequests()}) {
        std::copy_if(family.begin(), family.end(), std::back_inserter(rows),
                     [](const RequestCase& row) {  // one of the two requests for the user's identity is enough
                         return AsynchronousForms().count(row.operation) != 0 && row.name != "P2PConfiguration";
                     });
    }
    return rows;
}

class NoMemoryTasks : public NoMemoryRequest {
protected:
    static const std::string& Form() { return AsynchronousForms().at(Row().operation); }
    /// Calls the asynchronous form, with nothing cached, and waits for its task.
    CallResult Run(Outputs& outputs) {
        Prepare();
        return Call(*handle, OperationNamed(Form()), Row().arguments, outputs);
    }
    std::string Whole() {
        Outputs outputs;
        const CallResult call = Run(outputs);
        EXPECT_TRUE(call.started);
        EXPECT_EQ(call.result, 0);
        return ToJson(outputs).dump();
    }
    /// The record as the cache has it now; no request is sent for it. Empty where nothing is ever served: details of
    /// the consumer servers name no release.
    std::string Served() {
        if (Row().domain == "C" && Form() == "getDevDetailInfo") {
            return {};
        }
        Outputs outputs;
        const size_t before = transport.Count();
        const CallResult call = Call(*handle, OperationNamed(Form()), Row().arguments, outputs);
        EXPECT_EQ(call.result, 0);
        EXPECT_EQ(transport.Count(), before);
        Json record = ToJson(outputs);
        record["detail"].erase("isFromCache");
        return record.dump();
    }
};

TEST_P(NoMemoryTasks, YieldAFailureOrTheWholeRecordWhicheverAllocationFails) {
    const std::string whole = Whole();
    const std::string served = Served();
    std::set<int> failures;
    std::set<size_t> holes;  // by number of the allocation that failed
    std::set<size_t> sticky;
    size_t n = 1;
    for (bool fired = true; fired; ++n) {
        int result = 0;
        std::string written;
        {
            const FailingNewOnNextThread failing(n);
            Outputs outputs;
            result = Run(outputs).result;
            written = ToJson(outputs).dump();
        }
        fired = FailingNewOnNextThread::Fired();
        if (result != 0) {
            failures.insert(result);
        } else if (written != whole) {
            holes.insert(n);
        }
        if (Whole() != whole || Served() != served) {
            sticky.insert(n);
        }
    }
    EXPECT_GT(n, 10U);
    EXPECT_THAT(failures, testing::ElementsAre(-1));
    EXPECT_EQ(holes, std::set<size_t>());
    EXPECT_EQ(sticky, std::set<size_t>()) << "what failed was kept, or the next call failed";
}

TEST(NoMemoryTaskRows, AreAllFourFormsOfBothFamilies) {
    std::multiset<std::string> forms;
    for (const RequestCase& row : TaskRequests()) {
        forms.insert(AsynchronousForms().at(row.operation));
    }
    EXPECT_THAT(forms, testing::ElementsAre("getDevDetailInfo", "getDevDetailInfo", "getP2PDevInfoAsync",
                                            "getP2PDevInfoAsync", "getP2PUserInfoAsync", "getP2PUserInfoAsync",
                                            "getServerInfoAsync", "getServerInfoAsync"));
}

INSTANTIATE_TEST_SUITE_P(Tasks, NoMemoryTasks, testing::ValuesIn(TaskRequests()),
                         [](const auto& row) { return row.param.domain + row.param.name; });

}  // namespace
}  // namespace vantix::test
