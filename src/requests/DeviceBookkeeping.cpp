#include "requests/DeviceBookkeeping.h"

#include <utility>

#include "base/Clock.h"

namespace vantix {

void TakeOver(DevDetailInfo fresh, DevDetailInfo& device) {
    fresh.iCloseBlong = device.iCloseBlong;
    fresh.iRequestCost = device.iRequestCost;
    fresh.tCacheTime = device.tCacheTime;
    fresh.isUpdate = device.isUpdate;
    fresh.isFromCache = device.isFromCache;
    device = std::move(fresh);
}

void MarkFetched(int result, DevDetailInfo& device) {
    if (result == 0) {
        device.tCacheTime = WallSeconds();
        device.isUpdate = false;
        device.isFromCache = false;
    }
}

}  // namespace vantix
