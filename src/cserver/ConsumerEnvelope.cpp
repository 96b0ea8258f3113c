#include "cserver/ConsumerEnvelope.h"

#include "requests/Envelope.h"

namespace vantix::consumer {

using json::JsonCppView;

int Code(const JsonCppView& root) {
    int32_t code = 0;
    root.Member("meta").Member("code").Read(code);
    return json::SuccessAsZero(code);
}

JsonCppView Find(const JsonCppView& root, const char* key) {
    const JsonCppView beside = root.Member(key);
    return beside.IsNull() ? root.Member("data").Member(key) : beside;
}

bool NamesAnother(const JsonCppView& entry, const std::string& serial) {
    std::string named;
    return entry.Member("deviceSerial").Read(named) && named != serial;
}

JsonCppView EntryOf(const JsonCppView& group, const std::string& serial) {
    const JsonCppView keyed = group.Member(serial.c_str());
    if (keyed.IsObject()) {
        return keyed;
    }
    for (size_t i = 0; i < group.Size(); ++i) {
        const JsonCppView element = group.Element(i);
        if (element.Member("deviceSerial").IsString() && !NamesAnother(element, serial)) {
            return element;
        }
    }
    const JsonCppView single = group.Size() == 1 ? group.Element(0) : group;
    return single.IsObject() && !NamesAnother(single, serial) ? single : JsonCppView();
}

}  // namespace vantix::consumer
