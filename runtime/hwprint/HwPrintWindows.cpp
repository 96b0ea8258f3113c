#include <winsock2.h>
// The socket header comes before the system's main header.
#include <iphlpapi.h>
#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <vector>

#include "hwprint/hwprint.h"

namespace {

/// A handle on the first physical drive for queries alone, which needs no rights.
class Drive {
public:
    Drive()
        : m_handle(CreateFileW(L"\\\\.\\PhysicalDrive0", 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               0, nullptr)) {}
    ~Drive() {
        if (m_handle != INVALID_HANDLE_VALUE) {
            CloseHandle(m_handle);
        }
    }
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;

    /// Fills the buffer with the storage descriptor; false when the drive gives none.
    bool Describe(std::vector<char>& buffer) const {
        STORAGE_PROPERTY_QUERY query{};
        query.PropertyId = StorageDeviceProperty;
        query.QueryType = PropertyStandardQuery;
        DWORD written = 0;
        return m_handle != INVALID_HANDLE_VALUE &&
               DeviceIoControl(m_handle, IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof(query), buffer.data(),
                               static_cast<DWORD>(buffer.size()), &written, nullptr) != 0;
    }

private:
    HANDLE m_handle;
};

void CopyTrimmed(const char* from, const char* end, char* to, size_t size) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    end = std::find(from, end, '\0');
    from = std::find_if_not(from, end, blank);
    while (end > from && blank(end[-1])) {
        --end;
    }
    const size_t length = std::min(static_cast<size_t>(end - from), size - 1);
    std::memcpy(to, from, length);
    to[length] = '\0';
}

}  // namespace

int HWP_GetDiskSerial(char* serial, char* /*second*/) {
    if (serial == nullptr) {
        return -1;
    }
    serial[0] = '\0';
    std::vector<char> buffer(4096, '\0');
    STORAGE_DEVICE_DESCRIPTOR descriptor{};
    if (!Drive().Describe(buffer)) {
        return -1;
    }
    std::memcpy(&descriptor, buffer.data(), sizeof(descriptor));
    if (descriptor.SerialNumberOffset == 0 || descriptor.SerialNumberOffset >= buffer.size()) {
        return -1;
    }
    CopyTrimmed(buffer.data() + descriptor.SerialNumberOffset, buffer.data() + buffer.size(), serial, 64);
    return serial[0] == '\0' ? -1 : 0;
}

int HWP_GetMacAddr(char* mac) {
    if (mac == nullptr) {
        return -1;
    }
    mac[0] = '\0';
    ULONG size = 64 * 1024;
    std::vector<char> buffer(size);
    auto* adapter = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data());  // the system's own layout
    ULONG status = GetAdaptersAddresses(AF_UNSPEC, GAA_FLAG_SKIP_UNICAST, nullptr, adapter, &size);
    if (status == ERROR_BUFFER_OVERFLOW) {
        buffer.resize(size);
        adapter = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data());
        status = GetAdaptersAddresses(AF_UNSPEC, GAA_FLAG_SKIP_UNICAST, nullptr, adapter, &size);
    }
    if (status != ERROR_SUCCESS) {
        return -1;
    }
    for (; adapter != nullptr; adapter = adapter->Next) {
        const BYTE* address = adapter->PhysicalAddress;
        if (adapter->IfType == IF_TYPE_SOFTWARE_LOOPBACK || adapter->PhysicalAddressLength != 6) {
            continue;
        }
        std::snprintf(mac, 48, "%02X-%02X-%02X-%02X-%02X-%02X", address[0], address[1], address[2], address[3],
                      address[4], address[5]);
        return 0;
    }
    return -1;
}
