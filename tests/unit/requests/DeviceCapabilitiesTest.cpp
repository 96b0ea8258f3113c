#include "requests/DeviceCapabilities.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>

#include "support/CleanSwitches.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

using capabilities::Capability;

/// Not in the short list.
constexpr Capability kPlain[] = {{.key = "support_talk", .field = &DevDetailInfo::support_talk}};
/// Its default is the third number of the short list.
constexpr Capability kListed[] = {
    {.key = "support_thing", .field = &DevDetailInfo::support_seek_v2, .shortListNumber = 3}};
constexpr int32_t kBefore = 4711;

template <class Reader>
class Capabilities : public testing::Test {
protected:
    /// Reads a table of one capability from an extension object, for a device whose short list says 7 for it.
    template <const auto& Rows>
    static int32_t Read(const std::string& extension) {
        typename Reader::Document document;
        EXPECT_TRUE(document.Parse(extension)) << extension;
        DevDetailInfo device;
        device.supportExtShort = "1|2|7|9";
        device.*Rows[0].field = kBefore;
        capabilities::ReadRows<Rows>(document.Root(), device);
        return device.*Rows[0].field;
    }

    CleanSwitches m_switches;
};
TYPED_TEST_SUITE(Capabilities, BothReaders, ReaderName);

TYPED_TEST(Capabilities, TheShortListGivesTheDefault) {
    constexpr int32_t kDefault = 7;
    EXPECT_EQ(this->template Read<kListed>("{}"), kDefault);
    EXPECT_EQ(this->template Read<kListed>(R"({"support_thing": "5"})"), 5);
    EXPECT_EQ(this->template Read<kListed>(R"({"support_thing": "0"})"), kDefault) << "zero replaces nothing";
    EXPECT_EQ(this->template Read<kListed>(R"({"support_thing": "no number"})"), kDefault);
    EXPECT_EQ(this->template Read<kListed>(R"({"support_thing": 5})"), kDefault) << "only texts are read";
}

TYPED_TEST(Capabilities, WithoutANumberTheFieldStaysUntilATextSaysOtherwise) {
    EXPECT_EQ(this->template Read<kPlain>(R"({"support_talk": "1"})"), 1);
    EXPECT_EQ(this->template Read<kPlain>(R"({"support_talk": " 3 and more"})"), 3);
    EXPECT_EQ(this->template Read<kPlain>(R"({"support_talk": "-1"})"), -1);
    EXPECT_EQ(this->template Read<kPlain>(R"({"support_talk": "2147483648"})"), 2147483647);
    for (const char* other : {"{}", R"({"support_talk": "0"})", R"({"support_talk": ""})", R"({"support_talk": 1})",
                              R"({"support_talk": true})", R"({"support_talk": null})", R"({"support_talk": ["1"]})",
                              R"({"support_talk": {}})", "[]", "null", R"("support_talk")"}) {
        SCOPED_TRACE(other);
        EXPECT_EQ(this->template Read<kPlain>(other), kBefore);
    }
}

TYPED_TEST(Capabilities, AllOfThemAreReadByTheirNames) {
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse(R"({"support_ptz":"1","support_talk":"2","ptz_left_right":"3","ptz_top_bottom":"4",
        "ptz_preset":"5","support_ecdh_v2":"six","support_replay_download":"7","support_device_video_cover":"8",
        "support_seek_playback":"9","support_seek_v2":"10","support_quickplay_way":"11",
        "support_device_playback_small_speed":"12"})"));
    DevDetailInfo device;
    capabilities::ReadCapabilities(document.Root(), device);
    EXPECT_EQ(device.support_ptz, 1);
    EXPECT_EQ(device.support_talk, 2);
    EXPECT_EQ(device.ptz_left_right, 3);
    EXPECT_EQ(device.ptz_top_bottom, 4);
    EXPECT_EQ(device.ptz_preset, 5);
    EXPECT_EQ(device.support_ecdh_v2, "six");
    EXPECT_EQ(device.support_replay_download, 7);
    EXPECT_EQ(device.support_device_video_cover, 8);
    EXPECT_EQ(device.support_seek_playback, 9);
    EXPECT_EQ(device.support_seek_v2, 10);
    EXPECT_EQ(device.support_quickplay_way, 11);
    EXPECT_EQ(device.support_device_playback_small_speed, 12);
}

/// Values of the short list at these places, 0 everywhere else.
std::string ShortList(const std::map<int, std::string>& values) {
    std::string list;
    for (int number = 1; number <= 836; ++number) {
        const auto value = values.find(number);
        list += (value == values.end() ? "0" : value->second) + "|";
    }
    return list;
}

TYPED_TEST(Capabilities, FourOfThemHaveANumberInTheShortList) {
    DevDetailInfo device;
    device.supportExtShort = ShortList({{149, "1"}, {257, "2"}, {585, "3"}, {836, "4"}});
    device.support_ptz = kBefore;
    capabilities::ReadCapabilities(typename TypeParam::View(), device);
    EXPECT_EQ(device.support_quickplay_way, 1);
    EXPECT_EQ(device.support_seek_playback, 2);
    EXPECT_EQ(device.support_device_playback_small_speed, 3);
    EXPECT_EQ(device.support_seek_v2, 4);
    EXPECT_EQ(device.support_ptz, kBefore);
    EXPECT_EQ(device.support_talk, 0);
    EXPECT_EQ(device.support_replay_download, 0);
    EXPECT_EQ(device.support_device_video_cover, 0);
}

}  // namespace
}  // namespace vantix::test
