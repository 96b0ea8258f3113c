#pragma once

#include "core/detail/DetailCaches.h"
#include "core/detail/DeviceDetail.h"
#include "core/p2p/P2PDevices.h"
#include "core/p2p/P2PUser.h"
#include "core/queries/Queries.h"
#include "core/renewal/CredentialRefresh.h"
#include "core/renewal/Renewal.h"
#include "core/routes/Routes.h"
#include "core/servers/ServerInformation.h"
#include "core/servers/VideoRelays.h"
#include "core/settings/Settings.h"
#include "core/streams/FirstStreamToken.h"
#include "core/streams/StreamTokens.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"

namespace vantix {

/// The parts of the core. Each gets references to earlier ones.
struct CoreParts {
    Settings settings;
    TkTokens tkTokens;
    B2CTokens b2cTokens;
    Routes routes{settings, tkTokens, b2cTokens};
    CredentialRefresh refresh{settings, routes};
    Renewal renewal{refresh};
    DetailCaches caches;
    DeviceDetail detail{settings, caches, routes, renewal};
    ServerInformation servers{routes, renewal};
    VideoRelays relays{routes, renewal};
    P2PUser p2pUser{routes, renewal};
    P2PDevices p2pDevices{routes, renewal};
    StreamTokens streamTokens{settings, routes, renewal};
    FirstStreamToken firstToken{settings, streamTokens};
    Queries queries{settings, routes, renewal};
};

}  // namespace vantix
