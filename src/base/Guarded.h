#pragma once

#include <utility>

#include "tvl/tvl.h"

namespace vantix {

/// A value and the mutex that guards it. It is copied out, or read and changed under its lock, so that no reference
/// leaves and the lock is held only while the value is in use. `Live` is the one exception.
///
/// Code that runs under the lock must not lock anything else, log, send a request or call the host.
template <class Value>
class Guarded {
public:
    Guarded() = default;
    explicit Guarded(Value value) : m_value(std::move(value)) {}

    Value Copy() const {
        TVL_Guard guard(&m_mutex);
        return m_value;
    }

    /// Replaces the value; the old one is destroyed after the lock is released.
    void Assign(Value value) {
        TVL_Guard guard(&m_mutex);
        std::swap(m_value, value);
        guard.Release();
    }

    /// Calls `use(value)` under the lock and returns what it returns.
    template <class Use>
    auto With(Use&& use) {
        TVL_Guard guard(&m_mutex);
        return std::forward<Use>(use)(m_value);
    }
    template <class Use>
    auto With(Use&& use) const {
        TVL_Guard guard(&m_mutex);
        return std::forward<Use>(use)(m_value);
    }

    /// The value itself, for the getters that return live references. Locks and unlocks once, so that a write in
    /// progress ends first. Later use is not protected.
    const Value& Live() const {
        TVL_Guard(&m_mutex).Release();
        return m_value;
    }

private:
    mutable TVL_Mutex m_mutex;
    Value m_value{};
};

}  // namespace vantix
