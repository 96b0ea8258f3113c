// What a user with small permissions does: the host hands in a token for each device and use, and only what needs no
// account is open until it hands in an account's token too.

#include <array>

#include "ScenarioFixture.h"
#include "base/LastError.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kGlobalUse = 1;
constexpr int kDeviceUse = 2;
constexpr int kVideoUse = 3;

class SmallPermissionScenarioTest : public ScenarioFixture {
protected:
    static std::string DeviceToken(const std::string& serial) {
        return std::string("tk.device-").append(serial).append("-1");
    }
    static std::string VideoToken(const std::string& serial, int ch = 1) {
        return std::string("tk.video-").append(serial).append("-").append(std::to_string(ch));
    }
    std::string GlobalToken() const { return Account("globalTkToken"); }

    /// Expects a refusal for want of a credential, and no request.
    void ExpectNoCredential(int result) const {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(ThreadLastError(), -1);
        SetThreadLastError(0);
    }

    void Configure() const {
        Center().setPermissionMode(1);
        Center().setAccessToken("");
        Center().setGlobalTkToken(GlobalToken());
        Center().setGlobalTkToken("");  // ignored
        Center().SetDeviceTkTokens(AccountData().at("tkTokens").dump());
        Center().SetDeviceTkTokens("no JSON");  // changes nothing
        EXPECT_EQ(*Center().getPermissionMode(), 1);
        EXPECT_EQ(Center().getGlobalTkToken(), GlobalToken());
        std::string token;
        EXPECT_EQ(Center().getDeviceTkTokensByNumber(token, kGlobalUse, "", 0), GlobalToken());
        EXPECT_EQ(Center().getDeviceTkTokensByNumber(token, kDeviceUse, kCamera, 1), DeviceToken(kCamera));
        EXPECT_EQ(Center().getDeviceTkTokensByText(token, kVideoUse, kRecorder, "2"), VideoToken(kRecorder, 2));
        EXPECT_EQ(Center().getDeviceTkTokensByNumber(token, 6, kCamera, 1), "tk.talk-C10000001-1");
        EXPECT_EQ(Center().getDeviceTkTokensByNumber(token, kVideoUse, kOffline, 1), "");
        ExpectSilence();
    }

    void ListDevices() const {
        DeviceList own;
        DeviceList plain;
        DeviceList shared;
        EXPECT_EQ(Center().getDevList(0, 50, own), 0);
        EXPECT_EQ(Center().getDeviceList(0, 50, "", plain), 0);
        EXPECT_EQ(Center().getShareDevList(0, 50, shared), 0);
        EXPECT_EQ(Serials(own).size(), 6U);
        EXPECT_EQ(Serials(plain).size(), 6U);
        EXPECT_EQ(Serials(shared), Texts({kShared}));
        std::string information;
        EXPECT_EQ(Center().getDeviceInfoBySerial(kCamera, 1, information), 0);
        EXPECT_EQ(Data(information).at("deviceName"), "Gate camera");
        ExpectJournal({{"B", "/api/device/list", GlobalToken()},
                       {"B", "/api/lapp/device/list", GlobalToken()},
                       {"B", "/api/device/sharelist", GlobalToken()},
                       {"B", "/api/device/getDeviceInfo", DeviceToken(kCamera)}});
    }

    void OpenDetails() const {
        const Asked asked = Ask(kCamera, 1);
        EXPECT_EQ(asked.fetched, 0);
        ExpectStored(Cloud(), kCamera, 1, asked);
        EXPECT_FALSE(Ask(kCamera, 1).started);
        Detail detail;
        EXPECT_EQ(Fetch(kRecorder, 2, detail), 0);
        ExpectStored(Cloud(), kRecorder, 2, detail);
        EXPECT_EQ(Center().getDevDetailInfoByRelation(kBehindOnline, 1, detail.channel, detail.device), 0);
        EXPECT_EQ(Center().getDeviceDetailInfo(kCamera, 1, "", "", detail.channel, detail.device), 0);
        ExpectJournal({{"B", kDetailPath, VideoToken(kCamera)},
                       {"B", kDetailPath, VideoToken(kRecorder, 2)},
                       {"B", kDetailPath, VideoToken(kBehindOnline)},
                       {"B", kDetailPath, VideoToken(kCamera)}});
        // A channel that the host has no tokens for.
        ExpectNoCredential(Fetch(kRecorder, 3));
        ExpectNoCredential(Fetch(kOffline, 1));
        ExpectSilence();
    }

