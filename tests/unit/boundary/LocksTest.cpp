// No operation holds two locks at once, nor any while it sends a request or writes a line.

#include <gtest/gtest.h>

#include <atomic>

#include "support/DetailResponse.h"
#include "support/LockRecorder.h"
#include "support/Operations.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

std::atomic<int> g_lines{0};
std::atomic<int> g_linesUnderALock{0};

void CountLine(unsigned /*level*/, const char* /*moduleName*/, const char* /*text*/) {
    ++g_lines;
    g_linesUnderALock += LockRecorder::HeldByThisThread() == 0 ? 0 : 1;
}

class LocksTest : public HandleTest {
protected:
    LocksTest() {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAuthAddr("https://a.example");
        handle->setAccessToken("token");
        handle->setRefreshToken("refresh");
        handle->setOpenID("open");
        handle->setSessionId("session");
        handle->setSharedAccessToken("shared");
        handle->SetB2CTokens(R"([{"token":"b2c","deviceSerial":"C1","channelNo":"1","isShared":1}])");
        handle->SetDeviceTkTokens(
            R"([{"deviceTkToken":"d","deviceVideoTkToken":"v","deviceSerial":"C1","channelNo":"1"}])");
        TVLLOG_SetCallback(CountLine);
        g_lines = 0;
        g_linesUnderALock = 0;
    }
    ~LocksTest() override { ServePrefetchedToken("token"); }
    LocksTest(const LocksTest&) = delete;
    LocksTest& operator=(const LocksTest&) = delete;

    /// Calls every operation in every mode while each request gets this body.
    void CallEverything(const std::string& body) {
        transport.Always([this, body](const SentRequest&) {
            ++requests;
            requestsUnderALock += LockRecorder::HeldByThisThread() == 0 ? 0 : 1;
            return ScriptedResponse{0, body};
        });
        for (const int mode : {0, 1, 2}) {
            for (const Operation& operation : Operations()) {
                handle->setPermissionMode(mode);
                handle->setLogLevel(1);
                Outputs outputs;
                Call(*handle, operation, Arguments::AllOf("C1", "token", "shared", 1), outputs);
            }
        }
    }

    std::atomic<int> requests{0};
    std::atomic<int> requestsUnderALock{0};
};

TEST_F(LocksTest, AreHeldOneAtATimeAndNeverAcrossARequestOrALine) {
    CallEverything(MarkedDetailResponse("C1", 1, "x").dump());
    CallEverything(R"({"resultCode":"10002","meta":{"code":10002}})");
    CallEverything(R"({"resultCode":"401","meta":{"code":401}})");
    CallEverything("no JSON");
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
    EXPECT_EQ(requestsUnderALock, 0);
    EXPECT_EQ(g_linesUnderALock, 0);
    EXPECT_GT(requests, 300);
    EXPECT_GT(g_lines, 3000);
}

}  // namespace
}  // namespace vantix::test
