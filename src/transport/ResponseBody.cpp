#include "transport/ResponseBody.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

namespace vantix {
namespace {

constexpr size_t kFirstCapacity = 1024;
/// Lengths are handed out as 32 bits.
constexpr size_t kLongest = std::numeric_limits<uint32_t>::max() - 1U;

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): callers release the block with free

ResponseBody::~ResponseBody() { std::free(m_data); }

bool ResponseBody::Grow(size_t capacity) {
    auto* grown = static_cast<char*>(std::realloc(m_data, capacity));
    if (grown == nullptr) {
        return false;
    }
    m_data = grown;
    m_capacity = capacity;
    return true;
}

/// Makes room for `size` bytes and the zero behind them. Large blocks grow without a copy where the system can do that.
bool ResponseBody::Reserve(size_t size) {
    if (size < m_capacity) {
        return true;
    }
    return Grow(std::max({kFirstCapacity, size + 1, 2 * m_capacity})) || Grow(size + 1);
}

bool ResponseBody::Append(std::string_view piece) {
    if (piece.size() > kLongest - m_length || !Reserve(m_length + piece.size())) {
        return false;
    }
    if (!piece.empty()) {
        std::memcpy(m_data + m_length, piece.data(), piece.size());
    }
    m_length += static_cast<uint32_t>(piece.size());
    m_data[m_length] = '\0';
    return true;
}

bool ResponseBody::Assign(std::string_view text) {
    if (text.size() > kLongest || !Reserve(text.size())) {
        return false;
    }
    m_length = 0;
    return Append(text);
}

char* ResponseBody::Release() {
    if (m_data == nullptr) {
        return static_cast<char*>(std::calloc(1, 1));
    }
    m_length = 0;
    m_capacity = 0;
    return std::exchange(m_data, nullptr);
}

// NOLINTEND(cppcoreguidelines-no-malloc)

}  // namespace vantix
