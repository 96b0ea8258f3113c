#include "support/RequestCase.h"

#include <algorithm>
#include <ostream>
#include <regex>

#include "support/ExpectedFeatureCode.h"

namespace vantix::test {
namespace {

struct RefusedBody {
    const char* body;
    const char* code;
    int result;
};

// Each code stands where every rule of the platform finds it.
constexpr RefusedBody kNoJson[] = {
    {"no json", "1", 300001},
    {"", "1", 300001},
    {"<html>502</html>", "1", 300001},
    {R"({"result":{"code":"200","data":{}},"meta":{"code":200},)", "1", 300001},
};
constexpr RefusedBody kRefused[] = {
    {"{}", "2", 300002},
    {R"({"result":5,"meta":"x"})", "2", 300002},
    {"[]", "2", 300002},
    {"null", "2", 300002},
    {R"({"result":{"code":"20002"},"meta":{"code":20002}})", "20002", 320002},
    {R"({"result":{"code":"10002"},"meta":{"code":10002}})", "10002", 310002},
};

std::vector<Refusal> Refusals(const std::string& function, const std::string& parser, const std::string& label,
                              bool isCodeReported) {
    const auto own = [&](const RefusedBody& refused) {
        return ExpectedLine{5, "ERROR", function, std::string(label).append(":$body error:").append(refused.code)};
    };
    std::vector<Refusal> refusals;
    for (const RefusedBody& refused : kNoJson) {
        refusals.push_back({.body = refused.body,
                            .result = refused.result,
                            .lines = {own(refused)},
                            .parserLines = {{5, "ERROR", parser, "platform response bad, szInfo = $body"}}});
    }
    for (const RefusedBody& refused : kRefused) {
        refusals.push_back({.body = refused.body, .result = refused.result, .lines = {own(refused)}});
        if (isCodeReported) {
            refusals.back().parserLines = {
                {3, "INFO ", parser,
                 std::string("Platform Response Error:").append(refused.code).append(", Resp:$body")}};
        }
    }
    return refusals;
}

void Replace(std::string& text, const std::string& place, const std::string& value) {
    if (const size_t at = text.find(place); at != std::string::npos) {
        text.replace(at, place.size(), value);
    }
}

std::vector<RequestCase> AllOf(std::initializer_list<std::vector<RequestCase> (*)()> subjects) {
    std::vector<RequestCase> all;
    for (const auto subject : subjects) {
        for (RequestCase& row : subject()) {
            all.push_back(std::move(row));
        }
    }
    return all;
}

}  // namespace

void PrintTo(const RequestCase& row, std::ostream* out) { *out << row.name; }

std::vector<RequestCase> PlatformRequests() {
    return AllOf({DeviceRequests, ServerRequests, TokenRequests, ListRequests, RecordingRequests, AccountRequests});
}

std::vector<Refusal> ParserRefusals(const std::string& function, const std::string& parser, const std::string& label) {
    return Refusals(function, parser, label, true);
}

std::vector<Refusal> CheckRefusals(const std::string& function, const std::string& check, const std::string& label) {
    return Refusals(function, check, label, false);
}

std::vector<Refusal> With(int result, std::vector<Refusal> refusals) {
    for (Refusal& refusal : refusals) {
        refusal.result = result;
    }
    return refusals;
}

void PrepareFor(const RequestCase& row, IVantixDataCenter& center) {
    center.ClearAllCache();
    center.setPermissionMode(row.mode);
    center.setAccessToken("access-token");
    center.setAppId("app-key");
    center.setSessionId("session-id");
    center.SetB2CTokens(R"([{"token":"shared-token","deviceSerial":"S60000006","channelNo":"1","isShared":1}])");
    const bool isRefresh = row.operation == "RefreshToken";
    center.setRefreshToken(isRefresh ? "refresh-token" : "");
    center.setOpenID(isRefresh ? "open-id" : "");
    center.setScope(isRefresh ? "the-scope" : "");
    center.setState("");
}

std::string WithFeatureCode(std::string text) {
    Replace(text, "$feature", ExpectedFeatureCode());
    return text;
}

std::string Masked(const std::string& text) {
    static const std::regex secret(R"re(((?:accessToken|appKey|sessionId)(?:=|: |":"))[^&"]*)re");
    return std::regex_replace(text, secret, "$1***");
}

std::vector<std::string> PathsOf(const std::string& function) {
    std::vector<std::string> paths;
    for (const RequestCase& row : AllOf({PlatformRequests, ConsumerRequests})) {
        if (row.function == function && std::find(paths.begin(), paths.end(), row.path) == paths.end()) {
            paths.push_back(row.path);
        }
    }
    return paths;
}

}  // namespace vantix::test
