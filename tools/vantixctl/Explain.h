#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantix::ctl {

/// A return code in words.
struct Explanation {
    std::string_view layer;  ///< who speaks: "success", "core", "transport", "answer", "platform"
    std::string meaning;     ///< one clause, without a full stop
    std::string advice;      ///< what to do about it; may be empty
};

Explanation Explain(int32_t code);

/// The same as the answer of an operation, whose own reasons for it are told where there are such.
Explanation Explain(int32_t code, std::string_view operation);

}  // namespace vantix::ctl
