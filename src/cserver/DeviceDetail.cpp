#include "cserver/DeviceDetail.h"

#include "cserver/DeviceDetailReader.h"
#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "log/Logger.h"
#include "requests/DeviceBookkeeping.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

/// Copies the records of one channel out; false when the response has none.
bool Take(const std::vector<ConsumerChannel>& channels, int channelNo, DevChannelInfo& channel, DevDetailInfo& device) {
    for (const ConsumerChannel& candidate : channels) {
        if (candidate.channel.cameraNo == channelNo) {
            channel = candidate.channel;
            TakeOver(candidate.device, device);
            return true;
        }
    }
    return false;
}

}  // namespace

int GetDevDetailInfoFromCServerBySerial(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                        DevChannelInfo& channel, DevDetailInfo& device) {
    const CallSite site = VANTIX_HERE;
    const auto parse = [&](TextView body) -> int {
        std::vector<ConsumerChannel> channels;
        const int code = ParseDevDetailInfoFromCServer(body, deviceSerial, channels);
        if (code == VANTIX_NOERROR && !Take(channels, channelNo, channel, device)) {
            return LogMalformed(site, body);
        }
        return code;
    };
    const int result = RequestCall<cserver_requests::kDevDetailInfo>(site, route, "deviceSerial"_key = deviceSerial)
                           .CostInto(device.iRequestCost)
                           .Run(parse);
    MarkFetched(result, device);
    return result;
}

int ParseDevDetailInfoFromCServer(TextView body, const std::string& deviceSerial,
                                  std::vector<ConsumerChannel>& channels) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParseDevDetailInfoFromCServer = %s", body.c_str());
    return ReadResponse(site, body, OptionalMetaCode, [&](const JsonCppView& root) -> int {
        for (const char* required : {"cameraInfos", "deviceInfos"}) {
            if (!BesideOrInsideData(root, required).IsArray()) {
                return LogMalformed(site, body, required);
            }
        }
        const JsonCppView cameras = BesideOrInsideData(root, "cameraInfos");
        DevDetailInfo device;
        consumer::ReadDevice(root, deviceSerial, device);
        json::ReserveFor(cameras, channels);
        for (size_t i = 0; i < cameras.Size(); ++i) {
            ConsumerChannel entry;
            entry.device = device;
            if (consumer::ReadCamera(cameras.Element(i), deviceSerial, entry)) {
                channels.push_back(std::move(entry));
            }
        }
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
