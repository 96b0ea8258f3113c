#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace vantix {

/// A key of the caches. It is hashed once, where no lock is held; to find it in a map is then to compare numbers.
class CacheKey {
public:
    explicit CacheKey(std::string text) : m_text(std::move(text)), m_hash(std::hash<std::string>()(m_text)) {}

    const std::string& Text() const { return m_text; }

    struct Hash {
        size_t operator()(const CacheKey& key) const noexcept { return key.m_hash; }
    };
    friend bool operator==(const CacheKey& one, const CacheKey& other) {
        return one.m_hash == other.m_hash && one.m_text == other.m_text;
    }
    /// The order of a map: by hash, and texts of one hash by their bytes.
    friend bool operator<(const CacheKey& one, const CacheKey& other) {
        return one.m_hash != other.m_hash ? one.m_hash < other.m_hash : one.m_text < other.m_text;
    }

private:
    std::string m_text;
    size_t m_hash;
};

}  // namespace vantix
