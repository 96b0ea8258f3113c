#include "Endpoint.h"

#include <algorithm>
#include <array>

namespace vantix::simulator {

long long Call::Channel() const {
    for (const std::string_view name : {"cameraNo", "channelNo", "localIndex"}) {
        if (parameters.Has(name)) {
            return parameters.Number(name, 1);
        }
    }
    return 1;
}

Json* Call::Camera() const {
    Json* device = Device();
    return device == nullptr ? nullptr : FindCamera(*device, Channel());
}

Outcome Refuse(std::string_view code) { return {std::string(code), Json::object()}; }

Outcome ResultData(Json data) {
    Outcome outcome;
    outcome.payload["result"]["data"] = std::move(data);
    return outcome;
}

Outcome Data(Json data) {
    Outcome outcome;
    outcome.payload["data"] = std::move(data);
    return outcome;
}

const Endpoint* FindEndpoint(std::string_view path) {
    static const std::array families = {DeviceEndpoints(),      ServerEndpoints(),         P2pEndpoints(),
                                        TokenEndpoints(),       ListEndpoints(),           RecordEndpoints(),
                                        CloudUploadEndpoints(), AccountEndpoints(),        SessionEndpoints(),
                                        PageListEndpoints(),    ConsumerRecordEndpoints(), SharedListEndpoints()};
    for (const auto& family : families) {
        const auto found =
            std::find_if(family.begin(), family.end(), [path](const Endpoint& row) { return row.path == path; });
        if (found != family.end()) {
            return &*found;
        }
    }
    return nullptr;
}

}  // namespace vantix::simulator
