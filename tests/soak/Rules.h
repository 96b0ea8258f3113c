#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace vantix::test {

/// How often each rule was applied, and what broke it. Safe from any thread.
class Rules {
public:
    /// Counts one application of the rule; a text says what is wrong.
    void Apply(const std::string& rule, const std::string& wrong) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        ++m_applied[rule];
        if (!wrong.empty()) {
            ++m_broken[rule];
            if (m_texts.size() < kMostTexts) {
                m_texts.push_back(rule + ": " + wrong);
            }
        }
    }
    /// Counts applications that found nothing.
    void ApplyMany(const std::string& rule, size_t count) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_applied[rule] += count;
    }

    std::map<std::string, size_t> Applied() const { return Locked(m_applied); }
    std::map<std::string, size_t> Broken() const { return Locked(m_broken); }
    std::vector<std::string> Texts() const { return Locked(m_texts); }

private:
    static constexpr size_t kMostTexts = 50;

    template <class Value>
    Value Locked(const Value& value) const {
        const std::lock_guard<std::mutex> guard(m_mutex);
        return value;
    }

    mutable std::mutex m_mutex;
    std::map<std::string, size_t> m_applied;
    std::map<std::string, size_t> m_broken;
    std::vector<std::string> m_texts;
};

}  // namespace vantix::test
