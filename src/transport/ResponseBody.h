#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace vantix {

/// Owns the block that the transport hands out, and frees it on every path.
class ResponseBody {
public:
    ResponseBody() = default;
    ~ResponseBody() { std::free(m_data); }  // NOLINT(cppcoreguidelines-no-malloc): the transport's contract
    ResponseBody(const ResponseBody&) = delete;
    ResponseBody& operator=(const ResponseBody&) = delete;

    char** Data() { return &m_data; }
    uint32_t* Length() { return &m_length; }
    std::string Text() const { return m_data == nullptr ? std::string() : std::string(m_data, m_length); }

private:
    char* m_data = nullptr;
    uint32_t m_length = 0;
};

}  // namespace vantix
