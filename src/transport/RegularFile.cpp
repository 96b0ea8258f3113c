#include "transport/RegularFile.h"

#include <exception>
#include <filesystem>
#include <string>

namespace vantix {

bool IsNoRegularFile(const char* path) {
    namespace fs = std::filesystem;
    try {
        const std::string text = path;
        std::error_code error;
        const fs::file_status status = fs::status(fs::path(std::u8string(text.begin(), text.end())), error);
        return fs::exists(status) && !fs::is_regular_file(status);
    } catch (const std::exception&) {  // no memory, or a text that is no path of this system
        return false;
    }
}

}  // namespace vantix
