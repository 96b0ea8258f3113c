#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>

namespace vantix::simulator {

/// Lets request threads wait without ever holding up the end of the program. Safe from any thread.
class Pause {
public:
    /// Waits for the time, or less when `Stop` is called.
    void For(std::chrono::milliseconds time);

    /// Waits until the named gate is released, at most `limit`, or until `Stop`.
    void At(const std::string& gate, std::chrono::milliseconds limit);

    /// Lets everybody go who waits at the gate now; later callers wait again.
    void Release(const std::string& gate);

    /// Lets everybody go who waits at any gate now.
    void ReleaseAll();

    /// Number of callers that wait at each gate (gates that were never used are absent).
    [[nodiscard]] std::map<std::string, int> Waiting() const;

    /// Ends every wait, now and from now on.
    void Stop();

private:
    struct Gate {
        unsigned long long releases = 0;
        int waiting = 0;
    };

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Gate> m_gates;
    bool m_stopped = false;
};

}  // namespace vantix::simulator
