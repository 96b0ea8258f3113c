// What one request changes on the platform, another shows.

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/Account.h"
#include "platform/DeviceDetail.h"
#include "platform/Lists.h"
#include "platform/Recordings.h"
#include "platform/Tokens.h"
#include "support/CoreFixture.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

class AccountChangesTest : public CoreFixture {
protected:
    Caller Us() const { return As(Account("accessToken")); }
    Caller As(const std::string& token) const { return {BDomain(), token, Account("appKey")}; }

    DevChannelInfo Channel(const std::string& serial, int cameraNo) const {
        DevChannelInfo channel;
        DevDetailInfo device;
        std::optional<BelongDevInfo> parent;
        EXPECT_EQ(GetDevDetailInfoFromPlatformBySerial(Us(), serial, cameraNo, channel, device, parent), 0);
        return channel;
    }
    /// The alarms of the camera with this status: 0 new, 1 read, 2 all.
    std::vector<std::string> AlarmsOfTheCamera(int status) const {
        std::string answer;
        EXPECT_EQ(GetAlarmListFromPlatform(Us(), "C10000001", 1, {0, 50, "", "", -1, status}, answer), 0);
        std::vector<std::string> ids;
        const Json alarms = Json::parse(answer).at("result").at("data");
        for (const Json& alarm : alarms) {
            ids.push_back(alarm.at("alarmId"));
        }
        return ids;
    }
    std::string NewUploadAddress(const std::string& fileName) const {
        RecordFileList list;
        EXPECT_EQ(GetClouduploadUrlPlatform(Us(), {fileName, 1, 7, 3600, "alarm"}, list), 0);
        return Json::parse(list.strDeviceRecordList).at("url");
    }
};

TEST_F(AccountChangesTest, VideoLevelThatIsSetStandsInTheDetailOfThatChannelAlone) {
    const int before = Channel("R20000016", 4).videoLevel;
    for (const int level : {1, 0, 3}) {
        std::string answer;
        ASSERT_EQ(SetVideoDefinitionOnPlatform(Us(), "R20000016", 5, level, answer), 0);
        EXPECT_EQ(Channel("R20000016", 5).videoLevel, level);
        EXPECT_EQ(Channel("R20000016", 4).videoLevel, before);
    }
    std::string answer;
    ASSERT_EQ(GetDeviceInfoBySerialFromPlatform(Us(), "R20000016", answer), 0);
    EXPECT_EQ(Json::parse(answer).at("/result/data/cameraInfo/4/videoLevel"_json_pointer), 3);
}

TEST_F(AccountChangesTest, RefusedVideoLevelChangesNothing) {
    const int before = Channel("R20000016", 5).videoLevel;
    std::string answer;
    EXPECT_EQ(SetVideoDefinitionOnPlatform(As("no token"), "R20000016", 5, before + 1, answer), 310002);
    EXPECT_EQ(SetVideoDefinitionOnPlatform(Us(), "R20000016", 99, before + 1, answer), 320032);
    EXPECT_EQ(Channel("R20000016", 5).videoLevel, before);
}

TEST_F(AccountChangesTest, AlarmThatIsReadMovesFromTheNewOnesToTheReadOnes) {
    const std::vector<std::string> all = AlarmsOfTheCamera(2);
    const std::vector<std::string> fresh = AlarmsOfTheCamera(0);
    const std::vector<std::string> read = AlarmsOfTheCamera(1);
    ASSERT_FALSE(fresh.empty());
    EXPECT_EQ(all.size(), fresh.size() + read.size());
    ASSERT_EQ(SetAlarmReadOnPlatform(Us(), fresh.front()), 0);
    EXPECT_EQ(AlarmsOfTheCamera(2), all);
    EXPECT_EQ(AlarmsOfTheCamera(0), std::vector<std::string>(fresh.begin() + 1, fresh.end()));
    const std::vector<std::string> readNow = AlarmsOfTheCamera(1);
    EXPECT_EQ(readNow.size(), read.size() + 1);
    EXPECT_NE(std::find(readNow.begin(), readNow.end(), fresh.front()), readNow.end());
    EXPECT_EQ(SetAlarmReadOnPlatform(Us(), "no such alarm"), 320034);
    EXPECT_EQ(AlarmsOfTheCamera(1), readNow);
}

