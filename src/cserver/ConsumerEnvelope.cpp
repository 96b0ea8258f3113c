#include "cserver/ConsumerEnvelope.h"

#include "json/Envelope.h"

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

JsonCppView EntryOf(const JsonCppView& group, const std::string& serial) {
    for (size_t i = 0; i < group.Size(); ++i) {
        std::string named;
        if (group.Element(i).Member("deviceSerial").Read(named) && named == serial) {
            return group.Element(i);
        }
    }
    if (group.IsArray()) {
        return group.Size() == 1 && group.Element(0).Member("deviceSerial").IsNull() ? group.Element(0) : JsonCppView();
    }
    const JsonCppView keyed = group.Member(serial.c_str());
    return keyed.IsObject() ? keyed : group;
}

}  // namespace vantix::consumer
