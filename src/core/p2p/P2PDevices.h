#pragma once

#include <cstdint>
#include <future>
#include <map>
#include <string>
#include <vector>

#include "base/GuardedMap.h"
#include "core/renewal/Renewal.h"
#include "vantix/records/P2PDevInfo.h"

namespace vantix {

/// What a player needs to reach a device by P2P, cached by serial. Lines bear the core's tags.
class P2PDevices {
public:
    /// The parts outlive this one, and this one outlives its tasks.
    P2PDevices(const Routes& routes, Renewal& renewal) : m_routes(routes), m_renewal(renewal) {}

    int getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                      std::future<int32_t>& future);
    int getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo, bool retried);
    int getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                            bool forceFetch);
    int isP2PV3download(const std::string& serial, int ch);

    /// Copies a cached record out, as one that took no request: 0, or -1 when there is none.
    int getP2PDevInfoFromLocal(const std::string& serial, P2PDevInfo& devInfo) const;
    /// Stores a record under its serial.
    void Store(const P2PDevInfo& devInfo);
    void Clear() { m_mapP2PDevInfo.Clear(); }

private:
    /// Serves a cached record that is not marked for an update; `result` is always that of the read.
    bool Serve(const std::string& serial, P2PDevInfo& devInfo, int& result) const;
    /// Fetches a record. A failure of the platform's request leaves its milliseconds in `costOfFailure`.
    int fetchP2PDevInfo(const CallSite& site, const RouteRow& row, const Subject& subject, P2PDevInfo& fresh,
                        int32_t& costOfFailure, bool retried, Decision* first);
    /// Fetches a record and stores it. The first attempt uses the decision `first`, if there is one.
    int updateP2PDevInfo(const CallSite& site, const RouteRow& row, const Subject& subject, P2PDevInfo& devInfo,
                         bool retried, Decision* first = nullptr);

    const Routes& m_routes;
    Renewal& m_renewal;
    GuardedMap<std::map<std::string, P2PDevInfo>> m_mapP2PDevInfo;  ///< By serial.
};

}  // namespace vantix
