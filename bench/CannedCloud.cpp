// A cloud without a network, so that filling a cache of thousands takes a moment: the linker's --wrap leads the form
// posts of the requests here, and each is answered at once with the detail of the device that it asks for.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "DetailAnswer.h"
#include "transport/ParamMap.h"

// The name is the linker's, of vantix::SyncRequest; bench/CMakeLists.txt names it too.
// NOLINTBEGIN(bugprone-reserved-identifier,cppcoreguidelines-no-malloc): the caller frees the answer
extern "C" int __wrap__ZN6vantix11SyncRequestEjRKNS_8ParamMapEPKcPPcPj(uint32_t /*endpoint*/,
                                                                       const vantix::ParamMap& params,
                                                                       const char* /*base*/, char** response,
                                                                       uint32_t* length) {
    const std::string answer = vantix::bench::DetailAnswer(params.All().at("deviceSerial"));
    *response = static_cast<char*>(std::malloc(answer.size() + 1));
    std::memcpy(*response, answer.c_str(), answer.size() + 1);
    *length = static_cast<uint32_t>(answer.size());
    return 0;
}
// NOLINTEND(bugprone-reserved-identifier,cppcoreguidelines-no-malloc)
