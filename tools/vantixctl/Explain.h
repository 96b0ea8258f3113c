#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantix::ctl {

/// The meaning of a return code.
struct Explanation {
    std::string_view layer;  ///< where the code comes from: "success", "core", "transport", "response", "platform"
    std::string meaning;     ///< one clause, without a full stop
    std::string advice;      ///< what to do about it; may be empty
};

Explanation Explain(int32_t code);

/// The same for the return code of this operation, with advice of its own where the operation has it.
Explanation Explain(int32_t code, std::string_view operation);

}  // namespace vantix::ctl
