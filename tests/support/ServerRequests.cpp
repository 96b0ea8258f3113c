// Requests about servers and P2P.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

RequestCase ServersOfTheAccount() {
    return {.name = "Servers",
            .function = "GetServerInfoFromPlatform",
            .operation = "getServerInfoSync",
            .arguments = {.token = "access-token"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/service/media/server/info",
            .body =
                "accessToken=access-token&appKey=app-key&clientType=19&clientVersion=v5.25.0&featureCode=$feature"
                "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0",
            .response = R"({"resultCode":"200","serverResp":{"stun1Addr":"stun.example","stun1Port":6002,)"
                        R"("vtmBackups":[{"addr":"vtm.example","port":8554}]}})",
            .fills = {{"servers",
                       {{"stun1Addr", "stun.example"},
                        {"stun1Port", 6002},
                        {"vtmBackups", {{{"addr", "vtm.example"}, {"port", 8554}}}},
                        {"iRequestCost", 3}}}},
            .costLines = {"/api/service/media/server/info CostTime: = 3 milliseconds"},
            .costFills = {{"servers", {{"iRequestCost", 3}}}},
            .refusals = ParserRefusals("GetServerInfoFromPlatform", "ParseServerInfoFromPlatform",
                                       "ParseServerInfoFromPlatform")};
}

RequestCase ServersOfADevice() {
    return {.name = "ServersOfADevice",
            .function = "GetServerInfoFromPlatform",
            .operation = "getVideoVtmAddr",
            .arguments = {.serial = "R20000016", .ch = 4},
            .transport = "SyncRequestHeaderPost",
            .sender = "CRequest::SyncRequesPostHeader",
            .path = "/api/service/media/server/info",
            .query =
                "accessToken=access-token&appKey=app-key&clientType=19&clientVersion=v5.25.0"
                "&deviceSerial=R20000016&featureCode=$feature&localIndex=4&netType=UNKNOWN&osVersion=wins"
                "&sdkVersion=v5.25.0.20260515&version=2.0",
            .response = R"({"resultCode":"200","serverResp":{"vtmBackups":[{"addr":"vtm.example","port":8554}]}})",
            .fills = {{"text", R"({"vtmBackups":[{"addr":"vtm.example","port":8554}]})"}},
            .costLines = {"/api/service/media/server/info CostTime: = 3 milliseconds"},
            .unsent = "SyncRequestHeader error:7",
            .unsentResult = -1,
            .refusals = With(-1, ParserRefusals("GetServerInfoFromPlatform", "ParseServerInfoFromPlatform",
                                                "ParseServerInfoFromPlatform"))};
}

RequestCase RelayServer() {
    return {.name = "RelayServer",
            .function = "GetRelayServerInfoFromPlatform",
            .operation = "getRelayServerInfo",
            .arguments = {.serial = "R20000016", .ch = 2},
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/service/media/streaming/relay/server",
            .query = "accessToken=access-token&channelNo=2&deviceSerial=R20000016",
            .response = R"({"meta":{"code":200},"data":{"domain":"relay.example","port":8600,)"
                        R"("publicKey":{"key":"relay-key","version":3}}})",
            .fills = {{"text", R"({"domain":"relay.example","port":8600,"publicKey":"relay-key","version":3})"}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("GetRelayServerInfoFromPlatform", "ParseRealyInfoFromPlatform",
                                       "ParseRealyInfoFromPlatform")};
}

RequestCase P2PUser() {
    return {.name = "P2PUser",
            .function = "GetP2PUserInfoFromPlatform",
            .operation = "getP2PUserInfoByToken",
            .arguments = {.token = "access-token"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/sdk/p2p/user/info/get",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&featureCode=$feature"
                "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"resultCode":"200","result":{"data":{"userId":"u-1","data":"hush","version":2,)"
                        R"("saltIndex":7}}})",
            .fills = {{"user",
                       {{"userId", "u-1"}, {"data", "hush"}, {"version", 2}, {"saltIndex", 7}, {"iRequestCost", 3}}}},
            .costLines = {"//api/sdk/p2p/user/info/get CostTime: = 3 milliseconds"},
            .costFills = {{"user", {{"iRequestCost", 3}}}},
            .refusals = CheckRefusals("GetP2PUserInfoFromPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatform")};
}

RequestCase P2PDevice() {
    return {.name = "P2PDevice",
            .function = "GetP2PDevInfoFromPlatform",
            .operation = "getP2PDevInfoBySerial",
            .arguments = {.token = "access-token"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/sdk/p2p/dev/info/get",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&deviceSerial=C10000001"
                "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"resultCode":"200","result":{"data":{"serverInfos":[{"ip":"203.0.113.1","port":6001}],)"
                        R"("defaultKey":"key","defaultKeyVer":"2","qxDeviceCapability":"{\"V3Talk\":\"1\"}"}}})",
            .fills = {{"p2pDevice",
                       {{"deviceSerial", "C10000001"},
                        {"serverInfos", {{{"ip", "203.0.113.1"}, {"port", 6001}}}},
                        {"defaultKey", "key"},
                        {"defaultKeyVer", 2},
                        {"capability", {{"V3Talk", "1"}}},
                        {"iRequestCost", 3}}}},
            .costLines = {"/api/sdk/p2p/dev/info/get CostTime: = 3 milliseconds"},
            .costFills = {{"p2pDevice", {{"iRequestCost", 3}}}},
            .refusals = CheckRefusals("GetP2PDevInfoFromPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatform")};
}

}  // namespace

std::vector<RequestCase> ServerRequests() {
    return {ServersOfTheAccount(), ServersOfADevice(), RelayServer(), P2PUser(), P2PDevice()};
}

}  // namespace vantix::test
