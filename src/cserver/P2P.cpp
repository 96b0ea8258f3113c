#include "cserver/P2P.h"

#include "cserver/ConsumerEnvelope.h"
#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = cserver_requests;

constexpr json::Field<P2PServerAddr> kServerFields[] = {
    {"ip", &P2PServerAddr::ip},
    {"port", &P2PServerAddr::port},
};
/// The servers' numbers of the capabilities.
constexpr json::Field<P2PDevInfo> kCapabilityFields[] = {
    {"263", &P2PDevInfo::strV3},
    {"264", &P2PDevInfo::strV3Sec},
    {"267", &P2PDevInfo::strDirectPlayback_EndFlag},
    {"289", &P2PDevInfo::strV3Download},
    {"265", &P2PDevInfo::strV3Playback},
    {"266", &P2PDevInfo::strV3Talk},
};
constexpr json::Field<P2PUserInfo> kUserFields[] = {
    {"version", &P2PUserInfo::version},
    {"saltIndex", &P2PUserInfo::saltIndex},
};

/// A copy in which what identifies the user, and opens the way to the devices, stands masked.
json::JsonBuilder MaskedCopy(const JsonCppView& view) {
    json::JsonBuilder copy = json::JsonBuilder::CopyOf(view);
    for (const char* key : {"userId", "secret", "version", "saltIndex"}) {
        if (!view.Member(key).IsNull()) {
            copy.Set(key, "***");
        }
    }
    return copy;
}

/// One of the joined answers for the log, with its object of this name.
json::JsonBuilder MaskedAnswer(const JsonCppView& answer, const char* object) {
    json::JsonBuilder copy = MaskedCopy(answer);
    if (answer.Member(object).IsObject()) {
        copy.Set(object, MaskedCopy(answer.Member(object)));
    }
    return copy;
}

/// The joined answers for the log.
std::string Masked(const JsonCppView& first, const JsonCppView& second) {
    return json::JsonBuilder::Object()
        .Set("response1", MaskedAnswer(first, "userInfo"))
        .Set("response2", MaskedAnswer(second, "data"))
        .Compact();
}

/// Sends the first request. `goOn` is false when the second must not follow.
int FetchUser(const CallSite& site, const ConsumerRoute& route, const ClientInfo& client, int32_t& cost,
              json::JsonCppDocument& document, bool& goOn) {
    std::string body;
    goOn = false;
    const int fetched = RequestCall(site, requests::kUserInfo, route, &client).CostInto(cost).Fetch(body);
    if (fetched != VANTIX_NOERROR) {
        return fetched;
    }
    if (!document.Parse(body)) {
        VANTIX_LOG_ERROR(site, level::kError,
                         "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = %s", body.c_str());
        return VANTIX_RESP_NOT_JSON;
    }
    const bool hasMeta = document.Root().Member("meta").IsObject();
    const int code = hasMeta ? consumer::Code(document.Root()) : VANTIX_RESP_BAD_FORMAT;
    if (code != 0) {
        // A success in spite of the failure: callers see it by the unfilled record.
        VANTIX_LOG_ERROR(site, level::kError, "%s", Filled(requests::kUserInfo.parserFailure, body, code).c_str());
        return VANTIX_NOERROR;
    }
    goOn = true;
    return VANTIX_NOERROR;
}

int FetchConfiguration(const CallSite& site, const ConsumerRoute& route, const ClientInfo& client, int32_t& cost,
                       json::JsonCppDocument& document) {
    std::string body;
    const int fetched = RequestCall(site, requests::kP2PConfiguration, route, &client).CostInto(cost).Fetch(body);
    if (fetched != VANTIX_NOERROR) {
        return fetched;
    }
    return json::ParseBody(site, body, document) ? VANTIX_NOERROR : VANTIX_RESP_NOT_JSON;
}

