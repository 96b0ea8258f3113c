// The log lines of whole requests: with other secrets the lines are the same. An input is the lines "endpoint byte",
// "secret", "other value", and behind them the response.

#include "requests/RequestFunctions.h"
#include "support/Inputs.h"
#include "support/Lines.h"
#include "support/Records.h"
#include "support/Transfers.h"
#include "transport/ResponseBody.h"

namespace vantix::fuzz {
namespace {

constexpr char kBase[] = "https://platform.example";

struct Case {
    uint32_t endpoint = 0;
    std::string value;
    std::string response;
};

using SendCase = int (*)(const Case& request, const ParamMap& params, const ParamMap& headers, ResponseBody& body);

std::vector<std::string> LinesWith(const Case& request, const std::string& secret, SendCase send) {
    ParamMap params;
    ParamMap headers;
    params.Add("deviceSerial", request.value);
    headers.Add("clientNo", request.value);
    for (const char* key : {"accessToken", "sessionId"}) {
        params.Add(key, secret);
        headers.Add(key, secret);
    }
    params.Add("appKey", secret);
    ResponseBody body;
    Require(send(request, params, headers, body) == 0 && body.Text() == request.response);
    return TakeLines();
}

template <SendCase Send>
void ReadCase(const std::string& text) {
    Input input(text);
    Case request;
    request.endpoint = input.Byte();
    const std::string secret(input.Line());
    request.value = input.Line();
    request.response = input.Rest();
    const WritingLines writing(1);
    SetServer([&](const SentRequest&) { return TransferResult{0, request.response}; });
    Require(LinesWith(request, secret, Send) == LinesWith(request, "another secret", Send));
    SetServer(nullptr);
}

int SendForm(const Case& request, const ParamMap& params, const ParamMap& /*headers*/, ResponseBody& body) {
    return SyncRequest(request.endpoint, params, kBase, body.Data(), body.Length());
}
int SendTicket(const Case& /*request*/, const ParamMap& params, const ParamMap& /*headers*/, ResponseBody& body) {
    return SyncRequest_v2(params, kBase, body.Data(), body.Length());
}
int SendGet(const Case& request, const ParamMap& params, const ParamMap& headers, ResponseBody& body) {
    return SyncRequestHeader(request.endpoint, params, headers, kBase, body.Data(), body.Length());
}
int SendPost(const Case& request, const ParamMap& params, const ParamMap& headers, ResponseBody& body) {
    return SyncRequestHeaderPost(request.endpoint, params, headers, kBase, body.Data(), body.Length());
}
int SendPut(const Case& request, const ParamMap& params, const ParamMap& headers, ResponseBody& body) {
    return SyncPutRequestHeader(request.endpoint, params, headers, kBase, body.Data(), body.Length());
}

constexpr Reader kRows[] = {
    {"form", ReadCase<SendForm>}, {"ticket", ReadCase<SendTicket>}, {"GET", ReadCase<SendGet>},
    {"POST", ReadCase<SendPost>}, {"PUT", ReadCase<SendPut>},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
