// What the switches, modes and token maps do that a host sets by a slot: seen through another handle, in the next
// request, in the caches and in the log.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/DetailResponse.h"
#include "support/Operations.h"
#include "unit/boundary/EffectTest.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class SwitchEffectsTest : public HandleTest {
protected:
    SwitchEffectsTest() : another(CreateVantixDataCenterInstance()) {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("token0");
        handle->SetDeviceTkTokens(R"([{"deviceTkToken":"tk2","deviceVideoTkToken":"tk3","previewTkToken":"tk4",
            "playTackTkToken":"tk5","talkTkToken":"tk6","deviceSerial":"C1","channelNo":"1"}])");
        handle->SetB2CTokens(R"([{"token":"shared","deviceSerial":"C1","channelNo":"1","isShared":1},
                                 {"token":"own","deviceSerial":"C1","channelNo":"2","isShared":0}])");
    }
    ~SwitchEffectsTest() override { DestroyVantixDataCenterInstance(another); }
    SwitchEffectsTest(const SwitchEffectsTest&) = delete;
    SwitchEffectsTest& operator=(const SwitchEffectsTest&) = delete;

    /// Puts a detail record into the caches.
    void CacheDetail(const nlohmann::json& response = DetailResponse("C1", 1)) {
        transport.Respond(response.dump());
        ASSERT_EQ(Call(*handle, "getDevDetailInfoSync", {.serial = "C1", .ch = 1, .force = true}), 0);
    }
    /// Whether a request for the detail is started, though there is a copy.
    bool IsFetchedAgain() {
        const size_t before = transport.Count();
        Call(*another, "getDevDetailInfo", {.serial = "C1", .ch = 1});
        return transport.Count() != before;
    }
    /// Address and credential of the request for a ticket.
    std::string TicketRequest() {
        Call(*another, "getTicketInfo", {.serial = "C1", .ch = 1});
        const std::vector<SentRequest> sent = transport.Sent();
        if (sent.empty()) {
            return "nothing sent";
        }
        const SentRequest& request = sent.back();
        return request.url.substr(0, request.url.find("/api/")) + " " + request.Param("accessToken");
    }

    IVantixDataCenter* another;
};

// ---- Modes and token maps

EFFECT_TEST(SwitchEffectsTest, ModeChoosesAddressAndCredential, "setPermissionMode", "getPermissionMode") {
    const struct {
        int mode;
        const char* request;
    } rows[] = {
        {1, "https://b.example tk3"},
        {2, "https://c.example token0"},
        {0, "https://b.example token0"},
    };
    for (const auto& row : rows) {
        handle->setPermissionMode(row.mode);
        EXPECT_EQ(*another->getPermissionMode(), row.mode);
        EXPECT_EQ(TicketRequest(), row.request);
    }
}

EFFECT_TEST(SwitchEffectsTest, TkTokensAreSeenByNumberByTextAndInTheNextRequest, "SetDeviceTkTokens",
            "getDeviceTkTokensByText", "getDeviceTkTokensByNumber") {
    std::string token;
    const struct {
        int tkType;
        const char* token;
    } rows[] = {{2, "tk2"}, {3, "tk3"}, {4, "tk4"}, {5, "tk5"}, {6, "tk6"}, {7, ""}};
    for (const auto& row : rows) {
        token = "old";
        EXPECT_EQ(another->getDeviceTkTokensByNumber(token, row.tkType, "C1", 1), row.token);
        token = "old";
        EXPECT_EQ(another->getDeviceTkTokensByText(token, row.tkType, "C1", "1"), row.token);
    }
    EXPECT_EQ(another->getDeviceTkTokensByNumber(token, 2, "C1", 2), "");
    EXPECT_EQ(another->getDeviceTkTokensByText(token, 2, "C1", "01"), "");
    handle->SetDeviceTkTokens(R"([{"deviceVideoTkToken":"newer","deviceSerial":"C1","channelNo":"1"}])");
    EXPECT_EQ(another->getDeviceTkTokensByNumber(token, 2, "C1", 1), "");
    handle->setPermissionMode(1);
    EXPECT_EQ(TicketRequest(), "https://b.example newer");
}

EFFECT_TEST(SwitchEffectsTest, B2CTokensAreSeenByNumberByTextAndInTheNextRequest, "SetB2CTokens",
            "getB2CTokensByNumber", "getB2CTokensByText", "isB2CSharedToken", "isB2CSharedChannel") {
    std::string token;
    EXPECT_EQ(another->getB2CTokensByNumber("C1", 1, token), "shared");
    EXPECT_EQ(another->getB2CTokensByText("C1", "2", token), "own");
    token = "old";
    EXPECT_EQ(another->getB2CTokensByNumber("C1", 3, token), "");
    token = "old";
    EXPECT_EQ(another->getB2CTokensByText("C1", "01", token), "");
    EXPECT_TRUE(another->isB2CSharedChannel("C1", 1));
    EXPECT_FALSE(another->isB2CSharedChannel("C1", 2));
    EXPECT_FALSE(another->isB2CSharedChannel("C2", 1));
    EXPECT_TRUE(another->isB2CSharedToken("shared"));
    EXPECT_FALSE(another->isB2CSharedToken("own"));
    handle->setPermissionMode(2);
    handle->SetB2CTokens(R"([{"token":"newer","deviceSerial":"C1","channelNo":"1","isShared":0}])");
    EXPECT_FALSE(another->isB2CSharedChannel("C1", 1));
    EXPECT_EQ(TicketRequest(), "https://b.example token0");
    CacheDetail();
    EXPECT_EQ(transport.Sent().back().Param("accessToken"), "newer");
}

