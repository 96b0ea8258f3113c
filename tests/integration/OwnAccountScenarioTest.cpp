// What a user who owns the devices does: everything is asked of the platform, with the account's access token.

#include <array>
#include <set>

#include "ScenarioFixture.h"
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

class OwnAccountScenarioTest : public ScenarioFixture {
protected:
    std::string Token() const { return Center().getAccessToken(); }
    /// So many requests of the platform for one path, with the current access token.
    void ExpectPlatform(const std::vector<const char*>& paths) const {
        std::vector<JournalEntry> expected;
        expected.reserve(paths.size());
        for (const char* path : paths) {
            expected.push_back({"B", path, Token()});
        }
        ExpectJournal(expected);
    }

    void Configure() const {
        Center().setDomain(BDomain(), CDomain());
        Center().setAppId(Account("appKey"));
        Center().setAccessToken(Account("accessToken"));
        Center().setTokenExpireTime("3600");
        Center().setAuthAddr(Account("authAddr"));
        Center().setRefreshToken(Account("refreshToken"));
        Center().setOpenID(Account("openId"));
        Center().setScope(Account("scope"));
        Center().setState(Account("state"));
        Center().setPermissionMode(0);
        Center().setCacheTime(30);
        Center().setLogLevel(4);
        Center().setDataUtf8(1);
        Center().setCloseP2P(0);
        Center().setCloseBelongSerial(0);
        std::string appId;
        EXPECT_EQ(Center().getAppId(appId), Account("appKey"));
        EXPECT_EQ(Center().getDomain(kCamera, 1), BDomain());
        EXPECT_EQ(Center().getDomainByToken(Token()), BDomain());
        EXPECT_EQ(Texts({Center().getAuthAddr(), Center().getRefreshToken(), Center().getOpenID(), Center().getScope(),
                         Center().getState(), Center().getTokenExpireTime()}),
                  Texts({Account("authAddr"), Account("refreshToken"), Account("openId"), Account("scope"),
                         Account("state"), "3600"}));
        EXPECT_EQ(Center().getCacheTime(), 1800);
        EXPECT_EQ(Center().getLogLevel(), 4);
        EXPECT_EQ(*Center().getPermissionMode(), 0);
        EXPECT_TRUE(Center().isDataUtf8());
        EXPECT_TRUE(Center().isOpenP2P());
        EXPECT_FALSE(Center().isCloseBelongSerial());
        ExpectSilence();
    }

    void AskWhoAmI() const {
        ConfigInfo config;
        EXPECT_EQ(Center().getConfigInfo(config), 0);
        EXPECT_EQ(config.pushAddr, "push.example.test");
        EXPECT_FALSE(Center().isVTDUType1());
        std::string name;
        std::string id;
        std::string push;
        BWCheckInfo bandwidth;
        EXPECT_EQ(Center().getUsername(name), 0);
        EXPECT_EQ(Center().getUserId(id), 0);
        EXPECT_EQ(Center().getPushSessionId(push), 0);
        EXPECT_EQ(Center().getBWCheckInfo(0, "2024-01-02", 1, bandwidth), 0);
        EXPECT_EQ(Texts({name, id, bandwidth.id}), Texts({"sample-user", "u-10001", "bwc-0001"}));
        EXPECT_EQ(push.rfind("push.", 0), 0U);
        ExpectJournal({{"B", "/api/config/info", "none"},
                       {"B", "/api/user/getUserName", Token()},
                       {"B", "/api/service/user/get", Token()},
                       {"B", "/api/service/set/push", Token()},
                       {"B", "/api/service/media/bwc/address", Token()}});
    }

    void ListDevices() const {
        DeviceList first;
        DeviceList second;
        DeviceList plain;
        DeviceList shared;
        std::string information;
        EXPECT_EQ(Center().getDevList(0, 4, first), 0);
        EXPECT_EQ(Center().getDevList(1, 4, second), 0);
        EXPECT_EQ(Center().getDeviceList(0, 50, "camera", plain), 0);
        EXPECT_EQ(Center().getShareDevList(0, 50, shared), 0);
        EXPECT_EQ(Center().getDeviceInfoBySerial(kCamera, 1, information), 0);
        EXPECT_EQ(Serials(first), Texts({kCamera, kRecorder, kBehindOnline, kBehindOffline}));
        EXPECT_EQ(Serials(second), Texts({kOtherRelease, kOffline}));
        EXPECT_EQ(first.total, 6);
        EXPECT_EQ(Serials(plain).size(), 6U);
        EXPECT_EQ(Serials(shared), Texts({kShared}));
        EXPECT_EQ(Data(information).at("deviceName"), "Gate camera");
        ExpectPlatform({"/api/device/list", "/api/device/list", "/api/lapp/device/list", "/api/device/sharelist",
                        "/api/device/getDeviceInfo"});
    }

