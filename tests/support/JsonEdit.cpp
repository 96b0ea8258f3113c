#include "support/JsonEdit.h"

namespace vantix::test {

std::string WithValue(const Json& json, const std::string& place, const std::string& value) {
    Json changed = json;
    changed[Json::json_pointer(place)] = "the place of the value";
    std::string text = changed.dump();
    const std::string mark = "\"the place of the value\"";
    return text.replace(text.find(mark), mark.size(), value);
}

std::string Without(const Json& json, const std::string& place) {
    Json changed = json;
    const Json::json_pointer pointer(place);
    changed[pointer.parent_pointer()].erase(pointer.back());
    return changed.dump();
}

}  // namespace vantix::test