    void OpenTheStream() const {
        std::string relays;
        std::string relay;
        std::string ticket;
        EXPECT_EQ(Center().getVideoVtmAddr(kCamera, 1, relays), 0);
        EXPECT_EQ(Center().getRelayServerInfo(kCamera, 1, relay), 0);
        EXPECT_EQ(Center().getTicketInfo(kRecorder, 2, ticket), 0);
        EXPECT_EQ(Center().getCloudTicketInfo(kCamera, 1, 9, ticket), 0);
        EXPECT_EQ(Center().getRelayTicket(kCamera, 1, ticket), 0);
        EXPECT_EQ(Center().getAuthInfo(kCamera, 1, true), 0);
        EXPECT_EQ(Json::parse(relays).at("vtmBackups").size(), 2U);
        EXPECT_EQ(Json::parse(relay).at("port"), 8600);
        EXPECT_EQ(ticket.rfind("tk.relay.", 0), 0U);
        ExpectJournal({{"B", "/api/service/media/server/info", VideoToken(kCamera)},
                       {"B", "/api/service/media/streaming/relay/server", VideoToken(kCamera)},
                       {"B", "/api/route/userdevicetob/v3/cameras/ticketInfo", VideoToken(kRecorder, 2)},
                       {"B", "/api/service/cloud/ticket", VideoToken(kCamera)},
                       {"B", "/api/service/media/streaming/relay/ticket", VideoToken(kCamera)},
                       {"B", "/api/service/auth/device/user/permission", DeviceToken(kCamera)}});
        ExpectNoCredential(Center().getTicketInfo(kOffline, 1, ticket));
        ExpectNoCredential(Center().getAuthInfo(kOffline, 1, false));
        ExpectSilence();
    }

    void ConnectDirectly() const {
        EXPECT_EQ(Center().isP2PV3download(kCamera, 1), 1);
        EXPECT_EQ(Center().isP2PV3download(kOffline, 1), 1);  // no credential, so the newer way is assumed
        SetThreadLastError(0);
        std::vector<P2PServerAddr> servers;
        P2PDevInfo device;
        EXPECT_EQ(Center().getP2PDevInfoCached(kCamera, servers, device, false), 0);
        EXPECT_EQ(servers.size(), 2U);
        EXPECT_EQ(Center().getP2PDevInfoCached(kRecorder, servers, device, true), 0);
        EXPECT_EQ(device.deviceSerial, kRecorder);
        P2PUserInfo user;
        EXPECT_EQ(Center().getP2PUserInfoByDevice(kCamera, 1, user), 0);
        EXPECT_EQ(user.userId, "u-10001");
        ExpectJournal({{"B", "/api/sdk/p2p/dev/info/get", DeviceToken(kCamera)},
                       {"B", "/api/sdk/p2p/dev/info/get", DeviceToken(kRecorder)},
                       {"B", "/api/sdk/p2p/user/info/get", DeviceToken(kCamera)}});
    }

