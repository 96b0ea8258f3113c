#include "RequestDelays.h"

namespace vantix::simulator {

void RequestDelays::Sleep(std::chrono::milliseconds time) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, time, [this] { return m_stopped; });
}

void RequestDelays::WaitAtHold(const std::string& hold, std::chrono::milliseconds limit) {
    std::unique_lock lock(m_mutex);
    Hold& entry = m_holds[hold];
    const auto arrived = entry.releases;
    ++entry.waiting;
    m_changed.wait_for(lock, limit, [&] { return m_stopped || entry.releases != arrived; });
    --entry.waiting;
}

void RequestDelays::Release(const std::string& hold) {
    const std::lock_guard lock(m_mutex);
    ++m_holds[hold].releases;
    m_changed.notify_all();
}

void RequestDelays::ReleaseAll() {
    const std::lock_guard lock(m_mutex);
    for (auto& [name, hold] : m_holds) {
        ++hold.releases;
    }
    m_changed.notify_all();
}

std::map<std::string, int> RequestDelays::Waiting() const {
    const std::lock_guard lock(m_mutex);
    std::map<std::string, int> waiting;
    for (const auto& [name, hold] : m_holds) {
        waiting[name] = hold.waiting;
    }
    return waiting;
}

void RequestDelays::Stop() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_changed.notify_all();
}

}  // namespace vantix::simulator
