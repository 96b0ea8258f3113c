#include "platform/P2P.h"

#include "base/NumberText.h"
#include "json/Fields.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

constexpr json::Field<P2PUserInfo> kUserFields[] = {
    {"userId", &P2PUserInfo::userId},
    {"data", &P2PUserInfo::data},
    {"version", &P2PUserInfo::version},
    {"saltIndex", &P2PUserInfo::saltIndex},
};
constexpr json::Field<P2PServerAddr> kServerFields[] = {
    {"ip", &P2PServerAddr::ip},
    {"port", &P2PServerAddr::port},
};
constexpr json::Field<P2PDevInfo> kCapabilityFields[] = {
    {"V3", &P2PDevInfo::strV3},
    {"V3Sec", &P2PDevInfo::strV3Sec},
    {"DirectPlayback_EndFlag", &P2PDevInfo::strDirectPlayback_EndFlag},
    {"V3Download", &P2PDevInfo::strV3Download},
    {"V3Playback", &P2PDevInfo::strV3Playback},
    {"V3Talk", &P2PDevInfo::strV3Talk},
};

/// Hands "result"."data" to `read`, or refuses the answer.
int ReadResultData(const CallSite& site, const std::string& body,
                   const std::function<void(const JsonCppView& data)>& read) {
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView data = root.Member("result").Member("data");
        if (!data.IsObject()) {
            return json::Malformed(site, body);
        }
        read(data);
        return VANTIX_NOERROR;
    });
}

void ReadDevice(const JsonCppView& data, P2PDevInfo& devInfo) {
    const JsonCppView servers = data.Member("serverInfos");
    for (size_t i = 0; i < servers.Size(); ++i) {
        json::ReadFields(servers.Element(i), kServerFields, devInfo.serverInfos.emplace_back());
    }
    data.Member("defaultKey").Read(devInfo.defaultKey);
    std::string text;
    if (data.Member("defaultKeyVer").Read(text)) {
        devInfo.defaultKeyVer = DecimalPrefix(text);
    }
    if (data.Member("qxDeviceCapability").Read(text)) {
        ParseP2PQXDevCap(text, devInfo);
    }
}

}  // namespace

int GetP2PUserInfoFromPlatform(const PlatformRoute& route, P2PUserInfo& userInfo) {
    RequestCall call(VANTIX_HERE, platform_requests::kP2PUserInfo, route);
    return call.CostInto(userInfo.iRequestCost).Run(CheckResponseInfoFromPlatform, [&](const std::string& body) {
        return ParseP2PUserInfo(body, userInfo);
    });
}

int GetP2PDevInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    RequestCall call(VANTIX_HERE, platform_requests::kP2PDevInfo, route);
    return call.With(deviceSerial)
        .CostInto(devInfo.iRequestCost)
        .Run(CheckResponseInfoFromPlatform, [&](const std::string& body) { return ParseP2PDevInfo(body, devInfo); });
}

int ParseP2PUserInfo(const std::string& body, P2PUserInfo& userInfo) {
    return ReadResultData(VANTIX_HERE, body,
                          [&](const JsonCppView& data) { json::ReadFields(data, kUserFields, userInfo); });
}

int ParseP2PDevInfo(const std::string& body, P2PDevInfo& devInfo) {
    return ReadResultData(VANTIX_HERE, body, [&](const JsonCppView& data) { ReadDevice(data, devInfo); });
}

int ParseP2PQXDevCap(const std::string& text, P2PDevInfo& devInfo) {
    json::JsonCppDocument document;
    if (!json::ParseBody(VANTIX_HERE, text, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    json::ReadFields(document.Root(), kCapabilityFields, devInfo);
    return VANTIX_NOERROR;
}

}  // namespace vantix
