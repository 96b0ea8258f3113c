// All fetches at once, while the host changes mode, token maps and tokens: no credential reaches the other family's
// servers, and none travels with the address of another look.

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "support/ConsumerPath.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

constexpr int kThreads = 16;
constexpr size_t kRequests = 10'000;
/// On a busy machine the host's thread may have to wait for its turn: the race goes on until so many requests went to
/// either family, but not for ever.
constexpr size_t kOfEachFamily = 100;
constexpr size_t kTooMany = 20 * kRequests;

constexpr char kShared[] = R"([{"token":"b2c-shared","deviceSerial":"S","channelNo":"1","isShared":1}])";
constexpr char kOwn[] = R"([{"token":"b2c-own","deviceSerial":"S","channelNo":"1","isShared":0}])";

class RouteRace : public FetchTest {
protected:
    RouteRace() {
        core.setAccessToken("access");
        core.setSessionId("session");
        core.setLogLevel(6);
        core.SetDeviceTkTokens(R"([{"deviceTkToken":"tk-device","deviceVideoTkToken":"tk-video",
                                    "deviceSerial":"S","channelNo":"1"}])");
        transport.Always([this](const SentRequest& request) {
            m_requests.fetch_add(1);
            m_consumerRequests.fetch_add(IsConsumerPath(request.Path()) ? 1 : 0);
            return ScriptedResponse{0, R"({"resultCode":"200","meta":{"code":200}})"};
        });
    }

    bool IsOver() const {
        const size_t requests = m_requests;
        const size_t consumer = m_consumerRequests;
        const bool isEnough =
            requests >= kRequests && consumer >= kOfEachFamily && requests - consumer >= kOfEachFamily;
        return isEnough || requests >= kTooMany;
    }
    static bool StartsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }

    /// What is wrong with a request, or nothing.
    static std::string WrongIn(const SentRequest& request) {
        const bool isToConsumer = StartsWith(request.url, "https://c.example/");
        const std::string token = request.Param("accessToken");
        const bool hasSession = request.Header("sessionId") != "<none>";
        if (IsConsumerPath(request.Path())) {
            if (!isToConsumer || token != "<none>") {
                return "a consumer request outside the C domain or with an access token";
            }
            return hasSession ? "" : "a consumer request without a session";
        }
        if (hasSession) {
            return "a platform request with a session";
        }
        if (token == "b2c-shared" || StartsWith(token, "session")) {
            return "a platform request with the token of a shared channel";
        }
        // Tokens of the small-permission mode and of an own channel belong to looks that never choose the C domain.
        return isToConsumer && (StartsWith(token, "tk-") || token == "b2c-own") ? "a token with another look's address"
                                                                                : "";
    }

    void FetchEverything() {
        DevChannelInfo channel;
        DevDetailInfo device;
        ServerInfo servers;
        P2PUserInfo user;
        P2PDevInfo p2p;
        std::vector<P2PServerAddr> p2pServers;
        RecordFileList files;
        std::string text;
        core.getDevDetailInfoSync("S", 1, true, channel, device, false);
        core.getDevDetailInfoByRelation("S", 1, channel, device, false);
        core.getServerInfo("b2c-shared", servers, false);
        core.getP2PUserInfo("b2c-shared", user, false);
        core.getP2PUserInfo("S", 1, user, false);
        core.getP2PDevInfoCached("S", p2pServers, p2p, true);
        core.getP2PDevInfo("S", 1, "b2c-own", p2p, false);
        core.getVideoVtmAddr("S", 1, text, false);
        core.getDeviceFileBySerial("S", 1, "a", "b", 0, 0, files, false, false);
        core.getTicketInfo("S", 1, text);
        core.ClearAllCache();
    }
    void ChangeEverything(unsigned round) {
        core.setPermissionMode(static_cast<int>(round % 3));
        core.SetB2CTokens(round % 2 == 0 ? kShared : kOwn);
        core.setSharedAccessToken(round % 5 == 0 ? "b2c-own" : "");
        core.setPermissionMode(2);
    }

    std::atomic<size_t> m_requests{0};
    std::atomic<size_t> m_consumerRequests{0};
};

TEST_F(RouteRace, NoCredentialReachesAnotherFamilyOrAddress) {
    std::atomic<bool> isDone{false};
    std::thread host([&] {
        for (unsigned round = 0; !isDone; ++round) {
            ChangeEverything(round);
        }
    });
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            while (!IsOver()) {
                FetchEverything();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    isDone = true;
    host.join();
    EXPECT_GE(m_requests.load(), kRequests);
    for (const SentRequest& request : transport.Sent()) {
        EXPECT_EQ(WrongIn(request), "") << request.url;
    }
    EXPECT_GE(m_consumerRequests.load(), kOfEachFamily);
    EXPECT_GE(m_requests - m_consumerRequests, kOfEachFamily);
}

}  // namespace
}  // namespace vantix::test
