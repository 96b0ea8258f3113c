// Where the platform's requests differ from each other: which envelope rule reads an answer, what a missing payload is,
// which blank is escaped, which of two paths is taken.

#include "PlatformCase.h"
#include "platform/Recordings.h"
#include "support/CoreFixture.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

/// An answer to one request, what becomes of it, and the line that says why.
struct AnswerRow {
    const char* name;
    const char* request;
    const char* answer;
    int result;
    const char* line = nullptr;  ///< "$" stands for the answer.
    unsigned level = 5;
};

void PrintTo(const AnswerRow& row, std::ostream* out) { *out << row.name; }

class RequestRuleTest : public CoreFixture, public ::testing::WithParamInterface<AnswerRow> {
protected:
    PlatformCase Request() const {
        for (PlatformCase& row : PlatformCases()) {
            if (row.name == GetParam().request) {
                return std::move(row);
            }
        }
        throw std::runtime_error("no such request");
    }
};

TEST_P(RequestRuleTest, ReadsTheAnswerByItsOwnRule) {
    const PlatformCase request = Request();
    Cloud().ScriptResponse({{"path", request.path}, {"body", GetParam().answer}});
    const LogCapture log;
    Json output;
    EXPECT_EQ(request.call({BDomain(), Account("accessToken"), Account("appKey")}, output), GetParam().result);
    if (GetParam().line == nullptr) {
        return;
    }
    std::string line = GetParam().line;
    if (const size_t at = line.find('$'); at != std::string::npos) {
        line.replace(at, 1, GetParam().answer);
    }
    EXPECT_EQ(log.Count(line), 1U) << line;
    EXPECT_EQ(log.Find(line).level, GetParam().level);
    EXPECT_EQ(log.Find(line).Word(), GetParam().level == 5 ? "ERROR" : "INFO ");
}

// The common rule: texts at the top, and a text or a number inside "result".
const AnswerRow kCommonRows[] = {
    {"TextAtTheTop", "DeviceInfo", R"({"resultCode":"200"})", 0},
    {"ZeroAsCode", "DeviceInfo", R"({"code":"0"})", 0},
    {"NumberAtTheTopIsSkipped", "DeviceInfo", R"({"resultCode":200})", 300002},
    {"NumberAtTheTopGivesWay", "DeviceInfo", R"({"resultCode":500,"code":"200"})", 0},
    {"NumberInResult", "DeviceInfo", R"({"result":{"code":10002}})", 310002},
    {"TrueInResult", "DeviceInfo", R"({"result":{"code":true}})", 300002},
    {"NumberBeyond32Bits", "DeviceInfo", R"({"result":{"code":4294967496}})", 300002},
    {"BlankDigitsAndLetters", "DeviceInfo", R"({"resultCode":" 10002xyz"})", 310002},
    {"LettersAloneSucceed", "DeviceInfo", R"({"resultCode":"letters"})", 0},
    {"EmptyTextSucceeds", "DeviceInfo", R"({"resultCode":""})", 0},
    {"FirstOfThreeDecides", "DeviceInfo", R"({"resultCode":"20002","code":"200","result":{"code":"200"}})", 320002},
};

INSTANTIATE_TEST_SUITE_P(Common, RequestRuleTest, ::testing::ValuesIn(kCommonRows),
                         [](const auto& row) { return row.param.name; });

