// Queries and fetches of many threads are under way at the same time: no operation keeps another one waiting.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "support/Threads.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

constexpr int kAtOnce = 8;

/// Where requests wait until so many are under way.
class Meeting {
public:
    /// False when the others do not come; nobody waits for them a second time.
    bool Wait() {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (++m_here == kAtOnce) {
            m_all.notify_all();
        }
        m_isInVain = m_isInVain || !m_all.wait_for(lock, std::chrono::seconds(20), [&] { return m_here >= kAtOnce; });
        return !m_isInVain;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_all;
    int m_here = 0;
    bool m_isInVain = false;
};

struct SlowOperation {
    const char* name;
    int mode;
    int (*call)(CVantixDataCenter& core);
};

const SlowOperation kSlowOperations[] = {
    {"getTicketInfo", 0,
     [](auto& core) {
         std::string text;
         return core.getTicketInfo("C1", 1, text);
     }},
    {"getDevList", 0,
     [](auto& core) {
         DeviceList list;
         return core.getDevList(0, 10, list, false);
     }},
    {"getStreamTokens", 0,
     [](auto& core) {
         std::string text;
         return core.getStreamTokens("own-token", 10, text, false);
     }},
    {"getDevDetailInfoSync", 0,
     [](auto& core) {
         DevChannelInfo channel;
         DevDetailInfo device;
         return core.getDevDetailInfoSync("C1", 1, true, channel, device, false);
     }},
    {"getServerInfo", 0,
     [](auto& core) {
         ServerInfo servers;
         return core.getServerInfo("own-token", servers, false);
     }},
    {"getP2PUserInfo", 0,
     [](auto& core) {
         P2PUserInfo user;
         return core.getP2PUserInfo("own-token", user, false);
     }},
    {"getP2PDevInfo", 0,
     [](auto& core) {
         P2PDevInfo device;
         return core.getP2PDevInfo(device, "own-token", "OWN", false);
     }},
    {"getB2CSharedDevList, of the consumer servers", 2,
     [](auto& core) {
         std::string text;
         return core.getB2CSharedDevList(0, 10, text);
     }},
    {"getServerInfo, of the consumer servers", 2,
     [](auto& core) {
         ServerInfo servers;
         return core.getServerInfo("shared-token", servers, false);
     }},
    {"getDeviceFileBySerial, of the consumer servers", 2,
     [](auto& core) {
         RecordFileList files;
         return core.getDeviceFileBySerial("SHARED", 1, "a", "b", 0, 0, files, false, false);
     }},
    {"getDevDetailInfoSync, of the consumer servers", 2,
     [](auto& core) {
         DevChannelInfo channel;
         DevDetailInfo device;
         return core.getDevDetailInfoSync("SHARED", 1, true, channel, device, false);
     }},
};

using QueriesAtOnce = FetchTest;

TEST_F(QueriesAtOnce, AreAllUnderWayAtTheSameTime) {
    for (const SlowOperation& operation : kSlowOperations) {
        SCOPED_TRACE(operation.name);
        core.setPermissionMode(operation.mode);
        Meeting meeting;
        std::atomic<int> met{0};
        transport.Always([&](const SentRequest&) {
            met += meeting.Wait() ? 1 : 0;
            return ScriptedResponse{7, ""};
        });
        OnThreads(kAtOnce, [&](int) { EXPECT_EQ(operation.call(core), 100007); });
        ASSERT_EQ(met, kAtOnce);
    }
}

TEST_F(QueriesAtOnce, RepeatAfterATransientFailureChoosesItsDomainAnew) {
    for (const char* code : {"49999", "50000"}) {
        SCOPED_TRACE(code);
        core.setDomain("https://b.example", "");
        transport.Make([&](const SentRequest&) {
            core.setDomain("https://moved.example", "");
            core.setAccessToken("newer-token");
            return ScriptedResponse{0, CodeResponse(code)};
        });
        DevChannelInfo channel;
        DevDetailInfo device;
        const size_t before = transport.Count();
        EXPECT_EQ(core.getDeviceDetailInfo("C1", 1, "GB", "P-7", channel, device, false), 100007);
        ASSERT_EQ(transport.Count(), before + 2);
        EXPECT_EQ(Address(before), "https://b.example/api/device/detail");
        EXPECT_EQ(Address(before + 1), "https://moved.example/api/device/detail");
        EXPECT_EQ(Token(before + 1), "newer-token");
    }
}

TEST_F(QueriesAtOnce, NeighboursOfTheTransientCodesAreNotRepeated) {
    for (const int code : {49998, 50001}) {
        transport.Respond(CodeResponse(std::to_string(code)));
        DevChannelInfo channel;
        DevDetailInfo device;
        const size_t before = transport.Count();
        EXPECT_EQ(core.getDeviceDetailInfo("C1", 1, "GB", "P-7", channel, device, false), 300000 + code);
        EXPECT_EQ(transport.Count(), before + 1);
    }
}

}  // namespace
}  // namespace vantix::test
