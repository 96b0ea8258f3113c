// Servers that keep a call waiting: every transfer ends after thirty seconds. One case, since all of them can wait at
// the same time.

#include <thread>
#include <vector>

#include "DetailFixture.h"
#include "platform/DeviceDetail.h"

namespace vantix::test {
namespace {

class SlowServerTest : public DetailFixture {
protected:
    struct Waiting {
        const char* name;
        std::string url;
        std::string serial;
        int result = 0;
    };

    /// Asks at an address of its own, past the core, whose domain is one for all.
    void FetchPast(Waiting& waiting) const {
        Detail detail;
        std::optional<BelongDevInfo> parent;
        const Caller caller{waiting.url, Account("accessToken"), ""};
        waiting.result =
            GetDevDetailInfoFromPlatformBySerial(caller, waiting.serial, 1, detail.channel, detail.device, parent);
    }

    /// Requests for this device meet this plan.
    Waiting Plan(const char* name, Json plan) const {
        plan["path"] = kDetailPath;
        plan["match"] = {{"deviceSerial", name}};
        plan["times"] = 0;
        Cloud().ScriptResponse(plan);
        return {name, BDomain(), name};
    }
};

TEST_F(SlowServerTest, EveryTransferEndsAfterItsTime) {
    const std::string endless = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n";
    std::vector<Waiting> waiting = {
        {"Silence", Cloud().OpenFaultPort({{"then", "keepOpen"}}), "S"},
        Plan("HeldAnswer", {{"hold", "forever"}}),
        Plan("DrippedHeaders", {{"raw", endless}, {"drip", {{"bytes", 1}, {"ms", 1000}}}}),
        Plan("DrippedBody", {{"raw", endless + std::string(1000, ' ')}, {"drip", {{"bytes", 48}, {"ms", 2000}}}}),
        // Requests of a loop carry no form after the first, so it is planned for whoever comes without one.
        {"RedirectLoop", BDomain(), "RedirectLoop"},
    };
    Cloud().ScriptResponse({{"path", kDetailPath},
                            {"status", 302},
                            {"headers", {{"Location", kDetailPath}}},
                            {"delayMs", 200},
                            {"times", 0}});
    std::vector<std::thread> threads;
    threads.reserve(waiting.size());
    for (Waiting& one : waiting) {
        threads.emplace_back([this, &one] { FetchPast(one); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Waiting& one : waiting) {
        EXPECT_EQ(one.result, 100028) << one.name;
    }
    Cloud().Delete("/scripted-responses");
    EXPECT_EQ(Fetch(kCamera, 1), 0);
}

}  // namespace
}  // namespace vantix::test
