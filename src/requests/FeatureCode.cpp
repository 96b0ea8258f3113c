#include "requests/FeatureCode.h"

#include <cstdio>
#include <cstring>
#include <mutex>

#include "cryptowrap/cryptowrap.h"
#include "hwprint/hwprint.h"
#include "log/Logger.h"

namespace vantix {
namespace {

/// The cached code. It owns nothing: a request may still ask for it while the process exits, and nothing is left behind
/// when the library is unloaded.
struct FeatureCodeCache {
    std::mutex mutex;
    char code[64] = {};
};

FeatureCodeCache g_cache;

std::string CachedCode() {
    const std::lock_guard<std::mutex> guard(g_cache.mutex);
    return g_cache.code;
}

void KeepCode(const char* code) {
    const std::lock_guard<std::mutex> guard(g_cache.mutex);
    std::snprintf(g_cache.code, sizeof(g_cache.code), "%s", code);
}

}  // namespace

const HardwareSource kThisMachine{HWP_GetDiskSerial, HWP_GetMacAddr, ssl_md5_digest};

int GetHDSign(char* buffer, const HardwareSource& source) {
    if (buffer == nullptr) {
        return -1;
    }
    char serial[64] = {};
    char second[64] = {};
    char mac[48] = {};
    char joined[128] = {};
    char digest[64] = {};
    unsigned digestLength = 0;
    source.diskSerial(serial, second);
    source.macAddress(mac);
    std::snprintf(joined, sizeof(joined), "%s|%s", serial, mac);
    if (source.md5(joined, static_cast<unsigned>(std::strlen(joined)), digest, &digestLength) < 0) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "Hdsign md5 failed. ssl_md5_digest failed. serial:%s ,mac:%s",
                         serial, mac);
        return -1;
    }
    std::snprintf(buffer, sizeof(digest), "%s", digest);
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "serial:%s ,mac:%s ,HDSign:%.6s***", serial, mac, digest);
    return 0;
}

std::string PublicGetHDSign(const HardwareSource& source) {
    std::string code = CachedCode();
    if (!code.empty()) {
        return code;
    }
    char buffer[64] = {};
    if (GetHDSign(buffer, source) != 0) {
        // "Getting the feature code failed", in the code page that support reads these logs in.
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "%s", "\xBB\xF1\xC8\xA1\xCC\xD8\xD5\xF7\xC2\xEB\xCA\xA7\xB0\xDC");
        return {};
    }
    KeepCode(buffer);
    return buffer;
}

void ForgetFeatureCode() { KeepCode(""); }

}  // namespace vantix
