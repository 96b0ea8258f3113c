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

Reply Refuse(std::string_view code) { return {std::string(code), Json::object()}; }

Reply ResultData(Json data) {
    Reply reply;
    reply.payload["result"]["data"] = std::move(data);
    return reply;
}

Reply Data(Json data) {
    Reply reply;
    reply.payload["data"] = std::move(data);
    return reply;
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
