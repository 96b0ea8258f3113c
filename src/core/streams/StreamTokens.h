#pragma once

#include <deque>
#include <string>

#include "base/Guarded.h"
#include "core/renewal/Renewal.h"

namespace vantix {

class Settings;

/// Tokens that open streams, fetched in batches and queued. Lines bear the core's tags.
class StreamTokens {
public:
    /// The parts outlive this one.
    StreamTokens(Settings& settings, const Routes& routes, Renewal& renewal)
        : m_settings(settings), m_routes(routes), m_renewal(renewal) {}

    /// A batch as the server sends it. `token` chooses the server family and is sent to the platform. After success it
    /// is the access token that the batch was fetched with: the renewed one, if there was a renewal.
    int FetchBatch(const CallSite& site, std::string& token, int count, std::string& response, bool retried);
    int getStreamTokens(const std::string& token, int count, std::string& response, bool retried);
    int getOneStreamToken(const std::string& accessToken, std::string& token);

private:
    /// Takes a queued token of this access token. Another access token empties the queue.
    bool TakeQueued(const std::string& accessToken, std::string& token);

    Settings& m_settings;
    const Routes& m_routes;
    Renewal& m_renewal;
    Guarded<std::deque<std::string>> m_queue;  ///< Of the current access token.
};

}  // namespace vantix
