#pragma once

#include "json/Fields.h"
#include "vantix/records/ServerInfo.h"

namespace vantix {

/// Which member fills which field of the media servers, in the responses of both families.
inline constexpr json::Field<ServerInfo> kServerFields[] = {
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

}  // namespace vantix
