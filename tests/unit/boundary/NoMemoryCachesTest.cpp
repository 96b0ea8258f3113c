// Memory that runs out in a read of a cache, or in a refill: what is cached stays whole.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/DetailResponse.h"
#include "support/FailingNew.h"
#include "support/OutputJson.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

constexpr char kServers[] = R"({"resultCode":"200","serverResp":{"stun1Addr":"a server's name, old, not short",
    "vtmBackups":[{"addr":"a media server's name, not short","port":8554}]}})";
constexpr char kUser[] = R"({"resultCode":"200","result":{"data":{"userId":"a user id that is no short text",
    "data":"a secret that is no short text","version":3,"saltIndex":4}}})";

std::string DeviceBody(const std::string& mark) {
    return R"({"resultCode":"200","result":{"data":{"serverInfos":[{"ip":"the first address )" + mark +
           R"(","port":6001},{"ip":"the second address )" + mark +
           R"(","port":6002}],"defaultKey":"the device's key )" + mark + R"(","defaultKeyVer":"2"}}})";
}

class NoMemoryCaches : public HandleTest {
protected:
    NoMemoryCaches() {
        TVLLOG_SetCallback(nullptr);
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("a token that is no short string");
    }

    static ScriptedResponse Respond(const SentRequest& request) {
        const FailingNew::Suspended suspended;
        const auto isTo = [&](const char* path) { return request.url.find(path) != std::string::npos; };
        if (isTo("/p2p/user/")) {
            return {0, kUser};
        }
        if (isTo("/p2p/dev/")) {
            return {0, DeviceBody("old")};
        }
        return {0, isTo("server/info") ? kServers : MarkedDetailResponse("C1", 1, "old").dump()};
    }
    static Arguments OfTheDevice() {
        Arguments arguments;
        arguments.serial = "C1";
        arguments.token = "a token that is no short string";
        return arguments;
    }
    int Read(const Operation& operation, Json& record) {
        const FailingNew::Suspended ownWork;
        return Read(operation, OfTheDevice(), record);
    }
    int Read(const Operation& operation, const Arguments& arguments, Json& record) {
        Outputs outputs;
        outputs.files.strDeviceRecordList = "null";  // as JSON it can be compared
        const int result = Call(*handle, operation, arguments, outputs).result;
        const FailingNew::Suspended suspended;
        record = ToJson(outputs);
        return result;
    }
};

struct CacheRead {
    const char* operation;
    const char* place;  ///< JSON pointer to a text of the record.
    const char* text;
};

TEST_F(NoMemoryCaches, ServeTheWholeRecordOrFailWhicheverAllocationFails) {
    constexpr CacheRead kReads[] = {
        {"getDevDetailInfo", "/detail/deviceSerial", "C1"},
        {"getDevDetailInfoSync", "/detail/deviceSerial", "C1"},
        {"getDevInfoCache", "/detail/deviceSerial", "C1"},
        {"getDeviceRecord", "/detail/deviceSerial", "C1"},
        {"getDeviceRecordAlt", "/detail/deviceSerial", "C1"},
        {"getServerInfoSync", "/servers/stun1Addr", "a server's name, old, not short"},
        {"getServerInfoAsync", "/servers/stun1Addr", "a server's name, old, not short"},
        {"getP2PUserInfoByToken", "/user/userId", "a user id that is no short text"},
        {"getP2PUserInfoAsync", "/user/userId", "a user id that is no short text"},
        {"getP2PUserInfoByDevice", "/user/userId", "a user id that is no short text"},
        {"getP2PDevInfoCached", "/p2pDevice/defaultKey", "the device's key old"},
        {"getP2PDevInfoBySerial", "/p2pDevice/defaultKey", "the device's key old"},
        {"getP2PDevInfoAsync", "/p2pDevice/defaultKey", "the device's key old"},
    };
    transport.Always(Respond);
    Json ignored;
    for (const char* fill :
         {"getDevDetailInfoSync", "getServerInfoSync", "getP2PUserInfoByToken", "getP2PDevInfoBySerial"}) {
        ASSERT_EQ(Read(OperationNamed(fill), ignored), 0) << fill;
    }
    const size_t requests = transport.Count();
    transport.Always([](const SentRequest&) { return ScriptedResponse{7, ""}; });
    for (const CacheRead& read : kReads) {
        SCOPED_TRACE(read.operation);
        const Operation& operation = OperationNamed(read.operation);
        const Arguments arguments = OfTheDevice();
        Json whole;
        ASSERT_EQ(Read(operation, whole), 0);
        ASSERT_EQ(whole.at(Json::json_pointer(read.place)), read.text);
        int result = 0;
        Json record;
        const size_t allocations = WithEveryAllocationFailing([&] { result = Read(operation, arguments, record); },
                                                              [&](size_t n) {
                                                                  SCOPED_TRACE(n);
                                                                  EXPECT_TRUE(result == 0 || result == -1) << result;
                                                                  EXPECT_TRUE(result != 0 || record == whole) << record;
                                                                  EXPECT_EQ(Read(operation, record), 0);
                                                                  EXPECT_EQ(record, whole) << "is still served whole";
                                                              });
        EXPECT_GT(allocations, 0U);
    }
    EXPECT_EQ(transport.Count(), requests) << "all of it came from the caches";
}

TEST_F(NoMemoryCaches, KeepTheDevicesOldRecordWhenARefillFails) {
    const Json oldServers =
        R"([{"ip":"the first address old","port":6001},{"ip":"the second address old","port":6002}])"_json;
    const Json newServers =
        R"([{"ip":"the first address which is new and longer","port":6001},
            {"ip":"the second address which is new and longer","port":6002}])"_json;
    Arguments forced = OfTheDevice();
    forced.force = true;
    const Operation& operation = OperationNamed("getP2PDevInfoCached");
    const auto refill = [&](const char* mark) {
        {
            const FailingNew::Suspended suspended;
            transport.DropScript();
            transport.Respond(DeviceBody(mark));
        }
        Outputs outputs;
        return Call(*handle, operation, forced, outputs).result;
    };
    int result = 0;
    std::set<size_t> wrong;  // by number of the allocation that failed
    size_t stayed = 0;
    WithEveryAllocationFailing(
        [&] {
            {
                const FailingNew::Suspended suspended;
                EXPECT_EQ(refill("old"), 0);
            }
            result = refill("which is new and longer");
        },
        [&](size_t n) {
            Json record;
            EXPECT_EQ(Read(operation, record), 0);
            if (record["p2pServers"] != (result == 0 ? newServers : oldServers)) {
                wrong.insert(n);
            }
            stayed += result != 0 ? 1U : 0U;
            EXPECT_EQ(refill("which is new and longer"), 0) << "the next good call succeeds, after " << n;
        });
    EXPECT_EQ(wrong, std::set<size_t>());
    EXPECT_GT(stayed, 10U);
}

}  // namespace
}  // namespace vantix::test
