// Texts that the host hands to the core.

#include "Fuzzer.h"
#include "core/CVantixDataCenter.h"

namespace vantix::fuzz {

void Try(const std::string& text) {
    CVantixDataCenter core;
    core.SetDeviceTkTokens(text);
    core.SetB2CTokens(text);
    core.isB2CSharedDevice(text);
    core.getB2CTokens(text, 1);
    core.getDeviceTkTokens(3, text, 1);
    // Without a credential nothing is sent, whatever the text.
    std::string answer;
    Promise(core.getCloudFileInfoBySerialEX("C10000001", 1, text, answer) == -1 && answer.empty());
}

}  // namespace vantix::fuzz
