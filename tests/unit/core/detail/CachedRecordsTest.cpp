#include "core/detail/CachedRecords.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace vantix::test {
namespace {

// A member that the tables do not have would be lost in comparisons: together they fill the records.
constexpr size_t kOfAFetch = 2 * sizeof(int32_t) + sizeof(int64_t) + 2 * sizeof(bool);
static_assert(sizeof(TextsOf<DevDetailInfo>::kAll) / sizeof(void*) == 14);
static_assert(std::size(kDeviceNumbers) == 37);
constexpr size_t kMembers = 14 * sizeof(std::string) + 37 * sizeof(int32_t) + sizeof(std::vector<VtmAddr>) + kOfAFetch;
// What is left is room between members of different alignment: the record's own, and that behind a number and a text.
static_assert(sizeof(DevDetailInfo) - kMembers < 14 * sizeof(int32_t));

const std::string kLongText(200, 'l');

DevDetailInfo WholeDevice() {
    DevDetailInfo device;
    for (const auto text : TextsOf<DevDetailInfo>::kAll) {
        device.*text = "short";
    }
    device.supportExtShort = kLongText;
    device.publicKey = std::string(64, 'k');
    int32_t number = 1;
    for (const auto member : kDeviceNumbers) {
        device.*member = number++;
    }
    device.vtmBackups = {{"one", 1}, {std::string(100, 'v'), 2}};
    device.iCloseBlong = 1;
    device.iRequestCost = 17;
    device.tCacheTime = 1'700'000'000;
    device.isUpdate = true;
    device.isFromCache = false;
    return device;
}

void ExpectEqual(const DevDetailInfo& one, const DevDetailInfo& other) {
    for (const auto text : TextsOf<DevDetailInfo>::kAll) {
        EXPECT_EQ(one.*text, other.*text);
    }
    for (const auto member : kDeviceNumbers) {
        EXPECT_EQ(one.*member, other.*member);
    }
    ASSERT_EQ(one.vtmBackups.size(), other.vtmBackups.size());
    for (size_t i = 0; i < one.vtmBackups.size(); ++i) {
        EXPECT_EQ(one.vtmBackups[i].strVtmAddr, other.vtmBackups[i].strVtmAddr);
        EXPECT_EQ(one.vtmBackups[i].iVtmPort, other.vtmBackups[i].iVtmPort);
    }
    EXPECT_EQ(one.iCloseBlong, other.iCloseBlong);
    EXPECT_EQ(one.iRequestCost, other.iRequestCost);
    EXPECT_EQ(one.tCacheTime, other.tCacheTime);
    EXPECT_EQ(one.isUpdate, other.isUpdate);
    EXPECT_EQ(one.isFromCache, other.isFromCache);
}

class CachedRecords : public testing::Test {
protected:
    CachedDevice Cached(const DevDetailInfo& device) { return {device, m_texts}; }
    /// Whether the second of two devices takes over the first one's record.
    bool Share(const DevDetailInfo& first, const DevDetailInfo& second) {
        const CachedDevice known = Cached(first);
        CachedDevice device = Cached(second);
        device.ShareWith(known);
        return &device.Members() == &known.Members();
    }

