// Everything that a host may do, done by many at once: reads, refills, marks, clears, refreshes and settings, while the
// cloud's answers change all the time. It takes as long as a fixed number of operations does; what a race detector
// watches. Afterwards every record that was handed out must be one that some answer contained whole, and every request
// that was received must be explained by a call.

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "DetailFixture.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/ServerInfo.h"

namespace vantix::test {
namespace {

constexpr int kThreads = 32;
constexpr int kRounds = 40;
constexpr char kRefreshPath[] = "/oauth/token/refreshToken";

/// The text of an answer's version, as "v7".
std::string Text(int version) { return std::string("v").append(std::to_string(version)); }

/// Runs `work(thread)` on all threads and waits for them.
void OnAllThreads(int count, const std::function<void(int thread)>& work) {
    std::vector<std::thread> threads;
    threads.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&work, i] { work(i); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

// A record is whole when all that distinguishes the versions of an answer belongs to the same one.

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
        std::string none;
        Center().getOneStreamToken("nobody's token", none);  // empties the queue of an earlier case
        Publish(1);
        Cloud().ForgetRequests();
    }

    /// Every answer shows this version from now on.
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

    void Expect(bool good) { m_broken += good ? 0 : 1; }
    void ExpectGood(int code, bool whole) { Expect(code == 0 && whole); }

    void CountDetail(const Detail& detail) {
        Expect(IsWhole(detail.device, detail.device.version) && IsWhole(detail.channel, detail.channel.videoLevel));
        m_details += detail.device.isFromCache ? 0 : 1;
    }

    void AskForDetail() {
        const Asked asked = Ask(kCamera, 1);
        Expect((asked.returned == 0 || asked.returned == -1) && asked.fetched == 0);
        CountDetail(asked);
    }
    void ReadDetail() {
        Detail detail;
        Expect(ReadOrFetch(kCamera, 1, detail) == 0);
        CountDetail(detail);
    }
    void FetchDetail() {
        Detail detail;
        Expect(Fetch(kCamera, 1, detail) == 0);
        CountDetail(detail);
    }
    void ReadCaches() {
        Detail detail;
        const int code = ReadCache(kCamera, 1, detail);
        Expect(code == -1 || (code == 0 && detail.device.isFromCache));
        if (code == 0) {
            CountDetail(detail);
        }
        DevDetailInfo record;
        if (Center().getDeviceRecord(kCamera, 1, record) == 0) {
            Expect(IsWhole(record, record.version));
        }
        Expect(Center().IsSupportSeekPlayback(kCamera) >= 0);
    }
    void ReadServers(int round) {
        ServerInfo servers;
        std::future<int32_t> future;
        int code = 0;
        if (round % 2 == 0) {
            code = Center().getServerInfoAsync(m_token, servers, future);
        } else {
            code = Center().getServerInfoSync(m_token, servers);
        }
        m_servers += round % 2 == 0 && !future.valid() ? 0 : 1;
        code = future.valid() ? future.get() : code;
        ExpectGood(code, IsWhole(servers, servers.stun1Port));
    }
    void ReadUser(int round) {
        P2PUserInfo user;
        std::future<int32_t> future;
        int code = 0;
        if (round % 2 == 0) {
            code = Center().getP2PUserInfoAsync(user, m_token, future);
        } else {
            code = Center().getP2PUserInfoByDevice(kCamera, 1, user);
        }
        m_users += round % 2 == 0 && !future.valid() ? 0 : 1;
        code = future.valid() ? future.get() : code;
        ExpectGood(code, IsWhole(user, user.version));
    }
    void ReadP2PDevice(int round) {
        P2PDevInfo device;
        std::future<int32_t> future;
        std::vector<P2PServerAddr> servers;
        int code = 0;
        if (round % 2 == 0) {
            code = Center().getP2PDevInfoAsync(device, m_token, kCamera, future);
        } else {
            code = Center().getP2PDevInfoCached(kCamera, servers, device, true);
        }
        m_p2pDevices += round % 2 == 0 && !future.valid() ? 0 : 1;
        code = future.valid() ? future.get() : code;
        ExpectGood(code, IsWhole(device, device.defaultKeyVer));
    }
    void TakeStreamToken() {
        std::string token;
        const int code = Center().getOneStreamToken(m_token, token);
        const std::lock_guard guard(m_mutex);
        ExpectGood(code, m_streamTokens.insert(token).second && token.rfind("st.", 0) == 0);
    }
    void Renew() {
        std::string token;
        const int code = Center().RefreshToken(token);
        ++m_refreshes;
        ExpectGood(code, token.rfind("at.fresh.", 0) == 0);
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
            case 0: AskForDetail(); break;
            case 1: ReadDetail(); break;
            case 2: FetchDetail(); break;
            case 3: ReadCaches(); break;
            case 4: ReadServers(round + thread); break;
            case 5: ReadUser(round + thread); break;
            case 6: ReadP2PDevice(round + thread); break;
            case 7: TakeStreamToken(); break;
            case 8: Renew(); break;
            case 9: Change(round); break;
            case 10: Forget(round + thread); break;
            default: AskForDetail(); break;
        }
    }

    size_t Received(const char* path) const { return Cloud().Requests(path).size(); }

    std::string m_token;
    std::atomic<int> m_broken{0};
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
    OnAllThreads(kThreads, [this](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            DoSomething(thread, round);
        }
    });
    done = true;
    changer.join();
    EXPECT_EQ(m_broken, 0);

    EXPECT_EQ(Received(kDetailPath), m_details);
    EXPECT_EQ(Received("/api/sdk/p2p/dev/info/get"), m_p2pDevices);
    EXPECT_EQ(Received(kRefreshPath), m_refreshes);
    // A synchronous read does not tell whether it was served from the cache.
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
    Cloud().ScriptResponse({{"path", kDetailPath}, {"times", kThreads}, {"hold", "all"}, {"code", "10002"}});
    std::atomic<int> ready{0};
    std::thread opener([&] {
        EXPECT_TRUE(Cloud().WaitUntilHeld("all", kThreads));
        Cloud().Release("all");
    });
    OnAllThreads(kThreads, [&](int thread) {
        Detail detail;
        const int code = thread % 2 == 0 ? Fetch(kCamera, 1, detail) : Ask(kCamera, 1).fetched;
        ready += code == 0 ? 1 : 0;
    });
    opener.join();
    EXPECT_EQ(ready, kThreads);
    EXPECT_EQ(Received(kRefreshPath), static_cast<size_t>(kThreads));
    EXPECT_EQ(Received(kDetailPath), static_cast<size_t>(2 * kThreads));
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
    OnAllThreads(kThreads, [&](int thread) {
        for (int round = 0; round < kRounds; ++round) {
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
            Expect(allowed.contains(Center().getDeviceTkTokensByNumber(tk, 3, kRecorder, ch)));
            Expect(allowed.contains(Center().getB2CTokensByNumber(kRecorder, ch, b2c)));
            Expect(!Center().isB2CSharedToken("v3-1"));
            static_cast<void>(Center().isB2CSharedChannel(kRecorder, ch));
        }
    });
    EXPECT_EQ(m_broken, 0);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

}  // namespace
}  // namespace vantix::test
