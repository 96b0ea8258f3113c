#include "requests/RequestKeys.h"

namespace vantix {

void Parameter::AddTo(ParamMap& params) const {
    if (const auto* text = std::get_if<const std::string*>(&m_value)) {
        params.Add(m_key, **text);
    } else if (const auto* literal = std::get_if<const char*>(&m_value)) {
        params.Add(m_key, *literal);
    } else if (const auto* number = std::get_if<int32_t>(&m_value)) {
        params.Add(m_key, *number);
    }
}

}  // namespace vantix
