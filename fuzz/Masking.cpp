// What masks secrets in JSON texts for the log.

#include "log/Masking.h"

#include "json/JsonCppReader.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

/// A text that can stand between quotes.
std::string Plain(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        plain += c == '"' || c == '\\' ? '.' : c;
    }
    return plain;
}

/// A secret leaves no trace: with another one the text is masked to the same.
void MaskJson(const std::string& text) {
    const std::string secret = Plain(std::string_view(text).substr(0, text.size() / 2));
    const std::string rest = text.substr(text.size() / 2);
    for (const char* key : {"appKey", "accessToken", "sessionId"}) {
        const auto masked = [&](const std::string& value) {
            return MaskedJson(std::string("{\"").append(key).append("\":\"").append(value).append("\",").append(rest));
        };
        Require(masked(secret) == masked("another"));
    }
}

/// In JSON, a member of these names is "***", and the text is still JSON.
void MaskMembers(const std::string& text) {
    constexpr std::string_view kNames[] = {"secret", "userId"};
    const std::string masked = MaskedMembers(text, kNames);
    json::JsonCppDocument before;
    if (!before.ParseObjectStrictly(text)) {
        return;
    }
    json::JsonCppDocument after;
    Require(after.ParseObjectStrictly(masked));
    for (const char* name : {"secret", "userId"}) {
        std::string value;
        Require(!before.Root().Member(name).Read(value) || (after.Root().Member(name).Read(value) && value == "***"));
    }
}

/// Works on any text, also on one that is cut off.
void MaskAnything(const std::string& text) {
    constexpr std::string_view kNames[] = {"secret", "userId", ""};
    const std::string members = MaskedMembers(text, kNames);
    const std::string json = MaskedJson(text);
    Require(text.find('"') != std::string::npos || (members == text && json == text));
    Require(MaskedJson(json) == json);
}

constexpr Reader kRows[] = {
    {"JSON", MaskJson},
    {"members", MaskMembers},
    {"anything", MaskAnything},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
