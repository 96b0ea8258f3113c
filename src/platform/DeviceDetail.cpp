#include "platform/DeviceDetail.h"

#include "base/Clock.h"
#include "platform/DeviceDetailParser.h"
#include "transport/EndpointTable.h"

namespace vantix {
namespace {

constexpr RequestRow kDevDetailInfo{
    .way = Way::Form,
    .endpoint = endpoint::kDeviceDetail,
    .carried = carries::kAccessToken | carries::kClientSet | carries::kAppKey,
    .fixed = {{"version", "4.0"}, {"isNewVersion", "true"}},
    .transportFailure = "SyncRequest error:%d",
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/api/device/detail CostTime: = %ld milliseconds",
};

/// Notes that the record was just fetched.
void Stamp(DevDetailInfo& device) {
    device.tCacheTime = WallSeconds();
    device.isUpdate = false;
    device.isFromCache = false;
}

}  // namespace

int GetDevDetailInfoFromPlatformBySerial(const PlatformAccount& account, const std::string& deviceSerial, int cameraNo,
                                         DevChannelInfo& channel, DevDetailInfo& device,
                                         std::optional<BelongDevInfo>& parent) {
    PlatformCall call(VANTIX_HERE, kDevDetailInfo, account);
    call.Param("deviceSerial", deviceSerial).Param("cameraNo", cameraNo).CostInto(device.iRequestCost);
    const int result = call.Run(
        [&](const std::string& body) { return ParseDevDetailInfoFromPlatform(body, channel, device, parent); });
    if (result == 0) {
        Stamp(device);
    }
    return result;
}

}  // namespace vantix
