// Many callers at once, for as long as a few hundred operations take; what a race detector watches. Whatever comes out
// must be whole, and every code one that such a mixture can give.

#include <gmock/gmock.h>

#include <atomic>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "DetailFixture.h"

namespace vantix::test {
namespace {

constexpr int kThreads = 32;
constexpr int kRounds = 24;
constexpr int kChannels = 16;

std::string Version(int number) { return std::string("v").append(std::to_string(number)); }

class ConcurrencyTest : public DetailFixture {
protected:
    /// Runs `work(thread)` on all threads and waits for them.
    template <class Work>
    static void OnAllThreads(int count, Work work) {
        std::vector<std::thread> threads;
        threads.reserve(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([work, i] { work(i); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }

    /// A record that was handed out is one device's, and its channel is the one that was asked for.
    void CheckWhole(const Detail& detail, const std::string& serial, int ch) {
        const bool isWhole = detail.device.deviceSerial == serial && detail.channel.deviceSerial == serial &&
                             detail.channel.cameraNo == ch &&
                             detail.device.publicKey == "device-public-key-" + serial &&
                             detail.channel.cameraId == "cam-" + serial + "-" + std::to_string(ch) &&
                             detail.device.vtmBackups.size() == 2 && detail.channel.videoQualityInfos.size() == 3;
        if (!isWhole) {
            ++m_broken;
        }
    }
    void CheckCode(int code, const std::set<int>& allowed) {
        if (!allowed.contains(code)) {
            const std::lock_guard lock(m_mutex);
            m_odd.insert(code);
        }
    }

    void ReadAsynchronously(const std::string& serial, int ch) {
        const Asked asked = Ask(serial, ch);
        CheckCode(asked.returned, {0, -1});
        CheckCode(asked.fetched, {0});
        CheckWhole(asked, serial, ch);
    }
    void ReadSynchronously(const std::string& serial, int ch) {
        Detail detail;
        CheckCode(ReadOrFetch(serial, ch, detail), {0});
        CheckWhole(detail, serial, ch);
    }
    void ReadCached(const std::string& serial, int ch) {
        Detail detail;
        const int code = ReadCache(serial, ch, detail);
        CheckCode(code, {0, -1});
        if (code == 0) {
            CheckWhole(detail, serial, ch);
        }
    }
    void ChangeSettings(int round) const {
        Center().setCacheTime(1 + round % 3);
        Center().setDomain(BDomain(), CDomain());
        Center().setAppId(std::string("app-").append(std::to_string(round)));
        Center().setAccessToken(Account("accessToken"));
        Center().setCloseBelongSerial(round % 2);
        Center().setCloseP2P(round % 2);
        SetDeviceTokens();
    }

    /// One of the things that a host does, chosen by thread and round.
    void DoSomething(int thread, int round) {
        const int ch = 1 + (thread + round) % kChannels;
        switch ((thread * 7 + round) % 8) {
            case 0:
            case 1: ReadAsynchronously(kRecorder, ch); break;
            case 2: ReadSynchronously(kRecorder, ch); break;
            case 3: ReadSynchronously(kCamera, 1); break;
            case 4: ReadCached(kRecorder, ch); break;
            case 5: CheckCode(Center().SetDevInfoCache(kRecorder, ch), {0, -1}); break;
            case 6: round % 3 == 0 ? Center().ClearAllCache() : Center().ClearDeviceInfoCache(); break;
            default: ChangeSettings(round); break;
        }
        Center().setChannelCacheValue(kRecorder, ch, 1);
        CheckCode(Center().getChannelCacheValue(kRecorder, ch), {-1, 1});
        CheckCode(Center().IsSupportPlaybackSpeed(kRecorder, round), {0, 1});
    }

    std::atomic<int> m_broken{0};
    std::multiset<int> m_odd;  ///< Return codes that no such mixture can give.
    std::mutex m_mutex;
};

TEST_F(ConcurrencyTest, MixedCallersGetWholeRecordsAndKnownCodes) {
    OnAllThreads(kThreads, [this](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            DoSomething(thread, round);
        }
    });
    EXPECT_EQ(m_broken, 0);
    EXPECT_THAT(m_odd, ::testing::IsEmpty());
    for (const ReceivedRequest& request : Cloud().Requests()) {
        EXPECT_EQ(request.path, kDetailPath);
        EXPECT_EQ(request.Parameter("accessToken"), Account("accessToken"));
    }
    Detail detail;
    EXPECT_EQ(Fetch(kRecorder, 5, detail), 0);
    CheckWhole(detail, kRecorder, 5);
    EXPECT_EQ(m_broken, 0);
}

TEST_F(ConcurrencyTest, RecordsAreNeverMixturesOfTwoAnswers) {
    // The device's answer changes all the time; every text and number of a record must come from the same answer.
    std::atomic<bool> done{false};
    std::thread changer([&] {
        for (int version = 1; !done; ++version) {
            const std::string text = Version(version);
            Cloud().Put("/devices/C10000001", {{"device",
                                                {{"version", version},
                                                 {"devicePort", version},
                                                 {"publicKey", text},
                                                 {"vtmIp", text},
                                                 {"vtmBackups", {{{"ip", text}, {"port", version}}}}}}});
        }
    });
    OnAllThreads(8, [this](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            Detail detail;
            const int code = thread % 2 == 0 ? Fetch(kCamera, 1, detail) : ReadOrFetch(kCamera, 1, detail);
            CheckCode(code, {0});
            const DevDetailInfo& device = detail.device;
            const bool isOriginal = device.publicKey == "device-public-key-C10000001" && device.version == 2;
            const std::string text = Version(device.version);
            const bool isWhole = device.devicePort == device.version && device.publicKey == text &&
                                 device.vtmIp == text && device.vtmBackups.size() == 1 &&
                                 device.vtmBackups[0].strVtmAddr == text &&
                                 device.vtmBackups[0].iVtmPort == device.version;
            m_broken += isOriginal || isWhole ? 0 : 1;
        }
    });
    done = true;
    changer.join();
    EXPECT_EQ(m_broken, 0);
    EXPECT_THAT(m_odd, ::testing::IsEmpty());
}

TEST_F(ConcurrencyTest, ModesMayChangeDuringSixtyFourCallers) {
    SetDeviceTokens();
    std::atomic<bool> done{false};
    std::thread changer([&] {
        for (int round = 0; !done; ++round) {
            SetPermissionMode(round % 2);
            Center().setLogLevel(round % 2 == 0 ? 3 : 6);
            Center().setDataUtf8(round % 2);
            SetDeviceTokens();
        }
    });
    OnAllThreads(64, [this](int thread) {
        const int ch = 1 + thread % 2;
        Detail detail;
        CheckCode(Fetch(kRecorder, ch, detail), {0});
        CheckWhole(detail, kRecorder, ch);
    });
    done = true;
    changer.join();
    EXPECT_EQ(m_broken, 0);
    EXPECT_THAT(m_odd, ::testing::IsEmpty());
    const std::set<std::string> tokens = {Account("accessToken"), "tk.video-R20000016-1", "tk.video-R20000016-2"};
    const auto requests = Cloud().Requests();
    EXPECT_EQ(requests.size(), 64U);
    for (const ReceivedRequest& request : requests) {
        EXPECT_TRUE(tokens.contains(request.Parameter("accessToken")));
    }
}

}  // namespace
}  // namespace vantix::test
