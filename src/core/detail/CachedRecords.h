#pragma once

/// @file
/// What the caches of details hold: a shared record, and beside it what may change or belongs to one fetch.

#include <cstdint>
#include <memory>

#include "core/detail/PackedRecord.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// A channel's record.
class CachedChannel {
public:
    CachedChannel() = default;
    CachedChannel(const DevChannelInfo& channel, SharedTexts& texts)
        : m_record(std::make_shared<const PackedRecord<DevChannelInfo>>(channel, texts)), m_trust(channel.iIsTrust) {}

    void CopyTo(DevChannelInfo& channel) const {
        m_record->CopyTo(channel);
        channel.iIsTrust = m_trust;
    }
    int32_t Trust() const { return m_trust; }
    void SetTrust(int32_t trust) { m_trust = trust; }

private:
    std::shared_ptr<const PackedRecord<DevChannelInfo>> m_record;
    int32_t m_trust = 0;
};

/// A device's record. The channels of a recorder, whose records are equal but for what belongs to each fetch, share
/// one.
class CachedDevice {
public:
    CachedDevice() = default;
    CachedDevice(const DevDetailInfo& detail, SharedTexts& texts);

    /// Takes over the record of another one that is equal.
    void ShareWith(const CachedDevice& other);

    void CopyTo(DevDetailInfo& detail) const;
    /// The members that are no long texts, without those of a fetch.
    const DevDetailInfo& Members() const { return m_record->WithoutLongTexts(); }
    void MarkForUpdate() { m_fetch.isUpdate = true; }

private:
    struct Fetch {
        int64_t cacheTime = 0;
        int32_t closeBelong = 0;
        int32_t requestCost = 0;
        bool isUpdate = false;
        bool isFromCache = true;
    };

    std::shared_ptr<const PackedRecord<DevDetailInfo>> m_record;
    Fetch m_fetch;
};

}  // namespace vantix
