#include "operations/Arguments.h"
#include "operations/Operations.h"
#include "operations/Outcomes.h"

namespace vantix::ctl {
namespace {

Outcome FromQueue(const Call& call) {
    constexpr size_t kRoom = 4097;
    std::vector<char> buffer(kRoom, '\0');
    const int code = call.center.GetStreamTokenFromQueue(Token(call), buffer.data());
    buffer.back() = '\0';
    return outcomes::JsonText([&](std::string& text) {
        text = buffer.data();
        return code;
    });
}

constexpr std::array kTokenOperations = {
    Command{"getStreamTokens",
            34,
            {{"count", "1"}, kToken},
            "stream tokens, as the server's response",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& response) {
                    return call.center.getStreamTokens(Token(call), call.Number("count"), response);
                });
            }},
    Command{"getAuthInfo",
            35,
            {kSerial, kChannel, {"playback", "0"}},
            "whether the account may view a channel",
            [](const Call& call) {
                return outcomes::Granted(
                    [&] { return call.center.getAuthInfo(call.Serial(), call.Channel(), call.Flag("playback")); });
            }},
    Command{"RefreshToken",
            36,
            {},
            "renews the access token",
            [](const Call& call) {
                return outcomes::Text([&](std::string& token) { return call.center.RefreshToken(token); });
            }},
    Command{"getOneStreamToken",
            37,
            {kToken},
            "one stream token, from the queue or a fresh batch",
            [](const Call& call) {
                return outcomes::Text(
                    [&](std::string& token) { return call.center.getOneStreamToken(Token(call), token); });
            }},
    Command{"GetStreamTokenFromQueue", 38, {kToken}, "the prefetched stream token, once", &FromQueue},
    Command{"GetStreamTokenFast",
            39,
            {},
            "prefetches a stream token",
            [](const Call& call) { return outcomes::Code([&] { return call.center.GetStreamTokenFast(); }); }},
    Command{"RefreshSession",
            72,
            {{"refresh-session-id", ""}},
            "renews the consumer session (mode 2)",
            [](const Call& call) {
                return outcomes::Text([&](std::string& session) {
                    return call.center.RefreshSession(call.Text("refresh-session-id"), session);
                });
            }},
    Command{
        "SetDeviceTkTokens",
        60,
        {{"tokens"}},
        "replaces all Tk tokens of devices",
        [](const Call& call) { return outcomes::Done([&] { call.center.SetDeviceTkTokens(call.Text("tokens")); }); }},
    Command{"getDeviceTkTokensByText",
            61,
            {kSerial, {"channel-text", "1"}, {"tk-type", "2"}},
            "a device's Tk token",
            [](const Call& call) {
                std::string token;
                return outcomes::Value(call.center.getDeviceTkTokensByText(token, call.Number("tk-type"), call.Serial(),
                                                                           call.Text("channel-text")));
            }},
    Command{"getDeviceTkTokensByNumber",
            62,
            {kSerial, kChannel, {"tk-type", "2"}},
            "a device's Tk token",
            [](const Call& call) {
                std::string token;
                return outcomes::Value(call.center.getDeviceTkTokensByNumber(token, call.Number("tk-type"),
                                                                             call.Serial(), call.Channel()));
            }},
    Command{"SetB2CTokens",
            100,
            {{"tokens"}},
            "replaces all B2C tokens of devices",
            [](const Call& call) { return outcomes::Done([&] { call.center.SetB2CTokens(call.Text("tokens")); }); }},
    Command{"getB2CTokensByNumber",
            101,
            {kSerial, kChannel},
            "a channel's B2C token",
            [](const Call& call) {
                std::string token;
                return outcomes::Value(call.center.getB2CTokensByNumber(call.Serial(), call.Channel(), token));
            }},
    Command{"getB2CTokensByText",
            102,
            {kSerial, {"channel-text", "1"}},
            "a channel's B2C token",
            [](const Call& call) {
                std::string token;
                return outcomes::Value(call.center.getB2CTokensByText(call.Serial(), call.Text("channel-text"), token));
            }},
    Command{"isB2CSharedToken",
            103,
            {kToken},
            "whether a token belongs to a shared device",
            [](const Call& call) { return outcomes::Value(call.center.isB2CSharedToken(Token(call))); }},
    Command{"isB2CSharedChannel",
            104,
            {kSerial, kChannel},
            "whether a channel is shared with the account",
            [](const Call& call) {
                return outcomes::Value(call.center.isB2CSharedChannel(call.Serial(), call.Channel()));
            }},
};

}  // namespace

std::span<const Command> TokenOperations() { return kTokenOperations; }

}  // namespace vantix::ctl
