// Every slot that sends a request: the request that it causes, and what the response leaves in the host's outputs.

#include <algorithm>
#include <set>

#include "support/DetailResponse.h"
#include "support/OutputJson.h"
#include "support/RequestCase.h"
#include "unit/boundary/EffectTest.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class RequestEffects : public HandleTest {
protected:
    RequestEffects() {
        clock.SetSteadyStep(3'000'000);
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAuthAddr("https://b.example");
        handle->setAccessToken("access-token");
    }
    ~RequestEffects() override {
        std::string none;
        handle->getOneStreamToken("nobody", none);  // empties the queue of stream tokens
    }
    RequestEffects(const RequestEffects&) = delete;
    RequestEffects& operator=(const RequestEffects&) = delete;

    /// The request number `index`: its address, and its parameters where they stand.
    std::string Sent(size_t index) const {
        const std::vector<SentRequest> sent = transport.Sent();
        return index < sent.size() ? sent[index].url + " " + sent[index].body : "<not sent>";
    }
};

std::vector<RequestCase> Rows() {
    std::vector<RequestCase> rows = PlatformRequests();
    for (RequestCase& row : ConsumerRequests()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

TEST_F(RequestEffects, RequestIsSentAndItsResponseReachesTheHost) {
    for (const RequestCase& row : Rows()) {
        SCOPED_TRACE(row.name);
        PrepareFor(row, *handle);
        for (const Exchange& exchange : row.before) {
            transport.Respond(exchange.response);
        }
        transport.Respond(row.response);
        for (const Exchange& exchange : row.after) {
            transport.Respond(exchange.response);
        }
        const size_t before = transport.Count();
        Outputs outputs = Prefilled();
        const Json unchanged = ToJson(outputs);
        EXPECT_EQ(Call(*handle, row.operation, row.arguments, outputs).result, 0);
        EXPECT_EQ(Changes(unchanged, ToJson(outputs)), row.fills);
        const std::string domain = row.domain == "B" ? "https://b.example" : "https://c.example";
        const std::string query = row.body.empty() ? "?" + row.query : "";
        EXPECT_EQ(Sent(before + row.before.size()),
                  domain + row.path + WithFeatureCode(query) + " " + WithFeatureCode(row.body));
        EXPECT_EQ(transport.Count(), before + row.before.size() + 1 + row.after.size());
    }
}

// ---- Those whose requests stand above under another slot's name

constexpr char kServers[] = R"({"resultCode":"200","serverResp":{"stun1Addr":"stun.example",
    "vtmBackups":[{"addr":"vtm.example","port":8554}]}})";
constexpr char kUser[] = R"({"resultCode":"200","result":{"data":{"userId":"user-1","data":"hush"}}})";
constexpr char kDevice[] = R"({"resultCode":"200","result":{"data":{"serverInfos":[{"ip":"10.0.0.1","port":6001}],
    "defaultKey":"key-1","qxDeviceCapability":"{\"V3Download\":\"1\"}"}}})";
constexpr char kDetail[] = R"({"result":{"code":"200","data":{
    "camera":{"deviceSerial":"C10000001","cameraNo":1,"cameraId":"camera-1"},
    "device":{"deviceSerial":"C10000001","releaseVersion":"VERSION_17","deviceIP":"10.0.0.2"}}}})";

struct Effect {
    const char* operation = nullptr;
    const char* response = nullptr;
    const char* path = nullptr;
    std::string (*seen)(const Outputs& outputs) = nullptr;
    const char* expected = nullptr;
    int result = 0;  ///< The future's, where there is one.
    bool started = false;
    int returned = 0;  ///< Where there is a future.
};

std::string DetailOf(const Outputs& outputs) { return outputs.channel.cameraId + " " + outputs.detail.deviceIP; }
std::string ServersOf(const Outputs& outputs) { return outputs.servers.stun1Addr; }
std::string TextOfOutputs(const Outputs& outputs) { return outputs.text; }
std::string UserOf(const Outputs& outputs) { return outputs.user.userId; }
std::string DeviceOf(const Outputs& outputs) { return outputs.p2pDevice.defaultKey; }

constexpr char kServerPath[] = "https://b.example/api/service/media/server/info";
constexpr char kUserPath[] = "https://b.example/api/sdk/p2p/user/info/get";
constexpr char kDevicePath[] = "https://b.example/api/sdk/p2p/dev/info/get";
constexpr char kDetailPath[] = "https://b.example/api/device/detail";

