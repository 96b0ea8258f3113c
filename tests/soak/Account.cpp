#include "soak/Account.h"

namespace vantix::test {
namespace {

constexpr Place kPlaces[] = {
    {"C10000001", 1, "", 0, "AL1001"},          {"R20000016", 1, "", 0, "AL1003"},
    {"R20000016", 2, "", 0, "AL1004"},          {"R20000016", 3, "", 0, "AL1003"},
    {"R20000016", 16, "", 0, "AL1002"},         {"B30000003", 1, "R20000016", 3, "AL1001"},
    {"B30000004", 1, "F50000005", 2, "AL1002"}, {kSharedSerial, 1, "", 0, "AL1005"},
};

constexpr int kVariants = 3;

std::string Numbered(const std::string& text, int number) { return text + std::to_string(number); }

std::string ChannelName(const Place& place) { return std::string(place.serial) + "-" + std::to_string(place.ch); }

Json TkEntry(const Place& place, int variant) {
    Json entry = {{"deviceSerial", place.serial}, {"channelNo", std::to_string(place.ch)}};
    for (const char* use :
         {"deviceTkToken", "deviceVideoTkToken", "previewTkToken", "playTackTkToken", "talkTkToken"}) {
        entry[use] = Numbered("tk.", variant) + "." + use + "." + ChannelName(place);
    }
    return entry;
}

Json TkMap(int variant) {
    Json map = Json::array();
    for (const Place& place : kPlaces) {
        map.push_back(TkEntry(place, variant));
    }
    return map;
}

Json B2CMap(bool isShared) {
    Json map = Json::array();
    for (const Place& place : kPlaces) {
        const bool isSharedPlace = isShared && std::string(place.serial) == kSharedSerial;
        map.push_back({{"token", (isSharedPlace ? "b2c.shared." : "b2c.own.") + ChannelName(place)},
                       {"deviceSerial", place.serial},
                       {"channelNo", std::to_string(place.ch)},
                       {"isShared", isSharedPlace ? 1 : 0}});
    }
    return map;
}

void Join(Json& all, const Json& some) {
    for (const Json& one : some) {
        all.push_back(one);
    }
}

void AddSecrets(const Json& map, std::vector<std::string>& secrets) {
    for (const Json& entry : map) {
        for (const auto& [key, value] : entry.items()) {
            if (value.is_string() && (key.ends_with("Token") || key == "token")) {
                secrets.push_back(value);
            }
        }
    }
}

/// Makes both maps' tokens valid at the cloud, and known as secrets.
void AddMaps(const SimulatorClient& cloud, Account& account) {
    Json tk = Json::array();
    Json b2c = Json::array();
    for (int variant = 0; variant < kVariants; ++variant) {
        account.tkTokens.push_back(TkMap(variant).dump());
        Join(tk, TkMap(variant));
    }
    for (const bool isShared : {true, false}) {
        account.b2cTokens.push_back(B2CMap(isShared).dump());
        Join(b2c, B2CMap(isShared));
    }
    cloud.Put("/account", {{"tkTokens", tk}, {"b2cTokens", b2c}});
    AddSecrets(tk, account.hostSecrets);
    AddSecrets(b2c, account.hostSecrets);
}

}  // namespace

std::span<const Place> Places() { return kPlaces; }

Account MakeAccount(const SimulatorClient& cloud) {
    const Json info = cloud.Get("/info");
    const Json& stored = info.at("account");
    Account account{.bDomain = info.at("bDomain"),
                    .cDomain = info.at("cDomain"),
                    .refreshToken = stored.at("refreshToken"),
                    .openId = stored.at("openId"),
                    .refreshSessionId = stored.at("refreshSessionId"),
                    .globalTkToken = stored.at("globalTkToken"),
                    .hostSecrets = {stored.at("globalTkToken")}};
    for (int variant = 0; variant < kVariants; ++variant) {
        account.accessTokens.push_back(Numbered("at.soak.61f0c8de95b2.", variant));
        account.sessions.push_back(Numbered("se.soak.27ad4e90c1f3.", variant));
        account.appIds.push_back(Numbered("app-soak-", variant));
        // Each becomes valid, and stays so.
        cloud.Put("/account", {{"accessToken", account.accessTokens.back()}, {"sessionId", account.sessions.back()}});
        account.hostSecrets.push_back(account.accessTokens.back());
        account.hostSecrets.push_back(account.sessions.back());
    }
    AddMaps(cloud, account);
    return account;
}

}  // namespace vantix::test