TEST_F(AccountChangesTest, PictureGoesToTheAddressThatWasHandedOutForIt) {
    const std::string first = NewUploadAddress("gate.jpg");
    const std::string second = NewUploadAddress("yard.jpg");
    EXPECT_NE(first, second);
    const LocalFile file(u8"picture.jpg");
    EXPECT_EQ(UploadCloudPicFile(second, file.Path()), 0);
    const Json uploads = Cloud().Get("/uploads");
    ASSERT_EQ(uploads.size(), 2U);
    EXPECT_EQ(uploads[0].at("url"), first);
    EXPECT_EQ(uploads[0].at("received"), false);
    EXPECT_EQ(uploads[1].at("url"), second);
    EXPECT_EQ(uploads[1].at("received"), true);
    EXPECT_EQ(uploads[1].at("fileName"), "yard.jpg");
    EXPECT_EQ(uploads[1].at("contentHex"), "70696374757265");
}

TEST_F(AccountChangesTest, RefreshedTokenIsAcceptedWhereTheExpiredOneIsNot) {
    Cloud().Post("/expire", {{"what", "accessToken"}});
    std::string name;
    ASSERT_EQ(GetUsernameFromPlatform(Us(), name), 310002);
    EXPECT_EQ(name, "");
    RefreshTokenInfo info;
    ASSERT_EQ(RefreshTokenFromPlatform(Us(), {Account("refreshToken"), Account("openId"), "all", ""}, info), 0);
    EXPECT_NE(info.access_token, Account("accessToken"));
    EXPECT_EQ(GetUsernameFromPlatform(As(info.access_token), name), 0);
    EXPECT_EQ(name, Account("userName"));
    // What came with it refreshes the next time.
    RefreshTokenInfo next;
    EXPECT_EQ(RefreshTokenFromPlatform(Us(), {info.refresh_token, info.openId, "all", ""}, next), 0);
    EXPECT_NE(next.access_token, info.access_token);
}

TEST_F(AccountChangesTest, StreamTokensAreNeverHandedOutTwice) {
    std::deque<std::string> tokens;
    ASSERT_EQ(GetStreamTokensFromPlatform(Us(), 3, tokens), 0);
    ASSERT_EQ(GetStreamTokensFromPlatform(Us(), 2, tokens), 0);
    ASSERT_EQ(tokens.size(), 5U);
    std::sort(tokens.begin(), tokens.end());
    EXPECT_EQ(std::unique(tokens.begin(), tokens.end()), tokens.end());
}

TEST_F(AccountChangesTest, RecordingOfAnAlarmIsAmongTheRecordingsOfItsDevice) {
    std::string answer;
    ASSERT_EQ(GetRecordByAlarmIdFromPlatform(Us(), "C10000001", 1, "AL1001", answer), 0);
    const Json ofTheAlarm = Json::parse(answer).at("result").at("data").at(0);
    RecordFileList list;
    const TimeSpan span{ofTheAlarm.at("startTime"), ofTheAlarm.at("endTime")};
    ASSERT_EQ(GetDeviceFileBySerialFromPlatform(Us(), "C10000001", 1, span, 0, 1, false, list), 0);
    ASSERT_EQ(list.files.size(), 1U);
    EXPECT_EQ(list.files[0].fileId, ofTheAlarm.at("fileId"));
    EXPECT_EQ(list.files[0].size, ofTheAlarm.at("size"));
}

TEST_F(AccountChangesTest, StateOfADeviceStandsInDetailAndLists) {
    Cloud().Put("/devices/R20000016/cameras/2", {{"status", 2}, {"cameraName", "renamed"}});
    EXPECT_EQ(Channel("R20000016", 2).status, 2);
    DeviceList own;
    DeviceList business;
    ASSERT_EQ(GetDevListFromPlatform(Us(), 0, 50, own), 0);
    ASSERT_EQ(GetDeviceListFromPlatform(Us(), 0, 50, "GB", business), 0);
    for (const DeviceList& list : {own, business}) {
        const auto item = std::find_if(list.devices.begin(), list.devices.end(), [](const DeviceListItem& one) {
            return one.deviceSerial == "R20000016" && one.channelNo == 2;
        });
        ASSERT_NE(item, list.devices.end());
        EXPECT_EQ(item->status, 2);
        EXPECT_EQ(item->name, "renamed");
    }
}

}  // namespace
}  // namespace vantix::test
