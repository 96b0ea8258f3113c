// Responses without a network, so that filling a cache with thousands of devices takes a moment: with the linker's
// --wrap this function replaces the form post of the requests, and returns the detail of the requested device.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "DetailResponse.h"
#include "transport/ParamMap.h"

// The name is the linker's, of vantix::SyncRequest; bench/CMakeLists.txt has it too.
// NOLINTBEGIN(bugprone-reserved-identifier,cppcoreguidelines-no-malloc): the caller frees the response
extern "C" int __wrap__ZN6vantix11SyncRequestEjRKNS_8ParamMapEPKcPPcPj(uint32_t /*endpoint*/,
                                                                       const vantix::ParamMap& params,
                                                                       const char* /*base*/, char** response,
                                                                       uint32_t* length) {
    const std::string body = vantix::bench::DetailResponse(std::string(params.Find("deviceSerial").value_or("")));
    *response = static_cast<char*>(std::malloc(body.size() + 1));
    std::memcpy(*response, body.c_str(), body.size() + 1);
    *length = static_cast<uint32_t>(body.size());
    return 0;
}
// NOLINTEND(bugprone-reserved-identifier,cppcoreguidelines-no-malloc)
