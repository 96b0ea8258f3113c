// Everything that a host may do, done by many at once: reads, refills, marks, clears, refreshes and settings, while the
// cloud's responses change all the time. It takes as long as a fixed number of operations does; what a race detector
// watches. Afterwards every record that was handed out must be one that some response contained whole, and every
// request that was received must be explained by a call.

#include <gmock/gmock.h>

#include <atomic>
#include <mutex>
#include <set>
#include <thread>

#include "DetailFixture.h"
#include "support/Operations.h"
#include "support/OutputJson.h"
#include "support/Threads.h"

namespace vantix::test {
namespace {

constexpr int kRaceThreads = 32;
constexpr int kRaceRounds = 40;
constexpr char kRefreshPath[] = "/oauth/token/refreshToken";

/// The text of a response's version, as "v7".
std::string Text(int version) { return std::string("v").append(std::to_string(version)); }

// A record is whole when all that distinguishes the versions of a response belongs to the same one.

bool IsWhole(const DevDetailInfo& device, int version) {
    return device.devicePort == version && device.publicKey == Text(version) && device.vtmIp == Text(version) &&
           device.vtmBackups.size() == 1 && device.vtmBackups[0].strVtmAddr == Text(version) &&
           device.vtmBackups[0].iVtmPort == version;
}
bool IsWhole(const DevChannelInfo& channel, int version) {
    return channel.cameraId == Text(version) && channel.streamBizUrl == Text(version) && channel.type == version;
}
bool IsWhole(const ServerInfo& servers, int version) {
    return servers.stun1Addr == Text(version) && servers.stun2Port == version && servers.vtmBackups.size() == 1 &&
           servers.vtmBackups[0].strVtmAddr == Text(version) && servers.vtmBackups[0].iVtmPort == version;
}
bool IsWhole(const P2PUserInfo& user, int version) { return user.data == Text(version) && user.saltIndex == version; }
bool IsWhole(const P2PDevInfo& device, int version) {
    return device.defaultKey == Text(version) && device.strV3Talk == Text(version) && device.serverInfos.size() == 1 &&
           device.serverInfos[0].ip == Text(version) && device.serverInfos[0].port == version;
}

class RaceTest : public DetailFixture {
protected:
    void SetUp() override {
        DetailFixture::SetUp();
        m_token = Account("accessToken");
        Center().setAuthAddr(Account("authAddr"));
        Center().setRefreshToken(Account("refreshToken"));
        Center().setOpenID(Account("openId"));
        Center().setLogLevel(6);
        EmptyStreamTokenQueue(Center());
        Publish(1);
        Cloud().ForgetRequests();
    }

    /// Every response shows this version from now on.
    void Publish(int version) const {
        const std::string text = Text(version);
        const Json relays = {{{"ip", text}, {"port", version}}};
        Cloud().Put("/devices/C10000001", {{"device",
                                            {{"version", version},
                                             {"devicePort", version},
                                             {"publicKey", text},
                                             {"vtmIp", text},
                                             {"vtmBackups", relays}}},
                                           {"p2p",
                                            {{"defaultKey", text},
                                             {"defaultKeyVer", std::to_string(version)},
                                             {"serverInfos", relays},
                                             {"capability", {{"V3Talk", text}}}}}});
        Cloud().Put("/devices/C10000001/cameras/1",
                    {{"videoLevel", version}, {"type", version}, {"cameraId", text}, {"streamBizUrl", text}});
        Cloud().Put("/account", {{"servers",
                                  {{"stun1Addr", text},
                                   {"stun1Port", version},
                                   {"stun2Port", version},
                                   {"vtmBackups", {{{"addr", text}, {"port", version}}}}}},
                                 {"p2pUser", {{"data", text}, {"version", version}, {"saltIndex", version}}}});
    }

    /// Calls an operation that must succeed. A failure says which call gave what.
    CallResult Succeed(const char* operation, const Arguments& arguments, Outputs& outputs) {
        const CallResult call = Call(Center(), operation, arguments, outputs);
        m_findings.Check(call.result == 0, std::string(operation) + " returned " + std::to_string(call.returned) +
                                               " and then " + std::to_string(call.result));
        return call;
    }
    void ExpectWhole(bool isWhole, const char* operation, const Outputs& outputs) {
        m_findings.Check(isWhole, std::string(operation) + " handed out " + (isWhole ? "" : ToJson(outputs).dump()));
    }

