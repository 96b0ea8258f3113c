#include "requests/DeviceCapabilities.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/CleanSwitches.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

using capabilities::Capability;

/// Not in the short list.
constexpr Capability kPlain{"support_talk", &DevDetailInfo::support_talk, 0};
/// Its default is the third number of the short list.
constexpr Capability kListed{"support_thing", &DevDetailInfo::support_seek_v2, 3};
constexpr int32_t kBefore = 4711;

template <class Reader>
class Capabilities : public testing::Test {
protected:
    /// Reads a capability of an extension object into a device whose short list says 7 for it.
    static int32_t Read(const Capability& capability, const std::string& extension) {
        typename Reader::Document document;
        EXPECT_TRUE(document.Parse(extension)) << extension;
        DevDetailInfo device;
        device.supportExtShort = "1|2|7|9";
        device.*capability.field = kBefore;
        capabilities::ReadCapability(document.Root(), capability, device);
        return device.*capability.field;
    }

    CleanSwitches m_switches;
};
TYPED_TEST_SUITE(Capabilities, BothReaders, ReaderName);

TYPED_TEST(Capabilities, TheShortListGivesTheDefault) {
    constexpr int32_t kDefault = 7;
    EXPECT_EQ(this->Read(kListed, "{}"), kDefault);
    EXPECT_EQ(this->Read(kListed, R"({"support_thing": "5"})"), 5);
    EXPECT_EQ(this->Read(kListed, R"({"support_thing": "0"})"), kDefault) << "zero replaces nothing";
    EXPECT_EQ(this->Read(kListed, R"({"support_thing": "no number"})"), kDefault);
    EXPECT_EQ(this->Read(kListed, R"({"support_thing": 5})"), kDefault) << "only texts are read";
}

TYPED_TEST(Capabilities, WithoutANumberTheFieldStaysUntilATextSaysOtherwise) {
    EXPECT_EQ(this->Read(kPlain, R"({"support_talk": "1"})"), 1);
    EXPECT_EQ(this->Read(kPlain, R"({"support_talk": " 3 and more"})"), 3);
    EXPECT_EQ(this->Read(kPlain, R"({"support_talk": "-1"})"), -1);
    EXPECT_EQ(this->Read(kPlain, R"({"support_talk": "2147483648"})"), 2147483647);
    for (const char* other : {"{}", R"({"support_talk": "0"})", R"({"support_talk": ""})", R"({"support_talk": 1})",
                              R"({"support_talk": true})", R"({"support_talk": null})", R"({"support_talk": ["1"]})",
                              R"({"support_talk": {}})", "[]", "null", R"("support_talk")"}) {
        SCOPED_TRACE(other);
        EXPECT_EQ(this->Read(kPlain, other), kBefore);
    }
}

}  // namespace
}  // namespace vantix::test
