// Fetching a device detail: credential and domain, attempts, what is stored, the synchronous front.

#include <algorithm>
#include <thread>

#include "base/LastError.h"
#include "unit/core/CoreTest.h"
#include "vantix/ReturnCodes.h"

namespace vantix::test {
namespace {

class DetailFetch : public CoreTest {
protected:
    DetailFetch() {
        Configure();
        SetThreadLastError(0);
    }

    int Fetch(const std::string& serial = "C1", int ch = 1) {
        return core.getDevDetailInfoSync(serial, ch, true, channel, device, false);
    }
    /// What the device cache holds under the channel's key; empty when there is nothing.
    std::string CachedIP(const std::string& serial = "C1", int ch = 1) {
        DevDetailInfo cached;
        return core.getDeviceRecord(serial, ch, cached) == 0 ? cached.deviceIP : "";
    }
    static nlohmann::json WithIP(const std::string& serial, const std::string& ip) {
        nlohmann::json response = DetailResponse(serial, 1);
        response["result"]["data"]["device"]["deviceIP"] = ip;
        response["result"]["data"]["camera"]["cameraId"] = ip;
        return response;
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

TEST_F(DetailFetch, RequestSendsDeviceTokenAndAppIdToTheBDomain) {
    transport.Respond(DetailResponse("C1", 3).dump());
    EXPECT_EQ(Fetch("C1", 3), 0);
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://b.example/api/device/detail");
    EXPECT_EQ(sent.Param("deviceSerial"), "C1");
    EXPECT_EQ(sent.Param("cameraNo"), "3");
    EXPECT_EQ(sent.Param("accessToken"), "access-token");
    EXPECT_EQ(sent.Param("appKey"), "app-id");
}

TEST_F(DetailFetch, SuccessFillsTheRecordsAndStampsThem) {
    clock.SetSteadyStep(7'000'000);
    transport.Respond(WithIP("C1", "10.0.0.1").dump());
    EXPECT_EQ(Fetch(), VANTIX_NOERROR);
    EXPECT_EQ(channel.deviceSerial, "C1");
    EXPECT_EQ(channel.cameraId, "10.0.0.1");
    EXPECT_EQ(device.deviceIP, "10.0.0.1");
    EXPECT_EQ(device.tCacheTime, clock.Wall());
    EXPECT_FALSE(device.isFromCache);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(device.iRequestCost, 7);
}

TEST_F(DetailFetch, SuccessIsStoredInAllThreeCaches) {
    auto response = WithIP("C1", "10.0.0.1");
    response["result"]["data"]["camera"]["isTrust"] = "3";
    response["result"]["data"]["device"]["supportExt"] = {{"support_seek_playback", "1"}};
    transport.Respond(response.dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(core.getChannelCacheValue("C1", 1), 3);
    EXPECT_EQ(CachedIP(), "10.0.0.1");
    EXPECT_EQ(core.IsSupportSeekPlayback("C1"), 1);
}

TEST_F(DetailFetch, RefillReplacesTheWholeRecord) {
    auto first = WithIP("C1", "10.0.0.1");
    first["result"]["data"]["device"]["publicKey"] = "key";
    first["result"]["data"]["device"]["vtmBackups"] = {{{"ip", "v"}, {"port", 1}}};
    first["result"]["data"]["camera"]["videoQualityInfos"] = {{{"videoLevel", 2}}};
    Cache("C1", 1, first);
    transport.Respond(WithIP("C1", "10.0.0.2").dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), 0);
    EXPECT_EQ(device.deviceIP, "10.0.0.2");
    EXPECT_EQ(device.publicKey, "");
    EXPECT_TRUE(device.vtmBackups.empty());
    EXPECT_TRUE(channel.videoQualityInfos.empty());
}

// ---- The credential

TEST_F(DetailFetch, EmptyTokenFailsBeforeAnyRequest) {
    for (const int mode : {0, 1, 2, 3}) {
        core.setPermissionMode(mode);
        core.setAccessToken(mode == 1 || mode == 2 ? "not looked at" : "");
        SetThreadLastError(0);
        lines.Clear();
        EXPECT_EQ(Fetch(), VANTIX_ERROR) << mode;
        EXPECT_EQ(ThreadLastError(), -1) << mode;
        const LogLine line = OnlyLine("get strToken error");
        EXPECT_EQ(line.Word(), "ERROR");
        EXPECT_EQ(line.level, 5U);
    }
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(CachedIP(), "");
}

TEST_F(DetailFetch, EmptyTokenIsLoggedInTheRefillsName) {
    core.setAccessToken("");
    Fetch();
    EXPECT_EQ(OnlyLine("get strToken error").Tag(), "CVantixDataCenter::updateDevDetailInfo");
}

TEST_F(DetailFetch, SuccessLeavesTheThreadsLastErrorAlone) {
    SetThreadLastError(77);
    transport.Respond(DetailResponse("C1", 1).dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(ThreadLastError(), 77);
    SetThreadLastError(0);
}

TEST_F(DetailFetch, SmallPermissionModeUsesTheVideoTkToken) {
    core.setPermissionMode(1);
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"d","deviceVideoTkToken":"video","previewTkToken":"p",
                                "deviceSerial":"C1","channelNo":"1"}])");
    transport.Respond(DetailResponse("C1", 1).dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Sent()[0].Param("accessToken"), "video");
    EXPECT_EQ(Fetch("C1", 2), -1) << "no token for that channel";
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(DetailFetch, B2CModeUsesTheDevicesTokenAtTheBDomainForAnOwnDevice) {
    core.setPermissionMode(2);
    core.SetB2CTokens(R"([{"token":"own","deviceSerial":"C1","channelNo":"1","isShared":0}])");
    transport.Respond(DetailResponse("C1", 1).dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Sent()[0].Param("accessToken"), "own");
    EXPECT_EQ(transport.Sent()[0].url, "https://b.example/api/device/detail");
}

TEST_F(DetailFetch, B2CModeAsksTheConsumerServerForASharedDevice) {
    core.setPermissionMode(2);
    core.setSessionId("the-session");
    core.SetB2CTokens(R"([{"token":"shared","deviceSerial":"C1","channelNo":"1","isShared":1}])");
    EXPECT_EQ(Fetch(), 100007) << "nothing responds";
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.url.find("https://c.example/v3/userdevices/v1/devices/pagelist?"), 0U) << sent.url;
    EXPECT_NE(std::find(sent.headers.begin(), sent.headers.end(), "sessionId: the-session"), sent.headers.end());
}

TEST_F(DetailFetch, OtherModesUseTheAccessToken) {
    for (const int mode : {0, 3, -1}) {
        core.setPermissionMode(mode);
        transport.Respond(DetailResponse("C1", 1).dump());
        EXPECT_EQ(Fetch(), 0);
        EXPECT_EQ(transport.Sent().back().Param("accessToken"), "access-token");
    }
}

// ---- Attempts

TEST_F(DetailFetch, TransientCodesAreTriedThreeTimesInAll) {
    for (const auto& [code, result] : {std::pair("49999", 349999), {"50000", 350000}}) {
        const size_t before = transport.Count();
        transport.Respond(CodeResponse(code), 3);
        EXPECT_EQ(Fetch(), result);
        EXPECT_EQ(transport.Count(), before + 3);
    }
    EXPECT_EQ(CachedIP(), "");
}

TEST_F(DetailFetch, SuccessEndsTheAttempts) {
    for (const int failures : {1, 2}) {
        const size_t before = transport.Count();
        transport.Respond(CodeResponse("49999"), failures);
        transport.Respond(WithIP("C1", std::to_string(failures)).dump());
        EXPECT_EQ(Fetch(), 0);
        EXPECT_EQ(transport.Count(), before + static_cast<size_t>(failures) + 1);
        EXPECT_EQ(CachedIP(), std::to_string(failures));
    }
}

TEST_F(DetailFetch, AnyOtherResultEndsTheAttempts) {
    for (const auto& [code, result] :
         {std::pair("10002", 310002), {"49998", 349998}, {"50001", 350001}, {"1", 300001}}) {
        transport.Respond(CodeResponse("50000"));
        const size_t before = transport.Count();
        transport.Respond(CodeResponse(code));
        EXPECT_EQ(Fetch(), result);
        EXPECT_EQ(transport.Count(), before + 2);
    }
    transport.Respond(CodeResponse("49999"));
    transport.Fail(7);
    EXPECT_EQ(Fetch(), 100007);
}

TEST_F(DetailFetch, EachAttemptTakesTokenAndDomainAnew) {
    transport.Make([this](const SentRequest&) {
        core.setAccessToken("second-token");
        core.setDomain("https://b2.example", "");
        return ScriptedResponse{0, CodeResponse("49999")};
    });
    transport.Respond(DetailResponse("C1", 1).dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Sent()[0].Param("accessToken"), "access-token");
    EXPECT_EQ(transport.Sent()[1].Param("accessToken"), "second-token");
    EXPECT_EQ(transport.Sent()[1].url, "https://b2.example/api/device/detail");
}

TEST_F(DetailFetch, TokenThatIsGoneAtTheSecondAttemptEndsThem) {
    transport.Make([this](const SentRequest&) {
        core.setAccessToken("");
        return ScriptedResponse{0, CodeResponse("49999")};
    });
    EXPECT_EQ(Fetch(), -1);
    EXPECT_EQ(ThreadLastError(), -1);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(DetailFetch, ExpiredTokenThatCannotBeRenewedIsReturned) {
    transport.Respond(CodeResponse("10002"));
    EXPECT_EQ(Fetch(), VANTIX_ACCESS_TOKEN_EXPIRED);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(core.getAccessToken(), "access-token");
}

TEST_F(DetailFetch, RepeatIsNotRenewedAgain) {
    transport.Respond(CodeResponse("10002"));
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, true, channel, device, true), VANTIX_ACCESS_TOKEN_EXPIRED);
    EXPECT_EQ(transport.Count(), 1U);
    ExpectNoLine("RefreshToken");
}

// ---- Failures

TEST_F(DetailFetch, FailedRefillLeavesAllCachesAsTheyWere) {
    const struct {
        int curl;
        std::string body;
        int result;
    } rows[] = {
        {7, "", 100007},
        {28, R"({"result":)", 100028},
        {0, "", 300001},
        {0, "<html></html>", 300001},
        {0, "[]", 300002},
        {0, R"({"result":{"code":200}})", 300002},
        {0, R"({"result":{"code":200,"data":[]}})", 300002},
        {0, CodeResponse("20007"), 320007},
        {0, CodeResponse("10002"), 310002},
    };
    auto old = WithIP("C1", "old");
    old["result"]["data"]["camera"]["isTrust"] = "9";
    old["result"]["data"]["device"]["supportExt"] = {{"support_seek_playback", "1"}};
    Cache("C1", 1, old);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.result);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_EQ(CachedIP(), "old");
        EXPECT_EQ(core.getChannelCacheValue("C1", 1), 9);
        EXPECT_EQ(core.IsSupportSeekPlayback("C1"), 1);
    }
    transport.Respond(WithIP("C1", "new").dump());
    EXPECT_EQ(Fetch(), 0) << "the next good one succeeds";
    EXPECT_EQ(CachedIP(), "new");
}

