// What single queries do otherwise than the others.

#include <gmock/gmock.h>

#include "OperationFixture.h"
#include "support/DetailJson.h"
#include "support/LineMatcher.h"
#include "support/LocalFile.h"
#include "vantix/records/CloudFileQuery.h"

namespace vantix::test {
namespace {

constexpr char kBegin[] = "2024-01-02 00:00:00";
constexpr char kEnd[] = "2024-01-02 23:59:59";
constexpr char kDetailPath[] = "/api/device/detail";
constexpr char kConfigPath[] = "/api/config/info";
constexpr char kSharedListPath[] = "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist";
constexpr char kDetailsOfRecordingsPath[] = "/api/v3/open/cloud/v3/clouds/videoDetails";

class QueryDeviationTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        SetRefreshCredentials();
        m_log.Clear();
    }

    void Respond(const std::string& path, const std::string& code, int times = 1) const {
        Cloud().Script({{"path", path}, {"code", code}, {"times", times}});
    }
    int DeviceDetail(Detail& detail) const {
        return Center().getDeviceDetailInfo(kCamera, 1, "GB", "P-7", detail.channel, detail.device);
    }
    int DeviceFiles(const std::string& serial, RecordFileList& list, bool sdkPath = false) const {
        return Center().getDeviceFileBySerial(serial, 1, kBegin, kEnd, 2, 1, list, sdkPath);
    }

    LogCapture m_log;
};

// ---- The list of devices shared on the consumer servers

TEST_F(QueryDeviationTest, SharedListSendsTheSessionInEveryMode) {
    for (const int mode : {0, 1, 2}) {
        SCOPED_TRACE(mode);
        SetPermissionMode(mode);
        Cloud().ForgetRequests();
        std::string json;
        EXPECT_EQ(Center().getB2CSharedDevList(3, 7, json), 0);
        const auto requests = Cloud().Requests();
        ASSERT_EQ(requests.size(), 1U);
        EXPECT_EQ(requests[0].domain, "C");
        EXPECT_EQ(requests[0].path, kSharedListPath);
        EXPECT_EQ(requests[0].Parameter("offset"), "3");
        EXPECT_EQ(requests[0].Parameter("limit"), "7");
        EXPECT_EQ(requests[0].Parameter("accessToken"), "<none>");
        EXPECT_EQ(requests[0].Header("sessionId"), Account("sessionId"));
    }
}

TEST_F(QueryDeviationTest, SharedListShowsTheSharedDevice) {
    std::string json;
    ASSERT_EQ(Center().getB2CSharedDevList(0, 50, json), 0);
    EXPECT_NE(json.find(kShared), std::string::npos);
    EXPECT_EQ(json.find(kCamera), std::string::npos);
    EXPECT_TRUE(Json::parse(json, nullptr, false).is_object());
}

TEST_F(QueryDeviationTest, ExpiredSharedListIsLoggedAndNotRenewed) {
    SetPermissionMode(2);
    SetRefreshSession();
    for (const bool isExpired : {true, false}) {
        Cloud().ForgetRequests();
        m_log.Clear();
        Respond(kSharedListPath, isExpired ? "10002" : "10001");
        std::string json;
        EXPECT_EQ(Center().getB2CSharedDevList(0, 50, json), isExpired ? 310002 : 310001);
        EXPECT_EQ(Cloud().RequestCount(), 1U);
        if (isExpired) {
            EXPECT_THAT(m_log.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::getB2CSharedDevList",
                                               "Token exception or expired iRet = 310002"));
        } else {
            EXPECT_FALSE(m_log.Contains("Token exception or expired"));
        }
    }
}

TEST_F(QueryDeviationTest, SharedListNeedsNoAccessToken) {
    Center().setAccessToken("");
    std::string json;
    EXPECT_EQ(Center().getB2CSharedDevList(0, 50, json), 0);
}

// ---- The platform's configuration

TEST_F(QueryDeviationTest, ConfigurationIsLoggedAndTakenOver) {
    Cloud().Put("/account", {{"config", {{"streamType", 1}, {"dataCollect", 4}, {"openP2P", 0}}}});
    ConfigInfo config;
    ASSERT_EQ(Center().getConfigInfo(config), 0);
    EXPECT_THAT(m_log.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getConfigInfo",
                                       "GetConfig, bEableDataCollect:4, VTDUType:1, OpenP2P:0"));
    EXPECT_TRUE(Center().isVTDUType1());
    EXPECT_TRUE(Center().isOpenP2P()) << "only the host closes P2P";
    Cloud().Put("/account", {{"config", {{"streamType", 2}, {"openP2P", 1}}}});
    Center().setCloseP2P(1);
    ASSERT_EQ(Center().getConfigInfo(config), 0);
    EXPECT_FALSE(Center().isVTDUType1());
    EXPECT_FALSE(Center().isOpenP2P());
}

