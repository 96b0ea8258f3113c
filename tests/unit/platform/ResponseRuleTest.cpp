// Where the platform's requests differ from each other: which envelope rule reads a response, and what a missing
// payload is.

#include <gmock/gmock.h>

#include <stdexcept>

#include "support/CleanSwitches.h"
#include "support/Handle.h"
#include "support/LineMatcher.h"
#include "support/RequestCase.h"
#include "support/ScriptedTransport.h"

namespace vantix::test {
namespace {

/// A response to one request, what becomes of it, and the line that says why.
struct ResponseRow {
    const char* name;
    const char* request;
    const char* body;
    int result;
    const char* line = nullptr;  ///< "$" stands for the response.
    unsigned level = 5;
    const char* word = "ERROR";
};

void PrintTo(const ResponseRow& row, std::ostream* out) { *out << row.name; }

RequestCase RequestNamed(const std::string& name) {
    for (RequestCase& row : PlatformRequests()) {
        if (row.name == name) {
            return std::move(row);
        }
    }
    throw std::out_of_range("no request is named " + name);
}

class ResponseRuleTest : public testing::TestWithParam<ResponseRow> {
protected:
    CleanSwitches m_switches;
    ScriptedTransport m_transport;
    LogCapture m_log;
    Handle m_handle = NewHandle();
};

TEST_P(ResponseRuleTest, ReadsTheResponseByItsOwnRule) {
    const RequestCase request = RequestNamed(GetParam().request);
    m_handle->setDomain("https://b.example", "https://c.example");
    m_handle->setAuthAddr("https://b.example");
    PrepareFor(request, *m_handle);
    m_transport.Respond(GetParam().body);
    EXPECT_EQ(Call(*m_handle, request.operation, request.arguments), GetParam().result);
    if (GetParam().line == nullptr) {
        return;
    }
    std::string message = GetParam().line;
    if (const size_t at = message.find('$'); at != std::string::npos) {
        message.replace(at, 1, GetParam().body);
    }
    EXPECT_THAT(m_log.Lines(), HasLine(GetParam().level, GetParam().word, testing::_, message));
}

// The common rule: texts at the top, and a text or a number inside "result".
const ResponseRow kCommonRows[] = {
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

INSTANTIATE_TEST_SUITE_P(Common, ResponseRuleTest, ::testing::ValuesIn(kCommonRows),
                         [](const auto& row) { return row.param.name; });

// Two rules read "meta": one is silent where the other refuses.
const ResponseRow kMetaRows[] = {
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
     "platform response bad, [result] is not object, Resp:$", 3, "INFO "},
    {"StrictPushSession", "PushSession", R"({"meta":{},"pushSessionId":"p"})", 300002},
    {"StrictBandwidth", "Bandwidth", R"({"meta":{"code":"0"},"data":{}})", 300002},
};

INSTANTIATE_TEST_SUITE_P(Meta, ResponseRuleTest, ::testing::ValuesIn(kMetaRows),
                         [](const auto& row) { return row.param.name; });

const ResponseRow kPermissionRows[] = {
    {"TextCounts", "PermissionToWatch", R"({"result":{"code":"200"}})", 0},
    {"NumberDoesNot", "PermissionToWatch", R"({"result":{"code":200}})", 300002},
    {"LettersAreZero", "PermissionToPlayBack", R"({"result":{"code":"yes"}})", 0},
    {"TopLevelIsNotRead", "PermissionToPlayBack", R"({"resultCode":"200"})", 300002},
    {"ResultIsNoObject", "PermissionToPlayBack", R"({"result":[]})", 300002},
    {"CodeIsPassedOn", "PermissionToWatch", R"({"result":{"code":"20018"}})", 320018,
     "GetAuthInfoFromPlatform:$ error:20018"},
};

INSTANTIATE_TEST_SUITE_P(Permission, ResponseRuleTest, ::testing::ValuesIn(kPermissionRows),
                         [](const auto& row) { return row.param.name; });

const ResponseRow kConfigurationRows[] = {
    {"NumberAndRootData", "Configuration", R"({"result":{"code":200},"data":{"streamType":1}})", 0},
    {"TextAndInnerData", "Configuration", R"({"result":{"code":"0","data":{"streamType":1}}})", 0},
    {"TopLevelIsNotRead", "Configuration", R"({"resultCode":"200","data":{}})", 300002},
    {"NoData", "Configuration", R"({"result":{"code":"200"}})", 300002, "platform response invalid, szInfo = $"},
    {"TrueAsCode", "Configuration", R"({"result":{"code":true},"data":{}})", 300002},
};

INSTANTIATE_TEST_SUITE_P(Configuration, ResponseRuleTest, ::testing::ValuesIn(kConfigurationRows),
                         [](const auto& row) { return row.param.name; });

// A good envelope without its payload.
const ResponseRow kPayloadRows[] = {
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
     "platform response bad, [result] is not object, Resp:$", 3, "INFO "},
    {"MessageWithoutData", "TransparentMessage", R"({"result":{"code":"200"}})", 300002,
     "platform response bad, [msgData] is not object, Resp:$", 3, "INFO "},
    {"StreamTokens", "StreamTokensOfTheQueue", R"({"resultCode":"200"})", 300002,
     "ParseSwitchInfoFromPlatform:$ error:2"},
    {"RefreshWithoutData", "Refresh", R"({"result":{"code":"200"}})", -1,
     "platform response invalid, szInfo = $, data not exist!"},
    {"RefreshWithoutAToken", "Refresh", R"({"code":"200","data":{"openId":"o"}})", -1,
     "platform response invalid, szInfo = $, access_token not exist!"},
    {"RefreshAtTheRoot", "Refresh",
     R"({"code":"200","data":{"access_token":"a","openId":"o","refresh_token":"r","expires_in":7200.0}})", 0},
    {"OwnDevices", "OwnDevices", R"({"result":{"code":"200"}})", 300002, "ParseCameraListFromPlatform:$ error:2"},
    {"BusinessDevices", "BusinessDevices", R"({"result":{"code":"200","data":{}}})", 300002,
     "ParseCameraListFromPlatform:$ error:2"},
    {"UploadAddress", "UploadAddress", R"({"meta":{"code":200}})", 300002, "ParseLocalDeviceRecordFile:$ error:2"},
};

INSTANTIATE_TEST_SUITE_P(Payload, ResponseRuleTest, ::testing::ValuesIn(kPayloadRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