    void ReadAlarms() const {
        std::string json;
        EXPECT_EQ(Alarms(kCamera, 1, 2, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts({"AL1001", "AL1002"}));
        EXPECT_EQ(Center().getRecordByAlarmID(kCamera, 1, "AL1002", json), 0);
        EXPECT_EQ(Data(json).at(0).at("fileId"), "file-C10000001-1-02");
        ExpectJournal(
            {{"B", "/api/alarm/list", DeviceToken(kCamera)}, {"B", "/api/lapp/video/by/id", VideoToken(kCamera)}});
    }

    void MissTheAccount() const {
        std::string text;
        ServerInfo servers;
        RecordFileList files;
        BWCheckInfo bandwidth;
        TransparentMsgDetail message;
        ExpectNoCredential(Center().getUsername(text));
        ExpectNoCredential(Center().getUserId(text));
        ExpectNoCredential(Center().getPushSessionId(text));
        ExpectNoCredential(Center().getBWCheckInfo(0, "", 1, bandwidth));
        ExpectNoCredential(Center().getServerInfoSync("", servers));
        ExpectNoCredential(Center().getTransparentMsgDetail(kCamera, "M0000001", message));
        ExpectNoCredential(Center().setVideoDefinition(kCamera, text, 1, 0));
        ExpectNoCredential(Center().setAlarmRead("AL1001"));
        ExpectNoCredential(Center().getDeviceFileBySerial(kCamera, 1, kMorning, kEvening, 0, 0, files, false));
        ExpectNoCredential(Center().getCloudFileBySerial(kCamera, 1, {kMorning, kEvening}, 0, text));
        ExpectNoCredential(Center().GetCloudRecordFile(kCamera, 1, 9, kMorning, kEvening, files));
        ExpectNoCredential(Center().GetClouduploadUrl(kCamera, 1, "gate.jpg", 1, 7, 3600, "", text));
        ExpectSilence();
        ConfigInfo config;
        EXPECT_EQ(Center().getConfigInfo(config), 0);
        ExpectJournal({{"B", "/api/config/info", "none"}});
    }

    /// Streams are opened with device tokens here, and nothing renews those.
    void DoWithoutStreamTokens() const {
        std::array<char, 4097> buffer{};
        std::string token;
        EXPECT_EQ(Center().GetStreamTokenFast(), 0);
        EXPECT_EQ(Center().GetStreamTokenFromQueue(GlobalToken(), buffer.data()), -1);
        EXPECT_EQ(Center().getOneStreamToken(GlobalToken(), token), -1);
        Center().setAuthAddr(Account("authAddr"));
        Center().setRefreshToken(Account("refreshToken"));
        Center().setOpenID(Account("openId"));
        EXPECT_EQ(Center().RefreshToken(token), -1);
        EXPECT_EQ(Center().RefreshSession(Account("refreshSessionId"), token), -1);
        EXPECT_EQ(token, "");
        ExpectSilence();
    }

    void ReceiveAnAccount() const {
        Center().setAccessToken(GlobalToken());
        std::string text;
        RecordFileList files;
        ServerInfo servers;
        EXPECT_EQ(Center().getUsername(text), 0);
        EXPECT_EQ(Center().getServerInfoSync(GlobalToken(), servers), 0);
        EXPECT_EQ(Center().setAlarmRead("AL1001"), 0);
        EXPECT_EQ(Center().getDeviceFileBySerial(kRecorder, 5, kMorning, kEvening, 0, 0, files, false), 0);
        EXPECT_EQ(files.files.size(), 3U);
        EXPECT_EQ(Center().getCloudFileBySerial(kCamera, 1, {kMorning, kEvening}, 0, text), 0);
        EXPECT_EQ(Center().GetCloudRecordFile(kCamera, 1, 9, kMorning, kEvening, files), 0);
        ExpectJournal({{"B", "/api/user/getUserName", GlobalToken()},
                       {"B", "/api/service/media/server/info", GlobalToken()},
                       {"B", "/api/alarm/sdk/setRead", GlobalToken()},
                       {"B", "/api/v3/device/sdk/device/local/video", GlobalToken()},
                       {"B", "/api/cloud/files/get", GlobalToken()},
                       {"B", "/api/service/cloudrecord/video/info/list", GlobalToken()}});
        // The alarm is seen as read with the device's token, which cannot mark it.
        EXPECT_EQ(Alarms(kCamera, 1, 0, text), 0);
        EXPECT_EQ(AlarmIds(text), Texts());
        Cloud().ForgetRequests();
    }

    /// A token that has expired stays so: it takes the host to bring another.
    void LoseADeviceToken() const {
        Cloud().Put("/account", {{"tkTokens", Json::array()}});
        std::string text;
        EXPECT_EQ(Alarms(kCamera, 1, 2, text), 310002);
        EXPECT_EQ(Fetch(kCamera, 1), 310002);
        ExpectJournal({{"B", "/api/alarm/list", DeviceToken(kCamera)}, {"B", kDetailPath, VideoToken(kCamera)}});
        Detail detail;
        EXPECT_EQ(ReadCache(kCamera, 1, detail), 0);
        const Json fresh = {{{"deviceVideoTkToken", "tk.video-fresh"}, {"deviceSerial", kCamera}, {"channelNo", "1"}}};
        Cloud().Put("/account", {{"tkTokens", fresh}});
        Center().SetDeviceTkTokens(fresh.dump());
        EXPECT_EQ(Fetch(kCamera, 1), 0);
        ExpectJournal({{"B", kDetailPath, "tk.video-fresh"}});
        // The whole set was replaced.
        ExpectNoCredential(Fetch(kRecorder, 2));
        ExpectSilence();
    }
};

TEST_F(SmallPermissionScenarioTest, FromTheDeviceTokensToFreshOnes) {
    Configure();
    ListDevices();
    OpenDetails();
    OpenTheStream();
    ConnectDirectly();
    ReadAlarms();
    MissTheAccount();
    DoWithoutStreamTokens();
    ReceiveAnAccount();
    UploadPicture(kCamera, GlobalToken(), "B");
    LoseADeviceToken();
}

}  // namespace
}  // namespace vantix::test
