#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>

namespace vantix::simulator {

/// Delays requests: for a time, or at a named hold until the hold is released. `Stop` ends every delay, so that a
/// delayed request never keeps a server from stopping. Safe from any thread.
class RequestDelays {
public:
    /// Waits for the time, or until `Stop`.
    void Sleep(std::chrono::milliseconds time);

    /// Waits until the named hold is released, at most `limit`, or until `Stop`.
    void WaitAtHold(const std::string& hold, std::chrono::milliseconds limit);

    /// Releases all requests that wait at the hold now; later ones wait again.
    void Release(const std::string& hold);

    /// Releases all requests that wait at any hold now.
    void ReleaseAll();

    /// Number of requests that wait at each hold (holds that were never used are absent).
    [[nodiscard]] std::map<std::string, int> Waiting() const;

    /// Ends every delay, now and from now on.
    void Stop();

private:
    struct Hold {
        unsigned long long releases = 0;
        int waiting = 0;
    };

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Hold> m_holds;
    bool m_stopped = false;
};

}  // namespace vantix::simulator
