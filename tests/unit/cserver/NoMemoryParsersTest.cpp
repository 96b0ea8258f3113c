// Memory that runs out at any place of any parser of the consumer servers: it throws, or the record is whole.

#include <optional>
#include <vector>

#include "cserver/DeviceDetail.h"
#include "cserver/Lists.h"
#include "cserver/P2P.h"
#include "cserver/Recordings.h"
#include "cserver/Server.h"
#include "cserver/Tokens.h"
#include "support/FailingNew.h"
#include "support/NoMemoryParser.h"
#include "support/OutputJson.h"
#include "tvllog/tvllog.h"
#include "unit/cserver/ConsumerResponse.h"
#include "unit/cserver/DeviceResponse.h"

namespace vantix::test {
namespace {

/// A whole response, and some of what its parser makes of it. Texts are long enough to need memory.
struct NoMemoryRow {
    const char* name;
    std::string body;
    int (*parse)(const std::string& body, Outputs& outputs);
    Json fills;
};

void PrintTo(const NoMemoryRow& row, std::ostream* out) { *out << row.name; }

std::vector<NoMemoryRow> NoMemoryRows() {
    return {
        {"Servers",
         R"({"meta":{"code":200},"systemConfigInfo":{"stun1Addr":"the first server's long name","stun1Port":1,
             "ttsAddr":"another server's long name"}})",
         [](const std::string& body, Outputs& outputs) { return ParseServerInfoFromCServer(body, outputs.servers); },
         R"({"servers":{"stun1Addr":"the first server's long name","stun1Port":1}})"_json},
        {"P2PUser",
         R"({"response1":{"userInfo":{"userId":"a user id that is no short text"}},
             "response2":{"secret":"a secret that is no short text","data":{"version":5,"saltIndex":6}}})",
         [](const std::string& body, Outputs& outputs) { return ParseP2PUserInfoFromCServer(body, outputs.user); },
         R"({"user":{"userId":"a user id that is no short text","data":"a secret that is no short text",
             "version":5,"saltIndex":6}})"_json},
        {"P2PDevice",
         R"({"meta":{"code":200},"p2pInfos":[{"ip":"an address that is no short text","port":2},{"ip":"3","port":4}],
             "deviceInfos":[{"deviceSerial":"S","kmsInfos":{"secretKey":"a key that is no short text","version":6},
             "qxDeviceCapability":"{\"263\":\"a capability that is no short text\"}"}]})",
         [](const std::string& body, Outputs& outputs) {
             return ParseP2PDevInfoFromCServer(body, "S", outputs.p2pDevice);
         },
         R"({"p2pDevice":{"defaultKey":"a key that is no short text","capability":{"V3":"a capability that is no short text"}}})"_json},
        {"P2PCapabilities", R"({"263":"a capability that is no short text","289":"another that is no short text"})",
         [](const std::string& text, Outputs& outputs) { return ParseP2PQXDevCapFromCServer(text, outputs.p2pDevice); },
         R"({"p2pDevice":{"capability":{"V3":"a capability that is no short text",
             "V3Download":"another that is no short text"}}})"_json},
        {"Session",
         R"({"meta":{"code":200},"sessionInfo":{"sessionId":"a session that is no short text",
             "refreshSessionId":"what renews it, no short text either"}})",
         [](const std::string& body, Outputs& outputs) {
             SessionInfo session;
             const int code = ParseRefreshSessionnFromCServer(body, session);
             outputs.text = session.sessionId + ", " + session.refreshSessionId;
             return code;
         },
         R"({"text":"a session that is no short text, what renews it, no short text either"})"_json},
        {"Recordings", R"({"meta":{"code":200},"records":[{"begin":"2024-01-02 00:00:00","type":1}],"isFinished":1})",
         [](const std::string& body, Outputs& outputs) { return ParseDeviceRecordFileFromCServer(body, outputs.text); },
         R"({"text":"{\"data\":[{\"begin\":\"2024-01-02 00:00:00\",\"type\":1}]}"})"_json},
        {"SharedDevices",
         R"({"meta":{"code":200},"data":{"size":1,"total":12,"resourceInfos":[{
             "deviceSerial":"a serial that is no short text","cameraInfos":[{"channelNo":21}],"detectorInfos":[{}]}]}})",
         [](const std::string& body, Outputs& outputs) {
             const int code = ParseB2CDeviceListFromPlatform(body, outputs.text);
             const FailingNew::Suspended ownWork;
             const Json list = Json::parse(outputs.text);
             outputs.text = list["result"]["data"]["deviceInfos"][0]["cameraInfo"][0]["cameraName"];
             return code;
         },
         R"({"text":"camera 21@a serial that is no short text"})"_json},
        {"Device", WholeDevice().dump(),
         [](const std::string& body, Outputs& outputs) {
             std::vector<ConsumerChannel> channels;
             const int code = ParseDevDetailInfoFromCServer(body, "S", channels);
             if (!channels.empty()) {
                 outputs.channel = std::move(channels[0].channel);
                 outputs.detail = std::move(channels[0].device);
             }
             return code == 0 && channels.size() != 2 ? -99 : code;
         },
         R"({"detail":{"deviceSerial":"S"}})"_json},
    };
}

class NoMemoryConsumer : public testing::TestWithParam<NoMemoryRow> {
protected:
    NoMemoryConsumer() { TVLLOG_SetCallback(nullptr); }  // a capture of lines would allocate inside the parser

    int Parse(Json& record) {
        std::optional<FailingNew::Suspended> ownWork(std::in_place);
        Outputs outputs;
        outputs.files.strDeviceRecordList = "null";  // as JSON it can be compared
        ownWork.reset();
        const int code = GetParam().parse(GetParam().body, outputs);
        ownWork.emplace();
        record = ToJson(outputs);
        return code;
    }

    CleanSwitches m_switches;
};

TEST_P(NoMemoryConsumer, ParserIsWholeOrThrowsWhicheverAllocationFails) {
    Json whole;
    ASSERT_EQ(Parse(whole), 0);
    Json merged = whole;
    merged.merge_patch(GetParam().fills);
    ASSERT_EQ(merged, whole) << "what the row says is there";
    EXPECT_GT(ExpectWholeOrThrown(whole, [this](Json& record) { return Parse(record); }), 5U);
}

INSTANTIATE_TEST_SUITE_P(Parsers, NoMemoryConsumer, testing::ValuesIn(NoMemoryRows()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