    void OpenDetails() const {
        Asked asked = Ask(kCamera, 1);
        EXPECT_EQ(asked.returned, -1);
        EXPECT_EQ(asked.fetched, 0);
        ExpectStored(Cloud(), kCamera, 1, asked);
        EXPECT_FALSE(Ask(kCamera, 1).started);
        EXPECT_EQ(Center().SetDevInfoCache(kCamera, 1), 0);
        asked = Ask(kCamera, 1);
        EXPECT_EQ(asked.returned, 0);
        EXPECT_TRUE(asked.started);
        Detail detail;
        EXPECT_EQ(Center().getDeviceDetailInfo(kCamera, 1, "camera", "p-1", detail.channel, detail.device), 0);
        EXPECT_EQ(detail.device.deviceSerial, kCamera);
        EXPECT_EQ(ReadOrFetch(kRecorder, 3, detail), 0);
        ExpectStored(Cloud(), kRecorder, 3, detail);
        EXPECT_EQ(ReadCache(kRecorder, 3, detail), 0);
        ExpectPlatform({kDetailPath, kDetailPath, kDetailPath, kDetailPath});
    }

    void ResolveTheParent() const {
        // The fresh record has the relation already, so the camera comes back as its recorder at once.
        Detail detail;
        EXPECT_EQ(Center().getDevDetailInfoByRelation(kBehindOnline, 1, detail.channel, detail.device), 0);
        EXPECT_EQ(detail.device.deviceSerial, kRecorder);
        EXPECT_EQ(detail.device.belongNo, 3);
        EXPECT_EQ(detail.channel.cameraNo, 3);
        Detail itself;
        EXPECT_EQ(ReadCache(kBehindOnline, 1, itself), 0);
        EXPECT_EQ(itself.device.deviceSerial, kBehindOnline);
        ExpectPlatform({kDetailPath});
    }

