// The requests of the consumer servers.

#include "support/RequestCase.h"

namespace vantix::test {
namespace {

constexpr char kPagelistPath[] = "/v3/userdevices/v1/devices/pagelist";

constexpr char kPagelist[] =
    R"({"meta":{"code":200},"deviceInfos":[{"deviceSerial":"S60000006","qxDeviceCapability":"{\"266\":\"1\"}",)"
    R"("kmsInfos":{"secretKey":"key","version":9}}],"cameraInfos":[{"channelNo":1,"cameraId":"cam-1",)"
    R"("deviceSerial":"S60000006","isShared":1}],"p2pInfos":[{"ip":"203.0.113.1","port":6001}],)"
    R"("connectionInfos":{"S60000006":{"netIp":"203.0.113.7"}}})";

using Headers = std::vector<std::string>;

Headers SmallerSet() {
    return {"clientNo: 100002", "clientType: 19",  "clientVersion: v5.25.0",
            "netType: UNKNOWN", "osVersion: wins", "sessionId: session-id"};
}

Headers LargerSet() {
    return {"clientType: 19", "clientVersion: v5.25.0", "customno: 100002",     "featureCode: $feature",
            "lang: EN",       "netType: UNKNOWN",       "sessionId: session-id"};
}

Headers WithForm(Headers headers) {
    headers.insert(headers.begin(), "Content-Type: application/x-www-form-urlencoded");
    return headers;
}

ExpectedLine ErrorLine(const std::string& tag, const std::string& message) { return {5, "ERROR", tag, message}; }
ExpectedLine InfoLine(const std::string& tag, const std::string& message) { return {3, "INFO ", tag, message}; }

/// What most requests do with a response that their parser refuses. `missing` ends the line about a malformed one.
std::vector<Refusal> ConsumerRefusals(const std::string& function, const std::string& parser, const std::string& label,
                                      const std::string& missing) {
    const ExpectedLine noJson = ErrorLine(parser, "platform response bad, szInfo = $body");
    const ExpectedLine invalid = ErrorLine(parser, "platform response invalid, szInfo = $body" + missing);
    return {
        {"no json", 300001, {ErrorLine(function, label + ":$body error:1")}, {noJson}},
        {"", 300001, {ErrorLine(function, label + ":$body error:1")}, {noJson}},
        {"<html>502</html>", 300001, {ErrorLine(function, label + ":$body error:1")}, {noJson}},
        {R"({"meta":{"code":200},"deviceInfos":[)", 300001, {ErrorLine(function, label + ":$body error:1")}, {noJson}},
        {"{}", 300002, {ErrorLine(function, label + ":$body error:2")}, {invalid}},
        {R"({"meta":{"code":200}})", 300002, {ErrorLine(function, label + ":$body error:2")}, {invalid}},
        {"[]", 300002, {ErrorLine(function, label + ":$body error:2")}, {invalid}},
        {R"({"meta":{"code":201}})",
         300201,
         {ErrorLine(function, label + ":$body error:201")},
         {InfoLine(parser, "Platform Response Error:201, Resp:$body")}},
        {R"({"meta":{"code":401}})",
         300401,
         {ErrorLine(function, label + ":$body error:401")},
         {InfoLine(parser, "Platform Response Error:401, Resp:$body")}},
        {R"({"meta":{"code":10002}})",
         310002,
         {ErrorLine(function, label + ":$body error:10002")},
         {InfoLine(parser, "Platform Response Error:10002, Resp:$body")}}};
}

RequestCase DeviceDetail() {
    return {.name = "DeviceDetail",
            .function = "GetDevDetailInfoFromCServerBySerial",
            .operation = "getDevDetailInfoSync",
            .arguments = {.serial = "S60000006", .force = true},
            .mode = 2,
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .domain = "C",
            .method = "GET",
            .path = kPagelistPath,
            .query = "deviceSerial=S60000006&filter=CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P",
            .headers = SmallerSet(),
            .response = kPagelist,
            .fills = {{"channel",
                       {{"cameraId", "cam-1"}, {"cameraNo", 1}, {"deviceSerial", "S60000006"}, {"isShared", "1"}}},
                      {"detail",
                       {{"deviceSerial", "S60000006"},
                        {"deviceIP", "203.0.113.7"},
                        {"iRequestCost", 3},
                        {"tCacheTime", 1'800'000'000},
                        {"isFromCache", false}}}},
            .costLines = {"/v3/userdevices/v1/devices/pagelist CostTime: = 3 milliseconds"},
            .costFills = {{"detail", {{"iRequestCost", 3}}}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ConsumerRefusals("GetDevDetailInfoFromCServerBySerial", "ParseDevDetailInfoFromCServer",
                                         "ParseDevDetailInfoFromPlatform", ", cameraInfos not exist!")};
}

RequestCase Servers() {
    return {
        .name = "Servers",
        .function = "GetServerInfoFromCServer",
        .operation = "getServerInfoSync",
        .arguments = {.token = "shared-token"},
        .mode = 2,
        .transport = "SyncRequestHeader",
        .sender = "CRequest::SyncRequestHeader",
        .domain = "C",
        .method = "GET",
        .path = "/v3/configurations/system/info",
        .headers = WithForm(LargerSet()),
        .response = R"({"meta":{"code":200},"systemConfigInfo":{"stun1Addr":"stun.example","ttsPort":8664}})",
        .fills =
            {{"servers",
              {{"stun1Addr", "stun.example"}, {"ttsPort", 8664}, {"vtmBackups", Json::array()}, {"iRequestCost", 3}}}},
        .costLines = {"v3/configurations/system/info CostTime: = 3 milliseconds"},
        .costFills = {{"servers", {{"iRequestCost", 3}}}},
        .refusals = ConsumerRefusals("GetServerInfoFromCServer", "ParseServerInfoFromCServer",
                                     "ParseServerInfoFromPlatform", "")};
}

/// Nobody looks at this response: it is handed on as it comes.
RequestCase StreamTokens() {
    return {.name = "StreamTokens",
            .function = "GetStreamTokensFromCServer",
            .operation = "getStreamTokens",
            .arguments = {.token = "shared-token"},
            .mode = 2,
            .transport = "SyncRequestHeaderPost",
            .sender = "CRequest::SyncRequesPostHeader",
            .domain = "C",
            .path = "/api/user/token/get",
            .query = "sessionId=session-id",
            .headers = {"sessionId: session-id"},
            .response = R"({"resultCode":"200","tokenArray":["st.1"]})",
            .fills = {{"text", R"({"resultCode":"200","tokenArray":["st.1"]})"}},
            .refusals = {
                {.body = "no json", .result = 0, .fills = {{"text", "no json"}}},
                {.body = "", .result = 0, .fills = {{"text", ""}}},
                {.body = R"({"meta":{"code":401}})", .result = 0, .fills = {{"text", R"({"meta":{"code":401}})"}}}}};
}

std::vector<Refusal> RecordingRefusals() {
    const std::string function = "GetDeviceFileBySerialFromCServer";
    const std::string label = "ZQR TEST GetLocalRecordFileBySerialFromPlatform:$body error:";
    const ExpectedLine shown = InfoLine(function, "ZQR TEST GetDeviceFileBySerialFromCServer:$body");
    const ExpectedLine noJson = ErrorLine(function, "platform response bad, szInfo = $body");
    return {{"no json", 300001, {shown, noJson, ErrorLine(function, label + "1")}},
            {"<html>502</html>", 300001, {shown, noJson, ErrorLine(function, label + "1")}},
            {"{}", 300002, {shown, ErrorLine(function, label + "2")}},
            {R"({"meta":{"code":201}})", 300201, {shown, ErrorLine(function, label + "201")}},
            {R"({"meta":{"code":401}})", 300401, {shown, ErrorLine(function, label + "401")}},
            {R"({"meta":{"code":20032}})", 320032, {shown, ErrorLine(function, label + "20032")}},
            {R"({"meta":{"code":0}})",
             300002,
             {shown, ErrorLine(function, "ParseServerInfoFromPlatform:$body error:2")},
             {ErrorLine("ParseDeviceRecordFileFromCServer", "platform response invalid, szInfo = $body")}}};
}

RequestCase Recordings() {
    return {
        .name = "Recordings",
        .function = "GetDeviceFileBySerialFromCServer",
        .operation = "getDeviceFileBySerial",
        .arguments = {.serial = "S60000006", .recordType = 2},
        .mode = 2,
        .transport = "SyncRequestHeader",
        .sender = "CRequest::SyncRequestHeader",
        .domain = "C",
        .method = "GET",
        .path = "/v3/streaming/records",
        .query =
            "channelNo=1&deviceSerial=S60000006&recordType=2&size=100&startTime=2024-01-02%2000:00:00"
            "&stopTime=2024-01-02%2023:59:59",
        .headers = LargerSet(),
        .response = R"({"meta":{"code":200},"records":[{"startTime":"a","endTime":"b","type":2,"size":7,)"
                    R"("fileId":"file-1"}]})",
        .fills = {{"files",
                   {{"files", {{{"startTime", "a"}, {"endTime", "b"}, {"type", 2}, {"size", 7}, {"fileId", "file-1"}}}},
                    {"data",
                     {{{"startTime", "a"}, {"endTime", "b"}, {"type", 2}, {"size", 7}, {"fileId", "file-1"}}}}}}},
        .lines = {InfoLine("GetDeviceFileBySerialFromCServer", "ZQR TEST GetDeviceFileBySerialFromCServer:$body")},
        .unsent = "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:7",
        .refusals = RecordingRefusals()};
}

std::vector<Refusal> SessionRefusals() {
    const std::string function = "RefreshSessionFromCServer";
    const std::string mark = "ZQR TEST QX_API_B2C_REFRESH_SESSION ";
    const ExpectedLine noJson = ErrorLine(function, mark + "platform response bad, szInfo = $body");
    const ExpectedLine malformed = ErrorLine(function, "ZQR TEST RefreshSessionFromCServer:$body error:2");
    return {
        {"no json", -1, {noJson}},
        {"", -1, {noJson}},
        {"<html>502</html>", -1, {noJson}},
        {R"({"meta":{"code":401}})", -1, {InfoLine(function, mark + "Platform Response Error:401, Resp:$body")}},
        {R"({"meta":{"code":50000}})", -1, {InfoLine(function, mark + "Platform Response Error:50000, Resp:$body")}},
        {"{}", -1, {malformed}},
        {R"({"meta":{"code":200}})",
         -1,
         {malformed},
         {ErrorLine("ParseRefreshSessionnFromCServer",
                    "platform response invalid, szInfo = $body, sessionInfo not exist!")}}};
}

/// The operation empties its output before it sends anything.
RequestCase SessionRefresh() {
    RequestCase row{
        .name = "SessionRefresh",
        .function = "RefreshSessionFromCServer",
        .operation = "RefreshSession",
        .arguments = {.refreshSessionId = "refresh-id"},
        .mode = 2,
        .transport = "SyncPutRequestHeader",
        .sender = "CRequest::SyncPutRequestHeader",
        .domain = "C",
        .method = "PUT",
        .path = "/v3/apigateway/login",
        .query = "featureCode=$feature&refreshSessionId=refresh-id",
        .headers = WithForm(LargerSet()),
        .response = R"({"meta":{"code":200},"sessionInfo":{"sessionId":"fresh","refreshSessionId":"next"}})",
        .fills = {{"text", "fresh"}},
        .costFills = {{"text", ""}},
        .unsent = "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:7",
        .unsentResult = -1,
        .refusals = SessionRefusals()};
    return row;
}

constexpr char kUser[] = R"({"meta":{"code":200},"userInfo":{"userId":"u-1"}})";
constexpr char kSecret[] = R"({"meta":{"code":200},"secret":"hush","data":{"version":2,"saltIndex":7}})";

const Json kUserFills = {
    {"user", {{"userId", "u-1"}, {"data", "hush"}, {"version", 2}, {"saltIndex", 7}, {"iRequestCost", 6}}}};

/// A refusal other than no JSON ends as a success that fills nothing.
RequestCase P2PUser() {
    const std::string function = "GetP2PUserInfoFromCServer";
    const std::string joined = R"({"response1":{"meta":{"code":200}},"response2":{"meta":{"code":200}}})";
    return {.name = "P2PUser",
            .function = function,
            .operation = "getP2PUserInfoByToken",
            .arguments = {.token = "shared-token"},
            .mode = 2,
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .domain = "C",
            .method = "GET",
            .path = "/v3/users/info",
            .headers = LargerSet(),
            .response = kUser,
            .after = {{"/v3/p2pbusiness/configurations/p2p", kSecret}},
            .fills = kUserFills,
            .lines = {InfoLine(function, "p2pbusiness/configurations/p2p CostTime: = 3 milliseconds")},
            .costLines = {"v3/users/info CostTime: = 3 milliseconds"},
            .costFills = {{"user", {{"iRequestCost", 3}}}},
            .unsent = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:7",
            .refusals = {
                {"no json",
                 1,
                 {ErrorLine(function, "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = $body")}},
                {"<html>502</html>",
                 1,
                 {ErrorLine(function, "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = $body")}},
                {R"({"meta":{"code":500}})", 0, {ErrorLine(function, "CheckResponseInfoFromPlatform:$body error:500")}},
                {R"({"meta":{"code":401}})", 0, {ErrorLine(function, "CheckResponseInfoFromPlatform:$body error:401")}},
                {"{}", 0, {ErrorLine(function, "CheckResponseInfoFromPlatform:$body error:2")}},
                {"[]", 0, {ErrorLine(function, "CheckResponseInfoFromPlatform:$body error:2")}},
                // Both transfers get this one: the first passes its check, and what is joined is refused.
                {R"({"meta":{"code":200}})",
                 300002,
                 {InfoLine(function, "p2pbusiness/configurations/p2p CostTime: = 3 milliseconds"),
                  ErrorLine(function, "CheckResponseInfoFromPlatform:" + joined + " error:2")},
                 {ErrorLine("ParseP2PUserInfoFromCServer",
                            "platform response invalid, szInfo = " + joined + ", userInfo not exist!")},
                 {{"user", {{"iRequestCost", 6}}}}}}};
}

/// The second transfer of the same request. Lines about both bodies show no secret.
RequestCase P2PConfiguration() {
    const std::string function = "GetP2PUserInfoFromCServer";
    const std::string parser = "ParseP2PUserInfoFromCServer";
    const std::string joined = R"({"response1":{"meta":{"code":200},"userInfo":{"userId":"***"}},"response2":)";
    RequestCase row = P2PUser();
    row.name = "P2PConfiguration";
    row.path = "/v3/p2pbusiness/configurations/p2p";
    row.before = {{"/v3/users/info", kUser}};
    row.response = kSecret;
    row.after = {};
    row.lines = {};
    row.costLines = {"v3/users/info CostTime: = 3 milliseconds",
                     "p2pbusiness/configurations/p2p CostTime: = 3 milliseconds"};
    row.costFills = {{"user", {{"iRequestCost", 6}}}};
    row.unsent = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:7";
    row.refusals = {{"no json", 1, {ErrorLine(function, "platform response bad, szInfo = $body")}},
                    {"{}",
                     300002,
                     {ErrorLine(function, "CheckResponseInfoFromPlatform:" + joined + "{}} error:2")},
                     {ErrorLine(parser, "platform response invalid, szInfo = " + joined + "{}}, data not exist!")}},
                    {R"({"secret":"hush","version":2})",
                     300002,
                     {ErrorLine(function, "CheckResponseInfoFromPlatform:" + joined +
                                              R"({"secret":"***","version":"***"}} error:2)")},
                     {ErrorLine(parser, "platform response invalid, szInfo = " + joined +
                                            R"({"secret":"***","version":"***"}}, data not exist!)")}}};
    return row;
}

/// Its elapsed time is only logged.
RequestCase P2PDevice() {
    return {.name = "P2PDevice",
            .function = "GetP2PDevInfoFromCServer",
            .operation = "getP2PDevInfoBySerial",
            .arguments = {.serial = "S60000006", .token = "shared-token"},
            .mode = 2,
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .domain = "C",
            .method = "GET",
            .path = kPagelistPath,
            .query = "deviceSerial=S60000006&filter=P2P,KMS",
            .headers = SmallerSet(),
            .response = kPagelist,
            .fills = {{"p2pDevice",
                       {{"deviceSerial", "S60000006"},
                        {"serverInfos", {{{"ip", "203.0.113.1"}, {"port", 6001}}}},
                        {"defaultKey", "key"},
                        {"defaultKeyVer", 9},
                        {"capability", {{"V3Talk", "1"}}}}}},
            .costLines = {"/v3/userdevices/v1/devices/pagelist CostTime: = 3 milliseconds"},
            .unsent = "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:7",
            .refusals = ConsumerRefusals("GetP2PDevInfoFromCServer", "ParseP2PDevInfoFromCServer",
                                         "ParseDevDetailInfoFromPlatform", ", p2pInfos not exist!")};
}

/// The list in the platform's shape. It is asked for in every mode.
RequestCase SharedDevices() {
    return {.name = "SharedDevices",
            .function = "GetB2CSharedDevListFromPlatform",
            .operation = "getB2CSharedDevList",
            .arguments = {.pageStart = 3, .pageSize = 20},
            .transport = "SyncRequestHeader",
            .sender = "CRequest::SyncRequestHeader",
            .domain = "C",
            .method = "GET",
            .path = "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
            .query = "limit=20&offset=3",
            .headers = {"Content-Type: application/x-www-form-urlencoded", "sessionId: session-id"},
            .response = R"({"meta":{"code":200},"data":{"size":20,"total":0,"resourceInfos":[]}})",
            .fills = {{"text", R"({"result":{"code":"200","data":{"deviceInfos":[]},"page":{"size":20,"total":0}}})"}},
            .unsent = "SyncRequestHeader error:7",
            .refusals = ConsumerRefusals("GetB2CSharedDevListFromPlatform", "ParseB2CDeviceListFromPlatform",
                                         "ParseB2CDeviceListFromPlatform", ", data not exist!")};
}

}  // namespace

std::vector<RequestCase> ConsumerRequests() {
    return {DeviceDetail(), Servers(),          StreamTokens(), Recordings(),   SessionRefresh(),
            P2PUser(),      P2PConfiguration(), P2PDevice(),    SharedDevices()};
}

}  // namespace vantix::test
