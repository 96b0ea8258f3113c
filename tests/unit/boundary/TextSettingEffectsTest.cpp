// What each text that a host sets becomes: what another handle returns afterwards, and what the next requests show. And
// that nothing else changes with it.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/Operations.h"
#include "unit/boundary/EffectTest.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

/// What a host sees of the settings: a name for each place, and the text there.
using Seen = std::map<std::string, std::string>;

struct TextSettingRow {
    int slot;
    const char* name;
    void (*set)(IVantixDataCenter& center, const std::string& text);
    std::vector<const char*> places;  ///< Where the text is seen afterwards.
};

const TextSettingRow kTextRows[] = {
    {63,
     "setGlobalTkToken",
     [](auto& center, auto& text) { center.setGlobalTkToken(text); },
     {"getGlobalTkToken", "getDeviceTkTokens", "list: accessToken"}},
    {73,
     "setDomain, of the platform",
     [](auto& center, auto& text) { center.setDomain(text, ""); },
     {"getDomain", "getDomainByToken", "files: address"}},
    {73,
     "setDomain, of the consumer servers",
     [](auto& center, auto& text) { center.setDomain("", text); },
     {"getDomain, shared", "getDomainByToken, shared", "shared list: address"}},
    {76,
     "setAuthAddr",
     [](auto& center, auto& text) { center.setAuthAddr(text); },
     {"getAuthAddr", "renewal: address"}},
    {78,
     "setAppId",
     [](auto& center, auto& text) { center.setAppId(text); },
     {"getAppId", "files: appKey", "renewal: client_id"}},
    {80,
     "setAccessToken",
     [](auto& center, auto& text) { center.setAccessToken(text); },
     {"getAccessToken", "files: accessToken"}},
    {82,
     "setTokenExpireTime",
     [](auto& center, auto& text) { center.setTokenExpireTime(text); },
     {"getTokenExpireTime"}},
    {84,
     "setRefreshToken",
     [](auto& center, auto& text) { center.setRefreshToken(text); },
     {"getRefreshToken", "renewal: refresh_token"}},
    {86, "setOpenID", [](auto& center, auto& text) { center.setOpenID(text); }, {"getOpenID", "renewal: open_id"}},
    {88, "setScope", [](auto& center, auto& text) { center.setScope(text); }, {"getScope", "renewal: scope"}},
    {90, "setState", [](auto& center, auto& text) { center.setState(text); }, {"getState", "renewal: state"}},
    {105,
     "setSharedAccessToken",
     [](auto& center, auto& text) { center.setSharedAccessToken(text); },
     {"getSharedAccessToken"}},
    {107,
     "setSessionId",
     [](auto& center, auto& text) { center.setSessionId(text); },
     {"getSessionId", "shared list: sessionId"}},
};

/// The operations of the table: the setters, and the getters among the places.
std::vector<std::string> OperationsOfTextRows() {
    std::vector<std::string> names;
    const auto add = [&](const std::string& text) { names.push_back(text.substr(0, text.find(','))); };
    for (const TextSettingRow& row : kTextRows) {
        add(row.name);
        for (const char* place : row.places) {
            add(place);
        }
    }
    return names;
}

[[maybe_unused]] const bool kNotedTextRows = NoteOperations(OperationsOfTextRows());

class TextSettingEffectsTest : public HandleTest {
protected:
    TextSettingEffectsTest() : another(CreateVantixDataCenterInstance()) {
        handle->setDomain("https://b.example", "https://c.example");
        for (const TextSettingRow& row : kTextRows) {
            if (row.slot != 73) {
                row.set(*handle, "https://" + std::to_string(row.slot) + ".example");
            }
        }
        handle->SetB2CTokens(R"([{"token":"shared","deviceSerial":"S","channelNo":"1","isShared":1}])");
    }
    ~TextSettingEffectsTest() override { DestroyVantixDataCenterInstance(another); }
    TextSettingEffectsTest(const TextSettingEffectsTest&) = delete;
    TextSettingEffectsTest& operator=(const TextSettingEffectsTest&) = delete;

