#include "platform/Server.h"

#include "json/Fields.h"
#include "log/Logger.h"
#include "platform/RequestTable.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

constexpr json::Field<ServerInfo> kServerFields[] = {
    {"stun1Addr", &ServerInfo::stun1Addr},
    {"stun1Port", &ServerInfo::stun1Port},
    {"stun2Addr", &ServerInfo::stun2Addr},
    {"stun2Port", &ServerInfo::stun2Port},
    {"ttsAddr", &ServerInfo::ttsAddr},
    {"ttsPort", &ServerInfo::ttsPort},
    {"vtmAddr", &ServerInfo::vtmAddr},
    {"vtmPort", &ServerInfo::vtmPort},
    {"authAddr", &ServerInfo::authAddr},
    {"nodeJsAddr", &ServerInfo::nodeJsAddr},
    {"nodeJsHttpPort", &ServerInfo::nodeJsHttpPort},
    {"logAddr", &ServerInfo::logAddr},
    {"pushAddr", &ServerInfo::pushAddr},
    {"microCloudMode", &ServerInfo::microCloudMode},
    {"pushDasDomain", &ServerInfo::pushDasDomain},
    {"pushDasPort", &ServerInfo::pushDasPort},
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
    for (size_t i = 0; i < backups.Size(); ++i) {
        const JsonCppView element = backups.Element(i);
        if (!element.IsObject()) {
            continue;
        }
        VtmAddr stVtmAddr;
        json::ReadFields(element, kVtmFields, stVtmAddr);
        VANTIX_LOG_ERROR(site, level::kError, "stVtmAddr.strVtmAddr = %s", stVtmAddr.strVtmAddr.c_str());
        VANTIX_LOG_ERROR(site, level::kError, "stVtmAddr.iVtmPort  = %d", stVtmAddr.iVtmPort);
        serverInfo.vtmBackups.push_back(std::move(stVtmAddr));
    }
}

}  // namespace

int GetServerInfoFromPlatform(const PlatformRoute& route, ServerInfo& serverInfo) {
    RequestCall call(VANTIX_HERE, platform_requests::kServerInfo, route);
    return call.CostInto(serverInfo.iRequestCost).Run([&](const std::string& body) {
        return ParseServerInfoFromPlatform(body, serverInfo);
    });
}

int GetServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                              ServerInfo& serverInfo) {
    RequestCall call(VANTIX_HERE, platform_requests::kServerInfoOfDevice, route);
    return call.With(deviceSerial, localIndex).CostInto(serverInfo.iRequestCost).Run([&](const std::string& body) {
        return ParseServerInfoFromPlatform(body, serverInfo);
    });
}

int GetRelayServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   RelayServerInfo& relay) {
    RequestCall call(VANTIX_HERE, platform_requests::kRelayServer, route);
    return call.With(deviceSerial, channelNo).Run([&](const std::string& body) {
        return ParseRealyInfoFromPlatform(body, relay);
    });
}

int ParseServerInfoFromPlatform(const std::string& body, ServerInfo& serverInfo) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView serverResp = root.Member("serverResp");
        json::ReadFields(serverResp, kServerFields, serverInfo);
        AppendBackups(site, serverResp.Member("vtmBackups"), serverInfo);
        return VANTIX_NOERROR;
    });
}

int ParseRealyInfoFromPlatform(const std::string& body, RelayServerInfo& relay) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::MetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        VANTIX_LOG_INFO(site, level::kInfo, "Platform Response, Resp:%s", body.c_str());
        const JsonCppView data = root.Member("data");
        if (!data.IsObject()) {
            return json::Malformed(site, body);
        }
        json::ReadFields(data, kRelayFields, relay);
        json::ReadFields(data.Member("publicKey"), kRelayKeyFields, relay);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
