// Every operation by sixty-four threads in each permission mode, while another thread changes whatever a host may
// change: what a race detector watches. No clock, capture or record of the tests puts the threads in an order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <string>
#include <thread>

#include "support/CleanSwitches.h"
#include "support/ConsumerPath.h"
#include "support/DetailResponse.h"
#include "support/Handle.h"
#include "support/LocalFile.h"
#include "support/LockRecorder.h"
#include "support/Operations.h"
#include "support/ScriptedTransport.h"
#include "support/Threads.h"

namespace vantix::test {
namespace {

constexpr int kRacers = 64;
constexpr int kModes = 3;
constexpr size_t kOperationCount = 108;
constexpr int kSilentLevel = 6;

/// Entries of both token maps for one channel.
constexpr char kMapText[] = R"([{"token":"b2c","isShared":1,"deviceTkToken":"tk-d","deviceVideoTkToken":"tk-v",)"
                            R"("deviceSerial":"C1","channelNo":"1"}])";

/// A success for every request of both families, all of whose texts end in the mark.
std::string SuccessOf(const std::string& mark) {
    Json body = MarkedDetailResponse("C1", 1, mark);
    const std::string text = body["result"]["data"]["device"]["publicKey"];
    body["resultCode"] = "200";
    body["meta"] = {{"code", 200}};
    body["result"]["msgData"] = {{"data", text}};
    body["result"]["data"].update({{"access_token", "fresh"},
                                   {"openId", "open"},
                                   {"refresh_token", "refresh"},
                                   {"expires_in", 7200},
                                   {"scope", "all"},
                                   {"userId", "user"},
                                   {"deviceInfos", Json::array()}});
    body.update({{"tokenArray", {"stream-1", "stream-2"}},
                 {"serverResp", {{"stun1Addr", text}, {"vtmBackups", {{{"addr", text}, {"port", 1}}}}}},
                 {"systemConfigInfo", {{"stun1Addr", text}}},
                 {"sessionInfo", {{"sessionId", "session"}, {"refreshSessionId", "refresh-session"}}},
                 {"userInfo", {{"userId", "user"}}},
                 {"secret", text},
                 {"data",
                  {{"version", 1},
                   {"saltIndex", 1},
                   {"ticket", text},
                   {"id", text},
                   {"url", text},
                   {"publicKey", text},
                   {"resourceInfos", Json::array()}}},
                 {"userName", "user"},
                 {"pushSessionId", "push"},
                 {"records", Json::array()},
                 {"cameraInfos", {{{"channelNo", 1}, {"cameraId", text}, {"streamBizUrl", text}}}},
                 {"deviceInfos", {{{"deviceSerial", "C1"}, {"kmsInfos", {{"secretKey", text}, {"version", 1}}}}}},
                 {"p2pInfos", {{{"ip", text}, {"port", 1}}}},
                 {"connectionInfos", {{"C1", {{"netIp", text}, {"localIp", text}, {"casIp", text}}}}},
                 {"ttsInfos", {{"C1", {{"publicKey", {{"key", text}, {"version", 1}}}}}}}});
    return body.dump();
}

/// The one response whose "data" is a list.
bool IsForList(const std::string& url) { return url.find("/api/lapp/device/list") != std::string::npos; }
constexpr char kListSuccess[] = R"({"result":{"code":"200","data":[]}})";

bool IsWholeRecord(const DevDetailInfo& d) {
    return d.publicKey == d.deviceIP && d.deviceIP == d.localIp && d.localIp == d.casIp;
}
bool IsWholeRecord(const DevChannelInfo& c) { return c.cameraId == c.streamBizUrl; }

/// Whether an operation succeeds only with an entry that another thread may take or clear at any time.
bool ReadsWhatMayBeGone(int slot) {
    constexpr int kSlots[] = {30, 38, 55, 56, 67, 68};
    return std::find(std::begin(kSlots), std::end(kSlots), slot) != std::end(kSlots);
}

class EveryOperationRaceTest : public testing::Test {
public:
    EveryOperationRaceTest() : m_handle(NewHandle()) { SetUpHost(); }
    ~EveryOperationRaceTest() override {
        // A stream token that was fetched ahead stays in the process until its owner takes it.
        std::array<char, 4097> stored{};
        for (const char* owner : {"token", "another-token", "shared", "fresh"}) {
            m_handle->GetStreamTokenFromQueue(owner, stored.data());
        }
        m_handle->setPermissionMode(0);
        m_handle->SetDeviceTkTokens("[]");
        m_handle->SetB2CTokens("[]");
        m_handle->ClearAllCache();
    }
    EveryOperationRaceTest(const EveryOperationRaceTest&) = delete;
    EveryOperationRaceTest& operator=(const EveryOperationRaceTest&) = delete;

protected:
    void SetUpHost() {
        m_handle->setLogLevel(kSilentLevel);
        m_handle->setAppId("app");
        m_handle->setRefreshToken("refresh");
        m_handle->setOpenID("open");
        ChangeAll(0, 0);
    }

