#include "platform/P2P.h"

#include "base/NumberText.h"
#include "json/Fields.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
#include "requests/P2PFields.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"

namespace vantix {
namespace {

using json::JsonCppView;

constexpr json::Field<P2PUserInfo> kUserFields[] = {
    {"userId", &P2PUserInfo::userId},
    {"data", &P2PUserInfo::data},
    {"version", &P2PUserInfo::version},
    {"saltIndex", &P2PUserInfo::saltIndex},
};
constexpr json::Field<P2PDevInfo> kCapabilityFields[] = {
    {"V3", &P2PDevInfo::strV3},
    {"V3Sec", &P2PDevInfo::strV3Sec},
    {"DirectPlayback_EndFlag", &P2PDevInfo::strDirectPlayback_EndFlag},
    {"V3Download", &P2PDevInfo::strV3Download},
    {"V3Playback", &P2PDevInfo::strV3Playback},
    {"V3Talk", &P2PDevInfo::strV3Talk},
};

void ReadDevice(const JsonCppView& data, P2PDevInfo& devInfo) {
    json::AppendRecords<kP2PServerFields>(data.Member("serverInfos"), devInfo.serverInfos);
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
    return RequestCall<platform_requests::kP2PUserInfo>(VANTIX_HERE, route)
        .CostInto(userInfo.iRequestCost)
        .Run(CheckResponseInfoFromPlatform, [&](TextView body) { return ParseP2PUserInfo(body, userInfo); });
}

int GetP2PDevInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    return RequestCall<platform_requests::kP2PDevInfo>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial)
        .CostInto(devInfo.iRequestCost)
        .Run(CheckResponseInfoFromPlatform, [&](TextView body) { return ParseP2PDevInfo(body, devInfo); });
}

int ParseP2PUserInfo(TextView body, P2PUserInfo& userInfo) {
    return ReadObjectResponse(VANTIX_HERE, body, EnvelopeCode, ResultData,
                              [&](const JsonCppView& data) { json::ReadFields<kUserFields>(data, userInfo); });
}

int ParseP2PDevInfo(TextView body, P2PDevInfo& devInfo) {
    return ReadObjectResponse(VANTIX_HERE, body, EnvelopeCode, ResultData,
                              [&](const JsonCppView& data) { ReadDevice(data, devInfo); });
}

int ParseP2PQXDevCap(TextView text, P2PDevInfo& devInfo) {
    return ReadP2PCapabilities<kCapabilityFields>(VANTIX_HERE, text, devInfo);
}

}  // namespace vantix
