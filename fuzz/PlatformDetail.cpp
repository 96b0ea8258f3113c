// The two parsers of the platform's device details.

#include <optional>

#include "platform/DeviceDetailParser.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

template <auto Parse>
void ReadDetail(const std::string& body) {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    channel.deviceSerial = device.deviceSerial = kUnchanged;
    device.iCloseBlong = 1;
    const int result = Parse(body, channel, device, parent);
    Require(device.iCloseBlong == 1);  // the host's own member
    Require(result == 0 || (channel.deviceSerial == kUnchanged && device.deviceSerial == kUnchanged && !parent));
}

constexpr Reader kRows[] = {
    {"detail", ReadDetail<ParseDevDetailInfoFromPlatform>},
    {"detail in the B2C mode", InB2CMode<ReadDetail<ParseDevDetailInfoFromPlatform>>},
    {"detail of another platform", ReadDetail<ParseDeviceDetailInfoFromPlatform>},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
