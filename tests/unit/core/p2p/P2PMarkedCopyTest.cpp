// Of a device's P2P information, what a caller without a channel gets: the copy that is marked, and the first channel's
// domain.

#include <future>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class P2PMarkedCopy : public FetchTest {
protected:
    /// Stores a copy that is to be fetched again.
    void StoreMarked(const char* download) {
        P2PDevInfo marked;
        marked.deviceSerial = "OWN";
        marked.defaultKey = "stale";
        marked.strV3Download = download;
        marked.iRequestCost = 55;
        marked.isUpdate = true;
        Parts().p2pDevices.Store(marked);
    }

    P2PDevInfo device;
    std::future<int32_t> future;
};

TEST_F(P2PMarkedCopy, IsHandedOutBeforeTheTaskHasItsResponse) {
    StoreMarked("1");
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        release.get_future().wait();
        return ScriptedResponse{0, kPlatformDevice};
    });
    EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "OWN", future), 0);
    EXPECT_EQ(device.defaultKey, "stale");
    EXPECT_EQ(device.iRequestCost, 0);
    release.set_value();
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.defaultKey, "key");
}

TEST_F(P2PMarkedCopy, SaysWhetherTheNewerDownloadIsThereWithoutARequest) {
    StoreMarked("1");
    EXPECT_EQ(core.isP2PV3download("OWN", 1), 1);
    StoreMarked("0");
    EXPECT_EQ(core.isP2PV3download("OWN", 1), 0);
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(P2PMarkedCopy, WithoutAChannelTheDomainIsThatOfTheFirst) {
    core.setPermissionMode(2);
    const struct {
        const char* tokens;
        const char* address;
    } rows[] = {
        {R"([{"token":"a","deviceSerial":"OWN","channelNo":"1","isShared":1}])", "https://c.example"},
        {R"([{"token":"a","deviceSerial":"OWN","channelNo":"0","isShared":1},
             {"token":"b","deviceSerial":"OWN","channelNo":"2","isShared":1}])",
         "https://b.example"},
    };
    for (const auto& row : rows) {
        core.SetB2CTokens(row.tokens);
        core.getP2PDevInfo(device, "own-token", "OWN", future);
        EXPECT_EQ(future.get(), 100007);
        EXPECT_EQ(Address(transport.Count() - 1), row.address + std::string("/api/sdk/p2p/dev/info/get"));
    }
}

}  // namespace
}  // namespace vantix::test
