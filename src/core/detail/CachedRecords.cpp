#include "core/detail/CachedRecords.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantix {
namespace {

/// The record without what belongs to its fetch.
DevDetailInfo WithoutFetch(DevDetailInfo detail) {
    const DevDetailInfo fresh;
    detail.iCloseBlong = fresh.iCloseBlong;
    detail.iRequestCost = fresh.iRequestCost;
    detail.tCacheTime = fresh.tCacheTime;
    detail.isUpdate = fresh.isUpdate;
    detail.isFromCache = fresh.isFromCache;
    return detail;
}

bool IsSameAddress(const VtmAddr& one, const VtmAddr& other) {
    return one.strVtmAddr == other.strVtmAddr && one.iVtmPort == other.iVtmPort;
}

bool AreEqual(const PackedRecord<DevDetailInfo>& one, const PackedRecord<DevDetailInfo>& other) {
    const DevDetailInfo& a = one.WithoutLongTexts();
    const DevDetailInfo& b = other.WithoutLongTexts();
    const auto isSame = [&](const auto member) { return a.*member == b.*member; };
    return std::all_of(std::begin(kDeviceNumbers), std::end(kDeviceNumbers), isSame) &&
           std::all_of(std::begin(TextsOf<DevDetailInfo>::kAll), std::end(TextsOf<DevDetailInfo>::kAll), isSame) &&
           std::equal(a.vtmBackups.begin(), a.vtmBackups.end(), b.vtmBackups.begin(), b.vtmBackups.end(),
                      IsSameAddress) &&
           one.HasLongTextsOf(other);
}

}  // namespace

CachedDevice::CachedDevice(const DevDetailInfo& detail, SharedTexts& texts)
    : m_record(std::make_shared<const PackedRecord<DevDetailInfo>>(WithoutFetch(detail), texts)),
      m_fetch{.cacheTime = detail.tCacheTime,
              .closeBelong = detail.iCloseBlong,
              .requestCost = detail.iRequestCost,
              .isUpdate = detail.isUpdate,
              .isFromCache = detail.isFromCache} {}

void CachedDevice::ShareWith(const CachedDevice& other) {
    if (AreEqual(*m_record, *other.m_record)) {
        m_record = other.m_record;
    }
}

void CachedDevice::CopyTo(DevDetailInfo& detail) const {
    m_record->CopyTo(detail);
    detail.tCacheTime = m_fetch.cacheTime;
    detail.iCloseBlong = m_fetch.closeBelong;
    detail.iRequestCost = m_fetch.requestCost;
    detail.isUpdate = m_fetch.isUpdate;
    detail.isFromCache = m_fetch.isFromCache;
}

}  // namespace vantix
