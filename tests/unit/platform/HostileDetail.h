#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/DeviceDetailParser.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "unit/platform/DetailRecords.h"
#include "unit/platform/HostileText.h"

namespace vantix::test {

/// Parses detail answers into records that hold the golden answer before.
class HostileDetail : public testing::Test {
protected:
    HostileDetail() {
        ParseDevDetailInfoFromPlatform(GoldenDetailText(), goldenChannel, goldenDevice, goldenParent);
        channel = goldenChannel;
        device = goldenDevice;
        parent = goldenParent;
        lines.Clear();
    }

    int Parse(const std::string& body) {
        lines.Clear();
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    }
    int Parse(const nlohmann::json& answer) { return Parse(answer.dump()); }

    void ExpectUntouched() {
        EXPECT_TRUE(Same(channel, goldenChannel));
        EXPECT_TRUE(Same(device, goldenDevice));
        EXPECT_TRUE(parent.has_value() && Same(*parent, *goldenParent));
    }

    CleanSwitches clean;
    LogCapture lines;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    DevChannelInfo goldenChannel;
    DevDetailInfo goldenDevice;
    std::optional<BelongDevInfo> goldenParent;
};

}  // namespace vantix::test
