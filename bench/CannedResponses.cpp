// Responses without a network, so that filling a cache with thousands of devices takes a moment: with the linker's
// --wrap this function replaces the form post of the requests. To the canned address it returns the detail of the
// requested channel; any other address is a real one.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Center.h"
#include "DetailResponse.h"
#include "transport/ParamMap.h"

// The names are the linker's, of vantix::SyncRequest; bench/CMakeLists.txt has it too.
// NOLINTBEGIN(bugprone-reserved-identifier,cppcoreguidelines-no-malloc): the caller frees the response
extern "C" {
int __real__ZN6vantix11SyncRequestEjRKNS_8ParamMapEPKcPPcPj(uint32_t endpoint, const vantix::ParamMap& params,
                                                            const char* base, char** response, uint32_t* length);

int __wrap__ZN6vantix11SyncRequestEjRKNS_8ParamMapEPKcPPcPj(uint32_t endpoint, const vantix::ParamMap& params,
                                                            const char* base, char** response, uint32_t* length) {
    if (std::strcmp(base, vantix::bench::kCannedAddress) != 0) {
        return __real__ZN6vantix11SyncRequestEjRKNS_8ParamMapEPKcPPcPj(endpoint, params, base, response, length);
    }
    const auto value = [&](const char* key) { return std::string(params.Find(key).value_or("")); };
    const std::string body = vantix::bench::DetailResponse(value("deviceSerial"), value("cameraNo"));
    *response = static_cast<char*>(std::malloc(body.size() + 1));
    std::memcpy(*response, body.c_str(), body.size() + 1);
    *length = static_cast<uint32_t>(body.size());
    return 0;
}
}
// NOLINTEND(bugprone-reserved-identifier,cppcoreguidelines-no-malloc)
