// Readers of texts inside responses, and the masking and code page conversion of texts.

#include "Fuzzer.h"
#include "log/Masking.h"
#include "platform/P2P.h"
#include "platform/Recordings.h"
#include "requests/CapabilityByNumber.h"
#include "transport/CodePage.h"

namespace vantix::fuzz {

void FuzzOne(const std::string& text) {
    for (const unsigned number : {0U, 1U, 149U, 836U, 4294967295U}) {
        Require(CapabilityByNumber(text, number) >= 0);
    }
    P2PDevInfo devInfo;
    ParseP2PQXDevCap(text, devInfo);
    RecordFileList list;
    ReadRecordFiles(text, list);
    MaskedJson(text);
    Utf8ToAnsi(text);
}

}  // namespace vantix::fuzz