// ---- Caches

EFFECT_TEST(SwitchEffectsTest, CacheTimeIsHowLongACopyIsServed, "setCacheTime", "getCacheTime") {
    handle->setCacheTime(2);
    EXPECT_EQ(another->getCacheTime(), 120);
    CacheDetail();
    clock.AdvanceSeconds(120);
    EXPECT_FALSE(IsFetchedAgain());
    clock.AdvanceSeconds(1);
    EXPECT_TRUE(IsFetchedAgain());
    handle->setCacheTime(3);
    EXPECT_EQ(another->getCacheTime(), 180);
    EXPECT_FALSE(IsFetchedAgain());
}

EFFECT_TEST(SwitchEffectsTest, MarkedCopyIsReadAndFetchedAgain, "SetDevInfoCache", "getDevInfoCache") {
    CacheDetail();
    EXPECT_FALSE(IsFetchedAgain());
    EXPECT_EQ(handle->SetDevInfoCache("C1", 2), -1);
    EXPECT_FALSE(IsFetchedAgain());
    EXPECT_EQ(handle->SetDevInfoCache("C1", 1), 0);
    Outputs outputs;
    EXPECT_EQ(Call(*another, "getDevInfoCache", {.serial = "C1", .ch = 1}, outputs).result, 0);
    EXPECT_EQ(outputs.channel.deviceSerial, "C1");
    EXPECT_EQ(outputs.detail.deviceSerial, "C1");
    EXPECT_TRUE(outputs.detail.isUpdate);
    EXPECT_TRUE(IsFetchedAgain());
}

EFFECT_TEST(SwitchEffectsTest, ClosedBelongSerialKeepsADeviceFromItsParent, "setCloseBelongSerial",
            "isCloseBelongSerial") {
    auto response = DetailResponse("C1", 1);
    auto& device = response["result"]["data"]["device"];
    device["belongSerial"] = "PARENT";
    device["belongState"] = 1;
    device["belongDevice"] = R"({"deviceSerial":"PARENT","deviceStatus":1})";
    CacheDetail(response);
    const std::string unrelated = "BelongNo Unrelated device stDeviceInfo.iCloseBlong = 0";
    const auto unrelatedLines = [&] {
        Outputs outputs;
        outputs.detail.belongSerial = "PARENT";
        outputs.detail.belongState = 1;
        lines.Clear();
        EXPECT_EQ(another->getDevDetailInfoByRelation("C1", 1, outputs.channel, outputs.detail, true), 0);
        return lines.Count(unrelated);
    };
    EXPECT_FALSE(another->isCloseBelongSerial());
    const size_t open = unrelatedLines();
    handle->setCloseBelongSerial(1);
    EXPECT_TRUE(another->isCloseBelongSerial());
    EXPECT_GT(unrelatedLines(), open);
    handle->setCloseBelongSerial(0);
    EXPECT_FALSE(another->isCloseBelongSerial());
    EXPECT_EQ(unrelatedLines(), open);
}

// ---- Configuration, log and texts

EFFECT_TEST(SwitchEffectsTest, ClosingP2PIsSeenInTheConfiguration, "setCloseP2P", "isOpenP2P") {
    EXPECT_TRUE(another->isOpenP2P());
    handle->setCloseP2P(1);
    EXPECT_FALSE(another->isOpenP2P());
    handle->setCloseP2P(0);
    EXPECT_TRUE(another->isOpenP2P());
}

EFFECT_TEST(SwitchEffectsTest, StreamTypeOfTheConfigurationIsSeen, "isVTDUType1") {
    for (const char* type : {"2", "1"}) {
        transport.Respond(std::string(R"({"result":{"code":"200","data":{"streamType":)") + type + "}}}");
        EXPECT_EQ(Call(*handle, "getConfigInfo", {}), 0);
        EXPECT_EQ(another->isVTDUType1(), std::string(type) == "1") << type;
    }
}

EFFECT_TEST(SwitchEffectsTest, LevelFiltersTheLinesOfEveryHandle, "setLogLevel", "getLogLevel") {
    for (const int level : {4, 6, 3}) {
        handle->setLogLevel(level);
        EXPECT_EQ(another->getLogLevel(), level);
        lines.Clear();
        another->setDomain("", "");
        EXPECT_EQ(lines.Lines().size(), level == 3 ? 1U : 0U) << "a line of level 3";
    }
}

EFFECT_TEST(SwitchEffectsTest, TextsThatTheHostWantsInUtf8AreMadeSo, "setDataUtf8", "isDataUtf8") {
    const std::string notUtf8 = "{\"meta\":{\"code\":200},\"data\":{\"domain\":\"\xE9\"}}";
    const auto domain = [&] {
        transport.Respond(notUtf8);
        Outputs outputs;
        Call(*another, "getRelayServerInfo", {.serial = "C1", .ch = 1}, outputs);
        return outputs.text;
    };
    handle->setDataUtf8(1);
    EXPECT_TRUE(another->isDataUtf8());
    EXPECT_THAT(domain(), testing::HasSubstr("ufffd"));
    handle->setDataUtf8(0);
    EXPECT_FALSE(another->isDataUtf8());
    EXPECT_THAT(domain(), testing::Not(testing::HasSubstr("ufffd")));
}

}  // namespace
}  // namespace vantix::test
