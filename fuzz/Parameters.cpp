// Parameters and headers as they are sent and logged. An input is lines: key, value, key, value ...

#include <algorithm>

#include "support/Inputs.h"
#include "support/Records.h"
#include "support/Transfers.h"
#include "transport/CurlTransfer.h"
#include "transport/ParamMap.h"

namespace vantix::fuzz {
namespace {

ParamMap MapOf(Input input) {
    ParamMap map;
    while (!input.IsAtEnd()) {
        const std::string key(input.Line());
        map.Add(key.c_str(), std::string(input.Line()));
    }
    return map;
}

/// A secret leaves no trace in the masked text, and nothing else changes there.
void Serialise(const std::string& text) {
    const ParamMap map = MapOf(Input(text));
    const std::string sent = map.Serialize();
    Require(map.HasZeroByte() || sent.find('\0') == std::string::npos);
    size_t length = map.Size() == 0 ? 0 : map.Size() - 1;
    ParamMap others;
    for (size_t i = 0; i < map.Size(); ++i) {
        const std::string key(map.At(i).key);
        const bool isSecret = key == "appKey" || key == "accessToken" || key == "sessionId";
        others.Add(key.c_str(), std::string(isSecret ? "***" : map.At(i).value));
        length += key.size() + 1 + map.At(i).value.size();
        Require(i == 0 || map.At(i - 1).key < map.At(i).key);
        Require(map.Find(key) == map.At(i).value);
    }
    Require(sent.size() == length);
    Require(map.SerializeMasked() == others.Serialize());
}

/// Each header is one line, whatever is in its key and value.
void SendHeaders(const std::string& text) {
    const ParamMap map = MapOf(Input(text));
    size_t sent = 0;
    SetServer([&](const SentRequest& request) {
        sent = request.headers.size();
        for (const std::string& line : request.headers) {
            Require(line.find_first_of("\r\n") == std::string::npos);
        }
        return TransferResult();
    });
    CurlTransfer transfer(false);
    transfer.SetCommonOptions("https://platform.example/", true);
    transfer.AddHeaders(map);
    transfer.ApplyHeaders();
    Require(transfer.Perform() == 0 && sent == map.Size());
    SetServer(nullptr);
}

constexpr Reader kRows[] = {
    {"parameters", Serialise},
    {"headers", SendHeaders},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