    /// The request that an operation sends in this mode; its transfer fails, so that nothing is stored.
    SentRequest RequestOf(const char* operation, int mode) {
        handle->setPermissionMode(mode);
        const size_t before = transport.Count();
        Call(*another, operation, Arguments{.serial = "own"});
        handle->setPermissionMode(0);
        const std::vector<SentRequest> sent = transport.Sent();
        EXPECT_EQ(sent.size(), before + 1) << operation;
        return sent.size() == before + 1 ? sent.back() : SentRequest();
    }
    void SeeGetters(Seen& seen) {
        std::string text;
        seen["getGlobalTkToken"] = another->getGlobalTkToken();
        seen["getDeviceTkTokens"] = another->getDeviceTkTokens(text, 1, "any", 9);
        seen["getAuthAddr"] = another->getAuthAddr();
        seen["getAppId"] = another->getAppId(text);
        seen["getAccessToken"] = another->getAccessToken();
        seen["getTokenExpireTime"] = another->getTokenExpireTime();
        seen["getRefreshToken"] = another->getRefreshToken();
        seen["getOpenID"] = another->getOpenID();
        seen["getScope"] = another->getScope();
        seen["getState"] = another->getState();
        seen["getSharedAccessToken"] = another->getSharedAccessToken();
        seen["getSessionId"] = another->getSessionId();
    }
    void SeeDomains(Seen& seen) {
        handle->setPermissionMode(2);
        seen["getDomain"] = another->getDomain("S", 2);
        seen["getDomain, shared"] = another->getDomain("S", 1);
        seen["getDomainByToken"] = another->getDomainByToken("nobody's");
        seen["getDomainByToken, shared"] = another->getDomainByToken("shared");
        handle->setPermissionMode(0);
    }
    void SeeRequests(Seen& seen) {
        const SentRequest files = RequestOf("getCloudFileBySerial", 0);
        seen["files: address"] = files.url.substr(0, files.url.find("/api/"));
        seen["files: accessToken"] = files.Param("accessToken");
        seen["files: appKey"] = files.Param("appKey");
        seen["list: accessToken"] = RequestOf("getDevList", 1).Param("accessToken");
        const SentRequest renewal = RequestOf("RefreshToken", 0);
        seen["renewal: address"] = renewal.url.substr(0, renewal.url.find("/oauth/"));
        for (const char* key : {"client_id", "refresh_token", "open_id", "scope", "state"}) {
            seen[std::string("renewal: ") + key] = renewal.Param(key);
        }
        const SentRequest shared = RequestOf("getB2CSharedDevList", 2);
        seen["shared list: address"] = shared.url.substr(0, shared.url.find("/v3/"));
        seen["shared list: sessionId"] = shared.Header("sessionId");
    }
    Seen See() {
        Seen seen;
        SeeGetters(seen);
        SeeDomains(seen);
        SeeRequests(seen);
        return seen;
    }

    IVantixDataCenter* another;
};

TEST_F(TextSettingEffectsTest, EachIsSeenInItsPlacesAndNowhereElse) {
    Seen expected = See();
    EXPECT_EQ(expected.size(), 28U);
    for (const TextSettingRow& row : kTextRows) {
        SCOPED_TRACE(row.name);
        const std::string text = std::string("https://new.example/") + row.name;
        row.set(*handle, text);
        for (const char* place : row.places) {
            ASSERT_TRUE(expected.contains(place)) << place;
            expected[place] = text;
        }
        EXPECT_EQ(See(), expected);
    }
}

TEST_F(TextSettingEffectsTest, SharedAccessTokenIsThatOfASharedDevice) {
    handle->setPermissionMode(2);
    EXPECT_FALSE(another->isB2CSharedDevice("by token"));
    EXPECT_EQ(another->getDomainByToken("by token"), "https://b.example");
    handle->setSharedAccessToken("by token");
    EXPECT_TRUE(another->isB2CSharedDevice("by token"));
    EXPECT_EQ(another->getDomainByToken("by token"), "https://c.example");
}

TEST_F(TextSettingEffectsTest, RefreshedSessionIsTheOneOfTheNextRequest) {
    handle->setPermissionMode(2);
    transport.Respond(R"({"meta":{"code":200},"sessionInfo":{"sessionId":"fresh","refreshSessionId":"next"}})");
    std::string session;
    EXPECT_EQ(handle->RefreshSession("refresh id", session), 0);
    EXPECT_EQ(session, "fresh");
    EXPECT_EQ(another->getSessionId(), "fresh");
    EXPECT_EQ(RequestOf("getB2CSharedDevList", 2).Header("sessionId"), "fresh");
}

}  // namespace
}  // namespace vantix::test
