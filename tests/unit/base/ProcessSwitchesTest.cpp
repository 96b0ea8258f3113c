#include "base/ProcessSwitches.h"

#include <gtest/gtest.h>

#include "core/CoreInstance.h"

namespace {

// Other cases of this program leave the switches alone, so they stand as they do at load.

TEST(ProcessSwitches, ResponseTextsAreConvertedUntilTheHostAsksForUtf8) { EXPECT_FALSE(vantix::bUtf8); }

TEST(ProcessSwitches, TheB2CModeIsOffUntilTheHostSetsIt) { EXPECT_FALSE(vantix::bB2CMode); }

TEST(ProcessSwitches, BuildingTheCoreTurnsNothingOn) {
    vantix::CoreInstance();
    EXPECT_FALSE(vantix::bUtf8);
    EXPECT_FALSE(vantix::bB2CMode);
}

}  // namespace