TEST_F(QueryDeviationTest, FailedConfigurationChangesAndLogsNothing) {
    ConfigInfo config;
    ASSERT_EQ(Center().getConfigInfo(config), 0);
    ASSERT_FALSE(Center().isVTDUType1());
    m_log.Clear();
    Cloud().Put("/account", {{"config", {{"streamType", 1}}}});
    Respond(kConfigPath, "10002");
    EXPECT_EQ(Center().getConfigInfo(config), 310002);
    EXPECT_EQ(Count(kRefreshPath), 0U);
    EXPECT_FALSE(m_log.Contains("GetConfig, "));
    EXPECT_FALSE(Center().isVTDUType1());
}

TEST_F(QueryDeviationTest, ConfigurationSendsAndNeedsNoToken) {
    Center().setAccessToken("");
    SetPermissionMode(1);
    ConfigInfo config;
    EXPECT_EQ(Center().getConfigInfo(config), 0);
    EXPECT_EQ(Cloud().Requests().at(0).Parameter("accessToken"), "<none>");
    EXPECT_EQ(m_log.Count("get strToken error"), 0U);
    EXPECT_THAT(m_log.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getConfigInfo", "Returning B domain"));
}

// ---- The detail of a device of another platform

TEST_F(QueryDeviationTest, DetailIsAskedForAgainAfterATransientFailure) {
    for (const char* code : {"49999", "50000"}) {
        SCOPED_TRACE(code);
        Cloud().ForgetRequests();
        m_log.Clear();
        Respond(kDetailPath, code);
        Detail detail;
        EXPECT_EQ(DeviceDetail(detail), 0);
        EXPECT_EQ(Cloud().RequestCount(), 2U);
        EXPECT_EQ(m_log.Count("Returning B domain"), 2U) << "the domain is chosen afresh";
    }
}

TEST_F(QueryDeviationTest, DetailGoesToTheDomainThatWasSetMeanwhile) {
    Cloud().Script({{"path", kDetailPath}, {"code", "49999"}, {"hold", "detail"}});
    Detail detail;
    auto call = std::async(std::launch::async, [&] { return DeviceDetail(detail); });
    ASSERT_TRUE(Cloud().WaitUntilHeld("detail", 1));
    Center().setDomain(CDomain(), "");
    Cloud().Release("detail");
    EXPECT_EQ(call.get(), 0);
    const auto requests = Cloud().Requests(kDetailPath);
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].domain, "B");
    EXPECT_EQ(requests[1].domain, "C");
}

TEST_F(QueryDeviationTest, DetailIsRepeatedOnceForEachReason) {
    using Codes = std::vector<const char*>;
    const struct {
        Codes codes;
        int result;
        size_t requests;
        size_t renewals;
    } rows[] = {{{"49999", "49999"}, 349999, 2, 0},
                {{"49999", "50000"}, 350000, 2, 0},
                {{"10002", "10002"}, 310002, 2, 1},
                {{"50000", "10002"}, 0, 3, 1},
                {{"10002", "49999"}, 0, 3, 1},
                {{"10002", "49999", "50000"}, 350000, 3, 1},
                {{"49999", "10002", "10002"}, 310002, 3, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.codes));
        Cloud().ForgetRequests();
        for (const char* code : row.codes) {
            Respond(kDetailPath, code);
        }
        Detail detail;
        EXPECT_EQ(DeviceDetail(detail), row.result);
        EXPECT_EQ(Count(kDetailPath), row.requests);
        EXPECT_EQ(Count(kRefreshPath), row.renewals);
    }
}

TEST_F(QueryDeviationTest, DetailOfAnotherPlatformIsNotCached) {
    Detail detail;
    ASSERT_EQ(DeviceDetail(detail), 0);
    EXPECT_EQ(Center().getDevInfoCache(kCamera, 1, detail.channel, detail.device), -1);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 0);
}

// ---- Queries that renew nothing

