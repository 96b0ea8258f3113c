#include "platform/DeviceDetail.h"

#include "platform/DeviceDetailParser.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/DeviceBookkeeping.h"
#include "requests/RequestCall.h"

namespace vantix {

namespace requests = platform_requests;

int GetDevDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                         DevChannelInfo& channel, DevDetailInfo& device,
                                         std::optional<BelongDevInfo>& parent) {
    RequestCall<requests::kDevDetailInfo> call(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                               "cameraNo"_key = cameraNo);
    const int result = call.CostInto(device.iRequestCost).Run([&](TextView body) {
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    });
    MarkFetched(result, device);
    return result;
}

int GetDeviceDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                            const std::string& bizType, const std::string& platFormId,
                                            DevChannelInfo& channel, DevDetailInfo& device) {
    std::optional<BelongDevInfo> parent;
    RequestCall<requests::kDeviceDetailInfo> call(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                                  "cameraNo"_key = cameraNo, "bizType"_key = bizType,
                                                  "platFormId"_key = platFormId);
    const int result = call.CostInto(device.iRequestCost).Run([&](TextView body) {
        return ParseDeviceDetailInfoFromPlatform(body, channel, device, parent);
    });
    MarkFetched(result, device);
    return result;
}

int GetDeviceInfoBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, std::string& json) {
    return RequestCall<requests::kDeviceInfo>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

}  // namespace vantix
