// Each request says anew who sends it, and what it says is there before anything runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "requests/ClientInfo.h"
#include "requests/EndpointTable.h"
#include "requests/RequestCall.h"
#include "support/CleanSwitches.h"
#include "support/FixedFeatureCode.h"
#include "support/TestRoutes.h"
#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

// Constants of the compiler: a request from the constructor of another static object carries them.
static_assert(std::string_view(kCustomerNumber) == "100002");
static_assert(std::string_view(kLanguage) == "EN");

static_assert(std::is_same_v<decltype(ClientInfo::clientType), int32_t>);
static_assert(std::is_standard_layout_v<ClientInfo>);
static_assert(offsetof(ClientInfo, clientType) == 0);
static_assert(offsetof(ClientInfo, clientType) < offsetof(ClientInfo, featureCode));
static_assert(offsetof(ClientInfo, featureCode) < offsetof(ClientInfo, osVersion));
static_assert(offsetof(ClientInfo, osVersion) < offsetof(ClientInfo, clientVersion));
static_assert(offsetof(ClientInfo, clientVersion) < offsetof(ClientInfo, sdkVersion));
static_assert(offsetof(ClientInfo, sdkVersion) < offsetof(ClientInfo, netType));
static_assert(offsetof(ClientInfo, netType) + sizeof(std::string) == sizeof(ClientInfo));

constexpr RequestRow kWithClientSet{.endpoint = endpoint::kUserName, .common = {.clientSet = true}};
constexpr RequestRow kWithHeaderSet{.family = RequestFamily::Consumer,
                                    .kind = RequestKind::Get,
                                    .endpoint = endpoint::kConsumerUserInfo,
                                    .headers = {.set = HeaderSet::B}};

class ClientOfEachRequest : public testing::Test {
protected:
    std::string PlatformBody() {
        std::string body;
        RequestCall<kWithClientSet>(m_site, PlatformRouteTo("https://cloud.test", "t", "a")).FetchText(body);
        return m_spy.Body();
    }
    std::vector<std::string> ConsumerHeaders() {
        std::string body;
        RequestCall<kWithHeaderSet>(m_site, ConsumerRouteTo("https://cloud.test", "s")).FetchText(body);
        return m_spy.Headers();
    }

    const CallSite m_site{"int vantix::GetSomething(int)", 5};
    CleanSwitches m_switches;
    CurlSpy m_spy;
};

TEST_F(ClientOfEachRequest, IsMadeForThatRequest) {
    for (const char* code : {"x", "y"}) {
        const FixedFeatureCode fixed(code);
        EXPECT_THAT(PlatformBody(), testing::HasSubstr(std::string("&featureCode=") + code + "&"));
        EXPECT_THAT(ConsumerHeaders(), testing::Contains(std::string("featureCode: ") + code));
    }
}

}  // namespace
}  // namespace vantix::test
