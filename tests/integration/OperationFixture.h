#pragma once

#include <string>
#include <vector>

#include "SampleAccount.h"
#include "support/CoreFixture.h"
#include "support/Operations.h"

namespace vantix::test {

inline constexpr char kRefreshPath[] = "/oauth/token/refreshToken";
inline constexpr char kSessionPath[] = "/v3/apigateway/login";
/// No upload that was asked for has this path.
inline constexpr char kUploadPath[] = "/upload/unknown";

/// A case about operations, with every credential that the account has.
class OperationFixture : public CoreFixture {
protected:
    void SetUp() override {
        CoreFixture::SetUp();
        SetDeviceTokens();
        Center().setGlobalTkToken(Account("globalTkToken"));
        Center().setSharedAccessToken(Account("sharedAccessToken"));
        Center().setSessionId(Account("sessionId"));
        ForgetStreamTokens();
        Cloud().ForgetRequests();
    }
    void TearDown() override {
        ForgetStreamTokens();
        RestoreConfiguration();
        CoreFixture::TearDown();
    }

    /// Lets the core renew the access token.
    void SetRefreshCredentials() const {
        Center().setAuthAddr(Account("authAddr"));
        Center().setRefreshToken(Account("refreshToken"));
        Center().setOpenID(Account("openId"));
    }
    /// Lets the core renew the session, which is one of its own from now on. Needs mode 2.
    void SetRefreshSession() const {
        std::string session;
        EXPECT_EQ(Center().RefreshSession(Account("refreshSessionId"), session), 0);
        Cloud().ForgetRequests();
    }

    /// The prefetched one and the queue, which outlive a case in the core of the process.
    void ForgetStreamTokens() const {
        std::vector<char> buffer(4097);
        Center().GetStreamTokenFromQueue(Account("accessToken"), buffer.data());
        const std::string current = Center().getAccessToken();
        Center().GetStreamTokenFromQueue(current, buffer.data());
        // A batch that fails, for another token, leaves an empty queue.
        Center().setPermissionMode(0);
        Center().setDomain(Cloud().ClosedPort(), "");
        std::string token;
        EXPECT_NE(Center().getOneStreamToken("nobody's", token), 0);
        Center().setDomain(BDomain(), "");
        Center().setAccessToken(Account("accessToken"));
    }

    /// The core keeps the platform's configuration: back to the one that it begins with.
    void RestoreConfiguration() const {
        Cloud().ForgetScript();
        Cloud().Put("/account", {{"config", {{"streamType", 1}, {"dataCollect", 2}}}});
        ConfigInfo config;
        EXPECT_EQ(Center().getConfigInfo(config), 0);
    }

    size_t Count(const std::string& path) const { return Cloud().Requests(path).size(); }

    /// The credential of a request, wherever it stands.
    static std::string CredentialOf(const ReceivedRequest& request) {
        if (std::string session = request.Header("sessionId"); session != "<none>") {
            return session;
        }
        const Json body = Json::parse(request.body, nullptr, false);
        if (body.is_object() && body.contains("accessToken")) {
            return body.at("accessToken");
        }
        if (std::string token = request.Parameter("refresh_token"); token != "<none>") {
            return token;
        }
        return request.Parameter("accessToken");
    }
};

}  // namespace vantix::test
