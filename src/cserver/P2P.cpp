#include "cserver/P2P.h"

#include "cserver/DeviceEntry.h"
#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "log/Logger.h"
#include "requests/Envelope.h"
#include "requests/P2PFields.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = cserver_requests;

/// The servers' numbers of the capabilities.
constexpr json::Field<P2PDevInfo> kCapabilityFields[] = {
    {"263", &P2PDevInfo::strV3},
    {"264", &P2PDevInfo::strV3Sec},
    {"267", &P2PDevInfo::strDirectPlayback_EndFlag},
    {"289", &P2PDevInfo::strV3Download},
    {"265", &P2PDevInfo::strV3Playback},
    {"266", &P2PDevInfo::strV3Talk},
};

void ReadDevice(const JsonCppView& device, P2PDevInfo& devInfo) {
    device.Member("deviceSerial").Read(devInfo.deviceSerial);
    std::string capability;
    if (device.Member("qxDeviceCapability").Read(capability)) {
        ParseP2PQXDevCapFromCServer(capability, devInfo);
    }
    device.Member("kmsInfos").Member("secretKey").Read(devInfo.defaultKey);
    device.Member("kmsInfos").Member("version").Read(devInfo.defaultKeyVer);
}

}  // namespace

int GetP2PDevInfoFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    return RequestCall<requests::kP2PDevInfo>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial)
        .Run([&](TextView body) { return ParseP2PDevInfoFromCServer(body, deviceSerial, devInfo); });
}

int ParseP2PDevInfoFromCServer(TextView body, const std::string& deviceSerial, P2PDevInfo& devInfo) {
    const CallSite site = VANTIX_HERE;
    // The line names the detail parser, on purpose.
    VANTIX_LOG_INFO(site, level::kInfo, "ParseDevDetailInfoFromCServer = %s", body.c_str());
    return ReadResponse(site, body, OptionalMetaCode, [&](const JsonCppView& root) -> int {
        const JsonCppView servers = BesideOrInsideData(root, "p2pInfos");
        const JsonCppView devices = BesideOrInsideData(root, "deviceInfos");
        if (!servers.IsArray() || !devices.IsArray()) {
            return LogMalformed(site, body, servers.IsArray() ? "deviceInfos" : "p2pInfos");
        }
        json::AppendRecords<kP2PServerFields>(servers, devInfo.serverInfos);
        ReadDevice(consumer::EntryOf(devices, deviceSerial), devInfo);
        return VANTIX_NOERROR;
    });
}

int ParseP2PQXDevCapFromCServer(const std::string& text, P2PDevInfo& devInfo) {
    return ReadP2PCapabilities<kCapabilityFields>(VANTIX_HERE, text, devInfo);
}

}  // namespace vantix