TEST_F(DetailFetch, FailedTransferTouchesOnlyTheCost) {
    clock.SetSteadyStep(11'000'000);
    channel.cameraId = "mine";
    device.deviceIP = "mine";
    device.tCacheTime = 5;
    device.isUpdate = true;
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(device.iRequestCost, 11);
    EXPECT_EQ(channel.cameraId, "mine");
    EXPECT_EQ(device.deviceIP, "mine");
    EXPECT_EQ(device.tCacheTime, 5);
    EXPECT_TRUE(device.isUpdate);
    EXPECT_TRUE(device.isFromCache);
}

TEST_F(DetailFetch, RefusedResponseIsNeverASuccess) {
    for (const char* code : {"-300000", "2147183648", "2147483647", "-2147483648", "99999999999", "-99999999999"}) {
        Cache("C1", 1, WithIP("C1", "old"));
        transport.Respond(CodeResponse(code));
        EXPECT_EQ(Fetch(), 300002) << code;
        EXPECT_EQ(CachedIP(), "old") << code;
    }
}

// ---- The synchronous front

TEST_F(DetailFetch, UnforcedCallIsServedHoweverOldTheCopy) {
    Cache("C1", 1, WithIP("C1", "cached"));
    clock.AdvanceSeconds(1'000'000);
    core.SetDevInfoCache("C1", 1);
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, channel, device, false), 0);
    EXPECT_EQ(device.deviceIP, "cached");
    EXPECT_EQ(device.iRequestCost, 0);
    EXPECT_TRUE(device.isFromCache);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(DetailFetch, UnforcedCallFetchesWhatIsNotCached) {
    transport.Respond(WithIP("C1", "fetched").dump());
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, channel, device, false), 0);
    EXPECT_EQ(device.deviceIP, "fetched");
    EXPECT_FALSE(device.isFromCache);
    EXPECT_EQ(OnlyLine("m_mapDevDetailInfo not exist key = C1_1").level, 3U);
}

