// The entry points that libFuzzer calls.

#include <cstdint>

#include "Fuzzer.h"
#include "base/ProcessSwitches.h"
#include "log/Logger.h"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    vantix::iLogLevel = 6;  // above every level: no line is written
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const bool isB2C : {false, true}) {
        vantix::bB2CMode = isB2C;
        vantix::fuzz::FuzzOne(text);
    }
    return 0;
}
