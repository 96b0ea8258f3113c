// The address of a request is the base as it is and the path behind it; a response is handed on as it came.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "requests/EndpointTable.h"
#include "requests/RequestCall.h"
#include "requests/RequestFunctions.h"
#include "support/CleanSwitches.h"
#include "support/TestRoutes.h"
#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

// A path is asked for by an unsigned number of 32 bits, and what comes is a copy.
static_assert(std::is_same_v<decltype(&EndpointPath), std::string (*)(uint32_t)>);

class AddressTest : public testing::Test {
protected:
    CleanSwitches m_switches;
    CurlSpy m_spy;
};

TEST_F(AddressTest, IsBaseAndPathWithNothingBetweenThem) {
    const struct {
        const char* base;
        const char* address;
    } rows[] = {
        {"https://cloud.test", "https://cloud.test/api/device/detail"},
        {"https://cloud.test/", "https://cloud.test//api/device/detail"},
        {"https://cloud.test//", "https://cloud.test///api/device/detail"},
        {"https://Cloud.TEST/Part", "https://Cloud.TEST/Part/api/device/detail"},
        {"https://cloud.test/a/../b", "https://cloud.test/a/../b/api/device/detail"},
        {"https://cloud.test?a=b", "https://cloud.test?a=b/api/device/detail"},
        {"cloud.test", "cloud.test/api/device/detail"},
        {"http://cloud.test:80", "http://cloud.test:80/api/device/detail"},
    };
    for (const auto& row : rows) {
        uint32_t length = 0;
        SyncRequest(endpoint::kDeviceDetail, ParamMap(), row.base, nullptr, &length);
        EXPECT_EQ(m_spy.Url(), row.address);
        SyncRequestHeader(endpoint::kDeviceDetail, ParamMap(), ParamMap(), row.base, nullptr, &length);
        EXPECT_EQ(m_spy.Url(), row.address + std::string("?"));
    }
}

constexpr RequestRow kAnyRequest{.endpoint = endpoint::kUserName, .parserFailure = "ParseIt:%s error:%d"};

TEST_F(AddressTest, AndTheResponseIsHandedOnWithItsEnds) {
    const CallSite site{"int vantix::GetSomething(int)", 5};
    const PlatformRoute route = PlatformRouteTo("https://cloud.test", "the-token", "the-app");
    bUtf8 = true;  // nothing is converted
    for (const std::string sent : {"{}\n", "{}\r\n", "\n", " {} ", "\n\n{}\n\n", "\xEF\xBB\xBF{}"}) {
        m_spy.Respond(CURLE_OK, {sent});
        std::string body;
        EXPECT_EQ(RequestCall<kAnyRequest>(site, route).FetchText(body), 0);
        EXPECT_EQ(body, sent);
        std::string read;
        const auto keep = [&](TextView response) {
            read = std::string(response);
            return 0;
        };
        EXPECT_EQ(RequestCall<kAnyRequest>(site, route).Run(keep), 0);
        EXPECT_EQ(read, sent);
    }
}

}  // namespace
}  // namespace vantix::test
