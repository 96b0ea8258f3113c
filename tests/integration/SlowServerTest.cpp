// Servers that keep a call waiting: every transfer ends after thirty seconds. One case, since all of them can wait at
// the same time.

#include <thread>
#include <vector>

#include "DetailFixture.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

class SlowServerTest : public DetailFixture {
protected:
    struct Waiting {
        const char* serial;
        int result = 0;
    };

    /// Requests for this device meet this response.
    void Respond(const char* serial, Json response) const {
        response["path"] = kDetailPath;
        response["match"] = {{"deviceSerial", serial}};
        response["times"] = 0;
        Cloud().Script(response);
    }
};

TEST_F(SlowServerTest, EveryTransferEndsAfterItsTime) {
    const std::string endless = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n";
    Respond("HeldResponse", {{"hold", "forever"}});
    Respond("DrippedHeaders", {{"raw", endless}, {"drip", {{"bytes", 1}, {"ms", 1000}}}});
    Respond("DrippedBody", {{"raw", endless + std::string(1000, ' ')}, {"drip", {{"bytes", 48}, {"ms", 2000}}}});
    // Only the first request of a redirect loop has a form, so this script is for every request of the path.
    Cloud().Script({{"path", kDetailPath},
                    {"status", 302},
                    {"headers", {{"Location", kDetailPath}}},
                    {"delayMs", 200},
                    {"times", 0}});
    std::vector<Waiting> waiting = {{"HeldResponse"}, {"DrippedHeaders"}, {"DrippedBody"}, {"RedirectLoop"}};
    std::vector<std::thread> threads;
    threads.reserve(waiting.size() + 1);
    for (Waiting& one : waiting) {
        threads.emplace_back([this, &one] { one.result = Fetch(one.serial, 1); });
    }
    // A server that accepts and stays silent has an address of its own, which an upload is given.
    const std::string silent = Cloud().Fault({{"then", "keepOpen"}});
    const LocalFile picture(u8"gate.jpg");
    int uploaded = 0;
    threads.emplace_back([&] { uploaded = Center().UploadCloudPicFile(silent + "/upload", picture.Path()); });
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Waiting& one : waiting) {
        EXPECT_EQ(one.result, 100028) << one.serial;
    }
    EXPECT_EQ(uploaded, 100028);
    Cloud().ForgetScript();
    EXPECT_EQ(Fetch(kCamera, 1), 0);
}

}  // namespace
}  // namespace vantix::test
