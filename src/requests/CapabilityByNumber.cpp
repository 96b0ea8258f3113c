#include "requests/CapabilityByNumber.h"

#include <algorithm>
#include <string>

#include "base/NumberText.h"
#include "base/ProcessSwitches.h"

namespace vantix {
namespace {

/// The value of a key in a JSON text, found without parsing it: the lists are long and only a few values are wanted.
std::string_view ValueInObject(std::string_view text, unsigned number) {
    const std::string key = '"' + std::to_string(number) + '"';
    size_t at = text.find(key);
    at = at == std::string_view::npos ? at : text.find(':', at + key.size());
    if (at == std::string_view::npos) {
        return {};
    }
    text.remove_prefix(at + 1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (!text.empty() && text.front() == '"') {
        text.remove_prefix(1);
        return text.substr(0, text.find('"'));
    }
    return text.substr(0, text.find_first_of(",}"));
}

}  // namespace

ShortList::ShortList(std::string_view text)
    : m_text(text), m_isObject(bB2CMode && !text.empty() && text.front() == '{') {}

std::string_view ShortList::ValueInList(unsigned number) {
    if (number < m_number) {
        m_at = 0;
        m_number = 1;
    }
    const char* const end = m_text.data() + m_text.size();
    const char* value = m_text.data() + m_at;
    for (unsigned left = number - m_number; left > 0;) {  // byte by byte: most values are one character long
        if (value == end) {
            return {};
        }
        if (*value++ == '|') {
            --left;
        }
    }
    m_at = static_cast<size_t>(value - m_text.data());
    m_number = number;
    return {value, static_cast<size_t>(std::find(value, end, '|') - value)};
}

int ShortList::Value(unsigned number) {
    return std::max(DecimalPrefix(m_isObject ? ValueInObject(m_text, number) : ValueInList(number)), 0);
}

}  // namespace vantix
