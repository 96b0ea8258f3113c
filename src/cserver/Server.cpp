#include "cserver/Server.h"

#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "requests/ServerFields.h"

namespace vantix {
namespace {

json::JsonCppView Configuration(const json::JsonCppView& root) { return root.Member("systemConfigInfo"); }

}  // namespace

int GetServerInfoFromCServer(const ConsumerRoute& route, ServerInfo& serverInfo) {
    return RequestCall<cserver_requests::kServerInfo>(VANTIX_HERE, route)
        .CostInto(serverInfo.iRequestCost)
        .Run([&](TextView body) { return ParseServerInfoFromCServer(body, serverInfo); });
}

int ParseServerInfoFromCServer(TextView body, ServerInfo& serverInfo) {
    return ReadObjectResponse(
        VANTIX_HERE, body, OptionalMetaCode, Configuration,
        [&](const json::JsonCppView& configuration) { json::ReadFields<kServerFields>(configuration, serverInfo); });
}

}  // namespace vantix
