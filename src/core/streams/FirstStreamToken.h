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
    /// The longest text that is stored; the host's buffer has room for it and a terminating zero.
    static constexpr size_t kLongest = 4096;

    /// The parts outlive this one.
    FirstStreamToken(const Settings& settings, StreamTokens& tokens) : m_settings(settings), m_tokens(tokens) {}

    /// Fetches a token unless one is stored.
    void GetStreamTokenFast();
    /// Copies the stored token and a terminating zero into `buffer`, when it was fetched with this access token within
    /// the last five hours. 0 or -1.
    int GetStreamTokenFromQueue(const std::string& accessToken, char* buffer);

private:
    struct Stored {
        std::string m_strFirstToken;
        std::string owner;      ///< The access token that it was fetched with.
        int32_t fetchTime = 0;  ///< Seconds since the epoch, truncated; 0 once it was served.
    };

    const Settings& m_settings;
    StreamTokens& m_tokens;
    Guarded<Stored> m_stored;
};

}  // namespace vantix
