#pragma once

#include <cstdint>
#include <future>
#include <string>

#include "core/detail/DetailRelation.h"
#include "core/renewal/Renewal.h"

namespace vantix {

class DetailCaches;
class Routes;
class Settings;

/// The detail of a channel: served from the caches, or fetched from the family that its route names and stored there.
/// Lines bear the core's tags.
class DeviceDetail {
public:
    /// The parts outlive this one, and this one outlives its tasks.
    DeviceDetail(const Settings& settings, DetailCaches& caches, const Routes& routes, Renewal& renewal)
        : m_settings(settings), m_caches(caches), m_routes(routes), m_renewal(renewal), m_relation(settings, caches) {}

    int getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                         std::future<int32_t>& future, bool retried);
    int getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                             DevDetailInfo& detail, bool retried);
    int getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                   DevDetailInfo& detail, bool retried);

private:
    /// One attempt: fetches, and stores the records.
    Outcome updateDevDetailInfo(const Attempt& attempt, DevChannelInfo& channelInfo, DevDetailInfo& detail);
    Outcome Fetch(const Subject& subject, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                  std::optional<BelongDevInfo>& parent) const;

    const Settings& m_settings;
    DetailCaches& m_caches;
    const Routes& m_routes;
    Renewal& m_renewal;
    DetailRelation m_relation;
};

}  // namespace vantix
