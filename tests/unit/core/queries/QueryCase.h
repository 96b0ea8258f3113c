#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace vantix::test {

inline constexpr char kAccessToken[] = "access-token";
inline constexpr char kSession[] = "session-id";

/// One query as its callers see it. The calls are about camera C10000001, or about S60000006 where it is shared; the
/// defaults are those of a query about a channel.
struct QueryCase {
    const char* operation;
    const char* path;
    bool needsCredential = true;
    const char* credential = kAccessToken;  ///< What the request sends in the ordinary mode,
    const char* small = kAccessToken;       ///< in the mode of small permissions,
    const char* shared = kAccessToken;      ///< and for a shared camera in the B2C mode.
    const char* sharedPath = nullptr;       ///< When the request for a shared camera is another one.
    const char* ownDomain = "B";
    const char* sharedDomain = "C";

    /// The line about the domain, for the account's own camera and for a shared one; null when there is none.
    const char* domainTag = "CVantixDataCenter::getDomain";
    const char* ownLine = "Returning B domain";
    const char* sharedLine = "Returning C domain for shared device";

    int expired = 310002;  ///< What becomes of an expired token that is not renewed.
    bool isRenewed = true;
    bool takesRetried = false;      ///< The host says whether its call is a repeat.
    bool repeatsTransient = false;  ///< Asks once more after a transient failure.

    std::string Tag() const { return std::string("CVantixDataCenter::").append(operation); }
};

void PrintTo(const QueryCase& query, std::ostream* out);

/// All of them, in the order of their slots.
const std::vector<QueryCase>& QueryCases();

}  // namespace vantix::test
