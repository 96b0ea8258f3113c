// What a consumer does: own devices are asked of the platform with their B2C tokens, devices that others share of
// the consumer servers with the session, which expires in between.

#include <array>

#include "ScenarioFixture.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/ServerInfo.h"

namespace vantix::test {
namespace {

using Texts = std::vector<std::string>;

constexpr char kOwnToken[] = "b2c.C10000001";
constexpr char kSharedToken[] = "b2c.S60000006";
constexpr char kPages[] = "/v3/userdevices/v1/devices/pagelist";
constexpr char kSystem[] = "/v3/configurations/system/info";

class ConsumerScenarioTest : public ScenarioFixture {
protected:
    std::string Token() const { return Center().getAccessToken(); }
    std::string Session() const { return Center().getSessionId(); }

    void Configure() const {
        Center().setPermissionMode(2);
        Center().setDomain(BDomain(), CDomain());
        Center().setAccessToken(Account("accessToken"));
        Center().setSharedAccessToken(Account("sharedAccessToken"));
        Center().setSessionId(Account("sessionId"));
        Center().SetB2CTokens(AccountData().at("b2cTokens").dump());
        Center().setDataUtf8(1);
        std::string token;
        EXPECT_EQ(Center().getB2CTokensByNumber(kCamera, 1, token), kOwnToken);
        EXPECT_EQ(Center().getB2CTokensByText(kShared, "1", token), kSharedToken);
        EXPECT_EQ(Center().getB2CTokensByNumber(kRecorder, 1, token), "");
        EXPECT_EQ(Center().getSharedAccessToken(), Account("sharedAccessToken"));
        ExpectSilence();
    }

    void TellOwnFromShared() const {
        EXPECT_TRUE(Center().isB2CSharedChannel(kShared, 1));
        EXPECT_FALSE(Center().isB2CSharedChannel(kCamera, 1));
        EXPECT_TRUE(Center().isB2CSharedToken(kSharedToken));
        EXPECT_TRUE(Center().isB2CSharedToken(Account("sharedAccessToken")));
        EXPECT_FALSE(Center().isB2CSharedToken(Token()));
        EXPECT_EQ(Center().getDomain(kShared, 1), CDomain());
        EXPECT_EQ(Center().getDomain(kCamera, 1), BDomain());
        EXPECT_EQ(Center().getDomainByToken(kSharedToken), CDomain());
        EXPECT_EQ(Center().getDomainByToken(kOwnToken), BDomain());
        ExpectSilence();
    }

    void ListDevices() const {
        DeviceList own;
        EXPECT_EQ(Center().getDevList(0, 50, own), 0);
        EXPECT_EQ(Serials(own).front(), kCamera);
        std::string json;
        EXPECT_EQ(Center().getB2CSharedDevList(0, 50, json), 0);
        const Json shared = Data(json).at("deviceInfos");
        ASSERT_EQ(shared.size(), 1U);
        EXPECT_EQ(shared.at(0).at("deviceSerial"), kShared);
        EXPECT_EQ(shared.at(0).at("cameraInfo").size(), 1U);
        std::string information;
        EXPECT_EQ(Center().getDeviceInfoBySerial(kShared, 1, information), 0);
        EXPECT_EQ(Data(information).at("deviceName"), "Neighbour's camera");
        ExpectJournal({{"B", "/api/device/list", Token()},
                       {"C", "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist", Session()},
                       {"C", "/api/device/getDeviceInfo", Token()}});
    }

    void OpenDetails() const {
        const Asked own = Ask(kCamera, 1);
        EXPECT_EQ(own.fetched, 0);
        EXPECT_EQ(own.device.deviceSerial, kCamera);
        EXPECT_FALSE(Ask(kCamera, 1).started);
        const Asked shared = Ask(kShared, 1);
        EXPECT_EQ(shared.fetched, 0);
        EXPECT_EQ(shared.device.deviceSerial, kShared);
        EXPECT_EQ(shared.channel.cameraNo, 1);
        EXPECT_EQ(shared.channel.isShared, "1");
        EXPECT_FALSE(shared.device.isFromCache);
        // The consumer servers name no release, so their records are kept but fetched again each time.
        EXPECT_EQ(Ask(kShared, 1).returned, 600001);
        DevDetailInfo kept;
        EXPECT_EQ(Center().getDeviceRecord(kShared, 1, kept), 0);
        EXPECT_EQ(kept.deviceIP, shared.device.deviceIP);
        ExpectJournal({{"B", kDetailPath, kOwnToken}, {"C", kPages, Session()}, {"C", kPages, Session()}});
        EXPECT_EQ(Fetch(kRecorder, 1), -1);  // no B2C token
        ExpectSilence();
    }