TEST_F(DetailFetch, ForcedCallDoesNotLookAtTheCache) {
    Cache("C1", 1, WithIP("C1", "cached"));
    transport.Respond(WithIP("C1", "fetched").dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(device.deviceIP, "fetched");
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(DetailFetch, UnforcedCallLooksTheDeviceUpUnderTheChannelsSerial) {
    auto response = WithIP("C1", "by channel");
    response["result"]["data"]["camera"]["deviceSerial"] = "OTHER";
    Cache("C1", 1, response);
    transport.Respond(response.dump());
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, channel, device, false), 0);
    EXPECT_EQ(transport.Count(), 2U) << "OTHER is not cached, so the detail is fetched";
    ExpectNoLine("not exist");
    Cache("OTHER", 1, WithIP("OTHER", "by serial"));
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, channel, device, false), 0);
    EXPECT_EQ(device.deviceIP, "by serial");
}

TEST_F(DetailFetch, UnforcedCallFetchesADeviceOfAnotherReleaseAgain) {
    auto response = WithIP("C1", "other release");
    response["result"]["data"]["device"]["releaseVersion"] = "VERSION_1";
    Cache("C1", 1, response);
    transport.Respond(response.dump());
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, channel, device, false), 0);
    EXPECT_EQ(transport.Count(), 2U);
}

// ---- Many at once

TEST_F(DetailFetch, ManyCallersFetchAndReadAtOnce) {
    iLogLevel = 6;
    transport.Always([](const SentRequest& request) {
        return ScriptedResponse{0, MarkedDetailResponse(request.Param("deviceSerial"), 1, "x").dump()};
    });
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this, i] {
            const std::string serial = "C" + std::to_string(i % 3);
            for (int k = 0; k < 20; ++k) {
                DevChannelInfo ownChannel;
                DevDetailInfo ownDevice;
                EXPECT_EQ(core.getDevDetailInfoSync(serial, 1, k % 2 == 0, ownChannel, ownDevice, false), 0);
                EXPECT_EQ(ownDevice.deviceSerial, serial);
                core.SetDevInfoCache(serial, 1);
                core.setChannelCacheValue(serial, 1, k);
                core.IsSupportPlaybackSpeed(serial, k);
                if (k % 7 == 0) {
                    core.ClearAllCache();
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace vantix::test
