// Operations that are called before the host has set anything.

#include <functional>

#include "RecordJson.h"
#include "support/CoreFixture.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {
namespace {

/// Everything that an operation may write into.
struct Outputs : Detail {
    std::string text;
    ServerInfo servers;
    P2PUserInfo user;
    P2PDevInfo p2p;
    std::vector<P2PServerAddr> addresses;
    DeviceList devices;
    RecordFileList files;
    TransparentMsgDetail message;
    BWCheckInfo bandwidth;
};

struct UnsetRow {
    const char* name;
    std::function<int(IVantixDataCenter&, Outputs&)> call;
};

void PrintTo(const UnsetRow& row, std::ostream* out) { *out << row.name; }

/// The core as the process starts it: where another case of the same process has run, as near to it as setters go.
class UnsetTest : public CoreFixture, public ::testing::WithParamInterface<UnsetRow> {
protected:
    void SetUp() override {
        m_handle = NewHandle();
        m_handle->setAccessToken("");
        m_handle->setAppId("");
        m_handle->setSessionId("");
        m_handle->ClearAllCache();
        m_cloud.Reset();
    }
    void TearDown() override {}

    Handle m_handle;
    SimulatorClient m_cloud;
};

TEST_P(UnsetTest, FailsWithoutARequest) {
    Outputs outputs;
    EXPECT_EQ(GetParam().call(*m_handle, outputs), -1);
    EXPECT_EQ(outputs.text, "");
    EXPECT_EQ(m_cloud.RequestCount(), 0U);
}

/// The operations that need a credential or a cached entry.
const UnsetRow kUnsetRows[] = {
    {"getTicketInfo", [](auto& c, auto& o) { return c.getTicketInfo("S", 1, o.text); }},
    {"getCloudTicketInfo", [](auto& c, auto& o) { return c.getCloudTicketInfo("S", 1, 1, o.text); }},
    {"getRelayTicket", [](auto& c, auto& o) { return c.getRelayTicket("S", 1, o.text); }},
    {"getDevDetailInfo",
     [](auto& c, auto& o) {
         std::future<int32_t> future;
         const int returned = c.getDevDetailInfo("S", 1, o.channel, o.device, future);
         EXPECT_TRUE(future.valid());
         return future.get() == -1 ? returned : 0;
     }},
    {"getDevDetailInfoSync",
     [](auto& c, auto& o) { return c.getDevDetailInfoSync("S", 1, true, o.channel, o.device); }},
    {"getDeviceDetailInfo",
     [](auto& c, auto& o) { return c.getDeviceDetailInfo("S", 1, "biz", "platform", o.channel, o.device); }},
    {"getDevDetailInfoByRelation",
     [](auto& c, auto& o) { return c.getDevDetailInfoByRelation("S", 1, o.channel, o.device); }},
    {"getServerInfoAsync",
     [](auto& c, auto& o) {
         std::future<int32_t> future;
         EXPECT_EQ(c.getServerInfoAsync("", o.servers, future), 0);
         return future.get();
     }},
    {"getServerInfoEx", [](auto& c, auto& o) { return c.getServerInfoEx("", o.text, "S", 1); }},
    {"getServerInfoSync", [](auto& c, auto& o) { return c.getServerInfoSync("", o.servers); }},
    {"getVideoVtmAddr", [](auto& c, auto& o) { return c.getVideoVtmAddr("S", 1, o.text); }},
    {"getRelayServerInfo", [](auto& c, auto& o) { return c.getRelayServerInfo("S", 1, o.text); }},
    {"getDeviceInfoBySerial", [](auto& c, auto& o) { return c.getDeviceInfoBySerial("S", 1, o.text); }},
    {"getDevList", [](auto& c, auto& o) { return c.getDevList(0, 10, o.devices); }},
    {"getDeviceList", [](auto& c, auto& o) { return c.getDeviceList(0, 10, "biz", o.devices); }},
    {"getShareDevList", [](auto& c, auto& o) { return c.getShareDevList(0, 10, o.devices); }},
    {"getB2CSharedDevList", [](auto& c, auto& o) { return c.getB2CSharedDevList(0, 10, o.text); }},
    {"getAlarmList", [](auto& c, auto& o) { return c.getAlarmList("S", 1, 0, 10, "", "", 0, 0, o.text); }},
    {"getUsername", [](auto& c, auto& o) { return c.getUsername(o.text); }},
    {"getTransparentMsgDetail", [](auto& c, auto& o) { return c.getTransparentMsgDetail("S", "1", o.message); }},
    {"getP2PUserInfoAsync",
     [](auto& c, auto& o) {
         std::future<int32_t> future;
         EXPECT_EQ(c.getP2PUserInfoAsync(o.user, "", future), 0);
         return future.get();
     }},
    {"getP2PUserInfoByToken", [](auto& c, auto& o) { return c.getP2PUserInfoByToken("", o.user); }},
    {"getP2PUserInfoByDevice", [](auto& c, auto& o) { return c.getP2PUserInfoByDevice("S", 1, o.user); }},
    {"getP2PDevInfoAsync",
     [](auto& c, auto& o) {
         std::future<int32_t> future;
         EXPECT_EQ(c.getP2PDevInfoAsync(o.p2p, "", "S", future), -1);
         return future.get();
     }},
    {"getP2PDevInfoCached", [](auto& c, auto& o) { return c.getP2PDevInfoCached("S", o.addresses, o.p2p, false); }},
    {"getP2PDevInfoBySerial", [](auto& c, auto& o) { return c.getP2PDevInfoBySerial(o.p2p, "", "S"); }},
    {"getP2PDevInfoByChannel", [](auto& c, auto& o) { return c.getP2PDevInfoByChannel("S", 1, "", o.p2p); }},
    {"getChannelCacheValue", [](auto& c, auto& /*o*/) { return c.getChannelCacheValue("S", 1); }},
    {"setVideoDefinition", [](auto& c, auto& o) { return c.setVideoDefinition("S", o.text, 1, 1); }},
    {"setAlarmRead", [](auto& c, auto& /*o*/) { return c.setAlarmRead("AL1"); }},
    {"getStreamTokens", [](auto& c, auto& o) { return c.getStreamTokens("", 10, o.text); }},
    {"getAuthInfo", [](auto& c, auto& /*o*/) { return c.getAuthInfo("S", 1, false); }},
    {"RefreshToken", [](auto& c, auto& o) { return c.RefreshToken(o.text); }},
    {"getOneStreamToken", [](auto& c, auto& o) { return c.getOneStreamToken("", o.text); }},
    {"GetStreamTokenFromQueue",
     [](auto& c, auto& /*o*/) {
         char buffer[4097] = {};
         return c.GetStreamTokenFromQueue("", buffer);
     }},
    {"getRecordByAlarmID", [](auto& c, auto& o) { return c.getRecordByAlarmID("S", 1, "AL1", o.text); }},
    {"getDeviceFileBySerial",
     [](auto& c, auto& o) { return c.getDeviceFileBySerial("S", 1, "", "", 0, 0, o.files, false); }},
    {"getDeviceFileBySerialEx",
     [](auto& c, auto& o) { return c.getDeviceFileBySerialEx("S", 1, "", "", 0, false, o.files); }},
    {"getCloudFileBySerial", [](auto& c, auto& o) { return c.getCloudFileBySerial("S", 1, TimeSpan(), 0, o.text); }},
    {"getLocalFileBySerial",
     [](auto& c, auto& o) { return c.getLocalFileBySerial("S", 1, "", "", "biz", "platform", o.text); }},
    {"getCloudFileBySerialEX",
     [](auto& c, auto& o) { return c.getCloudFileBySerialEX("S", 1, 0, CloudFileQuery(), o.text); }},
    {"getCloudFileInfoBySerialEX", [](auto& c, auto& o) { return c.getCloudFileInfoBySerialEX("S", 1, "{}", o.text); }},
    {"GetCloudRecordFile", [](auto& c, auto& o) { return c.GetCloudRecordFile("S", 1, 1, "", "", o.files); }},
    {"GetClouduploadUrl", [](auto& c, auto& o) { return c.GetClouduploadUrl("S", 1, "f", 0, 1, 1, "biz", o.text); }},
    {"getDeviceRecord", [](auto& c, auto& o) { return c.getDeviceRecord("S", 1, o.device); }},
    {"getDeviceRecordAlt", [](auto& c, auto& o) { return c.getDeviceRecordAlt("S", 1, o.device); }},
    {"getUserId", [](auto& c, auto& o) { return c.getUserId(o.text); }},
    {"getPushSessionId", [](auto& c, auto& o) { return c.getPushSessionId(o.text); }},
    {"getBWCheckInfo", [](auto& c, auto& o) { return c.getBWCheckInfo(1, "", 1, o.bandwidth); }},
    {"SetDevInfoCache", [](auto& c, auto& /*o*/) { return c.SetDevInfoCache("S", 1); }},
    {"getDevInfoCache", [](auto& c, auto& o) { return c.getDevInfoCache("S", 1, o.channel, o.device); }},
    {"RefreshSession", [](auto& c, auto& o) { return c.RefreshSession("", o.text); }},
};

INSTANTIATE_TEST_SUITE_P(Slots, UnsetTest, ::testing::ValuesIn(kUnsetRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
