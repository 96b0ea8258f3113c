#include "core/detail/SharedTexts.h"

#include <algorithm>

namespace vantix {

SharedText SharedTexts::Pool::Find(std::string_view text) const {
    const auto found = texts.find(text);
    return found == texts.end() ? SharedText() : *found;
}

/// Whoever gets one more holder of a text gets it under the lock, so what the pool alone holds here stays its own.
void SharedTexts::Pool::DropUnheld() {
    std::erase_if(texts, [](const SharedText& text) { return text.use_count() == 1; });
    fullAt = std::max(fullAt, 2 * texts.size());
}

SharedText SharedTexts::Share(std::string_view text) {
    SharedText shared = m_pool.With([&](const Pool& pool) { return pool.Find(text); });
    if (shared != nullptr) {
        return shared;
    }
    shared = std::make_shared<const std::string>(text);
    return m_pool.With([&](Pool& pool) {
        if (pool.texts.size() >= pool.fullAt) {
            pool.DropUnheld();
        }
        return *pool.texts.insert(std::move(shared)).first;
    });
}

size_t SharedTexts::Size() const {
    return m_pool.With([](const Pool& pool) { return pool.texts.size(); });
}

}  // namespace vantix
