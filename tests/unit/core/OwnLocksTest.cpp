// Every guarded member of the core has a mutex of its own, and what belongs together is read and stored under one lock.

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/LockRecorder.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

using Mutexes = std::vector<void*>;

class OwnLocks : public FetchTest {
protected:
    OwnLocks() {
        transport.Respond(kTokenBatch);
        EXPECT_EQ(core.getOneStreamToken("access-token", text), 0);
    }

    /// The mutexes that an operation takes, in order.
    template <class Operation>
    static Mutexes TakenBy(Operation operation) {
        const LockRecorder recorder;
        operation();
        return recorder.Taken();
    }
    Mutexes Mode() {
        return TakenBy([&] { core.getPermissionMode(); });
    }
    Mutexes AccessToken() {
        return TakenBy([&] { core.getAccessToken(); });
    }
    Mutexes Prefetched() {
        return TakenBy([&] { core.GetStreamTokenFromQueue("access-token", buffer); });
    }
    /// The queue cannot be reached alone.
    void* Queue() {
        return TakenBy([&] { core.getOneStreamToken("access-token", text); }).back();
    }

    std::string text;
    char buffer[4097] = "";
    DevDetailInfo device;
    P2PDevInfo p2p;
};

TEST_F(OwnLocks, AreOneForEachGuardedMember) {
    const std::pair<const char*, Mutexes> members[] = {
        {"access token", AccessToken()},
        {"mode", Mode()},
        {"global Tk token", TakenBy([&] { core.getGlobalTkToken(); })},
        {"shared access token", TakenBy([&] { core.getSharedAccessToken(); })},
        {"session", TakenBy([&] { core.getSessionId(); })},
        {"Tk tokens", TakenBy([&] { core.SetDeviceTkTokens("[]"); })},
        {"B2C tokens", TakenBy([&] { core.SetB2CTokens("[]"); })},
        {"channels", TakenBy([&] { core.getChannelCacheValue("C1", 1); })},
        {"devices by channel", TakenBy([&] { core.getDeviceRecord("C1", 1, device); })},
        {"devices by serial", TakenBy([&] { core.IsSupportSeekPlayback("C1"); })},
        {"P2P devices", TakenBy([&] { Parts().p2pDevices.getP2PDevInfoFromLocal("C1", p2p); })},
        {"P2P user", TakenBy([&] { Parts().p2pUser.Invalidate(); })},
        {"servers", TakenBy([&] { core.expireServerInfo(); })},
        {"prefetched stream token", Prefetched()},
        {"stream tokens", {Queue()}},
    };
    std::map<void*, const char*> owners;
    for (const auto& [member, taken] : members) {
        ASSERT_EQ(taken.size(), 1U) << member;
        const auto [owner, isNew] = owners.emplace(taken.front(), member);
        EXPECT_TRUE(isNew) << member << " has the mutex of: " << owner->second;
    }
    EXPECT_EQ(owners.size(), 15U);
}

TEST_F(OwnLocks, AccessTokenIsReadBeforeTheQueueIsLocked) {
    const Mutexes expected{Mode().front(), AccessToken().front(), Queue()};
    EXPECT_EQ(TakenBy([&] { core.getOneStreamToken("access-token", text); }), expected);
}

TEST_F(OwnLocks, PrefetchedTokenItsOwnerAndItsTimeAreStoredUnderOneLock) {
    void* const prefetched = Prefetched().front();
    transport.Respond(kTokenBatch);
    const Mutexes taken = TakenBy([&] { core.GetStreamTokenFast(); });
    EXPECT_EQ(std::count(taken.begin(), taken.end(), prefetched), 2) << "one look, one store";
    EXPECT_EQ(taken.back(), prefetched);
    EXPECT_EQ(Prefetched(), Mutexes{prefetched}) << "it is served under one lock too, whatever the mode";
}

}  // namespace
}  // namespace vantix::test