// Two rules read "meta": one is silent where the other refuses.
const AnswerRow kMetaRows[] = {
    {"LenientWithoutACode", "Ticket", R"({"meta":{}})", 0},
    {"LenientWithATextAsCode", "Ticket", R"({"meta":{"code":"500"}})", 0},
    {"LenientWithACode", "Ticket", R"({"meta":{"code":500}})", 300500},
    {"LenientWithoutMeta", "Ticket", R"({"ticketInfo":{"ticket":"t"}})", 300002},
    {"LenientRelayServer", "RelayServer", R"({"meta":{},"data":{}})", 0},
    {"LenientRelayTicket", "RelayTicket", R"({"meta":{},"data":{}})", 0},
    {"LenientRecordings", "CloudSpaceFiles", R"({"meta":{},"data":[]})", 0},
    {"StrictWithoutACode", "CloudFileDetails", R"({"meta":{}})", 300002},
    {"StrictWithATextAsCode", "CloudFilesOfADay", R"({"meta":{"code":"200"}})", 300002},
    {"StrictWithSuccess", "CloudFilesOfADay", R"({"meta":{"code":200}})", 0},
    {"StrictWithZero", "CloudFileDetails", R"({"meta":{"code":0}})", 0},
    {"StrictWithoutMeta", "CloudFileDetails", R"({"meta":5})", 300002,
     "platform response bad, [result] is not object, Resp:$", 3},
    {"StrictPushSession", "PushSession", R"({"meta":{},"pushSessionId":"p"})", 300002},
    {"StrictBandwidth", "Bandwidth", R"({"meta":{"code":"0"},"data":{}})", 300002},
};

INSTANTIATE_TEST_SUITE_P(Meta, RequestRuleTest, ::testing::ValuesIn(kMetaRows),
                         [](const auto& row) { return row.param.name; });

const AnswerRow kPermissionRows[] = {
    {"TextCounts", "PermissionToWatch", R"({"result":{"code":"200"}})", 0},
    {"NumberDoesNot", "PermissionToWatch", R"({"result":{"code":200}})", 300002},
    {"LettersAreZero", "PermissionToPlayBack", R"({"result":{"code":"yes"}})", 0},
    {"TopLevelIsNotRead", "PermissionToPlayBack", R"({"resultCode":"200"})", 300002},
    {"ResultIsNoObject", "PermissionToPlayBack", R"({"result":[]})", 300002},
    {"CodeIsPassedOn", "PermissionToWatch", R"({"result":{"code":"20018"}})", 320018,
     "GetAuthInfoFromPlatform:$ error:20018"},
};

INSTANTIATE_TEST_SUITE_P(Permission, RequestRuleTest, ::testing::ValuesIn(kPermissionRows),
                         [](const auto& row) { return row.param.name; });

const AnswerRow kConfigurationRows[] = {
    {"NumberAndRootData", "Configuration", R"({"result":{"code":200},"data":{"streamType":1}})", 0},
    {"TextAndInnerData", "Configuration", R"({"result":{"code":"0","data":{"streamType":1}}})", 0},
    {"TopLevelIsNotRead", "Configuration", R"({"resultCode":"200","data":{}})", 300002},
    {"NoData", "Configuration", R"({"result":{"code":"200"}})", 300002, "platform response invalid, szInfo = $"},
    {"TrueAsCode", "Configuration", R"({"result":{"code":true},"data":{}})", 300002},
};

INSTANTIATE_TEST_SUITE_P(Configuration, RequestRuleTest, ::testing::ValuesIn(kConfigurationRows),
                         [](const auto& row) { return row.param.name; });

