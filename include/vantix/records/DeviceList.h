#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantix {

/// One channel of a device, as a device list shows it.
struct DeviceListItem {
    std::string deviceSerial;
    int32_t channelNo = 0;
    std::string name;  ///< The channel's name; the device's when the list names only devices.
    std::string deviceName;
    std::string deviceType;
    int32_t status = 0;     ///< 1 online.
    int32_t isEncrypt = 0;  ///< 1 when the stream is encrypted.
};

/// One page of a device list.
struct DeviceList {
    int32_t total = 0;  ///< Number of devices in the account, over all pages.
    std::vector<DeviceListItem> devices;
};

}  // namespace vantix
