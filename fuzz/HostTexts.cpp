// Readers of texts that the host passes to the core.

#include "Fuzzer.h"
#include "core/CVantixDataCenter.h"

namespace vantix::fuzz {

void FuzzOne(const std::string& text) {
    CVantixDataCenter core;
    core.SetDeviceTkTokens(text);
    core.SetB2CTokens(text);
    core.isB2CSharedDevice(text);
    core.getB2CTokens(text, 1);
    core.getDeviceTkTokens(3, text, 1);
    // Without a credential nothing is sent, whatever the text.
    std::string response;
    Require(core.getCloudFileInfoBySerialEX("C10000001", 1, text, response) == -1 && response.empty());
}

}  // namespace vantix::fuzz
