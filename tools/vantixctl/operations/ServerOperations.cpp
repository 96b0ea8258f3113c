#include <vantix/records/P2PDevInfo.h>
#include <vantix/records/P2PUserInfo.h>
#include <vantix/records/ServerInfo.h>

#include "operations/Arguments.h"
#include "operations/Operations.h"
#include "operations/Outcomes.h"

namespace vantix::ctl {
namespace {

constexpr std::string_view kUserSecret = "data";
constexpr std::string_view kDeviceSecret = "defaultKey";

/// The token that was given, else the account's.
Outcome CachedP2P(const Call& call) {
    std::vector<P2PServerAddr> servers;
    P2PDevInfo record;
    const int code = call.center.getP2PDevInfoCached(call.Serial(), servers, record, call.Flag("force"));
    return outcomes::WithValue(code, {{"servers", ToJson(servers)}, {"device", ToJson(record)}});
}

constexpr std::array kServerOperations = {
    Command{"getTicketInfo",
            1,
            {kSerial, kChannel},
            "the ticket that opens a stream",
            [](const Call& call) {
                return outcomes::Text([&](std::string& ticket) {
                    return call.center.getTicketInfo(call.Serial(), call.Channel(), ticket);
                });
            }},
    Command{"getCloudTicketInfo",
            2,
            {kSerial, {"local-index", "1"}, {"space-id", "0"}},
            "the ticket that opens cloud recordings",
            [](const Call& call) {
                return outcomes::Text([&](std::string& ticket) {
                    return call.center.getCloudTicketInfo(call.Serial(), call.Number("local-index"),
                                                          call.Number("space-id"), ticket);
                });
            }},
    Command{"getRelayTicket",
            3,
            {kSerial, kChannel},
            "the ticket for a relay server",
            [](const Call& call) {
                return outcomes::Text([&](std::string& ticket) {
                    return call.center.getRelayTicket(call.Serial(), call.Channel(), ticket);
                });
            }},
    Command{"getServerInfoAsync",
            9,
            {kToken},
            "the servers of the user's area, fetched in the background",
            [](const Call& call) {
                return outcomes::Awaited<ServerInfo>([&](ServerInfo& record, std::future<int32_t>& future) {
                    return call.center.getServerInfoAsync(Token(call), record, future);
                });
            }},
    Command{"getServerInfoEx",
            10,
            {kSerial, kChannel, kToken},
            "the video relays of a channel, with a token",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& text) {
                    return call.center.getServerInfoEx(Token(call), text, call.Serial(), call.Channel());
                });
            }},
    Command{"getServerInfoSync",
            11,
            {kToken},
            "the servers of the user's area",
            [](const Call& call) {
                return outcomes::Filled<ServerInfo>(
                    [&](ServerInfo& record) { return call.center.getServerInfoSync(Token(call), record); });
            }},
    Command{"getVideoVtmAddr",
            12,
            {kSerial, kChannel},
            "the video relays of a channel",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& text) {
                    return call.center.getVideoVtmAddr(call.Serial(), call.Channel(), text);
                });
            }},
    Command{"getRelayServerInfo",
            13,
            {kSerial, kChannel},
            "the relay server of a channel",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& text) {
                    return call.center.getRelayServerInfo(call.Serial(), call.Channel(), text);
                });
            }},
    Command{"getP2PUserInfoAsync",
            23,
            {kToken},
            "the user's P2P identity, fetched in the background",
            [](const Call& call) {
                return outcomes::Awaited<P2PUserInfo>([&](P2PUserInfo& record, std::future<int32_t>& future) {
                    return call.center.getP2PUserInfoAsync(record, Token(call), future);
                });
            },
            nullptr,
            kUserSecret},
    Command{"getP2PUserInfoByToken",
            24,
            {kToken},
            "the user's P2P identity",
            [](const Call& call) {
                return outcomes::Filled<P2PUserInfo>(
                    [&](P2PUserInfo& record) { return call.center.getP2PUserInfoByToken(Token(call), record); });
            },
            nullptr,
            kUserSecret},
    Command{"getP2PUserInfoByDevice",
            25,
            {kSerial, kChannel},
            "the user's P2P identity, with the credential of a device",
            [](const Call& call) {
                return outcomes::Filled<P2PUserInfo>([&](P2PUserInfo& record) {
                    return call.center.getP2PUserInfoByDevice(call.Serial(), call.Channel(), record);
                });
            },
            nullptr,
            kUserSecret},
    Command{"getP2PDevInfoAsync",
            26,
            {kSerial, kToken},
            "a device's P2P information, fetched in the background",
            [](const Call& call) {
                return outcomes::Awaited<P2PDevInfo>([&](P2PDevInfo& record, std::future<int32_t>& future) {
                    return call.center.getP2PDevInfoAsync(record, Token(call), call.Serial(), future);
                });
            },
            nullptr,
            kDeviceSecret},
    Command{"getP2PDevInfoCached",
            27,
            {kSerial, {"force", "0"}},
            "a device's P2P information, from the cache",
            &CachedP2P,
            nullptr,
            kDeviceSecret},
    Command{"getP2PDevInfoBySerial",
            28,
            {kSerial, kToken},
            "a device's P2P information",
            [](const Call& call) {
                return outcomes::Filled<P2PDevInfo>([&](P2PDevInfo& record) {
                    return call.center.getP2PDevInfoBySerial(record, Token(call), call.Serial());
                });
            },
            nullptr,
            kDeviceSecret},
    Command{"getP2PDevInfoByChannel",
            29,
            {kSerial, kChannel, kToken},
            "the P2P information of a channel",
            [](const Call& call) {
                return outcomes::Filled<P2PDevInfo>([&](P2PDevInfo& record) {
                    return call.center.getP2PDevInfoByChannel(call.Serial(), call.Channel(), Token(call), record);
                });
            },
            nullptr,
            kDeviceSecret},
    Command{"expireServerInfo",
            51,
            {},
            "drops the cached servers when they are older than two minutes",
            [](const Call& call) { return outcomes::Done([&] { call.center.expireServerInfo(); }); }},
};

}  // namespace

std::span<const Command> ServerOperations() { return kServerOperations; }

}  // namespace vantix::ctl
