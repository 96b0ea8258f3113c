// The locks of the settings: one for each, the same for setter and getter, given back before the next is taken.

#include <set>

#include "base/ProcessSwitches.h"
#include "unit/core/FetchTest.h"
#include "unit/core/TakenLocks.h"

namespace vantix::test {
namespace {

class SettingLocks : public FetchTest {
protected:
    using Step = void (*)(CVantixDataCenter& core);

    void* LockOf(Step step) {
        return OnlyLockOf([&] { step(core); });
    }
    void* Mode() {
        return LockOf([](CVantixDataCenter& c) { c.getPermissionMode(); });
    }
    void* AccessToken() {
        return LockOf([](CVantixDataCenter& c) { c.getAccessToken(); });
    }
    void* SharedToken() {
        return LockOf([](CVantixDataCenter& c) { c.getSharedAccessToken(); });
    }
    void* B2CMap() {
        return LockOf([](CVantixDataCenter& c) { c.getB2CTokens("SHARED", 1); });
    }
    void* BDomain() {
        return OnlyLockOf([&] { Parts().settings.AreaBDomain.Copy(); });
    }
    void* CDomain() {
        return OnlyLockOf([&] { Parts().settings.CDomain.Copy(); });
    }
};

using Locked = std::vector<void*>;

TEST_F(SettingLocks, SetterAndGetterTakeTheSameOnceAndEachSettingHasOneOfItsOwn) {
    const struct {
        const char* name;
        Step set;
        Step get;
    } rows[] = {
        {"access token", [](CVantixDataCenter& c) { c.setAccessToken("x"); },
         [](CVantixDataCenter& c) { c.getAccessToken(); }},
        {"permission mode", [](CVantixDataCenter& c) { c.setPermissionMode(1); },
         [](CVantixDataCenter& c) { c.getPermissionMode(); }},
        {"global Tk token", [](CVantixDataCenter& c) { c.setGlobalTkToken("x"); },
         [](CVantixDataCenter& c) { c.getGlobalTkToken(); }},
        {"shared token", [](CVantixDataCenter& c) { c.setSharedAccessToken("x"); },
         [](CVantixDataCenter& c) { c.getSharedAccessToken(); }},
        {"session", [](CVantixDataCenter& c) { c.setSessionId("x"); }, [](CVantixDataCenter& c) { c.getSessionId(); }},
    };
    std::set<void*> locks;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        void* const lock = LockOf(row.set);
        EXPECT_EQ(LockOf(row.get), lock);
        EXPECT_EQ(LockRecorder::HeldByThisThread(), 0U);
        locks.insert(lock);
    }
    EXPECT_EQ(locks.size(), 5U);
    EXPECT_EQ(locks.count(nullptr), 0U);
}

TEST_F(SettingLocks, GlobalTkTokenIsCopiedUnderItsOwn) {
    core.setGlobalTkToken("global");
    void* const global = LockOf([](CVantixDataCenter& c) { c.getGlobalTkToken(); });
    EXPECT_EQ(LocksTakenBy([&] { core.getDeviceTkTokens(1, "C1", 1); }), Locked{global});
    EXPECT_EQ(LocksTakenBy([&] { core.getDeviceTkTokens(1, "C1", "1"); }), Locked{global});
}

TEST_F(SettingLocks, DomainOfAChannelTakesModeThenMapThenTheDomains) {
    const Locked shared{Mode(), B2CMap(), CDomain()};
    const Locked own{Mode(), B2CMap(), BDomain()};
    core.setPermissionMode(2);
    EXPECT_EQ(LocksTakenBy([&] { core.getDomain("SHARED", 1); }), shared);
    EXPECT_EQ(LocksTakenBy([&] { core.getDomain("OWN", 1); }), own);
    core.setPermissionMode(0);
    EXPECT_EQ(LocksTakenBy([&] { core.getDomain("SHARED", 1); }), (Locked{Mode(), BDomain()}));
}

TEST_F(SettingLocks, DomainOfATokenTakesModeThenTokensThenMapThenTheDomains) {
    const Locked shared{Mode(), AccessToken(), SharedToken(), B2CMap(), CDomain()};
    core.setPermissionMode(2);
    EXPECT_EQ(LocksTakenBy([&] { core.getDomainByToken("shared-token"); }), shared);
    core.setPermissionMode(0);
    EXPECT_EQ(LocksTakenBy([&] { core.getDomainByToken("shared-token"); }), (Locked{Mode(), BDomain()}));
}

TEST_F(SettingLocks, TokenIsComparedWithTheAccessTokenThenTheSharedOneThenTheMap) {
    const Locked inOrder{AccessToken(), SharedToken(), B2CMap()};
    EXPECT_EQ(LocksTakenBy([&] { core.isB2CSharedDevice("shared-token"); }), inOrder);
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
}

TEST_F(SettingLocks, B2CFlagChangesWhileTheModesLockIsHeld) {
    std::vector<bool> flags;
    const LockRecorder recorder([&] { flags.push_back(bB2CMode); });
    core.setPermissionMode(2);
    EXPECT_EQ(flags, (std::vector<bool>{false, true})) << "once taken, and before it is given back";
    core.setPermissionMode(1);
    EXPECT_EQ(flags, (std::vector<bool>{false, true, true, false}));
    EXPECT_EQ(recorder.Taken().size(), 2U) << "the mode is stored in the same hold";
}

}  // namespace
}  // namespace vantix::test
