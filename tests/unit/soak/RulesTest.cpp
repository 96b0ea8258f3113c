// What the soak's rules notice: one broken request, record, code or log line each.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "soak/Codes.h"
#include "soak/JournalRules.h"
#include "soak/LogRules.h"
#include "soak/Records.h"
#include "soak/Rules.h"
#include "unit/soak/SampleOfSoakAccount.h"

namespace vantix::test {
namespace {

using ::testing::IsEmpty;
using ::testing::StartsWith;

struct RequestRow {
    const char* name = "";
    ReceivedRequest request;
    const char* wrong = "";  ///< What the finding begins with; "" when the request is good.
};

const std::vector<std::pair<std::string, std::string>> kSession = {{"sessionId", "se.soak.1"}};
constexpr char kPageList[] = "/v3/userdevices/v1/devices/pagelist";
constexpr char kDetail[] = "/api/device/detail";
constexpr char kRenewal[] = "/oauth/token/refreshToken";

const RequestRow kRequests[] = {
    {"consumer", {"C", "GET", kPageList, "deviceSerial=S60000006", "", kSession}, ""},
    {"consumer at B", {"B", "GET", kPageList, "", "", kSession}, "a consumer request outside the C domain"},
    {"no session", {"C", "GET", kPageList, "", "", {}}, "a consumer request without a session"},
    {"foreign session", {"C", "GET", kPageList, "", "", {{"sessionId", "se.soa"}}}, "a consumer request without a"},
    {"consumer with token",
     {"C", "GET", kPageList, "accessToken=at.soak.1", "", kSession},
     "a consumer request with an"},
    {"stream tokens", {"C", "POST", "/api/user/token/get", "", "", kSession}, ""},
    {"platform", {"B", "POST", kDetail, "", "accessToken=at.soak.1&deviceSerial=C10000001", {}}, ""},
    {"renewed", {"C", "POST", kDetail, "", "accessToken=at.fresh.7c2e90b4.000007", {}}, ""},
    {"platform with session",
     {"B", "POST", kDetail, "", "accessToken=at.soak.1", kSession},
     "a platform request with a s"},
    {"session as parameter",
     {"B", "POST", kDetail, "", "accessToken=se.soak.1", {}},
     "a platform request with a session"},
    {"no token", {"B", "POST", kDetail, "", "deviceSerial=C10000001", {}}, "a platform request with no token"},
    {"half a token", {"B", "POST", kDetail, "", "accessToken=at.soa", {}}, "a platform request with no token"},
    {"shared token",
     {"B", "POST", kDetail, "", "accessToken=b2c.shared.S60000006-1&deviceSerial=S60000006", {}},
     "a platform request with the token of a shared channel"},
    {"own token at C",
     {"C", "POST", kDetail, "", "accessToken=b2c.own.S60000006-1&deviceSerial=S60000006", {}},
     "the token of an own channel at the C domain"},
    {"Tk token at C",
     {"C", "POST", kDetail, "", "accessToken=tk.0.deviceTkToken.C10000001-1", {}},
     "a Tk token at the C"},
    {"another device's",
     {"B", "POST", kDetail, "", "accessToken=tk.0.x.C10000001-1&deviceSerial=R20000016", {}},
     "the token of another device"},
    {"unknown device",
     {"B", "POST", kDetail, "", "accessToken=at.soak.1&deviceSerial=C1000", {}},
     "a device that nobody"},
    {"renewal", {"B", "POST", kRenewal, "", "open_id=open&refresh_token=rt.1", {}}, ""},
    {"renewal at C", {"C", "POST", kRenewal, "", "open_id=open&refresh_token=rt.1", {}}, "a renewal of the token with"},
    {"renewal of nothing",
     {"B", "POST", kRenewal, "", "open_id=open", {}},
     "a renewal of the token with something else"},
    {"upload with session", {"B", "POST", "/upload/unknown", "", "", kSession}, "an upload with a credential"},
    {"foreign path", {"B", "GET", "/", "", "", {}}, "a path that no request has"},
};

TEST(SoakRulesTest, RequestsAreJudgedByPathDomainAndCredential) {
    const Account account = SampleOfSoakAccount();
    for (const RequestRow& row : kRequests) {
        const std::string wrong = WrongInRequest(account, row.request);
        EXPECT_THAT(wrong, StartsWith(row.wrong)) << row.name;
        EXPECT_EQ(wrong.empty(), std::string(row.wrong).empty()) << row.name << ": " << wrong;
    }
}

/// The first camera's records as generation 7 of the cloud has them.
Outputs WholeOutputs() {
    Outputs o;
    const std::string mark = "g7.C10000001";
    o.channel.cameraNo = 1;
    o.channel.deviceSerial = "C10000001";
    o.channel.cameraId = "cam-C10000001-1";
    o.channel.streamBizUrl = mark;
    o.channel.forceStreamType = 7;
    o.channel.videoQualityInfos.resize(3);
    o.detail.deviceSerial = "C10000001";
    o.detail.publicKey = o.detail.deviceIP = o.detail.localIp = o.detail.casIp = o.detail.vtmIp = mark;
    o.detail.version = o.detail.cmdPort = o.detail.casPort = o.detail.devicePort = 7;
    o.detail.vtmBackups = {{mark, 7}};
    o.servers.stun1Addr = o.servers.stun2Addr = o.servers.ttsAddr = o.servers.vtmAddr = "g7.servers";
    o.servers.stun1Port = o.servers.stun2Port = o.servers.vtmPort = o.servers.pushDasPort = 7;
    o.user.userId = "u-10001";
    o.user.data = "g7.p2puser";
    o.user.version = o.user.saltIndex = 7;
    o.p2pDevice.deviceSerial = "C10000001";
    o.p2pDevice.defaultKey = o.p2pDevice.strV3Talk = mark;
    o.p2pDevice.defaultKeyVer = 7;
    o.p2pDevice.serverInfos = {{mark, 7}};
    o.devices.total = 1;
    o.devices.devices = {{"C10000001", 1, mark, mark, "", 1, 0}};
    o.files.files = {{"2024-01-02 03:00:00", "2024-01-02 03:10:00", 2, 1060864, "file-C10000001-1-03"}};
    o.files.strDeviceRecordList = "[{}]";
    o.text = R"({"a":"g7.C10000001","b":"g7.C10000001","c":"g9.servers"})";
    return o;
}

std::string WrongIn(const char* operation, const Outputs& outputs) {
    return WrongInRecord({&OperationNamed(operation), &Places().front(), {}}, outputs, false);
}

struct TornRow {
    const char* operation = "";
    std::function<void(Outputs&)> tear;
};

const TornRow kTorn[] = {
    {"getDevDetailInfo", [](Outputs& o) { o.detail.publicKey = "g8.C10000001"; }},
    {"getDevDetailInfo", [](Outputs& o) { o.detail.casPort = 8; }},
    {"getDevDetailInfo", [](Outputs& o) { o.detail.devicePort = 8; }},
    {"getDevDetailInfo", [](Outputs& o) { o.detail.vtmBackups[0].iVtmPort = 8; }},
    {"getDevDetailInfo", [](Outputs& o) { o.channel.streamBizUrl = "g8.C10000001"; }},
    {"getDevDetailInfoSync", [](Outputs& o) { o.channel.cameraNo = 2; }},
    {"getDeviceRecord", [](Outputs& o) { o.detail.deviceSerial = "R20000016"; }},
    {"getServerInfoSync", [](Outputs& o) { o.servers.vtmPort = 8; }},
    {"getP2PUserInfoByToken", [](Outputs& o) { o.user.saltIndex = 8; }},
    {"getP2PUserInfoByToken", [](Outputs& o) { o.user = {}; }},
    {"getP2PDevInfoBySerial", [](Outputs& o) { o.p2pDevice.serverInfos[0].port = 8; }},
    {"getP2PDevInfoBySerial", [](Outputs& o) { o.p2pDevice.strV3Talk = "g8.C10000001"; }},
    {"getDevList", [](Outputs& o) { o.devices.devices[0].name = "g8.C10000001"; }},
    {"getDeviceFileBySerial", [](Outputs& o) { o.files.files[0].size = 1; }},
    {"getDeviceFileBySerial", [](Outputs& o) { o.files.files[0].fileId = "file-C10000001-2-03"; }},
    {"getDeviceFileBySerial", [](Outputs& o) { o.files.strDeviceRecordList = "[]"; }},
    {"getAlarmList", [](Outputs& o) { o.text = R"(["g7.servers","g8.servers"])"; }},
    {"getAlarmList", [](Outputs& o) { o.text = R"({"a":)"; }},
};

TEST(SoakRulesTest, TornRecordsAreNoticed) {
    for (const TornRow& row : kTorn) {
        Outputs outputs = WholeOutputs();
        EXPECT_EQ(WrongIn(row.operation, outputs), "") << row.operation;
        row.tear(outputs);
        EXPECT_NE(WrongIn(row.operation, outputs), "") << row.operation << " row " << (&row - kTorn);
    }
}

TEST(SoakRulesTest, CodesDependOnTheOperationAndOnFaults) {
    EXPECT_EQ(Judged(5, 0, false), Verdict::Expected);
    EXPECT_EQ(Judged(5, 300001, false), Verdict::Wrong);
    EXPECT_EQ(Judged(5, 300001, true), Verdict::OfFault);
    EXPECT_EQ(Judged(5, 100028, true), Verdict::Wrong) << "a time-out";
    EXPECT_EQ(Judged(5, -1, true), Verdict::Wrong) << "an exception that ended the operation";
    EXPECT_EQ(Judged(35, -1, true), Verdict::OfFault);
    EXPECT_EQ(Judged(35, -1, false), Verdict::Wrong);
    EXPECT_EQ(Judged(5, 1, true), Verdict::Wrong);
    EXPECT_EQ(Judged(24, 1, true), Verdict::OfFault);
    EXPECT_EQ(Judged(7, 0, false), Verdict::Wrong);
    EXPECT_EQ(Judged(7, 0, true), Verdict::OfFault);
    EXPECT_EQ(Judged(92, -1, true), Verdict::Wrong) << "a setter sends nothing";
}

TEST(SoakRulesTest, LogLinesShowNoSecret) {
    const Account account = SampleOfSoakAccount();
    const auto wrong = [&](const std::string& line) { return WrongInLine(account, line); };
    EXPECT_THAT(wrong("start Posts url and Param = https://b.example/api?accessToken=***&appKey=***"), IsEmpty());
    EXPECT_THAT(wrong("strRsp:{\"access_token\":\"at.fresh.7c2e90b4.000001\"}"), IsEmpty());
    EXPECT_THAT(wrong("url and Param = x?client_id=app-soak-1"), IsEmpty());
    EXPECT_THAT(wrong("a line with at.soak.1"), StartsWith("a secret of the host"));
    EXPECT_THAT(wrong("heads = sessionId: se.soak.1"), StartsWith("a secret of the host"));
    EXPECT_THAT(wrong(" url and Param = x?accessToken=at.fresh.7c2e90b4.000001"), StartsWith("a renewed credential"));
    EXPECT_THAT(wrong(" url and Param = x?appKey=app-soak-1"), StartsWith("an app id"));
    EXPECT_THAT(wrong("<ParseP2PUserInfoFromCServer>\t<1>,\"secret\":\"g7.p2puser\""), StartsWith("the secret of"));
}

TEST(SoakRulesTest, AppliedAndBrokenRulesAreCounted) {
    Rules rules;
    rules.Apply("one", "");
    rules.Apply("one", "torn");
    rules.ApplyMany("two", 5);
    EXPECT_EQ(rules.Applied(), (std::map<std::string, size_t>{{"one", 2}, {"two", 5}}));
    EXPECT_EQ(rules.Broken(), (std::map<std::string, size_t>{{"one", 1}}));
    EXPECT_EQ(rules.Texts(), std::vector<std::string>{"one: torn"});
}

}  // namespace
}  // namespace vantix::test