TEST_F(QueryDeviationTest, RecordingOfAnAlarmIsHandedOnAsItCame) {
    Respond("/api/lapp/video/by/id", "10002");
    std::string json;
    EXPECT_EQ(Center().getRecordByAlarmID(kCamera, 1, "AL1001", json), 0);
    EXPECT_NE(json.find("10002"), std::string::npos);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

TEST_F(QueryDeviationTest, PermissionTurnsAnExpiredTokenIntoAPlainFailure) {
    const std::string path = "/api/service/auth/device/user/permission";
    Respond(path, "10002");
    EXPECT_EQ(Center().getAuthInfo(kCamera, 1, false), -1);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
    Respond(path, "20018");
    EXPECT_EQ(Center().getAuthInfo(kCamera, 1, false), 320018) << "every other code stays";
    EXPECT_EQ(Center().getAuthInfo(kUnknown, 1, false), 320002);
    EXPECT_EQ(Center().getAuthInfo(kCamera, 1, true), 0);
    EXPECT_EQ(Cloud().Requests().back().Parameter("permission"), "Replay");
}

TEST_F(QueryDeviationTest, FailureLinesOfRecordingsAndUploadsAreOfLevelFour) {
    RecordFileList list;
    std::string url = "before";
    Respond("/api/service/cloudrecord/video/info/list", "10002");
    EXPECT_EQ(Center().GetCloudRecordFile(kCamera, 1, 77, kBegin, kEnd, list), 310002);
    EXPECT_THAT(m_log.Lines(), HasLine(4, "ERROR", "CVantixDataCenter::GetCloudRecordFile",
                                       "GetCloudRecordFileFromPlatform error [310002]"));
    Respond("/api/service/cloud/upload/url", "10002");
    EXPECT_EQ(Center().GetClouduploadUrl(kCamera, 1, "a.jpg", 1, 7, 60, "alarm", url), 310002);
    EXPECT_THAT(m_log.Lines(), HasLine(4, "ERROR", "CVantixDataCenter::GetClouduploadUrl",
                                       "GetClouduploadUrlPlatform error [310002]"));
    EXPECT_EQ(url, "before");
    EXPECT_EQ(Cloud().RequestCount(), 2U);
    m_log.Clear();
    EXPECT_EQ(Center().GetCloudRecordFile(kCamera, 1, 77, kBegin, kEnd, list), 0);
    EXPECT_EQ(Center().GetClouduploadUrl(kCamera, 1, "a.jpg", 1, 7, 60, "alarm", url), 0);
    EXPECT_FALSE(m_log.Contains("latform error ["));
}

TEST_F(QueryDeviationTest, FailedUploadIsLoggedAtLevelFour) {
    const LocalFile picture(u8"gate.jpg");
    EXPECT_EQ(Center().UploadCloudPicFile(Cloud().ClosedPort() + kUploadPath, picture.Path()), 100007);
    EXPECT_THAT(m_log.Lines(),
                HasLine(4, "ERROR", "CVantixDataCenter::UploadCloudPicFile", "UploadCloudPic error [100007]"));
    m_log.Clear();
    EXPECT_EQ(Center().UploadCloudPicFile(BDomain() + kUploadPath, picture.Path()), 0)
        << "what the server responds is not judged";
    EXPECT_FALSE(m_log.Contains("UploadCloudPic error"));
}

TEST_F(QueryDeviationTest, UploadNeedsNoCredential) {
    std::string url;
    ASSERT_EQ(Center().GetClouduploadUrl(kCamera, 1, "gate.jpg", 1, 7, 3600, "alarm", url), 0);
    Center().setAccessToken("");
    const LocalFile picture(u8"gate.jpg");
    EXPECT_EQ(Center().UploadCloudPicFile(Json::parse(url).at("url"), picture.Path()), 0);
    EXPECT_EQ(Cloud().Get("/uploads").at(0).at("received"), true);
}

// ---- Queries with a consumer side

TEST_F(QueryDeviationTest, RecordingsOfASharedDeviceComeFromTheConsumerServers) {
    SetPermissionMode(2);
    RecordFileList list;
    ASSERT_EQ(DeviceFiles(kShared, list), 0);
    const ReceivedRequest request = Cloud().Requests().at(0);
    EXPECT_EQ(request.domain, "C");
    EXPECT_EQ(request.path, "/v3/streaming/records");
    EXPECT_EQ(request.Parameter("deviceSerial"), kShared);
    EXPECT_EQ(request.Parameter("channelNo"), "1");
    EXPECT_EQ(request.Parameter("startTime"), "2024-01-02%2000:00:00");
    EXPECT_EQ(request.Parameter("stopTime"), "2024-01-02%2023:59:59");
    EXPECT_EQ(request.Parameter("recordType"), "2");
    EXPECT_EQ(request.Parameter("size"), "100");
    EXPECT_EQ(request.Parameter("accessToken"), "<none>");
    ASSERT_FALSE(list.files.empty());
    for (const RecordFile& file : list.files) {
        EXPECT_EQ(file.type, 2);
    }
    SetPermissionMode(0);
    EXPECT_EQ(DeviceFiles(kShared, list), 0);
    EXPECT_EQ(Cloud().Requests().back().path, "/api/v3/device/sdk/device/local/video") << "shared only in mode 2";
}

TEST_F(QueryDeviationTest, ExpiredRecordingsOfASharedDeviceRenewTheAccessToken) {
    SetPermissionMode(2);
    Respond("/v3/streaming/records", "10002", 0);
    RecordFileList list;
    EXPECT_EQ(DeviceFiles(kShared, list), 310002);
    EXPECT_EQ(Count("/v3/streaming/records"), 2U);
    EXPECT_EQ(Count(kRefreshPath), 1U);
}

TEST_F(QueryDeviationTest, RecordingsOnTheSdkPath) {
    RecordFileList list;
    EXPECT_EQ(DeviceFiles(kCamera, list, true), 0);
    EXPECT_EQ(DeviceFiles(kCamera, list, false), 0);
    const auto requests = Cloud().Requests();
    EXPECT_EQ(requests.at(0).path, "/api/sdk/device/local/video");
    EXPECT_EQ(requests.at(1).path, "/api/v3/device/sdk/device/local/video");
}

TEST_F(QueryDeviationTest, ExtendedRecordingsLeaveOutWhatIsNotAskedFor) {
    RecordFileList list;
    EXPECT_EQ(Center().getDeviceFileBySerialEx(kCamera, 1, kBegin, kEnd, 0, false, list), 0);
    const ReceivedRequest request = Cloud().Requests().at(0);
    EXPECT_EQ(request.Parameter("recordType"), "<none>");
    EXPECT_EQ(request.Parameter("location"), "<none>");
}

TEST_F(QueryDeviationTest, StreamTokensOfASharedTokenComeFromTheConsumerServers) {
    SetPermissionMode(2);
    std::string response;
    for (const std::string& token : {std::string("b2c.").append(kShared), Account("sharedAccessToken")}) {
        Cloud().ForgetRequests();
        ASSERT_EQ(Center().getStreamTokens(token, 4, response), 0);
        const ReceivedRequest request = Cloud().Requests().at(0);
        EXPECT_EQ(request.domain, "C");
        EXPECT_EQ(request.method, "POST");
        EXPECT_EQ(request.path, "/api/user/token/get");
        EXPECT_EQ(request.Parameter("sessionId"), Account("sessionId"));
        EXPECT_EQ(Json::parse(response).at("tokenArray").size(), 20U) << "the count is not theirs";
    }
    ASSERT_EQ(Center().getStreamTokens(Account("accessToken"), 4, response), 0);
    EXPECT_EQ(Cloud().Requests().back().path, "/api/user/token");
    EXPECT_EQ(Json::parse(response).at("tokenArray").size(), 4U);
}

// ---- The query that the host writes

TEST_F(QueryDeviationTest, DetailsOfRecordingsSendTheHostsQueryAndTheCoresToken) {
    const Json query = {{"deviceSerial", kCamera}, {"accessToken", "the host's"}, {"videos", {1, 2}}};
    std::string json;
    ASSERT_EQ(Center().getCloudFileInfoBySerialEX(kCamera, 1, query.dump(2), json), 0);
    Json expected = query;
    expected["accessToken"] = Account("accessToken");
    const ReceivedRequest request = Cloud().Requests().at(0);
    EXPECT_EQ(request.body, expected.dump());
    EXPECT_EQ(request.Header("Content-Type"), "application/json");
}

TEST_F(QueryDeviationTest, RepeatOfTheHostsQuerySendsTheNewToken) {
    Respond(kDetailsOfRecordingsPath, "10002");
    std::string json;
    ASSERT_EQ(Center().getCloudFileInfoBySerialEX(kCamera, 1, Json{{"deviceSerial", kCamera}}.dump(), json), 0);
    const auto requests = Cloud().Requests(kDetailsOfRecordingsPath);
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(Json::parse(requests[1].body).at("accessToken"), Center().getAccessToken());
    EXPECT_NE(Center().getAccessToken(), Account("accessToken"));
}

TEST_F(QueryDeviationTest, HostsQueryThatIsNoObjectIsRefused) {
    for (const char* query : {"", "no JSON", "[]", "7", "null", R"("text")", R"({"a":)"}) {
        SCOPED_TRACE(query);
        std::string json = "before";
        EXPECT_EQ(Center().getCloudFileInfoBySerialEX(kCamera, 1, query, json), -1);
        EXPECT_EQ(json, "before");
    }
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

// ---- A token that really expires

TEST_F(QueryDeviationTest, ExpiredTokenIsRenewedForEverybody) {
    Cloud().Post("/expire", {{"what", "accessToken"}});
    DeviceList list;
    EXPECT_EQ(Center().getDevList(0, 50, list), 0);
    EXPECT_EQ(Count(kRefreshPath), 1U);
    std::string name;
    EXPECT_EQ(Center().getUsername(name), 0);
    EXPECT_EQ(Count(kRefreshPath), 1U) << "the new token is the core's";
    EXPECT_EQ(Center().getTokenExpireTime(), "604800");
}

}  // namespace
}  // namespace vantix::test
