#include "core/Responses.h"

#include <algorithm>
#include <string_view>

namespace vantix::fuzz {
namespace {

/// A good response of each path; "$S" is the device's serial, "$N" the stamp. The last row is for all other paths.
struct Shape {
    std::string_view path;
    const char* body;
};
constexpr Shape kShapes[] = {
    {"/api/device/detail",
     R"({"result":{"code":"200","data":{"camera":{"cameraNo":1,"deviceSerial":"$S","isTrust":"1"},)"
     R"("device":{"deviceSerial":"$S","deviceIP":"ip-$N","releaseVersion":"VERSION_17","deviceStatus":1,)"
     R"("supportExt":"{\"support_seek_playback\":\"1\"}"}}}})"},
    {"/api/service/media/server/info",
     R"({"resultCode":"200","serverResp":{"vtmAddr":"ip-$N","vtmBackups":[{"addr":"a","port":1}]}})"},
    {"/api/sdk/p2p/user/info/get",
     R"({"result":{"code":"200","data":{"userId":"ip-$N","data":"d","version":1,"saltIndex":2}}})"},
    {"/api/sdk/p2p/dev/info/get",
     R"({"result":{"code":"200","data":{"serverInfos":[{"ip":"a","port":1}],"defaultKey":"ip-$N"}}})"},
    {"/api/user/token", R"({"resultCode":"200","tokenArray":["st-$N-1","st-$N-2"]})"},
    {"/api/user/token/get", R"({"resultCode":"200","tokenArray":["st-$N-1"]})"},
    {"/oauth/token/refreshToken",
     R"({"result":{"code":"200","data":{"access_token":"at-$N","openId":"o","refresh_token":"r","expires_in":60,)"
     R"("scope":"s"}}})"},
    {"/v3/apigateway/login", R"({"meta":{"code":200},"sessionInfo":{"sessionId":"se-$N","refreshSessionId":"rs-$N"}})"},
    {"/v3/userdevices/v1/devices/pagelist",
     R"({"meta":{"code":200},"cameraInfos":[{"channelNo":1,"deviceSerial":"$S"},{"channelNo":2,"deviceSerial":"$S"}],)"
     R"("deviceInfos":[{"deviceSerial":"$S","kmsInfos":{"secretKey":"ip-$N","version":1}}],)"
     R"("connectionInfos":{"$S":{"netIp":"ip-$N"}},"p2pInfos":[{"ip":"a","port":1}]})"},
    {"/v3/configurations/system/info", R"({"meta":{"code":200},"systemConfigInfo":{"vtmAddr":"ip-$N"}})"},
    {"/v3/users/info", R"({"meta":{"code":200},"userInfo":{"userId":"ip-$N"}})"},
    {"/v3/p2pbusiness/configurations/p2p", R"({"meta":{"code":200},"secret":"s","data":{"version":1,"saltIndex":1}})"},
    {"/v3/streaming/records", R"({"meta":{"code":200},"records":[{"startTime":"a","type":1}]})"},
    {"/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
     R"({"meta":{"code":200},"data":{"resourceInfos":[{"deviceSerial":"S1"}]}})"},
    {"",
     R"({"result":{"code":"200","data":{"userId":"u","deviceInfos":[]},"msgData":{"msgSeq":"1"}},"meta":{"code":200},)"
     R"("data":{"ticket":"t","id":"i","url":"u","publicKey":"k","version":1},"ticketInfo":{"ticket":"t"},)"
     R"("userName":"n","pushSessionId":"p"})"},
};

void ReplaceAll(std::string& text, std::string_view what, const std::string& with) {
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

std::string GoodBody(const SentRequest& request, const std::string& stamp) {
    const std::string path = PathOf(request.url);
    const auto* shape = std::find_if(std::begin(kShapes), std::end(kShapes),
                                     [&](const Shape& row) { return row.path.empty() || row.path == path; });
    std::string body = shape->body;
    ReplaceAll(body, "$S", ParameterOf(request, "deviceSerial"));
    ReplaceAll(body, "$N", stamp);
    return body;
}

/// Codes that servers send: expired, busy, and others. Each stands where either family looks for it.
std::string RefusingBody(Input& input) {
    constexpr const char* kCodes[] = {"10002", "401", "49999", "50000", "10005", "1", "-7", "2147483647"};
    const std::string code = kCodes[input.Byte() % std::size(kCodes)];
    return R"({"resultCode":")" + code + R"(","result":{"code":")" + code + R"("},"meta":{"code":)" + code + "}}";
}

/// No connection, or one that breaks behind a whole body, which nobody may read then.
MadeResponse Failed(bool isBroken, const std::string& body) {
    return {isBroken ? TransferResult{18, body} : TransferResult{7, {}}, Verdict::Failed};
}

MadeResponse Changed(Input& input, std::string body) {
    const size_t at = input.Byte() * body.size() / 256;
    body[at] = static_cast<char>(input.Byte());
    return {{0, std::move(body)}, Verdict::Unknown};
}

/// Only the front of a good body: never JSON, as its last brace is missing.
MadeResponse CutOff(Input& input, const std::string& body) {
    return {{0, body.substr(0, input.Byte() * (body.size() - 1) / 256)}, Verdict::Refused};
}

MadeResponse ChosenResponse(uint8_t choice, Input& input, const SentRequest& request, const std::string& stamp) {
    constexpr const char* kNothing[] = {"", "{}", "[]", "null", "no JSON"};
    switch (choice % 8) {
        case 0:
        case 1: return {{0, GoodBody(request, stamp)}, Verdict::Good};
        case 2: return {{0, RefusingBody(input)}, Verdict::Refused};
        case 3: return Failed(choice % 16 >= 8, GoodBody(request, stamp));
        case 4: return {{0, kNothing[choice / 8 % std::size(kNothing)]}, Verdict::Refused};
        case 5: return CutOff(input, GoodBody(request, stamp));
        case 6: return Changed(input, GoodBody(request, stamp));
        default: return {{0, std::string(input.Bytes(input.Byte()))}, Verdict::Unknown};
    }
}

}  // namespace

std::string PathOf(const std::string& url) {
    const size_t host = url.find("://");
    const size_t path = host == std::string::npos ? host : url.find('/', host + 3);
    return path == std::string::npos ? std::string() : url.substr(path, url.find('?') - path);
}

std::string ParameterOf(const SentRequest& request, const std::string& key) {
    const size_t query = request.url.find('?');
    const std::string text = query == std::string::npos ? request.body : request.url.substr(query + 1);
    const std::string member = "\"" + key + "\":\"";
    if (const size_t at = text.find(member); at != std::string::npos) {
        const size_t begin = at + member.size();
        return text.substr(begin, text.find('"', begin) - begin);
    }
    const size_t at = ("&" + text).find("&" + key + "=");
    if (at == std::string::npos) {
        return {};
    }
    const size_t begin = at + key.size() + 1;
    return text.substr(begin, text.find('&', begin) - begin);
}

MadeResponse MakeResponse(Input& input, const SentRequest& request, const std::string& stamp) {
    constexpr size_t kPieceSizes[] = {0, 1, 2, 3, 7, 16, 64, 255};
    const uint8_t choice = input.Byte();
    MadeResponse response = ChosenResponse(choice, input, request, stamp);
    response.result.pieceSize = kPieceSizes[choice / 16 % std::size(kPieceSizes)];
    response.result.hasEmptyPieces = choice >= 128;
    return response;
}

}  // namespace vantix::fuzz
