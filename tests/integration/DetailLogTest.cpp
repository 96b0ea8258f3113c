// The log of a whole call: every line with its level, word, tag and text, and nothing secret in any of them.

#include <gmock/gmock.h>

#include "DetailFixture.h"
#include "support/ExpectedFeatureCode.h"
#include "support/FakeClock.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::StartsWith;

constexpr char kResponse[] =
    R"({"result":{"code":"200","data":{"camera":{"cameraNo":1,"deviceSerial":"C10000001"},"device":)"
    R"({"deviceSerial":"C10000001","releaseVersion":"VERSION_17","qxDeviceSupportExt":{"ShareVerify":"1"},)"
    R"("supportExt":{"support_ecdh_v2":"2","support_seek_playback":"1"}}}}})";

class DetailLogTest : public DetailFixture {
protected:
    void SetUp() override {
        DetailFixture::SetUp();
        ASSERT_EQ(Fetch(kRecorder, 1), 0);  // the first request of a process writes how the feature code was made
        Center().ClearAllCache();
    }

    std::string MaskedRequest() const {
        return "start Posts url and Param = " + BDomain() +
               "/api/device/detail?accessToken=***&appKey=***&cameraNo=1&clientType=19&clientVersion=v5.25.0"
               "&deviceSerial=C10000001&featureCode=" +
               ExpectedFeatureCode() +
               "&isNewVersion=true&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=4.0";
    }
};

TEST_F(DetailLogTest, FetchBehindAFutureThenAHit) {
    FakeClock clock;
    clock.SetSteadyStep(42'000'000);
    Cloud().Script({{"path", kDetailPath}, {"body", kResponse}});
    const LogCapture log;
    ASSERT_EQ(Ask(kCamera, 1).fetched, 0);
    ASSERT_EQ(Ask(kCamera, 1).returned, 0);
    const std::string parser = "ParseDevDetailInfoFromPlatform";
    EXPECT_THAT(
        log.Lines(),
        ElementsAre(
            Line(3, "INFO ", "CVantixDataCenter::getDevInfoCache", "m_mapDevDetailInfo not exist key = C10000001_1"),
            // A lambda's tag begins with that of the method around it.
            Line(3, "INFO ", StartsWith("CVantixDataCenter::getDevDetailInfo"),
                 "futureDetailInfo async strDeviceSerial = C10000001 iChannel = 1"),
            Line(3, "INFO ", "CVantixDataCenter::getDomain", "Returning B domain"),
            Line(3, "INFO ", "SyncRequest", MaskedRequest()),
            Line(3, "INFO ", "CRequest::SyncRequest", std::string("strRsp:") + kResponse),
            Line(3, "INFO ", "SyncRequest", "end Posts url and Param result = 0"),
            Line(3, "INFO ", "GetDevDetailInfoFromPlatformBySerial", "/api/device/detail CostTime: = 42 milliseconds"),
            Line(5, "ERROR", parser, "iShareVerif = [1]"), Line(3, "INFO ", parser, "support_ecdh_v2:2"),
            Line(3, "INFO ", parser, "support_device_video_cover:0"),
            Line(3, "INFO ", parser, "iSupportSeekPlayback:1"), Line(3, "INFO ", parser, "iSupportSeek2Playback:0"),
            Line(3, "INFO ", parser, "DeviceSerial = C10000001,  support_replay_download:0"),
            Line(5, "ERROR", "CVantixDataCenter::getDevDetailInfo",
                 "getDevDetailInfo FromLocal SUCCESS  isUpdate = 0")));
    EXPECT_THAT(log.Lines(), Each(Field(&LogLine::module, "Vantix")));
}

