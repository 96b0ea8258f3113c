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

std::string_view ValueInList(std::string_view text, unsigned number) {
    size_t at = 0;
    for (unsigned left = number; left > 1; ++at) {  // byte by byte: the values are one or two characters long
        if (at == text.size()) {
            return {};
        }
        left -= text[at] == '|' ? 1U : 0U;
    }
    text.remove_prefix(at);
    return text.substr(0, text.find('|'));
}

}  // namespace

int CapabilityByNumber(std::string_view shortList, unsigned number) {
    const bool isObject = bB2CMode && !shortList.empty() && shortList.front() == '{';
    const std::string_view value = isObject ? ValueInObject(shortList, number) : ValueInList(shortList, number);
    return std::max(DecimalPrefix(value), 0);
}

}  // namespace vantix