    /// Reads a detail that must be there or be fetched, and notes whether that took a request.
    void ReadDetail(const char* operation, bool force = false) {
        Outputs outputs;
        const CallResult call = Succeed(operation, {.force = force}, outputs);
        m_findings.Check(call.returned == 0 || (call.started && call.returned == -1),
                         std::string(operation) + " itself returned " + std::to_string(call.returned));
        ExpectWholeDetail(operation, outputs);
    }
    void ExpectWholeDetail(const char* operation, const Outputs& outputs) {
        ExpectWhole(
            IsWhole(outputs.detail, outputs.detail.version) && IsWhole(outputs.channel, outputs.channel.videoLevel),
            operation, outputs);
        m_details += outputs.detail.isFromCache ? 0 : 1;
    }
    void ReadCaches() {
        Outputs outputs;
        const int code = Call(Center(), "getDevInfoCache", {}, outputs).result;
        m_findings.Check(code == 0 || code == -1, "getDevInfoCache returned " + std::to_string(code));
        if (code == 0) {
            m_findings.Check(outputs.detail.isFromCache, "getDevInfoCache handed out what was fetched");
            ExpectWholeDetail("getDevInfoCache", outputs);
        }
        Outputs record;
        if (Call(Center(), "getDeviceRecord", {}, record).result == 0) {
            ExpectWhole(IsWhole(record.detail, record.detail.version), "getDeviceRecord", record);
        }
        const int seeks = Call(Center(), "IsSupportSeekPlayback", {});
        m_findings.Check(seeks == 0 || seeks == 1, "IsSupportSeekPlayback returned " + std::to_string(seeks));
    }
    void ReadServers(int round) {
        const char* operation = round % 2 == 0 ? "getServerInfoAsync" : "getServerInfoSync";
        Outputs outputs;
        const CallResult call = Succeed(operation, {.token = m_token}, outputs);
        m_servers += round % 2 == 0 && !call.started ? 0 : 1;
        ExpectWhole(IsWhole(outputs.servers, outputs.servers.stun1Port), operation, outputs);
    }
    void ReadUser(int round) {
        const char* operation = round % 2 == 0 ? "getP2PUserInfoAsync" : "getP2PUserInfoByDevice";
        Outputs outputs;
        const CallResult call = Succeed(operation, {.token = m_token}, outputs);
        m_users += round % 2 == 0 && !call.started ? 0 : 1;
        ExpectWhole(IsWhole(outputs.user, outputs.user.version), operation, outputs);
    }
    void ReadP2PDevice(int round) {
        const char* operation = round % 2 == 0 ? "getP2PDevInfoAsync" : "getP2PDevInfoCached";
        Outputs outputs;
        const CallResult call = Succeed(operation, {.token = m_token, .force = true}, outputs);
        m_p2pDevices += round % 2 == 0 && !call.started ? 0 : 1;
        ExpectWhole(IsWhole(outputs.p2pDevice, outputs.p2pDevice.defaultKeyVer), operation, outputs);
    }
    void TakeStreamToken() {
        Outputs outputs;
        Succeed("getOneStreamToken", {.token = m_token}, outputs);
        const std::lock_guard guard(m_mutex);
        m_findings.Check(m_streamTokens.insert(outputs.text).second && outputs.text.rfind("st.", 0) == 0,
                         "getOneStreamToken handed out " + outputs.text);
    }
    void Renew() {
        Outputs outputs;
        Succeed("RefreshToken", {}, outputs);
        ++m_refreshes;
        m_findings.Check(outputs.text.rfind("at.fresh.", 0) == 0, "RefreshToken handed out " + outputs.text);
    }
    void Change(int round) const {
        Center().setCacheTime(round % 3);
        Center().setDomain(BDomain(), CDomain());
        Center().setAppId(std::string("app-").append(std::to_string(round)));
        Center().setAccessToken(m_token);
        Center().setScope(Text(round));
        Center().setCloseP2P(round % 2);
        Center().setCloseBelongSerial(round % 2);
        Center().setChannelCacheValue(kCamera, 1, round);
        SetDeviceTokens();
    }
    void Forget(int round) const {
        Center().SetDevInfoCache(kCamera, 1);
        Center().expireServerInfo();
        if (round % 4 == 0) {
            Center().ClearAllCache();
        } else if (round % 4 == 1) {
            Center().ClearDeviceInfoCache();
        }
    }

    /// What a host does, chosen by thread and round.
    void DoSomething(int thread, int round) {
        switch ((thread * 5 + round) % 12) {
            case 0: ReadDetail("getDevDetailInfo"); break;
            case 1: ReadDetail("getDevDetailInfoSync"); break;
            case 2: ReadDetail("getDevDetailInfoSync", true); break;
            case 3: ReadCaches(); break;
            case 4: ReadServers(round + thread); break;
            case 5: ReadUser(round + thread); break;
            case 6: ReadP2PDevice(round + thread); break;
            case 7: TakeStreamToken(); break;
            case 8: Renew(); break;
            case 9: Change(round); break;
            case 10: Forget(round + thread); break;
            default: ReadDetail("getDevDetailInfo"); break;
        }
    }

    size_t Received(const char* path) const { return Cloud().Requests(path).size(); }

