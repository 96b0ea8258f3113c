// A serial that makes no key: every operation on the caches says so, once each time it forms one.

#include <functional>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class BadSerial : public FetchTest {
protected:
    /// The lines about this serial and channel 7 that `step` writes.
    template <class Step>
    size_t LinesOf(const std::string& serial, Step step) {
        lines.Clear();
        step();
        return lines.Count("设备序列号参数错误, Serial:" + serial + " Channel:7");
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

TEST_F(BadSerial, IsLoggedByEveryOperationThatFormsTheKey) {
    struct Row {
        const char* name;
        std::function<void(const std::string&)> call;
    };
    const Row rows[] = {
        {"getDevInfoCache", [&](const std::string& s) { core.getDevInfoCache(s, 7, channel, device); }},
        {"getDeviceRecord", [&](const std::string& s) { core.getDeviceRecord(s, 7, device); }},
        {"SetDevInfoCache", [&](const std::string& s) { core.SetDevInfoCache(s, 7); }},
        {"getChannelCacheValue", [&](const std::string& s) { core.getChannelCacheValue(s, 7); }},
        {"setChannelCacheValue", [&](const std::string& s) { core.setChannelCacheValue(s, 7, 1); }},
        {"getDevDetailInfoSync",
         [&](const std::string& s) { core.getDevDetailInfoSync(s, 7, false, channel, device, true); }},
        {"getDevDetailInfoByRelation",
         [&](const std::string& s) { core.getDevDetailInfoByRelation(s, 7, channel, device, true); }},
        {"getDevDetailInfo",
         [&](const std::string& s) {
             std::future<int32_t> future;
             core.getDevDetailInfo(s, 7, channel, device, future, true);
             future.get();
         }},
    };
    for (const std::string& serial : {std::string(), std::string(129, 's')}) {
        for (const Row& row : rows) {
            EXPECT_EQ(LinesOf(serial, [&] { row.call(serial); }), 1U) << row.name << ", " << serial.size();
        }
    }
}

TEST_F(BadSerial, OfACachedDeviceIsLoggedOnceByAHitWhichThusFormsOneKey) {
    const std::string serial(129, 's');
    Cache(serial, 7, DetailResponse(serial, 7));
    std::future<int32_t> future;
    EXPECT_EQ(LinesOf(serial, [&] { EXPECT_EQ(core.getDevInfoCache(serial, 7, channel, device), 0); }), 1U);
    EXPECT_EQ(
        LinesOf(serial, [&] { EXPECT_EQ(core.getDevDetailInfoSync(serial, 7, false, channel, device, false), 0); }),
        1U);
    EXPECT_EQ(LinesOf(serial, [&] { EXPECT_EQ(core.getDevDetailInfo(serial, 7, channel, device, future, false), 0); }),
              1U);
    EXPECT_FALSE(future.valid());
    EXPECT_EQ(transport.Count(), 1U) << "the fetch that filled the caches";
}

}  // namespace
}  // namespace vantix::test
