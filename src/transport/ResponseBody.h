#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/TextView.h"

namespace vantix {

/// One `malloc` block with a terminating zero: a body as it grows, as it is handed out, and as its receiver holds it.
/// No second copy is made of it, but for the moment in which a system grows or converts a block by copying.
class ResponseBody {
public:
    ResponseBody() = default;
    ~ResponseBody();
    ResponseBody(const ResponseBody&) = delete;
    ResponseBody& operator=(const ResponseBody&) = delete;

    /// Adds to the end; false, and nothing changes, when memory does not suffice.
    bool Append(std::string_view piece);
    /// Replaces the text; false, and nothing changes, when memory does not suffice.
    bool Assign(std::string_view text);
    /// Hands the block over to the caller, who frees it, and forgets it. An empty body is a block too; null when there
    /// is no memory for it.
    char* Release();

    /// Where a request function stores the block that it hands out, and its length.
    char** Data() { return &m_data; }
    uint32_t* Length() { return &m_length; }

    TextView Text() const { return m_data == nullptr ? TextView() : TextView(m_data, m_length); }

private:
    bool Grow(size_t capacity);
    bool Reserve(size_t size);

    char* m_data = nullptr;
    uint32_t m_length = 0;
    size_t m_capacity = 0;
};

}  // namespace vantix
