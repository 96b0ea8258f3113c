#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/Responses.h"

namespace vantix::fuzz {

/// What servers have sent so far: whatever comes from a cache must be in it.
class Book {
public:
    void Note(const SentRequest& request, const std::string& stamp, const MadeResponse& response);

    /// Whether this stamp was sent in a record of this kind ("detail", "servers", "user", "P2P") about this device.
    bool HasSent(std::string_view kind, const std::string& serial, const std::string& stamp) const;
    /// Strikes a stream token out; false when it was not sent, or is struck out already.
    bool TakeToken(const std::string& token);
    /// The same for a whole response with stream tokens.
    bool TakeTokenResponse(const std::string& body);
    /// Whether a server may have sent credentials of its own making.
    bool AreCredentialsUnknown() const { return m_unknown.contains("credentials"); }

private:
    std::set<std::string> m_sent;                  ///< "kind/serial/stamp".
    std::set<std::string, std::less<>> m_unknown;  ///< Kinds of which anything may have been sent.
    std::multiset<std::string> m_tokens;
    std::multiset<std::string> m_tokenResponses;
};

}  // namespace vantix::fuzz
