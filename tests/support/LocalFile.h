#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace vantix::test {

/// A file of this name and these bytes, in a folder of its own that goes away again. Cases that run side by side, in
/// whatever process, never share one.
class LocalFile {
public:
    explicit LocalFile(const std::u8string& name, const std::string& content = "picture")
        : m_folder(NewFolder()), m_path(m_folder / name) {
        std::ofstream(m_path, std::ios::binary) << content;
    }
    ~LocalFile() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    LocalFile(const LocalFile&) = delete;
    LocalFile& operator=(const LocalFile&) = delete;

    /// In UTF-8, as the interface takes it.
    std::string Path() const {
        const std::u8string text = m_path.u8string();
        return {text.begin(), text.end()};
    }

private:
    static std::filesystem::path NewFolder() {
        std::random_device random;
        std::filesystem::path folder;
        do {
            folder = std::filesystem::temp_directory_path() / ("vantix-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder));
        return folder;
    }

    std::filesystem::path m_folder;
    std::filesystem::path m_path;
};

}  // namespace vantix::test
