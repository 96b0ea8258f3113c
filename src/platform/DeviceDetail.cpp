#include "platform/DeviceDetail.h"

#include "base/Clock.h"
#include "platform/DeviceDetailParser.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"

namespace vantix {
namespace {

/// Notes that the record was just fetched.
int Stamped(int result, DevDetailInfo& device) {
    if (result == 0) {
        device.tCacheTime = WallSeconds();
        device.isUpdate = false;
        device.isFromCache = false;
    }
    return result;
}

}  // namespace

int GetDevDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                         DevChannelInfo& channel, DevDetailInfo& device,
                                         std::optional<BelongDevInfo>& parent) {
    RequestCall call(VANTIX_HERE, platform_requests::kDevDetailInfo, route);
    call.With(deviceSerial, cameraNo).CostInto(device.iRequestCost);
    return Stamped(call.Run([&](const std::string& body) {
        return ParseDevDetailInfoFromPlatform(body, channel, device, parent);
    }),
                   device);
}

int GetDeviceDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                            const std::string& bizType, const std::string& platFormId,
                                            DevChannelInfo& channel, DevDetailInfo& device) {
    std::optional<BelongDevInfo> parent;
    RequestCall call(VANTIX_HERE, platform_requests::kDeviceDetailInfo, route);
    call.With(deviceSerial, cameraNo, bizType, platFormId).CostInto(device.iRequestCost);
    return Stamped(call.Run([&](const std::string& body) {
        return ParseDeviceDetailInfoFromPlatform(body, channel, device, parent);
    }),
                   device);
}

int GetDeviceInfoBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, std::string& json) {
    RequestCall call(VANTIX_HERE, platform_requests::kDeviceInfo, route);
    return call.With(deviceSerial).Run(Keeping(CheckResponseInfoFromPlatform, json));
}

}  // namespace vantix
