#include "cserver/Server.h"

#include "cserver/ConsumerEnvelope.h"
#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr json::Field<ServerInfo> kFields[] = {
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
    {"pushAddr", &ServerInfo::pushAddr},
    {"pushDasDomain", &ServerInfo::pushDasDomain},
    {"pushDasPort", &ServerInfo::pushDasPort},
};

}  // namespace

int GetServerInfoFromCServer(const ConsumerRoute& route, ServerInfo& serverInfo) {
    return RequestCall(VANTIX_HERE, cserver_requests::kServerInfo, route)
        .CostInto(serverInfo.iRequestCost)
        .Run([&](const std::string& body) { return ParseServerInfoFromCServer(body, serverInfo); });
}

int ParseServerInfoFromCServer(const std::string& body, ServerInfo& serverInfo) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, consumer::Code, [&](const json::JsonCppView& root) -> int {
        const json::JsonCppView config = root.Member("systemConfigInfo");
        if (!config.IsObject()) {
            return json::Malformed(site, body);
        }
        json::ReadFields(config, kFields, serverInfo);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
