#include "platform/Server.h"

#include "json/Fields.h"
#include "log/Logger.h"
#include "platform/RequestTable.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "requests/ServerFields.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

/// Members that only the platform sends.
constexpr json::Field<ServerInfo> kMoreServerFields[] = {
    {"logAddr", &ServerInfo::logAddr},
    {"microCloudMode", &ServerInfo::microCloudMode},
};
constexpr json::Field<VtmAddr> kVtmFields[] = {
    {"addr", &VtmAddr::strVtmAddr},
    {"port", &VtmAddr::iVtmPort},
};
constexpr json::Field<RelayServerInfo> kRelayFields[] = {
    {"domain", &RelayServerInfo::domain},
    {"port", &RelayServerInfo::port},
};
constexpr json::Field<RelayServerInfo> kRelayKeyFields[] = {
    {"key", &RelayServerInfo::publicKey},
    {"version", &RelayServerInfo::version},
};

void AppendBackups(const CallSite& site, const JsonCppView& backups, ServerInfo& serverInfo) {
    json::ForEachObject(backups, [&](const JsonCppView& element) {
        VtmAddr& backup = serverInfo.vtmBackups.emplace_back();
        json::ReadFields<kVtmFields>(element, backup);
        VANTIX_LOG_ERROR(site, level::kError, "stVtmAddr.strVtmAddr = %s", backup.strVtmAddr.c_str());
        VANTIX_LOG_ERROR(site, level::kError, "stVtmAddr.iVtmPort  = %d", backup.iVtmPort);
    });
}

}  // namespace

int GetServerInfoFromPlatform(const PlatformRoute& route, ServerInfo& serverInfo) {
    return RequestCall<platform_requests::kServerInfo>(VANTIX_HERE, route)
        .CostInto(serverInfo.iRequestCost)
        .Run([&](TextView body) { return ParseServerInfoFromPlatform(body, serverInfo); });
}

int GetServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                              ServerInfo& serverInfo) {
    return RequestCall<platform_requests::kServerInfoOfDevice>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                                               "localIndex"_key = localIndex)
        .CostInto(serverInfo.iRequestCost)
        .Run([&](TextView body) { return ParseServerInfoFromPlatform(body, serverInfo); });
}

int GetRelayServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   RelayServerInfo& relay) {
    return RequestCall<platform_requests::kRelayServer>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                                        "channelNo"_key = channelNo)
        .Run([&](TextView body) { return ParseRealyInfoFromPlatform(body, relay); });
}

int ParseServerInfoFromPlatform(TextView body, ServerInfo& serverInfo) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView serverResp = root.Member("serverResp");
        json::ReadFields<kServerFields>(serverResp, serverInfo);
        json::ReadFields<kMoreServerFields>(serverResp, serverInfo);
        AppendBackups(site, serverResp.Member("vtmBackups"), serverInfo);
        return VANTIX_NOERROR;
    });
}

int ParseRealyInfoFromPlatform(TextView body, RelayServerInfo& relay) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, MetaCode, [&](const JsonCppView& root) -> int {
        VANTIX_LOG_INFO(site, level::kInfo, "Platform Response, Resp:%s", body.c_str());
        const JsonCppView data = RootData(root);
        if (!data.IsObject()) {
            return LogMalformed(site, body);
        }
        json::ReadFields<kRelayFields>(data, relay);
        json::ReadFields<kRelayKeyFields>(data.Member("publicKey"), relay);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
