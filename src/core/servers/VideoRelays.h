#pragma once

#include <string>

#include "core/renewal/Renewal.h"

namespace vantix {

/// The video relays of a device, which are not cached. Lines bear the core's tags.
class VideoRelays {
public:
    /// The parts outlive this one.
    VideoRelays(const Routes& routes, Renewal& renewal) : m_routes(routes), m_renewal(renewal) {}

    int getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried);
    /// The same with the token given.
    int getServerInfoEx(const std::string& token, std::string& json, const std::string& serial, int ch, bool retried);

private:
    int Fetch(const CallSite& site, const RouteRow& row, const Subject& subject, std::string& json, bool retried);

    const Routes& m_routes;
    Renewal& m_renewal;
};

}  // namespace vantix
