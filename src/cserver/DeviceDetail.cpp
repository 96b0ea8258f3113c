#include "cserver/DeviceDetail.h"

#include "base/Clock.h"
#include "cserver/ConsumerEnvelope.h"
#include "cserver/DeviceDetailReader.h"
#include "cserver/RequestTable.h"
#include "log/Logger.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

/// Hands out the pair of one channel; false when the page has none.
bool Take(const std::vector<ConsumerChannel>& channels, int channelNo, DevChannelInfo& channel, DevDetailInfo& device) {
    for (const ConsumerChannel& candidate : channels) {
        if (candidate.channel.cameraNo == channelNo) {
            const int32_t closeBlong = device.iCloseBlong;
            const int32_t cost = device.iRequestCost;
            channel = candidate.channel;
            device = candidate.device;
            device.iCloseBlong = closeBlong;
            device.iRequestCost = cost;
            return true;
        }
    }
    return false;
}

}  // namespace

int GetDevDetailInfoFromCServerBySerial(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                        DevChannelInfo& channel, DevDetailInfo& device) {
    const CallSite site = VANTIX_HERE;
    const auto parse = [&](const std::string& body) -> int {
        std::vector<ConsumerChannel> channels;
        const int code = ParseDevDetailInfoFromCServer(body, deviceSerial, channels);
        if (code == VANTIX_NOERROR && !Take(channels, channelNo, channel, device)) {
            return json::Malformed(site, body);
        }
        return code;
    };
    RequestCall call(site, cserver_requests::kDevDetailInfo, route);
    const int result = call.With(deviceSerial).CostInto(device.iRequestCost).Run(parse);
    if (result == VANTIX_NOERROR) {
        device.tCacheTime = WallSeconds();
        device.isUpdate = false;
        device.isFromCache = false;
    }
    return result;
}

int ParseDevDetailInfoFromCServer(const std::string& body, const std::string& deviceSerial,
                                  std::vector<ConsumerChannel>& channels) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParseDevDetailInfoFromCServer = %s", body.c_str());
    return json::ReadAnswer(site, body, consumer::Code, [&](const JsonCppView& root) -> int {
        for (const char* required : {"cameraInfos", "deviceInfos"}) {
            if (!consumer::Find(root, required).IsArray()) {
                return json::Malformed(site, body, required);
            }
        }
        const JsonCppView cameras = consumer::Find(root, "cameraInfos");
        DevDetailInfo device;
        consumer::ReadDevice(root, deviceSerial, device);
        for (size_t i = 0; i < cameras.Size(); ++i) {
            ConsumerChannel entry{{}, device, {}};
            if (consumer::ReadCamera(cameras.Element(i), deviceSerial, entry)) {
                channels.push_back(std::move(entry));
            }
        }
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
