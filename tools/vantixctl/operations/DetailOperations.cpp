#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>

#include "operations/Arguments.h"
#include "operations/Operations.h"
#include "operations/Outcomes.h"

namespace vantix::ctl {
namespace {

constexpr std::string_view kSecret = "encryptPwd";

/// `int call(DevChannelInfo&, DevDetailInfo&)`: both records of a channel.
template <class Function>
Outcome Pair(const Function& call) {
    DevChannelInfo channel;
    DevDetailInfo device;
    const int code = call(channel, device);
    Outcome outcome = outcomes::WithValue(code, {{"channel", ToJson(channel)}, {"device", ToJson(device)}});
    outcome.isDetail = code == VANTIX_NOERROR;
    return outcome;
}

Outcome AwaitedPair(const Call& call) {
    return Pair([&](DevChannelInfo& channel, DevDetailInfo& device) {
        std::future<int32_t> future;
        const int code = call.center.getDevDetailInfo(call.Serial(), call.Channel(), channel, device, future);
        return future.valid() ? future.get() : code;
    });
}

constexpr std::array kDetailOperations = {
    Command{"getDevDetailInfo",
            4,
            {kSerial, kChannel},
            "a channel's detail, from the cache while it is fresh",
            &AwaitedPair,
            nullptr,
            kSecret},
    Command{"getDevDetailInfoSync",
            5,
            {kSerial, kChannel, {"force", "0"}},
            "a channel's detail, also from an expired cache entry",
            [](const Call& call) {
                return Pair([&](DevChannelInfo& channel, DevDetailInfo& device) {
                    return call.center.getDevDetailInfoSync(call.Serial(), call.Channel(), call.Flag("force"), channel,
                                                            device);
                });
            },
            nullptr,
            kSecret},
    Command{"getDeviceDetailInfo",
            6,
            {kSerial, kChannel, {"biz-type", ""}, {"platform-id", ""}},
            "the detail of a device of another business platform",
            [](const Call& call) {
                return Pair([&](DevChannelInfo& channel, DevDetailInfo& device) {
                    return call.center.getDeviceDetailInfo(call.Serial(), call.Channel(), call.Text("biz-type"),
                                                           call.Text("platform-id"), channel, device);
                });
            },
            nullptr,
            kSecret},
    Command{"isP2PV3download",
            7,
            {kSerial, kChannel},
            "whether the device downloads over the third P2P version",
            [](const Call& call) {
                return outcomes::YesNo([&] { return call.center.isP2PV3download(call.Serial(), call.Channel()); });
            }},
    Command{"getDevDetailInfoByRelation",
            8,
            {kSerial, kChannel},
            "a channel's detail, resolved through its parent",
            [](const Call& call) {
                return Pair([&](DevChannelInfo& channel, DevDetailInfo& device) {
                    return call.center.getDevDetailInfoByRelation(call.Serial(), call.Channel(), channel, device);
                });
            },
            nullptr,
            kSecret},
    Command{"getChannelCacheValue",
            30,
            {kSerial, kChannel},
            "the cached channel's trust value",
            [](const Call& call) {
                return outcomes::Number(
                    [&] { return call.center.getChannelCacheValue(call.Serial(), call.Channel()); });
            }},
    Command{"setChannelCacheValue",
            31,
            {kSerial, {"value"}, kChannel},
            "overwrites the cached channel's trust value",
            [](const Call& call) {
                return outcomes::Done(
                    [&] { call.center.setChannelCacheValue(call.Serial(), call.Channel(), call.Number("value")); });
            }},
    Command{"ClearAllCache",
            50,
            {},
            "empties every cache",
            [](const Call& call) { return outcomes::Code([&] { return call.center.ClearAllCache(); }); }},
    Command{"ClearDeviceInfoCache",
            52,
            {},
            "empties the device cache by channel",
            [](const Call& call) { return outcomes::Code([&] { return call.center.ClearDeviceInfoCache(); }); }},
    Command{"IsSupportSeekPlayback",
            53,
            {kSerial},
            "whether the cached device can seek in a playback",
            [](const Call& call) {
                return outcomes::YesNo([&] { return call.center.IsSupportSeekPlayback(call.Serial()); });
            }},
    Command{"IsSupportPlaybackSpeed",
            54,
            {kSerial, {"speed"}},
            "whether the cached device plays back at a speed",
            [](const Call& call) {
                return outcomes::YesNo(
                    [&] { return call.center.IsSupportPlaybackSpeed(call.Serial(), call.Number("speed")); });
            }},
    Command{"getDeviceRecord",
            55,
            {kSerial, kChannel},
            "the cached device record",
            [](const Call& call) {
                return outcomes::Filled<DevDetailInfo>([&](DevDetailInfo& record) {
                    return call.center.getDeviceRecord(call.Serial(), call.Channel(), record);
                });
            },
            nullptr,
            kSecret},
    Command{"getDeviceRecordAlt",
            56,
            {kSerial, kChannel},
            "the cached device record, as getDeviceRecord",
            [](const Call& call) {
                return outcomes::Filled<DevDetailInfo>([&](DevDetailInfo& record) {
                    return call.center.getDeviceRecordAlt(call.Serial(), call.Channel(), record);
                });
            },
            nullptr,
            kSecret},
    Command{"SetDevInfoCache",
            67,
            {kSerial, kChannel},
            "marks a cached device to be fetched again",
            [](const Call& call) {
                return outcomes::Code([&] { return call.center.SetDevInfoCache(call.Serial(), call.Channel()); });
            }},
    Command{"getDevInfoCache",
            68,
            {kSerial, kChannel},
            "the cached records of a channel",
            [](const Call& call) {
                return Pair([&](DevChannelInfo& channel, DevDetailInfo& device) {
                    return call.center.getDevInfoCache(call.Serial(), call.Channel(), channel, device);
                });
            },
            nullptr,
            kSecret},
};

}  // namespace

std::span<const Command> DetailOperations() { return kDetailOperations; }

}  // namespace vantix::ctl
