#include "Recordings.h"

namespace vantix::simulator {
namespace {

bool Fits(const Json& recording, const RecordingFilter& filter) {
    const TimeSpan span = SpanOf(TextOf(recording, "startTime"), TextOf(recording, "endTime"));
    return (filter.place.empty() || TextOf(recording, "place") == filter.place) &&
           NumberOf(recording, "channelNo", 1) == filter.channel &&
           (filter.type == 0 || NumberOf(recording, "type") == filter.type) && span.Overlaps(filter.span);
}

}  // namespace

Json FindRecordings(const Json& device, const RecordingFilter& filter) {
    Json found = Json::array();
    for (const Json& recording : Member(device, "recordings")) {
        if (Fits(recording, filter)) {
            found.push_back(recording);
            found.back().erase("place");
            found.back()["deviceSerial"] = TextOf(device, "deviceSerial");
        }
    }
    return found;
}

}  // namespace vantix::simulator
