#include "cserver/DeviceEntry.h"

namespace vantix::consumer {

using json::JsonCppView;

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