const Effect kEffects[] = {
    {"getDevDetailInfo", kDetail, kDetailPath, DetailOf, "camera-1 10.0.0.2", 0, true, -1},
    {"getDevDetailInfoByRelation", kDetail, kDetailPath, DetailOf, "camera-1 10.0.0.2"},
    {"getServerInfoAsync", kServers, kServerPath, ServersOf, "stun.example", 0, true},
    {"getServerInfoEx", kServers, kServerPath, TextOfOutputs, R"({"vtmBackups":[{"addr":"vtm.example","port":8554}]})"},
    {"getP2PUserInfoAsync", kUser, kUserPath, UserOf, "user-1", 0, true},
    {"getP2PUserInfoByDevice", kUser, kUserPath, UserOf, "user-1"},
    {"getP2PDevInfoAsync", kDevice, kDevicePath, DeviceOf, "key-1", 0, true, -1},
    {"getP2PDevInfoCached", kDevice, kDevicePath,
     [](const Outputs& outputs) { return outputs.p2pDevice.defaultKey + " " + outputs.p2pServers.at(0).ip; },
     "key-1 10.0.0.1"},
    {"getP2PDevInfoByChannel", kDevice, kDevicePath, DeviceOf, "key-1"},
    {"isP2PV3download", kDevice, kDevicePath, TextOfOutputs, "before", 1},
};

TEST_F(RequestEffects, FetchIsSentOnceAndItsRecordReachesTheHost) {
    for (const Effect& row : kEffects) {
        SCOPED_TRACE(row.operation);
        handle->ClearAllCache();
        transport.Respond(row.response);
        const size_t before = transport.Count();
        Outputs outputs = Prefilled();
        const CallResult call = Call(*handle, row.operation, {.token = "access-token"}, outputs);
        EXPECT_EQ(call.result, row.result);
        EXPECT_EQ(call.started, row.started);
        EXPECT_EQ(call.returned, row.started ? row.returned : row.result);
        EXPECT_EQ(row.seen(outputs), row.expected);
        EXPECT_EQ(transport.Count(), before + 1);
        EXPECT_EQ(Sent(before).rfind(row.path, 0), 0U) << Sent(before);
    }
}

TEST_F(RequestEffects, RecordThatIsCachedIsServedByTheAsynchronousSlotsAtOnce) {
    const Arguments arguments = {.token = "access-token"};
    for (const Effect& row : kEffects) {
        if (!row.started) {
            continue;
        }
        SCOPED_TRACE(row.operation);
        transport.Respond(row.response);
        Outputs first;
        Call(*handle, row.operation, arguments, first);
        const size_t before = transport.Count();
        Outputs outputs;
        const CallResult call = Call(*handle, row.operation, arguments, outputs);
        EXPECT_EQ(call.returned, 0);
        EXPECT_FALSE(call.started);
        EXPECT_EQ(row.seen(outputs), row.expected);
        EXPECT_EQ(transport.Count(), before);
    }
}

TEST_F(RequestEffects, ForcedFetchDoesNotLookAtTheCacheAndAnotherDoes) {
    for (const auto& [operation, response] :
         {std::pair("getDevDetailInfoSync", kDetail), {"getP2PDevInfoCached", kDevice}}) {
        SCOPED_TRACE(operation);
        size_t expected = transport.Count();
        for (const auto& [force, requests] : {std::pair(false, 1U), {false, 0U}, {true, 1U}}) {
            transport.Respond(response, static_cast<int>(requests));
            EXPECT_EQ(Call(*handle, operation, {.token = "access-token", .force = force}), 0);
            expected += requests;
            EXPECT_EQ(transport.Count(), expected) << force;
        }
    }
}

TEST(Effects, OfAll108OperationsAreAskedFor) {
    std::set<std::string> asked = OperationsWithEffect();
    for (const RequestCase& row : Rows()) {
        asked.insert(row.operation);
    }
    for (const Effect& row : kEffects) {
        asked.insert(row.operation);
    }
    EXPECT_EQ(Operations().size(), 108U);
    for (const Operation& operation : Operations()) {
        EXPECT_TRUE(asked.contains(operation.name)) << operation.name;
    }
}

}  // namespace
}  // namespace vantix::test