    /// Everything that a host may change, once.
    void ChangeAll(int round, int mode) {
        IVantixDataCenter& center = *m_handle;
        const bool isEven = round % 2 == 0;
        center.setPermissionMode(round % kModes);
        center.setDomain(isEven ? "https://b.example" : "https://b2.example",
                         isEven ? "https://c.example" : "https://c2.example");
        center.setAuthAddr(isEven ? "https://a.example" : "https://a2.example");
        center.setAccessToken(isEven ? "token" : "another-token");
        center.setSharedAccessToken(isEven ? "shared" : "");
        center.setSessionId(isEven ? "session" : "another-session");
        center.setGlobalTkToken(isEven ? "tk-global" : "tk-global-2");
        center.SetDeviceTkTokens(isEven ? kMapText : "[]");
        center.SetB2CTokens(isEven ? "[]" : kMapText);
        center.setCacheTime(round % 3);
        center.setCloseP2P(round % 2);
        center.setCloseBelongSerial(round % 2);
        center.setDataUtf8(round % 2);
        center.setLogLevel(round % 16 == 1 ? 3 : kSilentLevel);
        if (round % 64 == 0) {
            center.ClearAllCache();
        }
        center.setPermissionMode(mode);
    }

    /// Thread by thread, a sixteenth of the requests finds an expired credential, another one nobody there.
    ScriptedResponse Respond(const SentRequest& request) {
        thread_local unsigned t_requests = 0;
        const unsigned number = t_requests++ % 16;
        const bool isConsumer = IsConsumerPath(request.Path());
        const bool hasSession = request.Header("sessionId") != "<none>";
        const bool isAtConsumer = request.url.rfind("https://c", 0) == 0;
        if (hasSession != isConsumer || (isConsumer && !isAtConsumer)) {
            m_findings.Check(false, (hasSession ? "with a session: " : "without a session: ") + request.url);
        }
        m_requests.fetch_add(1, std::memory_order_relaxed);
        if (number == 5) {
            return {0, isConsumer ? R"({"meta":{"code":401}})" : R"({"resultCode":"10002","meta":{"code":10002}})"};
        }
        if (number == 11) {
            return {7, ""};
        }
        return {0, IsForList(request.url) ? kListSuccess : m_successes[number % 2]};
    }

    Arguments ArgumentsFor(const Operation& operation, int racer, int mode) const {
        Arguments arguments = Arguments::AllOf("C1", racer % 2 == 0 ? "another-token" : "shared", kMapText, 1);
        arguments.jsonQuery = "{}";
        arguments.localPath = m_picture.Path();
        switch (operation.slot) {
            case 65: arguments.number = mode; break;
            case 73:
                arguments.text = "https://b.example";
                arguments.consumerDomain = "https://c.example";
                break;
            case 76: arguments.text = "https://a.example"; break;
            case 94: arguments.number = kSilentLevel; break;
            default: break;
        }
        return arguments;
    }

    void CallOne(const Operation& operation, int racer, int mode) {
        Outputs outputs;
        const int result = CallAmongThreads(*m_handle, operation, ArgumentsFor(operation, racer, mode), outputs);
        auto& successes = m_successful[static_cast<size_t>(operation.slot) - 1];
        successes.fetch_add(result >= 0 && result < 100000 ? 1 : 0, std::memory_order_relaxed);
        if (result == 0 && !(IsWholeRecord(outputs.detail) && IsWholeRecord(outputs.channel))) {
            m_findings.Check(false, std::string(operation.name) + " handed out " + outputs.detail.publicKey + ", " +
                                        outputs.detail.deviceIP + ", " + outputs.channel.cameraId);
        }
    }

    /// Each thread calls all operations, beginning with another one, and not in the order of their slots, in which
    /// those that clear caches come before those that read them.
    void Race(int racer, int mode) {
        const auto operations = Operations();
        for (size_t i = 0; i < operations.size(); ++i) {
            CallOne(operations[(i * 31 + static_cast<size_t>(racer) * 7) % operations.size()], racer, mode);
        }
    }

    CleanSwitches m_clean;
    LocalFile m_picture{u8"gate.jpg"};
    ScriptedTransport m_transport;
    Handle m_handle;
    const std::array<std::string, 2> m_successes{SuccessOf("one"), SuccessOf("two")};
    std::array<std::atomic<int>, kOperationCount> m_successful{};
    std::atomic<int> m_requests{0};
    Findings m_findings;
};

TEST_F(EveryOperationRaceTest, WholeRecordsAndTheRightFamilyInEveryMode) {
    ASSERT_EQ(Operations().size(), kOperationCount);
    m_transport.AlwaysUnrecorded([this](const SentRequest& request) { return Respond(request); });
    for (int mode = 0; mode < kModes; ++mode) {
        std::atomic<bool> isOver{false};
        std::thread host([&] {
            for (int round = 0; !isOver; ++round) {
                ChangeAll(round, mode);
            }
        });
        OnThreads(kRacers, [&](int racer) { Race(racer, mode); });
        isOver = true;
        host.join();
    }
    EXPECT_THAT(m_findings.All(), testing::IsEmpty());
    EXPECT_GT(m_requests, kModes * kRacers * 40);
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
    for (const Operation& operation : Operations()) {
        const int successes = m_successful[static_cast<size_t>(operation.slot) - 1];
        EXPECT_TRUE(successes > 0 || ReadsWhatMayBeGone(operation.slot)) << operation.name;
    }
}

}  // namespace
}  // namespace vantix::test
