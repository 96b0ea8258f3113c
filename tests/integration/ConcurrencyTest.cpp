// Many callers at once, for as long as a few hundred operations take; what a race detector watches. Whatever comes out
// must be whole, and every code one that such a mixture can give.

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <set>
#include <thread>

#include "DetailFixture.h"
#include "support/Operations.h"
#include "support/Threads.h"

namespace vantix::test {
namespace {

using ::testing::IsEmpty;
using Codes = std::set<int>;

constexpr int kThreads = 32;
constexpr int kRounds = 24;
constexpr int kChannels = 16;

std::string Version(int number) { return std::string("v").append(std::to_string(number)); }

class ConcurrencyTest : public DetailFixture {
protected:
    /// Calls an operation, which must give one of these codes. A failure says which call gave what, and how long it
    /// took: 100028 after the time for connecting or for the whole transfer means that the machine was too slow for so
    /// many handshakes at once, every other code of the transport that one of them failed.
    CallResult Expect(const char* operation, const Arguments& arguments, const Codes& allowed, Outputs& outputs) {
        const auto start = std::chrono::steady_clock::now();
        const CallResult call = Call(Center(), operation, arguments, outputs);
        const auto elapsed = std::chrono::steady_clock::now() - start;
        const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
        m_findings.Check(allowed.contains(call.result),
                         About(operation, arguments) + " returned " + std::to_string(call.returned) +
                             (call.started ? " and its task " + std::to_string(call.result) : "") + " after " +
                             std::to_string(milliseconds) + " ms");
        return call;
    }
    void Expect(const char* operation, const Arguments& arguments, const Codes& allowed) {
        Outputs outputs;
        Expect(operation, arguments, allowed, outputs);
    }
    static std::string About(const std::string& operation, const Arguments& arguments) {
        return operation + " of " + arguments.serial + " channel " + std::to_string(arguments.ch);
    }

    /// A record that was handed out is one device's, and its channel is the one that was asked for.
    void ExpectWhole(const std::string& operation, const Arguments& arguments, const Outputs& outputs) {
        const DevChannelInfo& channel = outputs.channel;
        const DevDetailInfo& device = outputs.detail;
        const std::string serial = arguments.serial;
        const bool isWhole = device.deviceSerial == serial && channel.deviceSerial == serial &&
                             channel.cameraNo == arguments.ch && device.publicKey == "device-public-key-" + serial &&
                             channel.cameraId == "cam-" + serial + "-" + std::to_string(arguments.ch) &&
                             device.vtmBackups.size() == 2 && channel.videoQualityInfos.size() == 3;
        m_findings.Check(isWhole, About(operation, arguments) + " handed out " +
                                      (isWhole ? "" : ToJson(Detail{channel, device}).dump()));
    }

    /// Reads a detail; a failure that is allowed hands out nothing.
    void Read(const char* operation, const Arguments& arguments, const Codes& allowed) {
        Outputs outputs;
        if (Expect(operation, arguments, allowed, outputs).result == 0) {
            ExpectWhole(operation, arguments, outputs);
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
        const Arguments channel = {.serial = kRecorder, .ch = 1 + (thread + round) % kChannels, .number = round};
        switch ((thread * 7 + round) % 8) {
            case 0:
            case 1: Read("getDevDetailInfo", channel, {0}); break;
            case 2: Read("getDevDetailInfoSync", channel, {0}); break;
            case 3: Read("getDevDetailInfoSync", {.serial = kCamera}, {0}); break;
            case 4: Read("getDevInfoCache", channel, {0, -1}); break;
            case 5: Expect("SetDevInfoCache", channel, {0, -1}); break;
            case 6: Expect(round % 3 == 0 ? "ClearAllCache" : "ClearDeviceInfoCache", channel, {0}); break;
            default: ChangeSettings(round); break;
        }
        Center().setChannelCacheValue(kRecorder, channel.ch, 1);
        Expect("getChannelCacheValue", channel, {-1, 1});
        Expect("IsSupportPlaybackSpeed", channel, {0, 1});
    }

    Findings m_findings;
};

TEST_F(ConcurrencyTest, MixedCallersGetWholeRecordsAndKnownCodes) {
    OnThreads(kThreads, [this](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            DoSomething(thread, round);
        }
    });
    EXPECT_THAT(m_findings.All(), IsEmpty());
    for (const ReceivedRequest& request : Cloud().Requests()) {
        EXPECT_EQ(request.path, kDetailPath);
        EXPECT_EQ(request.Parameter("accessToken"), Account("accessToken"));
    }
    Read("getDevDetailInfoSync", {.serial = kRecorder, .ch = 5, .force = true}, {0});
    EXPECT_THAT(m_findings.All(), IsEmpty());
}

TEST_F(ConcurrencyTest, RecordsAreNeverMixturesOfTwoResponses) {
    // The device's response changes all the time; every text and number of a record must come from the same one.
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
    OnThreads(8, [this](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            Outputs outputs;
            Expect("getDevDetailInfoSync", {.serial = kCamera, .force = thread % 2 == 0}, {0}, outputs);
            const DevDetailInfo& device = outputs.detail;
            const bool isOriginal = device.publicKey == "device-public-key-C10000001" && device.version == 2;
            const std::string text = Version(device.version);
            const bool isWhole = device.devicePort == device.version && device.publicKey == text &&
                                 device.vtmIp == text && device.vtmBackups.size() == 1 &&
                                 device.vtmBackups[0].strVtmAddr == text &&
                                 device.vtmBackups[0].iVtmPort == device.version;
            m_findings.Check(isOriginal || isWhole, isWhole ? "" : ToJson(device).dump());
        }
    });
    done = true;
    changer.join();
    EXPECT_THAT(m_findings.All(), IsEmpty());
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
    OnThreads(64, [this](int thread) {
        Read("getDevDetailInfoSync", {.serial = kRecorder, .ch = 1 + thread % 2, .force = true}, {0});
    });
    done = true;
    changer.join();
    EXPECT_THAT(m_findings.All(), IsEmpty());
    const std::set<std::string> tokens = {Account("accessToken"), "tk.video-R20000016-1", "tk.video-R20000016-2"};
    const auto requests = Cloud().Requests();
    EXPECT_EQ(requests.size(), 64U);
    for (const ReceivedRequest& request : requests) {
        EXPECT_TRUE(tokens.contains(request.Parameter("accessToken")));
    }
}

}  // namespace
}  // namespace vantix::test
