#include "faults/Times.h"

namespace vantix::test {
namespace {

/// Without the members of this name, wherever they stand.
Json Without(const char* name, Json json) {
    if (json.is_structured()) {
        if (json.is_object()) {
            json.erase(name);
        }
        for (auto& member : json) {
            member = Without(name, member);
        }
    }
    return json;
}

}  // namespace

Json WithoutCost(const Json& json) { return Without("iRequestCost", json); }

Json WithoutTimes(const Json& json) { return Without("tCacheTime", WithoutCost(json)); }

}  // namespace vantix::test