    std::string m_token;
    Findings m_findings;
    std::atomic<size_t> m_details{0};  ///< Requests that calls must have sent.
    std::atomic<size_t> m_servers{0};  ///< Requests that calls may have sent, as of the next two.
    std::atomic<size_t> m_users{0};
    std::atomic<size_t> m_p2pDevices{0};  ///< Again that must have been sent.
    std::atomic<size_t> m_refreshes{0};
    std::mutex m_mutex;
    std::set<std::string> m_streamTokens;
};

TEST_F(RaceTest, EveryRecordIsWholeAndEveryRequestIsExplained) {
    std::atomic<bool> done{false};
    std::thread changer([&] {
        for (int version = 2; !done; ++version) {
            Publish(version);
        }
    });
    OnThreads(kRaceThreads, [this](int thread) {
        for (int round = 0; round < kRaceRounds; ++round) {
            DoSomething(thread, round);
        }
    });
    done = true;
    changer.join();
    EXPECT_THAT(m_findings.All(), ::testing::IsEmpty());

    EXPECT_EQ(Received(kDetailPath), m_details);
    EXPECT_EQ(Received("/api/sdk/p2p/dev/info/get"), m_p2pDevices);
    EXPECT_EQ(Received(kRefreshPath), m_refreshes);
    // A synchronous read does not say whether it was served from the cache.
    EXPECT_LE(Received("/api/service/media/server/info"), m_servers);
    EXPECT_GE(Received("/api/service/media/server/info"), 1U);
    EXPECT_LE(Received("/api/sdk/p2p/user/info/get"), m_users);
    EXPECT_GE(Received("/api/sdk/p2p/user/info/get"), 1U);
    // A batch has twenty, and each token is handed out once.
    const size_t batches = Received("/api/user/token");
    EXPECT_GE(batches * 20, m_streamTokens.size());
    EXPECT_LE(batches, m_streamTokens.size());
    for (const ReceivedRequest& request : Cloud().Requests()) {
        const std::string token = request.Parameter("accessToken");
        EXPECT_TRUE(request.path == kRefreshPath || token == m_token || token.rfind("at.fresh.", 0) == 0) << token;
    }
}

TEST_F(RaceTest, EveryCallerOutlivesTheTokenWithOneRefreshOfItsOwn) {
    // All are refused before the first of them may renew the token.
    Cloud().Script({{"path", kDetailPath}, {"times", kRaceThreads}, {"hold", "all"}, {"code", "10002"}});
    std::thread opener([&] {
        EXPECT_TRUE(Cloud().WaitUntilHeld("all", kRaceThreads));
        Cloud().Release("all");
    });
    OnThreads(kRaceThreads, [&](int thread) {
        Outputs outputs;
        Succeed(thread % 2 == 0 ? "getDevDetailInfoSync" : "getDevDetailInfo", {.force = true}, outputs);
    });
    opener.join();
    EXPECT_THAT(m_findings.All(), ::testing::IsEmpty());
    EXPECT_EQ(Received(kRefreshPath), static_cast<size_t>(kRaceThreads));
    EXPECT_EQ(Received(kDetailPath), static_cast<size_t>(2 * kRaceThreads));
}

TEST_F(RaceTest, TokenMapsAreReplacedWholeAmongThoseWhoLookUp) {
    constexpr int kEntries = 20;
    const auto both = [](int generation) {
        const std::string text = Text(generation);
        Json tk = Json::array();
        Json b2c = Json::array();
        for (int ch = 1; ch <= kEntries; ++ch) {
            const std::string number = std::to_string(ch);
            const std::string token = std::string(text).append("-").append(number);
            tk.push_back({{"deviceVideoTkToken", token}, {"deviceSerial", kRecorder}, {"channelNo", number}});
            b2c.push_back(
                {{"token", token}, {"deviceSerial", kRecorder}, {"channelNo", number}, {"isShared", generation % 2}});
        }
        return std::pair(tk.dump(), b2c.dump());
    };
    const auto odd = both(1);
    const auto even = both(2);
    Center().SetDeviceTkTokens(odd.first);
    Center().SetB2CTokens(odd.second);
    OnThreads(kRaceThreads, [&](int thread) {
        for (int round = 0; round < kRaceRounds; ++round) {
            const auto& next = (thread + round) % 2 == 0 ? odd : even;
            if (round % 4 == 0) {
                Center().SetDeviceTkTokens(next.first);
                Center().SetB2CTokens(next.second);
            }
            const int ch = 1 + (thread + round) % kEntries;
            const std::string tail = std::string("-").append(std::to_string(ch));
            const std::set<std::string> allowed = {Text(1).append(tail), Text(2).append(tail)};
            std::string tk;
            std::string b2c;
            Center().getDeviceTkTokensByNumber(tk, 3, kRecorder, ch);
            Center().getB2CTokensByNumber(kRecorder, ch, b2c);
            m_findings.Check(allowed.contains(tk), "Tk token " + tk);
            m_findings.Check(allowed.contains(b2c), "B2C token " + b2c);
            m_findings.Check(!Center().isB2CSharedToken("v3-1"), "a token that nobody set is shared");
            static_cast<void>(Center().isB2CSharedChannel(kRecorder, ch));
        }
    });
    EXPECT_THAT(m_findings.All(), ::testing::IsEmpty());
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

}  // namespace
}  // namespace vantix::test