TEST_F(DetailLogTest, MarkAndClearSayWhatTheyDid) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    const LogCapture log;
    Center().SetDevInfoCache(kCamera, 1);
    Center().SetDevInfoCache(kCamera, 2);
    Center().ClearDeviceInfoCache();
    Detail detail;
    ReadCache(kCamera, 1, detail);
    EXPECT_THAT(log.Lines(),
                ElementsAre(Line(3, "INFO ", "CVantixDataCenter::SetDevInfoCache",
                                 "Update status successful strKey= C10000001_1"),
                            Line(3, "INFO ", "CVantixDataCenter::SetDevInfoCache", "key not exist strKey= C10000001_2"),
                            Line(3, "INFO ", "CVantixDataCenter::ClearDeviceInfoCache", "m_mapDeviceInfoCache clear"),
                            Line(3, "INFO ", "CVantixDataCenter::getDevInfoCache",
                                 "m_mapDeviceInfoCache not exist key = C10000001_1")));
}

TEST_F(DetailLogTest, RelationLinesNameTheDevice) {
    ASSERT_EQ(Fetch(kBehindOnline, 1), 0);
    ASSERT_EQ(Fetch(kOtherRelease, 1), 0);
    const LogCapture log;
    Detail detail;
    ASSERT_EQ(Center().getDevDetailInfoByRelation(kBehindOnline, 1, detail.channel, detail.device), 0);
    const std::string tag = "CVantixDataCenter::getDevDetailInfoFromLocalByRelation";
    EXPECT_THAT(log.Lines(),
                ElementsAre(Line(3, "INFO ", tag, "BelongNo Unrelated device stDeviceInfo.iCloseBlong = 0"),
                            Line(3, "INFO ", tag, "BelongNo Associated device R20000016 is online")));
    Center().getDevDetailInfoByRelation(kOtherRelease, 1, detail.channel, detail.device);
    EXPECT_THAT(log.Lines(),
                Contains(Line(5, "ERROR", tag, "VANTIX_DEV_NO_SUPPORT Release Version Not Equal VERSION_17")).Times(2));
}

TEST_F(DetailLogTest, SmallPermissionTracingIsSilentAtTheDefaultLevel) {
    SetDeviceTokens();
    SetPermissionMode(1);
    const LogCapture log;
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_FALSE(log.Contains("getDeviceTkTokens key"));
    Center().setLogLevel(1);
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_THAT(log.Lines(), HasLine(1, "INFO ", "CVantixDataCenter::getDeviceTkTokens",
                                     "tkType = 3 strSerial = C10000001 iChannelNo = 1"));
    EXPECT_EQ(log.Count("getDeviceTkTokens key = C100000011 "), 1U);
}

TEST_F(DetailLogTest, NoLineShowsACredential) {
    SetDeviceTokens();
    Center().setLogLevel(-1);
    const LogCapture log;
    Fetch(kCamera, 1);
    Ask(kRecorder, 1);
    Fetch(kUnknown, 1);
    Center().setDomain(Cloud().ClosedPort(), "");
    Fetch(kRecorder, 2);
    EXPECT_TRUE(log.Contains("accessToken=***&appKey=***&"));
    for (const std::string& secret : {Account("accessToken"), Account("appKey"), std::string("tk.video-C10000001-1")}) {
        EXPECT_FALSE(log.Contains(secret)) << secret;
    }
}

TEST_F(DetailLogTest, BodyBeyondTheLimitIsNotLogged) {
    const std::string tail(10240, ' ');
    const std::string limit = kResponse + tail.substr(sizeof(kResponse) - 1);
    ASSERT_EQ(limit.size(), 10240U);
    const LogCapture log;
    Cloud().Script({{"path", kDetailPath}, {"body", limit}});
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(log.Count("strRsp:" + limit), 1U);
    EXPECT_EQ(log.Count("strRsp outlen"), 0U);
    Cloud().Script({{"path", kDetailPath}, {"body", limit + " "}});
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(log.Count("strRsp outlen"), 1U);
    EXPECT_FALSE(log.Contains(limit + " "));
}

TEST_F(DetailLogTest, SilencedLibraryWritesNothing) {
    Center().setLogLevel(6);
    const LogCapture log;
    Fetch(kCamera, 1);
    Fetch(kUnknown, 1);
    EXPECT_TRUE(log.Lines().empty());
}

}  // namespace
}  // namespace vantix::test
