// Requests about tickets, permissions and tokens.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "platform/Tokens.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

/// Runs a request that fills a text.
template <class Request>
auto IntoText(Request request) {
    return [request](const Caller& caller, Json& output) {
        std::string text = "before";
        const int result = request(caller, text);
        output = text;
        return result;
    };
}

/// Expects a text that the cloud makes up afresh, by its beginning.
auto BeginsWith(const std::string& start) {
    return [start](const Json& output, const SimulatorClient& /*cloud*/) {
        EXPECT_EQ(output.get<std::string>().rfind(start, 0), 0U) << output;
    };
}

PlatformCase Ticket() {
    return {.name = "Ticket",
            .function = "GetTicketInfoBySerial",
            .transport = "SyncRequest_v2",
            .path = "/api/route/userdevicetob/v3/cameras/ticketInfo",
            .parameters = {{"accessToken", "$token"}, {"deviceSerial", "R20000016"}, {"channelNo", "2"}},
            .call = IntoText([](const Caller& caller, std::string& ticket) {
                return GetTicketInfoBySerial(caller, "R20000016", 2, ticket);
            }),
            .expect = BeginsWith("tk.media."),
            .parser = "ParseTicketInfoFromPlatform",
            .label = "ParseTicketInfoFromPlatform"};
}

PlatformCase CloudTicket() {
    return {.name = "CloudTicket",
            .function = "GetCloudTicketInfoBySerial",
            .transport = "SyncRequestHeader",
            .path = "/api/service/cloud/ticket",
            .parameters = {{"spaceId", "77"},
                           {"accessToken", "$token"},
                           {"deviceSerial", "R20000016"},
                           {"localIndex", "3"}},
            .call = IntoText([](const Caller& caller, std::string& ticket) {
                return GetCloudTicketInfoBySerial(caller, "R20000016", 3, 77, ticket);
            }),
            .expect = BeginsWith("tk.cloud."),
            .parser = "ParseRealyTicketInfoFromPlatform",
            .label = "ParseRealyTicketInfoFromPlatform",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase RelayTicket() {
    return {.name = "RelayTicket",
            .function = "GetRelayTicketInfoBySerial",
            .transport = "SyncRequestHeader",
            .path = "/api/service/media/streaming/relay/ticket",
            .parameters = {{"deviceSerial", "C10000001"}, {"channelNo", "1"}, {"accessToken", "$token"}},
            .call = IntoText([](const Caller& caller, std::string& ticket) {
                return GetRelayTicketInfoBySerial(caller, "C10000001", 1, ticket);
            }),
            .expect = BeginsWith("tk.relay."),
            .parser = "ParseRealyTicketInfoFromPlatform",
            .label = "ParseRealyTicketInfoFromPlatform",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase Permission(bool playback) {
    return {.name = playback ? "PermissionToPlayBack" : "PermissionToWatch",
            .function = "GetAuthInfoFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/service/auth/device/user/permission",
            .parameters = {{"accessToken", "$token"},
                           {"deviceSerial", "C10000001"},
                           {"cameraNo", "1"},
                           {"permission", playback ? "Replay" : "Real"}},
            .call = [playback](const Caller& caller,
                               Json& /*output*/) { return GetAuthInfoFromPlatform(caller, "C10000001", 1, playback); },
            .expect = [](const Json& /*output*/, const SimulatorClient& /*cloud*/) {},
            .parser = "CheckResponseAuthInfoFromPlatform",
            .label = "GetAuthInfoFromPlatform",
            .parserLogsCode = false};
}

PlatformCase StreamTokens() {
    return {.name = "StreamTokens",
            .function = "GetStreamTokensFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/user/token",
            .parameters = WithClient({{"count", "4"}, {"appKey", "$key"}}),
            .call = IntoText([](const Caller& caller, std::string& answer) {
                return GetStreamTokensFromPlatform(caller, 4, answer);
            }),
            .expect =
                [](const Json& output, const SimulatorClient& /*cloud*/) {
                    const Json answer = Json::parse(output.get<std::string>());
                    EXPECT_EQ(answer.at("resultCode"), "200");
                    EXPECT_EQ(answer.at("tokenArray").size(), 4U);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "GetStreamTokensFromPlatform",
            .parserLogsCode = false};
}

PlatformCase StreamTokensParsed() {
    PlatformCase row = StreamTokens();
    row.name = "StreamTokensParsed";
    row.parser = "ParseTokensFromPlatform";
    row.label = "ParseSwitchInfoFromPlatform";
    row.parserLogsCode = true;
    row.call = [](const Caller& caller, Json& output) {
        std::deque<std::string> tokens = {"before"};
        const int result = GetStreamTokensFromPlatform(caller, 4, tokens);
        output = tokens;
        return result;
    };
    row.expect = [](const Json& output, const SimulatorClient& /*cloud*/) {
        ASSERT_EQ(output.size(), 5U);
        EXPECT_EQ(output[0], "before");
        for (size_t i = 2; i < output.size(); ++i) {
            EXPECT_EQ(output[i].get<std::string>().rfind("st.", 0), 0U);
            EXPECT_LT(output[i - 1].get<std::string>(), output[i].get<std::string>()) << "tokens come in order";
        }
    };
    return row;
}

PlatformCase Refresh() {
    return {.name = "Refresh",
            .function = "RefreshTokenFromPlatform",
            .transport = "SyncRequest",
            .path = "/oauth/token/refreshToken",
            .parameters = {{"refresh_token", "rt.sample.a1d4e97b20c65f38"},
                           {"grant_type", "refresh_token"},
                           {"client_id", "$key"},
                           {"open_id", "open-7f31c2"},
                           {"bundleId", "korvel.qxpcvantix"},
                           {"scope", "all"},
                           {"state", ""}},
            .call =
                [](const Caller& caller, Json& output) {
                    RefreshTokenInfo info;
                    info.access_token = "before";
                    const int result = RefreshTokenFromPlatform(
                        caller, {"rt.sample.a1d4e97b20c65f38", "open-7f31c2", "all", ""}, info);
                    output = ToJson(info);
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json account = cloud.Get("/account");
                    EXPECT_EQ(output.at("access_token"), account.at("accessToken"));
                    EXPECT_EQ(output.at("openId"), account.at("openId"));
                    EXPECT_EQ(output.at("refresh_token"), account.at("refreshToken"));
                    EXPECT_EQ(output.at("expires_in"), account.at("expiresIn").dump());
                },
            .parser = "ParseRefreshTokenFromPlatform",
            .label = "ParseRefreshTokenFromPlatform"};
}

}  // namespace

std::vector<PlatformCase> TokenCases() {
    return {Ticket(),         CloudTicket(),  RelayTicket(),        Permission(false),
            Permission(true), StreamTokens(), StreamTokensParsed(), Refresh()};
}

}  // namespace vantix::test
