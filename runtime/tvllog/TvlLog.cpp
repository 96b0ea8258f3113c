#include <atomic>

#include "tvllog/tvllog.h"

namespace {

std::atomic<TVLLOG_Callback> g_callback{nullptr};

}  // namespace

void TVLLOG_Write(unsigned level, const char* moduleName, const char* text) {
    if (const TVLLOG_Callback callback = g_callback.load(std::memory_order_acquire)) {
        callback(level, moduleName, text);
    }
}

void TVLLOG_SetCallback(TVLLOG_Callback callback) { g_callback.store(callback, std::memory_order_release); }
