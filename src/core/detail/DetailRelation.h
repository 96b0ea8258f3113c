#pragma once

#include <string>

#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

class DetailCaches;
class Settings;

/// Devices that are reached through a parent device.
class DetailRelation {
public:
    /// The parts outlive this one.
    DetailRelation(const Settings& settings, const DetailCaches& caches) : m_settings(settings), m_caches(caches) {}

    /// Reads a device from the caches: as its parent, when `detail` says on entry that it has one and the parent is
    /// online, else as itself. Returns 0, or -1 when something is not cached or of a release that is not served.
    int getDevDetailInfoFromLocalByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail) const;

private:
    /// Whether a record's relation to a parent is in force.
    bool IsRelated(const DevDetailInfo& detail) const;

    const Settings& m_settings;
    const DetailCaches& m_caches;
};

}  // namespace vantix
