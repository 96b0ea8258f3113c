// Requests about the account and its settings.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

RequestCase Configuration() {
    return {.name = "Configuration",
            .function = "GetConfigInfoFromPlatform",
            .operation = "getConfigInfo",
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/config/info",
            .body =
                "appKey=app-key&clientType=19&clientVersion=v5.25.0&featureCode=$feature&netType=UNKNOWN"
                "&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"result":{"code":"200","data":{"pushAddr":"push.example","pushAuthAddr":"auth.example",)"
                        R"("streamType":1,"dataCollect":2,"openP2P":1}}})",
            .fills = {{"config",
                       {{"pushAddr", "push.example"},
                        {"pushAuthAddr", "auth.example"},
                        {"streamType", 1},
                        {"dataCollect", 2},
                        {"openP2P", 1}}}},
            .refusals = ParserRefusals("GetConfigInfoFromPlatform", "ParseConfigInfoFromPlatform",
                                       "GetConfigInfoFromPlatform")};
}

RequestCase UserName() {
    return {.name = "UserName",
            .function = "GetUsernameFromPlatform",
            .operation = "getUsername",
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/user/getUserName",
            .body =
                "accessToken=access-token&clientType=19&clientVersion=v5.25.0&featureCode=$feature"
                "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"resultCode":"200","userName":"sample-user"})",
            .fills = {{"text", "sample-user"}},
            .refusals =
                ParserRefusals("GetUsernameFromPlatform", "ParseUsernameFromPlatform", "ParseUsernameFromPlatform")};
}

RequestCase UserId() {
    return {.name = "UserId",
            .function = "GetUserIdFromPlatform",
            .operation = "getUserId",
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/service/user/get",
            .body = "accessToken=access-token&sdkVersion=v5.25.0.20260515",
            .response = R"({"result":{"code":"200","data":{"userId":"u-10001"}}})",
            .fills = {{"text", "u-10001"}},
            .refusals = ParserRefusals("GetUserIdFromPlatform", "ParseUserIdFromPlatform", "ParseUserIdFromPlatform")};
}

RequestCase PushSession() {
    return {.name = "PushSession",
            .function = "getPushSessionIdFromPlatform",
            .operation = "getPushSessionId",
            .transport = "SyncRequestHeaderPost",
            .sender = "CRequest::SyncRequesPostHeader",
            .path = "/api/service/set/push",
            .query =
                "accessToken=access-token&clientName=pcsdk&clientType=19&clientVersion=v5.25.0"
                "&featureCode=$feature&pushAppId=PCVantix",
            .response = R"({"meta":{"code":200},"pushSessionId":"push.1"})",
            .fills = {{"text", "push.1"}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("getPushSessionIdFromPlatform", "ParsePushSessionIdFromPlatform",
                                       "ParsePushSessionIdFromPlatform")};
}

RequestCase Bandwidth() {
    return {.name = "Bandwidth",
            .function = "getBWCheckInfoFromPlatform",
            .operation = "getBWCheckInfo",
            .arguments = {.ch = 5, .bandwidthType = 1, .checkTime = "1700000000"},
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .method = "GET",
            .path = "/api/service/media/bwc/address",
            .query = "accessToken=access-token&checkTime=1700000000&localIndex=5&type=1",
            .response = R"({"meta":{"code":200},"data":{"id":"b-1","url":"bwc.example:9000","publicKey":"bwc-key",)"
                        R"("version":3}})",
            .fills = {{"bandwidth",
                       {{"id", "b-1"}, {"url", "bwc.example:9000"}, {"publicKey", "bwc-key"}, {"version", 3}}}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ParserRefusals("getBWCheckInfoFromPlatform", "ParseBWCheckInfoFromPlatform",
                                       "ParseBWCheckInfoFromPlatform")};
}

/// Sends the client's identity without its version.
RequestCase TransparentMessage() {
    return {.name = "TransparentMessage",
            .function = "GetTransparentMsgDetailFromPlatform",
            .operation = "getTransparentMsgDetail",
            .arguments = {.msgSeq = "M0000001"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/common/transparent/getMsgDetail",
            .body =
                "accessToken=access-token&appKey=app-key&clientType=19&featureCode=$feature&msgSeq=M0000001"
                "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"result":{"code":"200","msgData":{"msgSeq":"M0000001","msgType":"T","data":"open",)"
                        R"("destination":"C10000001","sn":"SN-1","createDate":1704164645}}})",
            .fills = {{"message",
                       {{"msgSeq", "M0000001"},
                        {"msgType", "T"},
                        {"data", "open"},
                        {"destination", "C10000001"},
                        {"sn", "SN-1"},
                        {"createDate", "1704164645"}}}},
            .refusals = ParserRefusals("GetTransparentMsgDetailFromPlatform", "ParseTransparentMsgDetailFromPlatform",
                                       "ParseTransparentMsgDetailFromPlatform")};
}

RequestCase VideoLevel() {
    return {.name = "VideoLevel",
            .function = "SetVideoDefinitionOnPlatform",
            .operation = "setVideoDefinition",
            .arguments = {.serial = "R20000016", .ch = 5, .videoLevel = 3},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/device/setVideoLevel",
            .body =
                "accessToken=access-token&cameraNo=5&clientType=19&clientVersion=v5.25.0&deviceSerial=R20000016"
                "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0"
                "&videoLevel=3",
            .response = R"({"result":{"code":"200"}})",
            .fills = {{"text", R"({"result":{"code":"200"}})"}},
            .refusals = CheckRefusals("SetVideoDefinitionOnPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatformEx")};
}

RequestCase AlarmRead() {
    return {.name = "AlarmRead",
            .function = "SetAlarmReadOnPlatform",
            .operation = "setAlarmRead",
            .arguments = {.alarmId = "AL1003"},
            .transport = "SyncRequest",
            .sender = "CRequest::SyncRequest",
            .path = "/api/alarm/sdk/setRead",
            .body =
                "accessToken=access-token&alarmId=AL1003&clientType=19&clientVersion=v5.25.0"
                "&featureCode=$feature&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .response = R"({"result":{"code":"200"}})",
            .fills = Json::object(),
            .unsent = "SyncRequest, ERROR:7",
            .refusals = CheckRefusals("SetAlarmReadOnPlatform", "CheckResponseInfoFromPlatform",
                                      "CheckResponseInfoFromPlatform")};
}

}  // namespace

std::vector<RequestCase> AccountRequests() {
    return {Configuration(), UserName(),           UserId(),     PushSession(),
            Bandwidth(),     TransparentMessage(), VideoLevel(), AlarmRead()};
}

}  // namespace vantix::test