    void ReadWhatIsKnown() const {
        EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
        EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, 4), 1);
        EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), 1);
        Center().setChannelCacheValue(kCamera, 1, 7);
        EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), 7);
        DevDetailInfo one;
        DevDetailInfo other;
        EXPECT_EQ(Center().getDeviceRecord(kCamera, 1, one), 0);
        EXPECT_EQ(Center().getDeviceRecordAlt(kCamera, 1, other), 0);
        EXPECT_EQ(ToJson(one), ToJson(other));
        ExpectSilence();
    }

    void FindServers() const {
        ServerInfo servers;
        std::future<int32_t> future;
        EXPECT_EQ(Center().getServerInfoAsync(Token(), servers, future), 0);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(servers.stun1Addr, "stun1.example.test");
        EXPECT_EQ(servers.vtmBackups.size(), 2U);
        ServerInfo again;
        again.iRequestCost = 7;
        Center().expireServerInfo();
        EXPECT_EQ(Center().getServerInfoSync(Token(), again), 0);
        EXPECT_EQ(again.iRequestCost, 0);
        std::string relays;
        std::string withToken;
        std::string relay;
        EXPECT_EQ(Center().getVideoVtmAddr(kCamera, 1, relays), 0);
        EXPECT_EQ(Center().getServerInfoEx(Token(), withToken, kCamera, 1), 0);
        EXPECT_EQ(Center().getRelayServerInfo(kCamera, 1, relay), 0);
        EXPECT_EQ(relays, withToken);
        EXPECT_EQ(Json::parse(relays).at("vtmBackups").at(1).at("port"), 8556);
        EXPECT_EQ(Json::parse(relay).at("domain"), "relay.example.test");
        constexpr char kServers[] = "/api/service/media/server/info";
        ExpectPlatform({kServers, kServers, kServers, "/api/service/media/streaming/relay/server"});
    }

    void TakeStreamTokens() const {
        EXPECT_EQ(Center().GetStreamTokenFast(), 0);
        std::array<char, 4097> buffer{};
        EXPECT_EQ(Center().GetStreamTokenFromQueue(Token(), buffer.data()), 0);
        EXPECT_EQ(Json::parse(buffer.data()).at("tokenArray").size(), 10U);
        EXPECT_EQ(Center().GetStreamTokenFromQueue(Token(), buffer.data()), -1);
        // Twenty streams come from one batch, the next one needs another.
        std::set<std::string> tokens;
        for (int stream = 0; stream < 21; ++stream) {
            std::string token;
            EXPECT_EQ(Center().getOneStreamToken(Token(), token), 0);
            tokens.insert(token);
        }
        EXPECT_EQ(tokens.size(), 21U);
        std::string response;
        EXPECT_EQ(Center().getStreamTokens(Token(), 3, response), 0);
        EXPECT_EQ(Json::parse(response).at("tokenArray").size(), 3U);
        ExpectPlatform({"/api/user/token", "/api/user/token", "/api/user/token", "/api/user/token"});
    }

    void ConnectDirectly() const {
        P2PUserInfo user;
        std::future<int32_t> future;
        EXPECT_EQ(Center().getP2PUserInfoAsync(user, Token(), future), 0);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(user.userId, "u-10001");
        P2PUserInfo byToken;
        P2PUserInfo byDevice;
        EXPECT_EQ(Center().getP2PUserInfoByToken(Token(), byToken), 0);
        EXPECT_EQ(Center().getP2PUserInfoByDevice(kCamera, 1, byDevice), 0);
        EXPECT_EQ(Texts({byToken.data, byDevice.data}), Texts({user.data, user.data}));

        P2PDevInfo device;
        EXPECT_EQ(Center().getP2PDevInfoAsync(device, Token(), kCamera, future), -1);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(device.serverInfos.size(), 2U);
        std::vector<P2PServerAddr> servers;
        EXPECT_EQ(Center().getP2PDevInfoCached(kCamera, servers, device, false), 0);
        EXPECT_EQ(Center().getP2PDevInfoBySerial(device, Token(), kCamera), 0);
        EXPECT_EQ(Center().getP2PDevInfoByChannel(kRecorder, 2, Token(), device), 0);
        EXPECT_EQ(device.deviceSerial, kRecorder);
        EXPECT_EQ(Center().isP2PV3download(kCamera, 1), 1);
        EXPECT_EQ(servers.size(), 2U);
        ExpectPlatform({"/api/sdk/p2p/user/info/get", "/api/sdk/p2p/dev/info/get", "/api/sdk/p2p/dev/info/get"});
    }

    void OpenTheStream() const {
        EXPECT_EQ(Center().getAuthInfo(kCamera, 1, false), 0);
        EXPECT_EQ(Center().getAuthInfo(kCamera, 1, true), 0);
        std::string ticket;
        std::string cloudTicket;
        std::string relayTicket;
        EXPECT_EQ(Center().getTicketInfo(kCamera, 1, ticket), 0);
        EXPECT_EQ(Center().getCloudTicketInfo(kCamera, 1, 9, cloudTicket), 0);
        EXPECT_EQ(Center().getRelayTicket(kCamera, 1, relayTicket), 0);
        EXPECT_EQ(ticket.rfind("tk.media.", 0), 0U);
        EXPECT_EQ(cloudTicket.rfind("tk.cloud.", 0), 0U);
        EXPECT_EQ(relayTicket.rfind("tk.relay.", 0), 0U);
        std::string response;
        EXPECT_EQ(Center().setVideoDefinition(kCamera, response, 1, 0), 0);
        Detail detail;
        EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
        EXPECT_EQ(detail.channel.videoLevel, 0);
        constexpr char kPermission[] = "/api/service/auth/device/user/permission";
        ExpectPlatform({kPermission, kPermission, "/api/route/userdevicetob/v3/cameras/ticketInfo",
                        "/api/service/cloud/ticket", "/api/service/media/streaming/relay/ticket",
                        "/api/device/setVideoLevel", kDetailPath});
    }

    void SearchTheDevice() const {
        RecordFileList files;
        EXPECT_EQ(Center().getDeviceFileBySerial(kCamera, 1, kMorning, kEvening, 0, 0, files, false), 0);
        EXPECT_EQ(FileIds(files), Texts({"file-C10000001-1-01", "file-C10000001-1-02", "file-C10000001-1-03"}));
        EXPECT_EQ(Center().getDeviceFileBySerial(kCamera, 1, kMorning, kEvening, 1, 0, files, true), 0);
        EXPECT_EQ(FileIds(files), Texts({"file-C10000001-1-02"}));
        EXPECT_EQ(Center().getDeviceFileBySerialEx(kRecorder, 2, kMorning, "2024-01-02 01:30:00", 0, true, files), 0);
        EXPECT_EQ(FileIds(files), Texts({"file-R20000016-2-01"}));
        std::string json;
        EXPECT_EQ(Center().getLocalFileBySerial(kCamera, 1, kMorning, kEvening, "camera", "p-1", json), 0);
        EXPECT_EQ(Data(json).at(0).at("fileId"), "file-C10000001-1-06");
        EXPECT_EQ(Center().getDeviceFileBySerial(kOffline, 1, kMorning, kEvening, 0, 0, files, false), 320007);
        constexpr char kPlain[] = "/api/v3/device/sdk/device/local/video";
        ExpectPlatform({kPlain, "/api/sdk/device/local/video", "/api/v3/das/device/local/video/query",
                        "/api/lapp/video/by/time", kPlain});
    }

    void SearchTheCloud() const {
        std::string json;
        EXPECT_EQ(Center().getCloudFileBySerial(kCamera, 1, {kMorning, kEvening}, 0, json), 0);
        EXPECT_EQ(Data(json).size(), 2U);
        EXPECT_EQ(Center().getCloudFileBySerialEX(kCamera, 1, 0, {"2024-01-02", "", 10}, json), 0);
        EXPECT_EQ(Json::parse(json).at("videos").size(), 2U);
        const Json query = {{"deviceSerial", kCamera}, {"channelNo", 1}, {"fileIds", {"file-C10000001-1-05"}}};
        EXPECT_EQ(Center().getCloudFileInfoBySerialEX(kCamera, 1, query.dump(), json), 0);
        EXPECT_EQ(Json::parse(json).at("videoDetails").size(), 1U);
        RecordFileList files;
        EXPECT_EQ(Center().GetCloudRecordFile(kCamera, 1, 9, kMorning, kEvening, files), 0);
        EXPECT_EQ(FileIds(files), Texts({"file-C10000001-1-04", "file-C10000001-1-05"}));
        ExpectPlatform({"/api/cloud/files/get", "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
                        "/api/v3/open/cloud/v3/clouds/videoDetails", "/api/service/cloudrecord/video/info/list"});
    }

    void ReadAlarms() const {
        std::string json;
        EXPECT_EQ(Alarms(kCamera, 1, 0, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts({"AL1001"}));
        EXPECT_EQ(Center().setAlarmRead("AL1001"), 0);
        EXPECT_EQ(Alarms(kCamera, 1, 0, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts());
        EXPECT_EQ(Alarms(kCamera, 1, 1, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts({"AL1001", "AL1002"}));
        EXPECT_EQ(Center().getRecordByAlarmID(kCamera, 1, "AL1001", json), 0);
        EXPECT_EQ(Data(json).at(0).at("fileId"), "file-C10000001-1-01");
        TransparentMsgDetail message;
        EXPECT_EQ(Center().getTransparentMsgDetail(kCamera, "M0000001", message), 0);
        EXPECT_EQ(message.data, R"({"door":"open"})");
        ExpectPlatform({"/api/alarm/list", "/api/alarm/sdk/setRead", "/api/alarm/list", "/api/alarm/list",
                        "/api/lapp/video/by/id", "/api/common/transparent/getMsgDetail"});
    }

    void OutliveTheToken() const {
        const std::string old = Token();
        Cloud().Post("/expire", {{"what", "accessToken"}});
        std::string json;
        EXPECT_EQ(Alarms(kRecorder, 3, 2, json), 0);
        EXPECT_EQ(AlarmIds(json), Texts({"AL1003"}));
        EXPECT_NE(Token(), old);
        EXPECT_EQ(Center().getTokenExpireTime(), "604800");
        EXPECT_EQ(Fetch(kCamera, 1), 0);
        ExpectJournal({{"B", "/api/alarm/list", old},
                       {"B", "/oauth/token/refreshToken", "none"},
                       {"B", "/api/alarm/list", Token()},
                       {"B", kDetailPath, Token()}});
        const std::string automatic = Token();
        std::string renewed;
        EXPECT_EQ(Center().RefreshToken(renewed), 0);
        EXPECT_EQ(renewed, Token());
        EXPECT_NE(renewed, automatic);
        ExpectJournal({{"B", "/oauth/token/refreshToken", "none"}});
    }

    void Leave() const {
        EXPECT_EQ(Center().ClearDeviceInfoCache(), 0);
        Detail detail;
        EXPECT_EQ(ReadCache(kCamera, 1, detail), -1);
        EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
        EXPECT_EQ(Center().ClearAllCache(), 0);
        EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 0);
        ExpectSilence();
    }
};

TEST_F(OwnAccountScenarioTest, FromTheSettingsToTheEndOfTheToken) {
    Configure();
    AskWhoAmI();
    ListDevices();
    OpenDetails();
    ResolveTheParent();
    ReadWhatIsKnown();
    FindServers();
    TakeStreamTokens();
    ConnectDirectly();
    OpenTheStream();
    SearchTheDevice();
    SearchTheCloud();
    ReadAlarms();
    UploadPicture(kCamera, Token(), "B");
    OutliveTheToken();
    Leave();
}

}  // namespace
}  // namespace vantix::test
