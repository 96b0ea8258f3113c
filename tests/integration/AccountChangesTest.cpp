// What one request changes on the platform, another shows.

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "OperationFixture.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

using Texts = std::vector<std::string>;

class AccountChangesTest : public OperationFixture {
protected:
    /// The outputs of a call that succeeds.
    Outputs Succeed(const char* operation, const Arguments& arguments = {}) const {
        Outputs outputs;
        EXPECT_EQ(Call(Center(), operation, arguments, outputs).result, 0) << operation;
        return outputs;
    }
    DevChannelInfo Channel(const std::string& serial, int ch) const {
        return Succeed("getDevDetailInfoSync", {.serial = serial, .ch = ch, .force = true}).channel;
    }
    int SetVideoLevel(int ch, int level) const {
        return Call(Center(), "setVideoDefinition", {.serial = kRecorder, .ch = ch, .videoLevel = level});
    }
    /// The alarms of the camera with this status: 0 new, 1 read, 2 all.
    Texts AlarmsOfTheCamera(int status) const {
        Texts ids;
        const Json alarms = Json::parse(Succeed("getAlarmList", {.alarmStatus = status}).text).at("result").at("data");
        for (const Json& alarm : alarms) {
            ids.push_back(alarm.at("alarmId"));
        }
        return ids;
    }
    std::string NewUploadAddress(const std::string& fileName) const {
        return Json::parse(Succeed("GetClouduploadUrl", {.fileName = fileName}).text).at("url");
    }
};

TEST_F(AccountChangesTest, VideoLevelThatIsSetStandsInTheDetailOfThatChannelAlone) {
    const int before = Channel(kRecorder, 4).videoLevel;
    for (const int level : {1, 0, 3}) {
        ASSERT_EQ(SetVideoLevel(5, level), 0);
        EXPECT_EQ(Channel(kRecorder, 5).videoLevel, level);
        EXPECT_EQ(Channel(kRecorder, 4).videoLevel, before);
    }
    const Json information = Json::parse(Succeed("getDeviceInfoBySerial", {.serial = kRecorder}).text);
    EXPECT_EQ(information.at("/result/data/cameraInfo/4/videoLevel"_json_pointer), 3);
}

TEST_F(AccountChangesTest, RefusedVideoLevelChangesNothing) {
    const int before = Channel(kRecorder, 5).videoLevel;
    EXPECT_EQ(SetVideoLevel(99, before + 1), 320032);
    Center().setAccessToken("no token");
    EXPECT_EQ(SetVideoLevel(5, before + 1), 310002);
    Center().setAccessToken(Account("accessToken"));
    EXPECT_EQ(Channel(kRecorder, 5).videoLevel, before);
}

TEST_F(AccountChangesTest, AlarmThatIsReadMovesFromTheNewOnesToTheReadOnes) {
    EXPECT_EQ(AlarmsOfTheCamera(2), Texts({"AL1001", "AL1002"}));
    EXPECT_EQ(AlarmsOfTheCamera(0), Texts({"AL1001"}));
    EXPECT_EQ(AlarmsOfTheCamera(1), Texts({"AL1002"}));
    Succeed("setAlarmRead", {.alarmId = "AL1001"});
    EXPECT_EQ(AlarmsOfTheCamera(2), Texts({"AL1001", "AL1002"}));
    EXPECT_EQ(AlarmsOfTheCamera(0), Texts());
    EXPECT_EQ(AlarmsOfTheCamera(1), Texts({"AL1001", "AL1002"}));
    EXPECT_EQ(Call(Center(), "setAlarmRead", {.alarmId = "no such alarm"}), 320034);
    EXPECT_EQ(AlarmsOfTheCamera(1), Texts({"AL1001", "AL1002"}));
}

TEST_F(AccountChangesTest, PictureGoesToTheAddressThatWasHandedOutForIt) {
    const std::string first = NewUploadAddress("gate.jpg");
    const std::string second = NewUploadAddress("yard.jpg");
    EXPECT_NE(first, second);
    const LocalFile file(u8"picture.jpg");
    Succeed("UploadCloudPicFile", {.url = second, .localPath = file.Path()});
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
    EXPECT_EQ(Call(Center(), "getUsername", {}), 310002) << "nothing to renew it with";
    SetRefreshCredentials();
    const std::string fresh = Succeed("RefreshToken").text;
    EXPECT_NE(fresh, Account("accessToken"));
    EXPECT_EQ(Succeed("getUsername").text, "sample-user");
    EXPECT_NE(Succeed("RefreshToken").text, fresh);
}

TEST_F(AccountChangesTest, StreamTokensAreNeverHandedOutTwice) {
    std::set<std::string> tokens;
    for (const int count : {3, 2}) {
        const Outputs outputs = Succeed("getStreamTokens", {.token = Account("accessToken"), .streamTokens = count});
        const Json batch = Json::parse(outputs.text).at("tokenArray");
        tokens.insert(batch.begin(), batch.end());
    }
    EXPECT_EQ(tokens.size(), 5U);
}

TEST_F(AccountChangesTest, RecordingOfAnAlarmIsAmongTheRecordingsOfItsDevice) {
    const Json ofTheAlarm = Json::parse(Succeed("getRecordByAlarmID").text).at("result").at("data").at(0);
    const TimeSpan span{ofTheAlarm.at("startTime"), ofTheAlarm.at("endTime")};
    const RecordFileList list = Succeed("getDeviceFileBySerial", {.span = span, .recordType = 0}).files;
    ASSERT_EQ(list.files.size(), 1U);
    EXPECT_EQ(list.files[0].fileId, "file-C10000001-1-01");
    EXPECT_EQ(ofTheAlarm.at("fileId"), "file-C10000001-1-01");
    EXPECT_EQ(list.files[0].size, ofTheAlarm.at("size"));
}

TEST_F(AccountChangesTest, StateOfADeviceStandsInDetailAndLists) {
    Cloud().Put("/devices/R20000016/cameras/2", {{"status", 2}, {"cameraName", "renamed"}});
    EXPECT_EQ(Channel(kRecorder, 2).status, 2);
    for (const char* operation : {"getDevList", "getDeviceList"}) {
        const DeviceList list = Succeed(operation).devices;
        const auto item = std::find_if(list.devices.begin(), list.devices.end(), [](const DeviceListItem& one) {
            return one.deviceSerial == kRecorder && one.channelNo == 2;
        });
        ASSERT_NE(item, list.devices.end());
        EXPECT_EQ(item->status, 2);
        EXPECT_EQ(item->name, "renamed");
    }
}

}  // namespace
}  // namespace vantix::test
