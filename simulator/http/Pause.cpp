#include "Pause.h"

namespace vantix::simulator {

void Pause::For(std::chrono::milliseconds time) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, time, [this] { return m_stopped; });
}

void Pause::At(const std::string& gate, std::chrono::milliseconds limit) {
    std::unique_lock lock(m_mutex);
    Gate& entry = m_gates[gate];
    const auto arrived = entry.releases;
    ++entry.waiting;
    m_changed.wait_for(lock, limit, [&] { return m_stopped || entry.releases != arrived; });
    --entry.waiting;
}

void Pause::Release(const std::string& gate) {
    const std::lock_guard lock(m_mutex);
    ++m_gates[gate].releases;
    m_changed.notify_all();
}

void Pause::ReleaseAll() {
    const std::lock_guard lock(m_mutex);
    for (auto& [name, gate] : m_gates) {
        ++gate.releases;
    }
    m_changed.notify_all();
}

std::map<std::string, int> Pause::Waiting() const {
    const std::lock_guard lock(m_mutex);
    std::map<std::string, int> waiting;
    for (const auto& [name, gate] : m_gates) {
        waiting[name] = gate.waiting;
    }
    return waiting;
}

void Pause::Stop() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_changed.notify_all();
}

}  // namespace vantix::simulator
