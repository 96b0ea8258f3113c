#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/DeviceDetailParser.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {

/// The tag of the parser's lines.
inline constexpr char kDetailTag[] = "ParseDevDetailInfoFromPlatform";

/// Parses detail responses into records that hold those of the whole response before.
class HostileDetail : public testing::Test {
protected:
    HostileDetail() {
        ParseDevDetailInfoFromPlatform(WholeDetailText(), wholeChannel, wholeDevice, wholeParent);
        channel = wholeChannel;
        device = wholeDevice;
        parent = wholeParent;
        m_log.Clear();
    }

    int Parse(const std::string& body) {
        m_log.Clear();
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    }
    int Parse(const Json& response) { return Parse(response.dump()); }

    void ExpectUntouched() {
        EXPECT_TRUE(Same(channel, wholeChannel));
        EXPECT_TRUE(Same(device, wholeDevice));
        EXPECT_TRUE(parent.has_value() && Same(*parent, *wholeParent));
    }
    CleanSwitches m_switches;
    LogCapture m_log;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    DevChannelInfo wholeChannel;
    DevDetailInfo wholeDevice;
    std::optional<BelongDevInfo> wholeParent;
};

}  // namespace vantix::test
