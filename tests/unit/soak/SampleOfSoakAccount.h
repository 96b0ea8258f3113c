#pragma once

#include "soak/Account.h"

namespace vantix::test {

/// What the soak knows of an account, with one of everything that it chooses from.
inline Account SampleOfSoakAccount() {
    return {.bDomain = "https://b.example",
            .cDomain = "https://c.example",
            .refreshToken = "rt.1",
            .openId = "open",
            .refreshSessionId = "rs.1",
            .globalTkToken = "tk.global",
            .accessTokens = {"at.soak.1"},
            .sessions = {"se.soak.1"},
            .tkTokens = {"[]"},
            .b2cTokens = {"shared", "own"},
            .appIds = {"app-soak-1"},
            .hostSecrets = {"at.soak.1", "se.soak.1", "tk.0.deviceTkToken.C10000001-1"}};
}

}  // namespace vantix::test
