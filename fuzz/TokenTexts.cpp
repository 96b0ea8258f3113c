// The JSON texts with which a host sets tokens, and the look-ups in them. A text that is not JSON leaves the old
// tokens.

#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"
#include "json/Json11Reader.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

bool IsJson(const std::string& text) { return json::Json11Document().Parse(text); }

void ReadTkTokens(const std::string& text) {
    TkTokens tokens;
    tokens.SetDeviceTkTokens(R"([{"deviceVideoTkToken":"old","deviceSerial":"C1","channelNo":"1"}])");
    tokens.SetDeviceTkTokens(text);
    const std::string found = tokens.getDeviceTkTokens(tk::kVideo, "C1", 1, "global");
    Require(IsJson(text) || found == "old");
    Require(found == tokens.getDeviceTkTokens(tk::kVideo, "C1", "1", "global"));
    Require(tokens.getDeviceTkTokens(tk::kGlobal, text, 1, "global") == "global");
}

void ReadB2CTokens(const std::string& text) {
    B2CTokens tokens;
    tokens.SetB2CTokens(R"([{"token":"old","deviceSerial":"S1","channelNo":"1","isShared":1}])");
    tokens.SetB2CTokens(text);
    const bool isShared = tokens.isB2CSharedDevice("S1", 1);
    const std::string found = tokens.getB2CTokens("S1", "1");
    Require(IsJson(text) || (isShared && found == "old"));
    const B2CTokenMap& map = *tokens.Current();
    Require(!isB2CSharedDevice(map, text, text, text));  // the account's own token is never shared
    Require(text.empty() || isB2CSharedDevice(map, text, "account", text) == (text != "account"));
}

constexpr Reader kRows[] = {
    {"Tk tokens", ReadTkTokens},
    {"B2C tokens", ReadB2CTokens},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