int ReadUser(const CallSite& site, const std::string& forLog, const JsonCppView& first, const JsonCppView& second,
             P2PUserInfo& userInfo) {
    const struct {
        const char* name = nullptr;
        JsonCppView value;
    } required[] = {{"response1", first},
                    {"response2", second},
                    {"userInfo", first.Member("userInfo")},
                    {"data", second.Member("data")}};
    for (const auto& member : required) {
        if (!member.value.IsObject()) {
            return json::Malformed(site, forLog, member.name);
        }
    }
    first.Member("userInfo").Member("userId").Read(userInfo.userId);
    consumer::Find(second, "secret").Read(userInfo.data);
    json::ReadFields(second.Member("data"), kUserFields, userInfo);
    return VANTIX_NOERROR;
}

}  // namespace

int GetP2PUserInfoFromCServer(const ConsumerRoute& route, P2PUserInfo& userInfo) {
    const CallSite site = VANTIX_HERE;
    const ClientInfo client;
    json::JsonCppDocument user;
    json::JsonCppDocument configuration;
    int32_t userCost = 0;
    int32_t configurationCost = 0;
    bool goOn = false;
    int result = FetchUser(site, route, client, userCost, user, goOn);
    if (goOn) {
        result = FetchConfiguration(site, route, client, configurationCost, configuration);
        goOn = result == VANTIX_NOERROR;
    }
    userInfo.iRequestCost = userCost + configurationCost;
    if (!goOn) {
        return result;
    }
    const std::string joined = json::JsonBuilder::Object()
                                   .Set("response1", json::JsonBuilder::CopyOf(user.Root()))
                                   .Set("response2", json::JsonBuilder::CopyOf(configuration.Root()))
                                   .Compact();
    const int parsed = ParseP2PUserInfoFromCServer(joined, userInfo);
    if (parsed != VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(
            site, level::kError, "%s",
            Filled(requests::kP2PConfiguration.parserFailure, Masked(user.Root(), configuration.Root()), parsed)
                .c_str());
        return VANTIX_PLATFORM_ERROR_BASE + parsed;
    }
    return VANTIX_NOERROR;
}

int ParseP2PUserInfoFromCServer(const std::string& joined, P2PUserInfo& userInfo) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument document;
    if (!json::ParseBody(site, joined, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    const JsonCppView first = document.Root().Member("response1");
    const JsonCppView second = document.Root().Member("response2");
    return ReadUser(site, Masked(first, second), first, second, userInfo);
}

int GetP2PDevInfoFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    return RequestCall(VANTIX_HERE, requests::kP2PDevInfo, route).With(deviceSerial).Run([&](const std::string& body) {
        return ParseP2PDevInfoFromCServer(body, deviceSerial, devInfo);
    });
}

int ParseP2PDevInfoFromCServer(const std::string& body, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    const CallSite site = VANTIX_HERE;
    // The line says the detail parser's name on purpose.
    VANTIX_LOG_INFO(site, level::kInfo, "ParseDevDetailInfoFromCServer = %s", body.c_str());
    return json::ReadAnswer(site, body, consumer::Code, [&](const JsonCppView& root) -> int {
        const JsonCppView servers = consumer::Find(root, "p2pInfos");
        const JsonCppView devices = consumer::Find(root, "deviceInfos");
        if (!servers.IsArray() || !devices.IsArray()) {
            return json::Malformed(site, body, servers.IsArray() ? "deviceInfos" : "p2pInfos");
        }
        for (size_t i = 0; i < servers.Size(); ++i) {
            json::ReadFields(servers.Element(i), kServerFields, devInfo.serverInfos.emplace_back());
        }
        const JsonCppView device = consumer::EntryOf(devices, deviceSerial);
        device.Member("deviceSerial").Read(devInfo.deviceSerial);
        std::string capability;
        if (device.Member("qxDeviceCapability").Read(capability)) {
            ParseP2PQXDevCapFromCServer(capability, devInfo);
        }
        device.Member("kmsInfos").Member("secretKey").Read(devInfo.defaultKey);
        device.Member("kmsInfos").Member("version").ReadIntOrText(devInfo.defaultKeyVer);
        return VANTIX_NOERROR;
    });
}

int ParseP2PQXDevCapFromCServer(const std::string& text, P2PDevInfo& devInfo) {
    json::JsonCppDocument document;
    if (!json::ParseBody(VANTIX_HERE, text, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    json::ReadFields(document.Root(), kCapabilityFields, devInfo);
    return VANTIX_NOERROR;
}

}  // namespace vantix
