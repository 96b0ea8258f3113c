#pragma once

#include <cstdint>
#include <future>
#include <string>

#include "core/fetch/SingleRecordFetch.h"
#include "vantix/records/ServerInfo.h"

namespace vantix {

/// The media servers of the user's area, cached as one record. Lines bear the core's tags.
class ServerInformation {
public:
    /// The parts outlive this one, and this one outlives its tasks.
    ServerInformation(const Routes& routes, Renewal& renewal);

    int getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future, bool retried);
    int getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried);

    /// Stop serving the record; the second only when it was fetched more than 120 seconds ago.
    void Invalidate() { m_record.Invalidate(); }
    void expireServerInfo();

private:
    SingleRecordFetch<ServerInfo> m_record;
};

}  // namespace vantix
