// Requests about tickets, permissions and tokens.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

RequestCase Ticket() {
    return {.name = "Ticket",
            .function = "GetTicketInfoBySerial",
            .operation = "getTicketInfo",
            .arguments = {.serial = "R20000016", .ch = 2},
            .transport = "SyncRequest_v2",
            .sender = "CRequest::SyncRequest",
            .method = "GET",
            .path = "/api/route/userdevicetob/v3/cameras/ticketInfo",
            .query = "accessToken=access-token&channelNo=2&deviceSerial=R20000016",
            .response = R"({"meta":{"code":200},"ticketInfo":{"ticket":"tk.media"}})",
            .fills = {{"text", "tk.media"}},
            .refusals =
                ParserRefusals("GetTicketInfoBySerial", "ParseTicketInfoFromPlatform", "ParseTicketInfoFromPlatform")};
}

RequestCase CloudTicket() {
    return {.name = "CloudTicket",
            .function = "GetCloudTicketInfoBySerial",
            .operation = "getCloudTicketInfo",
            .arguments = {.serial = "R20000016", .ch = 3, .spaceId = 77},
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/service/cloud/ticket",
            .query = "accessToken=access-token&deviceSerial=R20000016&localIndex=3&spaceId=77",
            .response = R"({"meta":{"code":200},"data":{"ticket":"tk.cloud"}})",
            .fills = {{"text", "tk.cloud"}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("GetCloudTicketInfoBySerial", "ParseRealyTicketInfoFromPlatform",
                                       "ParseRealyTicketInfoFromPlatform")};
}

RequestCase RelayTicket() {
    return {.name = "RelayTicket",
            .function = "GetRelayTicketInfoBySerial",
            .operation = "getRelayTicket",
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/service/media/streaming/relay/ticket",
            .query = "accessToken=access-token&channelNo=1&deviceSerial=C10000001",
            .response = R"({"meta":{"code":200},"data":{"ticket":"tk.relay"}})",
            .fills = {{"text", "tk.relay"}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("GetRelayTicketInfoBySerial", "ParseRealyTicketInfoFromPlatform",
                                       "ParseRealyTicketInfoFromPlatform")};
}

/// The check of permissions reads the code inside "result" alone, and only as text. An expired token is a plain failure
/// of the operation.
RequestCase Permission(bool playback, const std::string& body) {
    RequestCase row{.name = playback ? "PermissionToPlayBack" : "PermissionToWatch",
                    .function = "GetAuthInfoFromPlatform",
                    .operation = "getAuthInfo",
                    .arguments = {.playback = playback},
                    .transport = "SyncRequest",
                    .sender = "CRequest::SyncRequest",
                    .path = "/api/service/auth/device/user/permission",
                    .body = body,
                    .response = R"({"result":{"code":"200"}})",
                    .fills = Json::object(),
                    .refusals = CheckRefusals("GetAuthInfoFromPlatform", "CheckResponseAuthInfoFromPlatform",
                                              "GetAuthInfoFromPlatform")};
    row.refusals.back().result = -1;
    return row;
}

RequestCase StreamTokens() {
    return {.name = "StreamTokens",
            .function = "GetStreamTokensFromPlatform",
            .operation = "getStreamTokens",
            .arguments = {.token = "access-token", .streamTokens = 4},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/user/token",
            .body =
                "accessToken=access-token&appKey=app-key&clientType=19&clientVersion=v5.25.0&count=4"
                "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"resultCode":"200","tokenArray":["st.1","st.2"]})",
            .fills = {{"text", R"({"resultCode":"200","tokenArray":["st.1","st.2"]})"}},
            .refusals = CheckRefusals("GetStreamTokensFromPlatform", "CheckResponseInfoFromPlatform",
                                      "GetStreamTokensFromPlatform")};
}

/// The request that fills the queue. Its token is another than the core's, so that the queue is empty.
RequestCase StreamTokensOfTheQueue() {
    RequestCase row{.name = "StreamTokensOfTheQueue",
                    .function = "GetStreamTokensFromPlatform",
                    .operation = "getOneStreamToken",
                    .arguments = {.token = "stream-token"},
                    .transport = "SyncRequest",
                    .sender = "CRequest::SyncRequest",
                    .path = "/api/user/token",
                    .body =
                        "accessToken=stream-token&appKey=app-key&clientType=19&clientVersion=v5.25.0&count=20"
                        "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
                    .response = R"({"resultCode":"200","tokenArray":["st.1","st.2"]})",
                    .fills = {{"text", "st.1"}},
                    .refusals = ParserRefusals("GetStreamTokensFromPlatform", "ParseTokensFromPlatform",
                                               "ParseSwitchInfoFromPlatform")};
    row.refusals.push_back({.body = R"({"resultCode":"200","tokenArray":[]})", .result = -1});  // none to hand out
    return row;
}

/// The operation empties its output before it sends anything.
RequestCase Refresh() {
    return {.name = "Refresh",
            .function = "RefreshTokenFromPlatform",
            .operation = "RefreshToken",
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/oauth/token/refreshToken",
            .body =
                "bundleId=korvel.qxpcvantix&client_id=app-key&grant_type=refresh_token&open_id=open-id"
                "&refresh_token=refresh-token&scope=the-scope&state=",
            .response = R"({"result":{"code":"200","data":{"access_token":"fresh-token","openId":"open-id",)"
                        R"("refresh_token":"next","expires_in":7200}}})",
            .fills = {{"text", "fresh-token"}},
            .costFills = {{"text", ""}},
            .unsentResult = -1,
            .refusals = With(-1, ParserRefusals("RefreshTokenFromPlatform", "ParseRefreshTokenFromPlatform",
                                                "ParseRefreshTokenFromPlatform"))};
}

}  // namespace

std::vector<RequestCase> TokenRequests() {
    return {Ticket(),
            CloudTicket(),
            RelayTicket(),
            Permission(false, "accessToken=access-token&cameraNo=1&deviceSerial=C10000001&permission=Real"),
            Permission(true, "accessToken=access-token&cameraNo=1&deviceSerial=C10000001&permission=Replay"),
            StreamTokens(),
            StreamTokensOfTheQueue(),
            Refresh()};
}

}  // namespace vantix::test
