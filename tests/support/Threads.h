#pragma once

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantix::test {

/// Runs `work(thread)` on so many threads and waits for them.
template <class Work>
void OnThreads(int count, const Work& work) {
    std::vector<std::thread> threads;
    threads.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&work, i] { work(i); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// What threads found wrong, each with the words to look for its cause.
class Findings {
public:
    void Check(bool isGood, const std::string& otherwise) {
        if (!isGood) {
            const std::lock_guard<std::mutex> guard(m_mutex);
            m_texts.push_back(otherwise);
        }
    }
    std::vector<std::string> All() const {
        const std::lock_guard<std::mutex> guard(m_mutex);
        return m_texts;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_texts;
};

}  // namespace vantix::test
