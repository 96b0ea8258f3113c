// The JSON text that a host hands to the query for cloud recordings. Either it is one object, and is sent with the
// access token as its member; or it is refused, and nothing is sent.

#include "core/CVantixDataCenter.h"
#include "json/JsonCppReader.h"
#include "support/Records.h"
#include "support/Transfers.h"

namespace vantix::fuzz {
namespace {

constexpr char kResponse[] = R"({"meta":{"code":200}})";

std::string TextMember(const std::string& text, const char* key) {
    json::JsonCppDocument document;
    Require(document.ParseObjectStrictly(text));
    std::string value;
    Require(document.Root().Member(key).Read(value));
    return value;
}

void Query(const std::string& text) {
    CVantixDataCenter core;
    core.setDomain("https://platform.example", "");
    core.setAccessToken("at-1");
    std::string sent;
    SetServer([&](const SentRequest& request) {
        Require(sent.empty() && request.method == "POST");
        Require(request.url == "https://platform.example/api/v3/open/cloud/v3/clouds/videoDetails");
        sent = request.body;
        return TransferResult{0, kResponse};
    });
    std::string response = kUnchanged;
    const int result = core.getCloudFileInfoBySerialEX("C1", 1, text, response);
    SetServer(nullptr);
    if (result == 0) {
        Require(response == kResponse && TextMember(sent, "accessToken") == "at-1");
        Require(core.getCloudFileInfoBySerialEX("C1", 1, text + "x", response) == -1);  // nothing stands behind it
    } else {
        Require(result == -1 && sent.empty() && response == kUnchanged);
    }
}

constexpr Reader kRows[] = {{"query", Query}};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
