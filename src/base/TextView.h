#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vantix {

/// A text that somebody else owns, with a zero behind it. As light as two words, so it is passed by value; valid as
/// long as its owner leaves the text alone.
class TextView {
public:
    constexpr TextView() = default;
    /// `text` ends with a zero that `size` does not count.
    constexpr TextView(const char* text, size_t size) : m_text(text), m_size(size) {}
    // Not explicit: whatever reads a text takes either.
    TextView(const std::string& text) : TextView(text.c_str(), text.size()) {}               // NOLINT
    constexpr TextView(const char* text) : TextView(text, std::string_view(text).size()) {}  // NOLINT

    constexpr const char* c_str() const { return m_text; }
    constexpr size_t size() const { return m_size; }
    constexpr const char* begin() const { return m_text; }
    constexpr const char* end() const { return m_text + m_size; }
    constexpr operator std::string_view() const { return {m_text, m_size}; }  // NOLINT: it is one, and more
    explicit operator std::string() const { return {m_text, m_size}; }

    friend bool operator==(TextView one, std::string_view other) { return std::string_view(one) == other; }

private:
    const char* m_text = "";
    size_t m_size = 0;
};

}  // namespace vantix