    void FindServers() const {
        ServerInfo servers;
        EXPECT_EQ(Center().getServerInfoSync(kSharedToken, servers), 0);
        EXPECT_EQ(servers.stun2Addr, "stun2.example.test");
        EXPECT_TRUE(servers.vtmBackups.empty());
        Center().ClearAllCache();
        std::future<int32_t> future;
        EXPECT_EQ(Center().getServerInfoAsync(Token(), servers, future), 0);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(servers.vtmBackups.size(), 2U);
        std::string json;
        EXPECT_EQ(Center().getVideoVtmAddr(kShared, 1, json), 0);
        EXPECT_EQ(Center().getRelayServerInfo(kShared, 1, json), 0);
        ExpectJournal({{"C", kSystem, Session()},
                       {"B", "/api/service/media/server/info", Token()},
                       {"C", "/api/service/media/server/info", Token()},
                       {"C", "/api/service/media/streaming/relay/server", Token()}});
    }

    void TakeStreamTokens() const {
        std::array<char, 4097> buffer{};
        EXPECT_EQ(Center().GetStreamTokenFast(), 0);  // not in this mode
        EXPECT_EQ(Center().GetStreamTokenFromQueue(Token(), buffer.data()), -1);
        ExpectSilence();
        std::string shared;
        EXPECT_EQ(Center().getStreamTokens(kSharedToken, 5, shared), 0);
        EXPECT_EQ(Json::parse(shared).at("tokenArray").size(), 20U);
        std::string own;
        EXPECT_EQ(Center().getStreamTokens(Token(), 5, own), 0);
        EXPECT_EQ(Json::parse(own).at("tokenArray").size(), 5U);
        std::string one;
        EXPECT_EQ(Center().getOneStreamToken(Token(), one), 0);
        EXPECT_FALSE(one.empty());
        ExpectJournal({{"C", "/api/user/token/get", Session()},
                       {"B", "/api/user/token", Token()},
                       {"B", "/api/user/token", Token()}});
    }

    void ConnectDirectly() const {
        P2PUserInfo user;
        EXPECT_EQ(Center().getP2PUserInfoByToken(kSharedToken, user), 0);
        EXPECT_EQ(user.userId, "u-10001");
        EXPECT_EQ(user.data, "p2p-user-secret-1b2c3d4e");
        P2PDevInfo shared;
        std::future<int32_t> future;
        EXPECT_EQ(Center().getP2PDevInfoAsync(shared, kSharedToken, kShared, future), -1);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(shared.serverInfos.size(), 2U);
        EXPECT_EQ(shared.strV3Talk, "0");
        P2PDevInfo own;
        EXPECT_EQ(Center().getP2PDevInfoBySerial(own, kOwnToken, kCamera), 0);
        EXPECT_EQ(own.strV3Talk, "1");
        EXPECT_EQ(Center().isP2PV3download(kShared, 1), 1);
        ExpectJournal({{"C", "/v3/users/info", Session()},
                       {"C", "/v3/p2pbusiness/configurations/p2p", Session()},
                       {"C", kPages, Session()},
                       {"B", "/api/sdk/p2p/dev/info/get", Token()}});
    }

    void OpenTheStream() const {
        std::string ticket;
        EXPECT_EQ(Center().getTicketInfo(kShared, 1, ticket), 0);
        EXPECT_EQ(Center().getTicketInfo(kCamera, 1, ticket), 0);
        EXPECT_EQ(Center().getRelayTicket(kShared, 1, ticket), 0);
        EXPECT_EQ(Center().getAuthInfo(kShared, 1, true), 0);
        std::string response;
        EXPECT_EQ(Center().setVideoDefinition(kShared, response, 1, 1), 0);
        EXPECT_EQ(Cloud().Camera(kShared, 1).at("videoLevel"), 1);
        ExpectJournal({{"C", "/api/route/userdevicetob/v3/cameras/ticketInfo", Token()},
                       {"B", "/api/route/userdevicetob/v3/cameras/ticketInfo", Token()},
                       {"C", "/api/service/media/streaming/relay/ticket", Token()},
                       {"C", "/api/service/auth/device/user/permission", Token()},
                       {"C", "/api/device/setVideoLevel", Token()}});
    }

