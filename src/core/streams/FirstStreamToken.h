#pragma once

#include <cstdint>
#include <string>

#include "base/Guarded.h"

namespace vantix {

class Settings;
class StreamTokens;

/// A stream token that is fetched ahead of time and served once. Lines bear the core's tags.
class FirstStreamToken {
public:
    /// The longest text that is kept; the host's buffer has room for it and its zero.
    static constexpr size_t kLongest = 4096;

    /// The parts outlive this one.
    FirstStreamToken(const Settings& settings, StreamTokens& tokens) : m_settings(settings), m_tokens(tokens) {}

    /// Fetches a token unless one is kept.
    void GetStreamTokenFast();
    /// Copies the kept token, with its zero, into `buffer`, when it was fetched with this access token within the last
    /// five hours. 0 or -1.
    int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer);

private:
    struct Kept {
        std::string m_strFirstToken;
        std::string owner;      ///< The access token that it was fetched with.
        int32_t fetchTime = 0;  ///< Seconds since the epoch, truncated; 0 once it was served.
    };

    const Settings& m_settings;
    StreamTokens& m_tokens;
    Guarded<Kept> m_kept;
};

}  // namespace vantix