    SharedTexts m_texts;
};

TEST_F(CachedRecords, ComeOutAsTheyWentIn) {
    const DevDetailInfo device = WholeDevice();
    DevDetailInfo copy;
    copy.publicKey = "replaced";
    copy.supportExtShort = std::string(500, 'x');
    Cached(device).CopyTo(copy);
    ExpectEqual(copy, device);
    DevDetailInfo fresh;
    Cached(DevDetailInfo()).CopyTo(fresh);
    ExpectEqual(fresh, DevDetailInfo());
}

TEST_F(CachedRecords, LongTextsOfDevicesAreHeldOnce) {
    const CachedDevice one = Cached(WholeDevice());
    DevDetailInfo device = WholeDevice();
    device.deviceSerial = "another";
    const CachedDevice other = Cached(device);
    EXPECT_EQ(m_texts.Size(), 2U);
    EXPECT_EQ(one.Members().supportExtShort, "");
    EXPECT_EQ(other.Members().publicKey, "");
    EXPECT_EQ(other.Members().deviceSerial, "another");
}

TEST_F(CachedRecords, ChannelsComeOutAsTheyWentIn) {
    DevChannelInfo channel;
    channel.videoLevel = 1;
    channel.type = 2;
    channel.cameraNo = 3;
    channel.status = 4;
    channel.deviceSerial = "C1";
    channel.cameraId = kLongText;
    channel.capability = kLongText;
    channel.isShared = "1";
    channel.streamBizUrl = "biz=1";
    channel.isTrust = "5";
    channel.permission = 6;
    channel.forceStreamType = 7;
    channel.streamBiz = 8;
    channel.iIsTrust = 9;
    channel.videoQualityInfos = {{"Fluent", 0, 2}};
    CachedChannel cached(channel, m_texts);
    EXPECT_EQ(m_texts.Size(), 1U);
    EXPECT_EQ(cached.Trust(), 9);
    cached.SetTrust(10);
    DevChannelInfo copy;
    cached.CopyTo(copy);
    EXPECT_EQ(copy.videoLevel, 1);
    EXPECT_EQ(copy.type, 2);
    EXPECT_EQ(copy.cameraNo, 3);
    EXPECT_EQ(copy.status, 4);
    EXPECT_EQ(copy.deviceSerial, "C1");
    EXPECT_EQ(copy.cameraId, kLongText);
    EXPECT_EQ(copy.capability, kLongText);
    EXPECT_EQ(copy.isShared, "1");
    EXPECT_EQ(copy.streamBizUrl, "biz=1");
    EXPECT_EQ(copy.isTrust, "5");
    EXPECT_EQ(copy.permission, 6);
    EXPECT_EQ(copy.forceStreamType, 7);
    EXPECT_EQ(copy.streamBiz, 8);
    EXPECT_EQ(copy.iIsTrust, 10);
    ASSERT_EQ(copy.videoQualityInfos.size(), 1U);
    EXPECT_EQ(copy.videoQualityInfos[0].videoQualityName, "Fluent");
}

TEST_F(CachedRecords, EqualDevicesShareOneRecordWhateverTheirFetchesWere) {
    DevDetailInfo later = WholeDevice();
    later.iCloseBlong = 0;
    later.iRequestCost = 18;
    later.tCacheTime = 1'700'000'001;
    later.isUpdate = false;
    later.isFromCache = true;
    EXPECT_TRUE(Share(WholeDevice(), later));

    CachedDevice device = Cached(later);
    device.ShareWith(Cached(WholeDevice()));
    DevDetailInfo copy;
    device.CopyTo(copy);
    ExpectEqual(copy, later);
}

TEST_F(CachedRecords, DevicesThatDifferInAnyMemberDoNotShare) {
    for (const auto text : TextsOf<DevDetailInfo>::kAll) {
        DevDetailInfo other = WholeDevice();
        other.*text = "other";
        EXPECT_FALSE(Share(WholeDevice(), other));
        other.*text = std::string(100, 'o');
        EXPECT_FALSE(Share(WholeDevice(), other));
    }
    for (const auto number : kDeviceNumbers) {
        DevDetailInfo other = WholeDevice();
        other.*number = -1;
        EXPECT_FALSE(Share(WholeDevice(), other));
    }
    DevDetailInfo other = WholeDevice();
    other.vtmBackups[1].iVtmPort = 3;
    EXPECT_FALSE(Share(WholeDevice(), other));
    other = WholeDevice();
    other.vtmBackups[0].strVtmAddr = "two";
    EXPECT_FALSE(Share(WholeDevice(), other));
    other.vtmBackups.pop_back();
    EXPECT_FALSE(Share(WholeDevice(), other));
}

TEST_F(CachedRecords, DevicesWithTheSameLongTextInDifferentMembersDoNotShare) {
    DevDetailInfo one;
    one.publicKey = kLongText;
    DevDetailInfo other;
    other.supportExtShort = kLongText;
    EXPECT_FALSE(Share(one, other));
}

TEST_F(CachedRecords, MarkOfOneDeviceLeavesThoseThatShareItsRecord) {
    DevDetailInfo device = WholeDevice();
    device.isUpdate = false;
    const CachedDevice known = Cached(device);
    CachedDevice marked = Cached(device);
    marked.ShareWith(known);
    marked.MarkForUpdate();
    DevDetailInfo copy;
    marked.CopyTo(copy);
    EXPECT_TRUE(copy.isUpdate);
    known.CopyTo(copy);
    EXPECT_FALSE(copy.isUpdate);
}

}  // namespace
}  // namespace vantix::test
