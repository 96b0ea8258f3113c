// Every operation that sends a request, called by many at once while the host changes mode, token maps and tokens: the
// cloud receives no credential of the other server family, and none with another look's address.
//
// VANTIX_RACE_REQUESTS is the number of requests to wait for (default 10,000; 2,000 where a program runs as one test).

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "OperationFixture.h"
#include "support/ConsumerPath.h"
#include "support/Threads.h"

namespace vantix::test {
namespace {

constexpr int kCallers = 16;
constexpr int kFirstSetting = 60;
constexpr int kLastSetting = 108;
constexpr char kSharedToken[] = "b2c-shared";
constexpr char kOwnToken[] = "b2c-own";

size_t WantedRequests() {
    const char* text = std::getenv("VANTIX_RACE_REQUESTS");
    return text == nullptr ? 10'000U : std::stoul(text);
}

class RouteRaceTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        Center().setLogLevel(6);
        Center().setSessionId(Account("sessionId"));
        Center().setGlobalTkToken("tk-global");
        Center().SetDeviceTkTokens(Json::array({{{"deviceTkToken", "tk-device"},
                                                 {"deviceVideoTkToken", "tk-video"},
                                                 {"deviceSerial", kShared},
                                                 {"channelNo", "1"}}})
                                       .dump());
        Cloud().ForgetRequests();
    }

    static std::string B2CTokens(const char* token, int isShared) {
        return Json::array({{{"token", token}, {"deviceSerial", kShared}, {"channelNo", "1"}, {"isShared", isShared}}})
            .dump();
    }

    void ChangeEverything(int round) const {
        Center().setPermissionMode(round % 3);
        Center().SetB2CTokens(round % 2 == 0 ? B2CTokens(kSharedToken, 1) : B2CTokens(kOwnToken, 0));
        Center().setSharedAccessToken(round % 5 == 0 ? kOwnToken : "");
        Center().setPermissionMode(2);
    }

    void FetchEverything(int caller) const {
        for (const Operation& operation : Operations()) {
            if (operation.slot < kFirstSetting || operation.slot > kLastSetting) {
                Outputs outputs;
                Call(Center(), operation, {.serial = kShared, .token = caller % 2 == 0 ? kSharedToken : kOwnToken},
                     outputs);
            }
        }
    }

    /// Whether the token is the one that the host gave with the call: of stream tokens, and of relays by slot 10.
    static bool HasGivenToken(const ReceivedRequest& request) {
        return request.path == "/api/user/token" ||
               (request.path == "/api/service/media/server/info" && request.Parameter("localIndex") != "<none>");
    }

    /// What is wrong with a request, or nothing.
    std::string WrongIn(const ReceivedRequest& request) const {
        const bool isToConsumer = request.domain == "C";
        const std::string token = request.Parameter("accessToken");
        const std::string session = request.Header("sessionId");
        if (IsConsumerPath(request.path)) {
            if (!isToConsumer || token != "<none>") {
                return "a consumer request outside the C domain or with an access token";
            }
            return session == Account("sessionId") ? "" : "a consumer request with another session";
        }
        if (session != "<none>") {
            return "a platform request with a session";
        }
        if (HasGivenToken(request)) {
            return "";
        }
        if (token == kSharedToken) {
            return "a platform request with the token of a shared channel";
        }
        // Tokens of the small-permission mode and of an own channel belong to looks that never choose the C domain.
        return isToConsumer && (token.rfind("tk-", 0) == 0 || token == kOwnToken) ? "a token of another look" : "";
    }
};

TEST_F(RouteRaceTest, NoCredentialReachesAnotherFamilyOrAddress) {
    const size_t wanted = WantedRequests();
    size_t received = 0;
    size_t consumer = 0;
    while (received < wanted) {
        std::atomic<bool> isDone{false};
        std::thread host([&] {
            for (int round = 0; !isDone; ++round) {
                ChangeEverything(round);
            }
        });
        OnThreads(kCallers, [this](int caller) { FetchEverything(caller); });
        isDone = true;
        host.join();
        const std::vector<ReceivedRequest> requests = Cloud().Requests();
        Cloud().ForgetRequests();
        ASSERT_FALSE(requests.empty());
        received += requests.size();
        for (const ReceivedRequest& request : requests) {
            ASSERT_EQ(WrongIn(request), "") << request.path << "?" << request.query << " " << request.body;
            consumer += IsConsumerPath(request.path) ? 1U : 0U;
        }
    }
    EXPECT_GT(consumer, 0U) << "both families were asked";
    EXPECT_LT(consumer, received);
}

}  // namespace
}  // namespace vantix::test
