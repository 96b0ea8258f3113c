#include "hwprint/HwPrintLinux.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include "hwprint/hwprint.h"

namespace hwprint {
namespace {

namespace fs = std::filesystem;

std::string Trim(std::string text) {
    const auto blank = [](unsigned char c) { return std::isspace(c) != 0 || c == '\0'; };
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), blank));
    text.erase(std::find_if_not(text.rbegin(), text.rend(), blank).base(), text.end());
    return text;
}

std::string FirstLine(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return Trim(line);
}

/// Without std::filesystem's iterator, which ends the process when memory runs out within it.
std::vector<fs::path> SortedEntries(const fs::path& folder) {
    std::vector<fs::path> entries;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), &closedir);
    for (const dirent* entry = nullptr; open != nullptr && (entry = readdir(open.get())) != nullptr;) {
        if (const std::string_view name = entry->d_name; name != "." && name != "..") {
            entries.push_back(folder / name);
        }
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// The value of a property in the device manager's record of a block device ("E:ID_SERIAL_SHORT=…").
std::string UdevProperty(const fs::path& root, const std::string& deviceNumber, const std::string& key) {
    std::ifstream stream(root / "run/udev/data" / ("b" + deviceNumber));
    const std::string start = "E:" + key + "=";
    for (std::string line; std::getline(stream, line);) {
        if (line.compare(0, start.size(), start) == 0) {
            return Trim(line.substr(start.size()));
        }
    }
    return {};
}

std::string SerialOfDisk(const fs::path& root, const fs::path& disk) {
    for (const char* file : {"device/serial", "serial"}) {
        if (std::string serial = FirstLine(disk / file); !serial.empty()) {
            return serial;
        }
    }
    const std::string number = FirstLine(disk / "dev");
    std::string shortSerial = UdevProperty(root, number, "ID_SERIAL_SHORT");
    if (!shortSerial.empty()) {
        return shortSerial;
    }
    return UdevProperty(root, number, "ID_SERIAL");
}

/// The whole disk below a block device: a mapped device's first slave, a partition's parent, or the device itself.
fs::path WholeDisk(fs::path device) {
    std::error_code error;
    for (int depth = 0; depth < 8; ++depth) {  // stacked mappings are never deeper
        const std::vector<fs::path> slaves = SortedEntries(device / "slaves");
        if (slaves.empty()) {
            break;
        }
        device = fs::canonical(slaves.front(), error);
        if (error) {
            return {};
        }
    }
    return fs::exists(device / "partition", error) ? device.parent_path() : device;
}

fs::path SystemDisk(const fs::path& root) {
    struct stat info {};
    if (stat(root.c_str(), &info) != 0) {
        return {};
    }
    const std::string number = std::to_string(major(info.st_dev)) + ":" + std::to_string(minor(info.st_dev));
    std::error_code error;
    const fs::path device = fs::canonical(root / "sys/dev/block" / number, error);
    if (error) {
        return {};
    }
    return WholeDisk(device);
}

bool IsAddress(const std::string& text) {
    return text.size() == 17 && text != "00:00:00:00:00:00" && std::count(text.begin(), text.end(), ':') == 5;
}

std::string Printable(std::string address) {
    std::transform(address.begin(), address.end(), address.begin(),
                   [](unsigned char c) { return c == ':' ? '-' : static_cast<char>(std::toupper(c)); });
    return address;
}

}  // namespace

std::string ReadDiskSerial(const std::string& root) {
    if (const fs::path disk = SystemDisk(root); !disk.empty()) {
        if (std::string serial = SerialOfDisk(root, disk); !serial.empty()) {
            return serial;
        }
    }
    for (const fs::path& disk : SortedEntries(fs::path(root) / "sys/block")) {
        if (std::string serial = SerialOfDisk(root, disk); !serial.empty()) {
            return serial;
        }
    }
    return {};
}

std::string ReadMacAddress(const std::string& root) {
    std::string virtualAdapter;
    for (const fs::path& adapter : SortedEntries(fs::path(root) / "sys/class/net")) {
        const std::string name = adapter.filename().string();
        const std::string address = FirstLine(adapter / "address");
        if (name == "lo" || !IsAddress(address)) {
            continue;
        }
        std::error_code error;
        if (fs::exists(adapter / "device", error)) {
            return Printable(address);
        }
        if (virtualAdapter.empty()) {
            virtualAdapter = Printable(address);
        }
    }
    return virtualAdapter;
}

int CopyText(const std::string& text, char* buffer, size_t size) {
    if (buffer == nullptr) {
        return -1;
    }
    const size_t length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return text.empty() ? -1 : 0;
}

}  // namespace hwprint

int HWP_GetDiskSerial(char* serial, char* /*second*/) {
    return hwprint::CopyText(hwprint::ReadDiskSerial("/"), serial, 64);
}

int HWP_GetMacAddr(char* mac) { return hwprint::CopyText(hwprint::ReadMacAddress("/"), mac, 48); }