    void SearchRecordings() const {
        RecordFileList files;
        EXPECT_EQ(Center().getDeviceFileBySerial(kShared, 1, kMorning, kEvening, 0, 0, files, false), 0);
        EXPECT_EQ(FileIds(files), Texts({"file-S60000006-1-01", "file-S60000006-1-02", "file-S60000006-1-03"}));
        EXPECT_EQ(Center().getDeviceFileBySerial(kCamera, 1, kMorning, kEvening, 0, 0, files, false), 0);
        EXPECT_EQ(FileIds(files).front(), "file-C10000001-1-01");
        std::string json;
        EXPECT_EQ(Center().getCloudFileBySerial(kShared, 1, {kMorning, kEvening}, 0, json), 0);
        EXPECT_EQ(Data(json).size(), 2U);
        ExpectJournal({{"C", "/v3/streaming/records", Session()},
                       {"B", "/api/v3/device/sdk/device/local/video", Token()},
                       {"C", "/api/cloud/files/get", Token()}});
    }

    void ReadAlarms() const {
        std::string json;
        EXPECT_EQ(Alarms(kShared, 1, 0, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts({"AL1005"}));
        EXPECT_EQ(Center().setAlarmRead("AL1005"), 0);
        EXPECT_EQ(Alarms(kShared, 1, 0, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts());
        ExpectJournal({{"C", "/api/alarm/list", Token()},
                       {"B", "/api/alarm/sdk/setRead", Token()},
                       {"C", "/api/alarm/list", Token()}});
    }

    /// The host renews the session itself once, which also brings the core what it renews it with.
    void RenewTheSession() const {
        const std::string old = Session();
        std::string fresh;
        EXPECT_EQ(Center().RefreshSession(Account("refreshSessionId"), fresh), 0);
        EXPECT_NE(fresh, old);
        EXPECT_EQ(fresh, Session());
        ExpectJournal({{"C", "/v3/apigateway/login", old}});
    }

    void OutliveTheSession() const {
        Center().ClearAllCache();
        const std::string old = Session();
        Cloud().Post("/expire", {{"what", "session"}});
        ServerInfo servers;
        EXPECT_EQ(Center().getServerInfoSync(kSharedToken, servers), 0);
        EXPECT_NE(Session(), old);
        Detail detail;
        EXPECT_EQ(Fetch(kShared, 1, detail), 0);
        ExpectJournal({{"C", kSystem, old},
                       {"C", "/v3/apigateway/login", old},
                       {"C", kSystem, Session()},
                       {"C", kPages, Session()}});
    }

    /// In the background too; and the shared list, which renews nothing, says that the session is gone.
    void OutliveAnother() const {
        const std::string old = Session();
        Cloud().Post("/expire", {{"what", "session"}});
        std::string json;
        EXPECT_EQ(Center().getB2CSharedDevList(0, 50, json), 300401);
        P2PDevInfo device;
        std::future<int32_t> future;
        Center().getP2PDevInfoAsync(device, kSharedToken, kShared, future);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(Center().getB2CSharedDevList(0, 50, json), 0);
        constexpr char kSharedList[] = "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist";
        ExpectJournal({{"C", kSharedList, old},
                       {"C", kPages, old},
                       {"C", "/v3/apigateway/login", old},
                       {"C", kPages, Session()},
                       {"C", kSharedList, Session()}});
    }
};

TEST_F(ConsumerScenarioTest, FromTheTokensThroughTwoSessions) {
    Configure();
    TellOwnFromShared();
    ListDevices();
    OpenDetails();
    FindServers();
    TakeStreamTokens();
    ConnectDirectly();
    OpenTheStream();
    SearchRecordings();
    ReadAlarms();
    UploadPicture(kCamera, Token(), "B");
    RenewTheSession();
    OutliveTheSession();
    OutliveAnother();
}

}  // namespace
}  // namespace vantix::test
