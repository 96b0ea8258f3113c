#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace vantix::test {

/// A file in the system's folder for such, with these bytes, that goes away again.
class LocalFile {
public:
    LocalFile(const std::u8string& name, const std::string& content)
        : m_path(std::filesystem::temp_directory_path() / name) {
        std::ofstream(m_path, std::ios::binary) << content;
    }
    ~LocalFile() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    LocalFile(const LocalFile&) = delete;
    LocalFile& operator=(const LocalFile&) = delete;

    /// In UTF-8, as the interface takes it.
    std::string Path() const {
        const std::u8string text = m_path.u8string();
        return {text.begin(), text.end()};
    }

private:
    std::filesystem::path m_path;
};

}  // namespace vantix::test
