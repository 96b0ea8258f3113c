#pragma once

#include <gmock/gmock.h>

#include <string>

#include "core/CVantixDataCenter.h"
#include "core/CoreParts.h"
#include "support/CleanSwitches.h"
#include "support/DetailResponse.h"
#include "support/FakeClock.h"
#include "support/LineMatcher.h"
#include "support/ScriptedTransport.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {

using PartsPointer = const std::unique_ptr<CoreParts> CVantixDataCenter::*;
const std::unique_ptr<CoreParts>& PartsPointerOf(const CVantixDataCenter& core);

/// Only the core reaches its parts; an explicit instantiation may name a private member.
template <PartsPointer kParts>
struct PrivateParts {
    friend const std::unique_ptr<CoreParts>& PartsPointerOf(const CVantixDataCenter& core) { return core.*kParts; }
};
template struct PrivateParts<&CVantixDataCenter::m_parts>;

/// A core of its own, fresh, with a clock to set, scripted transfers and its log lines.
class CoreTest : public testing::Test {
protected:
    /// Gives the core what a request needs.
    void Configure() {
        core.setDomain("https://b.example", "https://c.example");
        core.setAppId("app-id");
        core.setAccessToken("access-token");
        lines.Clear();
    }
    CoreParts& Parts() const { return *PartsPointerOf(core); }
    /// Puts a detail response into the caches by a forced fetch.
    void Cache(const std::string& serial, int ch, const nlohmann::json& response) {
        transport.Respond(response.dump());
        DevChannelInfo channel;
        DevDetailInfo device;
        ASSERT_EQ(core.getDevDetailInfoSync(serial, ch, true, channel, device, false), 0);
        lines.Clear();
    }
    /// The line with this message: asserts that there is exactly one.
    LogLine OnlyLine(const std::string& message) const {
        EXPECT_EQ(lines.Count(message), 1U) << message;
        return lines.Find(message);
    }
    void ExpectNoLine(const std::string& part) const { EXPECT_FALSE(lines.Contains(part)) << part; }

    CleanSwitches clean;
    FakeClock clock;
    ScriptedTransport transport;
    LogCapture lines;
    CVantixDataCenter core;
};

}  // namespace vantix::test