// A good envelope without its payload.
const AnswerRow kPayloadRows[] = {
    {"Detail", "DevDetail", R"({"result":{"code":"200"}})", 300002, "platform response invalid, szInfo = $"},
    {"DetailOfAnother", "DeviceDetailOfAnotherPlatform", R"({"result":{"code":"200","data":[]}})", 300002,
     "ParseDeviceDetailInfoFromPlatform:$ error:2"},
    {"ServersNeedNone", "Servers", R"({"resultCode":"200"})", 0},
    {"RelayServer", "RelayServer", R"({"meta":{"code":200}})", 300002, "platform response invalid, szInfo = $"},
    {"TicketNeedsNone", "Ticket", R"({"meta":{"code":200}})", 0},
    {"CloudTicket", "CloudTicket", R"({"meta":{"code":200},"data":5})", 300002,
     "platform response invalid, szInfo = $"},
    {"P2PUserAfterTheCheck", "P2PUser", R"({"result":{"code":"200"}})", 300002, "ParseP2PUserInfo:$ error:2"},
    {"P2PDeviceAfterTheCheck", "P2PDevice", R"({"result":{"code":"200","data":5}})", 300002,
     "ParseP2PDevInfo:$ error:2"},
    {"DeviceFilesAfterTheCheck", "DeviceFiles", R"({"result":{"code":"200"}})", 300002,
     "ParseServerInfoFromPlatform:$ error:2"},
    {"UserName", "UserName", R"({"resultCode":"200"})", 300002,
     "platform response invalid, [userName] not exist or not string, szInfo = $"},
    {"UserId", "UserId", R"({"result":{"code":"200","data":{"userId":5}}})", 300002,
     "platform response invalid, [userId] not exist or not string, szInfo = $"},
    {"PushSession", "PushSession", R"({"meta":{"code":200}})", 300002,
     "platform response invalid, [userId] not exist or not string, szInfo = $"},
    {"Bandwidth", "Bandwidth", R"({"meta":{"code":200},"data":{"id":"i","url":"u","version":1}})", 300002,
     "platform response invalid, [publicKey] not exist or not string, szInfo = $"},
    {"MessageWithoutResult", "TransparentMessage", R"({"resultCode":"200"})", 300002,
     "platform response bad, [result] is not object, Resp:$", 3},
    {"MessageWithoutData", "TransparentMessage", R"({"result":{"code":"200"}})", 300002,
     "platform response bad, [msgData] is not object, Resp:$", 3},
    {"StreamTokens", "StreamTokensParsed", R"({"resultCode":"200"})", 300002, "ParseSwitchInfoFromPlatform:$ error:2"},
    {"RefreshWithoutData", "Refresh", R"({"result":{"code":"200"}})", 300002,
     "platform response invalid, szInfo = $, data not exist!"},
    {"RefreshWithoutAToken", "Refresh", R"({"code":"200","data":{"openId":"o"}})", 300002,
     "platform response invalid, szInfo = $, access_token not exist!"},
    {"RefreshAtTheRoot", "Refresh",
     R"({"code":"200","data":{"access_token":"a","openId":"o","refresh_token":"r","expires_in":7200.0}})", 0},
    {"OwnDevices", "OwnDevices", R"({"result":{"code":"200"}})", 300002, "ParseCameraListFromPlatform:$ error:2"},
    {"BusinessDevices", "BusinessDevices", R"({"result":{"code":"200","data":{}}})", 300002,
     "ParseCameraListFromPlatform:$ error:2"},
    {"UploadAddress", "UploadAddress", R"({"meta":{"code":200}})", 300002, "ParseLocalDeviceRecordFile:$ error:2"},
};

INSTANTIATE_TEST_SUITE_P(Payload, RequestRuleTest, ::testing::ValuesIn(kPayloadRows),
                         [](const auto& row) { return row.param.name; });

class BlankRuleTest : public CoreFixture {
protected:
    Caller Us() const { return {BDomain(), Account("accessToken"), Account("appKey")}; }
};

TEST_F(BlankRuleTest, OnlyTheFirstBlankIsEscapedSoASecondOneStopsTheRequest) {
    const TimeSpan span{"2024-01-02 00:00 00", "2024-01-02 23:59 59"};
    const LogCapture log;
    RecordFileList list;
    EXPECT_EQ(GetDeviceFileBySerialFromPlatformEx(Us(), "R20000016", 1, span, 0, false, list), 100003);
    EXPECT_EQ(GetCloudRecordFileFromPlatform(Us(), "R20000016", 1, 7, span, list), 100003);
    EXPECT_TRUE(log.Contains("&startTime=2024-01-02%2000:00 00"));
    EXPECT_TRUE(log.Contains("&endTime=2024-01-02%2023:59 59&"));
    EXPECT_EQ(log.Count("SyncRequestHeader error:3"), 2U);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

TEST_F(BlankRuleTest, BlankAtTheEndAndNothingAtAllAreTimesToo) {
    RecordFileList list;
    EXPECT_EQ(GetDeviceFileBySerialFromPlatformEx(Us(), "R20000016", 1, {"2024-01-02 ", ""}, 0, false, list), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].Parameter("startTime"), "2024-01-02%20");
    EXPECT_EQ(requests[0].Parameter("endTime"), "");
}

}  // namespace
}  // namespace vantix::test
