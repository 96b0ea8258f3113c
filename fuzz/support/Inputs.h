#pragma once

#include <cstdint>
#include <string_view>

namespace vantix::fuzz {

/// Reads an input from its front; beyond its end there are zeros and empty texts.
class Input {
public:
    explicit Input(std::string_view text) : m_text(text) {}

    bool IsAtEnd() const { return m_text.empty(); }
    uint8_t Byte() {
        const uint8_t byte = m_text.empty() ? uint8_t{0} : static_cast<uint8_t>(m_text.front());
        m_text.remove_prefix(m_text.empty() ? 0 : 1);
        return byte;
    }
    std::string_view Bytes(size_t count) {
        const std::string_view bytes = m_text.substr(0, count);
        m_text.remove_prefix(bytes.size());
        return bytes;
    }
    /// Up to the next newline, which is dropped.
    std::string_view Line() {
        const std::string_view line = Bytes(m_text.find('\n'));
        Byte();
        return line;
    }
    std::string_view Rest() const { return m_text; }

private:
    std::string_view m_text;
};

}  // namespace vantix::fuzz
