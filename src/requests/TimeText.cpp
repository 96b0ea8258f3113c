#include "requests/TimeText.h"

namespace vantix {

std::string WithFirstBlankEscaped(std::string text) {
    if (const size_t blank = text.find(' '); blank != std::string::npos) {
        text.replace(blank, 1, "%20");
    }
    return text;
}

}  // namespace vantix
