// Memory that runs out in a setter: the old value stays. In a getter that copies: the whole text or none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <set>

#include "support/FailingNew.h"
#include "support/Operations.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

constexpr char kOld[] = "https://the-old-text-which-is-no-short-string";
constexpr char kNew[] = "https://the-new-text-which-is-longer-and-needs-memory";

class NoMemorySettings : public HandleTest {
protected:
    NoMemorySettings() { TVLLOG_SetCallback(nullptr); }

    static Arguments With(const std::string& text) {
        Arguments arguments;
        arguments.token = text;
        arguments.text = text;
        arguments.serial = "a serial that is no short string";
        return arguments;
    }
    /// What an operation hands out: a reference or a copy.
    std::string Read(const std::string& getter, const Arguments& arguments) {
        Outputs outputs;
        outputs.text = "before";
        Call(*handle, getter, arguments, outputs);
        return outputs.live != nullptr ? *outputs.live : outputs.text;
    }
};

struct TextSetting {
    const char* setter;
    const char* getter;
};

TEST_F(NoMemorySettings, OldTextStaysWhicheverAllocationFails) {
    constexpr TextSetting kSettings[] = {
        {"setAuthAddr", "getAuthAddr"},
        {"setAppId", "getAppId"},
        {"setAccessToken", "getAccessToken"},
        {"setTokenExpireTime", "getTokenExpireTime"},
        {"setRefreshToken", "getRefreshToken"},
        {"setOpenID", "getOpenID"},
        {"setScope", "getScope"},
        {"setState", "getState"},
        {"setSharedAccessToken", "getSharedAccessToken"},
        {"setSessionId", "getSessionId"},
        {"setGlobalTkToken", "getGlobalTkToken"},
    };
    const Arguments old = With(kOld);
    const Arguments fresh = With(kNew);
    for (const TextSetting& setting : kSettings) {
        SCOPED_TRACE(setting.setter);
        const Operation& setter = OperationNamed(setting.setter);
        bool fired = false;
        const size_t allocations = WithEveryAllocationFailing(
            [&] {
                {
                    const FailingNew::Suspended suspended;
                    Call(*handle, setting.setter, old);
                }
                Outputs outputs;
                setter.call(*handle, fresh, outputs);
                fired = FailingNew::Fired();
            },
            [&](size_t n) { EXPECT_EQ(Read(setting.getter, fresh), fired ? kOld : kNew) << n; });
        EXPECT_GT(allocations, 0U);
    }
}

TEST_F(NoMemorySettings, BothDomainsAreOldOrBothNew) {
    bool fired = false;
    const std::string oldPlatform = std::string(kOld) + ".b";
    const std::string oldConsumer = std::string(kOld) + ".c";
    const std::string newPlatform = std::string(kNew) + ".b";
    const std::string newConsumer = std::string(kNew) + ".c";
    const std::string shared = "a shared token that is no short string";
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            {
                const FailingNew::Suspended suspended;
                handle->setDomain(oldPlatform, oldConsumer);
            }
            handle->setDomain(newPlatform, newConsumer);
            fired = FailingNew::Fired();
        },
        [&](size_t n) {
            SCOPED_TRACE(n);
            EXPECT_EQ(handle->getDomain("S", 1), fired ? oldPlatform : newPlatform);
            handle->setSharedAccessToken(shared);
            handle->setPermissionMode(2);
            EXPECT_EQ(handle->getDomainByToken(shared), fired ? oldConsumer : newConsumer);
            handle->setPermissionMode(0);
        });
    EXPECT_GT(allocations, 1U);
}

std::string TkTexts(const std::string& mark) {
    return R"([{"deviceTkToken":"the device's token )" + mark + R"(","deviceVideoTkToken":"the video's token )" + mark +
           R"(","deviceSerial":"a serial that is no short string","channelNo":"1"}])";
}

std::string B2CTexts(const std::string& mark) {
    return R"([{"token":"the channel's own token )" + mark +
           R"(","deviceSerial":"a serial that is no short string","channelNo":"1","isShared":1}])";
}

struct MapSetting {
    const char* setter;
    const char* getter;
    std::string (*texts)(const std::string& mark);
    int tkType;
    const char* oldToken;
    const char* newToken;
};

constexpr MapSetting kMaps[] = {
    {"SetDeviceTkTokens", "getDeviceTkTokensByNumber", TkTexts, 2, "the device's token old", "the device's token new"},
    {"SetDeviceTkTokens", "getDeviceTkTokensByText", TkTexts, 3, "the video's token old", "the video's token new"},
    {"SetB2CTokens", "getB2CTokensByNumber", B2CTexts, 0, "the channel's own token old", "the channel's own token new"},
    {"SetB2CTokens", "getB2CTokensByText", B2CTexts, 0, "the channel's own token old", "the channel's own token new"},
};

TEST_F(NoMemorySettings, OldTokenMapStaysWhicheverAllocationFails) {
    handle->setPermissionMode(2);
    for (const MapSetting& map : kMaps) {
        SCOPED_TRACE(map.getter);
        const Arguments old = With(map.texts("old"));
        Arguments fresh = With(map.texts("new"));
        fresh.tkType = map.tkType;
        const Operation& setter = OperationNamed(map.setter);
        bool fired = false;
        const size_t allocations = WithEveryAllocationFailing(
            [&] {
                {
                    const FailingNew::Suspended suspended;
                    Call(*handle, map.setter, old);
                }
                Outputs outputs;
                setter.call(*handle, fresh, outputs);
                fired = FailingNew::Fired();
            },
            [&](size_t n) { EXPECT_EQ(Read(map.getter, fresh), fired ? map.oldToken : map.newToken) << n; });
        EXPECT_GT(allocations, 5U);
    }
}

TEST_F(NoMemorySettings, ACopiedTextIsWholeOrEmptyWhicheverAllocationFails) {
    handle->setPermissionMode(2);
    handle->setAppId(kOld);
    handle->SetDeviceTkTokens(TkTexts("old"));
    handle->SetB2CTokens(B2CTexts("old"));
    constexpr MapSetting kTexts[] = {kMaps[0], kMaps[1], kMaps[2], kMaps[3], {"", "getAppId", nullptr, 0, kOld, ""}};
    for (const MapSetting& row : kTexts) {
        SCOPED_TRACE(row.getter);
        Arguments arguments = With("");
        arguments.tkType = row.tkType;
        const Operation& getter = OperationNamed(row.getter);
        Outputs outputs;
        bool fired = false;
        const size_t allocations = WithEveryAllocationFailing(
            [&] {
                {
                    const FailingNew::Suspended suspended;
                    outputs.text = "before";
                }
                getter.call(*handle, arguments, outputs);
                fired = FailingNew::Fired();
            },
            [&](size_t n) {
                EXPECT_EQ(outputs.text, fired ? "" : row.oldToken) << n;
                EXPECT_EQ(Read(row.getter, arguments), row.oldToken) << "the next one has it, after " << n;
            });
        EXPECT_GT(allocations, 0U);
    }
}

}  // namespace
}  // namespace vantix::test
