#include "../cloud/Endpoint.h"
#include "../cloud/Paging.h"
#include "../cloud/Recordings.h"

namespace vantix::simulator {
namespace {

Outcome Records(Call& call) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    if (NumberOf(Member(*call.Device(), "device"), "deviceStatus") != 1) {
        return Refuse(code::deviceOffline);
    }
    RecordingFilter filter;
    filter.place = "device";
    filter.channel = call.Channel();
    filter.span = SpanOf(call.parameters.Text("startTime"), call.parameters.Text("stopTime"));
    filter.type = call.parameters.Number("recordType", 0);
    const Json found = FindRecordings(*call.Device(), filter);
    const long long size = call.parameters.Number("size", 100);
    Outcome outcome;
    outcome.payload["isFinished"] = static_cast<long long>(found.size()) <= size;
    outcome.payload["records"] = Slice(found, 0, size);
    return outcome;
}

constexpr std::array consumerRecordEndpoints = {
    Endpoint{"/v3/streaming/records", Method::get, Envelope::meta, Authentication::session, {"deviceSerial"}, Records},
};

}  // namespace

std::span<const Endpoint> ConsumerRecordEndpoints() { return consumerRecordEndpoints; }

}  // namespace vantix::simulator
