#include "Routes.h"

#include "../Bytes.h"
#include "../cloud/Sample.h"
#include "../cloud/Uploads.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantix::simulator {
namespace {

Cloud& CloudOf(ControlCall& call) { return call.control.GetService().GetCloud(); }

ControlOutcome Done(Json content = Json::object()) { return {200, std::move(content)}; }

ControlOutcome GetInfo(ControlCall& call) { return Done(call.control.Info()); }

ControlOutcome GetStatistics(ControlCall& call) { return Done(call.control.Statistics()); }

ControlOutcome Reset(ControlCall& call) {
    call.control.GetService().Reset();
    return Done(call.control.Info());
}

ControlOutcome GetDevices(ControlCall& call) {
    return Done(CloudOf(call).With([](CloudState& state) { return state.devices; }));
}

bool IsDevice(const Json& device) { return Member(device, "deviceSerial").is_string(); }

ControlOutcome PutDevices(ControlCall& call) {
    if (!call.content.is_array() || !std::all_of(call.content.begin(), call.content.end(), IsDevice)) {
        return Problem(400, "an array of devices is expected, each with a deviceSerial");
    }
    return Done(CloudOf(call).With([&](CloudState& state) {
        state.devices = call.content;
        return state.devices;
    }));
}

ControlOutcome GetDevice(ControlCall& call) {
    return CloudOf(call).With([&](CloudState& state) {
        const Json* device = FindDevice(state, call.names[1]);
        return device == nullptr ? Problem(404, "no such device") : Done(*device);
    });
}

ControlOutcome PutDevice(ControlCall& call) {
    if (!call.content.is_object()) {
        return Problem(400, "an object is expected");
    }
    return CloudOf(call).With([&](CloudState& state) {
        Json* device = FindDevice(state, call.names[1]);
        if (device == nullptr) {
            state.devices.push_back(SampleCamera(call.names[1]));
            device = &state.devices.back();
        }
        device->merge_patch(call.content);
        return Done(*device);
    });
}

ControlOutcome DeleteDevice(ControlCall& call) {
    return CloudOf(call).With([&](CloudState& state) {
        for (auto device = state.devices.begin(); device != state.devices.end(); ++device) {
            if (TextOf(*device, "deviceSerial") == call.names[1]) {
                state.devices.erase(device);
                return Done();
            }
        }
        return Problem(404, "no such device");
    });
}

ControlOutcome PutCamera(ControlCall& call) {
    if (!call.content.is_object()) {
        return Problem(400, "an object is expected");
    }
    return CloudOf(call).With([&](CloudState& state) {
        Json* device = FindDevice(state, call.names[1]);
        Json* camera = device == nullptr ? nullptr : FindCamera(*device, ToNumber(call.names[3], -1));
        if (camera == nullptr) {
            return Problem(404, "no such camera");
        }
        camera->merge_patch(call.content);
        return Done(*camera);
    });
}

ControlOutcome GetAccount(ControlCall& call) {
    return Done(CloudOf(call).With([](CloudState& state) { return state.account; }));
}

ControlOutcome PutAccount(ControlCall& call) {
    if (!call.content.is_object()) {
        return Problem(400, "an object is expected");
    }
    return Done(CloudOf(call).With([&](CloudState& state) {
        MergeAccount(state, call.content);
        return state.account;
    }));
}

ControlOutcome Expire(ControlCall& call) {
    const std::string what = TextOf(call.content, "what");
    if (what != "accessToken" && what != "session") {
        return Problem(400, "what is accessToken or session");
    }
    CloudOf(call).With([&](CloudState& state) { (what == "session" ? state.sessions : state.tokens).Expire(); });
    return Done();
}

ControlOutcome AddScriptedResponses(ControlCall& call) {
    const std::string problem = call.control.GetService().GetScriptedResponses().Add(call.content);
    return problem.empty() ? Done() : Problem(400, problem);
}

ControlOutcome ListScriptedResponses(ControlCall& call) {
    return Done(call.control.GetService().GetScriptedResponses().List());
}

ControlOutcome DeleteScriptedResponses(ControlCall& call) {
    call.control.GetService().GetScriptedResponses().Clear();
    call.control.GetService().GetDelays().ReleaseAll();
    return Done();
}

ControlOutcome GetHolds(ControlCall& call) { return Done(Json(call.control.GetService().GetDelays().Waiting())); }

ControlOutcome Release(ControlCall& call) {
    const std::string hold = TextOf(call.content, "hold");
    if (hold.empty()) {
        return Problem(400, "hold is the name of a hold");
    }
    call.control.GetService().GetDelays().Release(hold);
    return Done();
}

std::optional<Fault::End> EndOf(const std::string& then) {
    if (then.empty() || then == "close") {
        return Fault::End::close;
    }
    if (then == "reset") {
        return Fault::End::reset;
    }
    return then == "keepOpen" ? std::optional(Fault::End::keepOpen) : std::nullopt;
}

/// `{"protocol":"http/1.1"|"h2","isExpired":false}`, both optional; without the member "tls" there is no handshake.
std::optional<TlsOptions> TlsOf(const Json& content) {
    const Json& tls = Member(content, "tls");
    if (!tls.is_object()) {
        return std::nullopt;
    }
    const auto validity = Member(tls, "isExpired") == true ? Validity::expired : Validity::current;
    return TlsOptions{TextOf(tls, "protocol", "http/1.1"), MakeCertificate(validity)};
}

ControlOutcome OpenFault(ControlCall& call) {
    const auto bytes = FromHex(TextOf(call.content, "sendHex"));
    const auto end = EndOf(TextOf(call.content, "then"));
    if (!bytes || !end) {
        return Problem(400, "sendHex is hexadecimal, then is close, reset or keepOpen");
    }
    const std::string text = TextOf(call.content, "send");
    return Done({{"address", call.control.GetService().GetFaults().Open({text + *bytes, *end, TlsOf(call.content)})}});
}

ControlOutcome ListFaults(ControlCall& call) {
    Json list = Json::array();
    for (const auto& [address, connections] : call.control.GetService().GetFaults().Ports()) {
        list.push_back({{"address", address}, {"connections", connections}});
    }
    return Done(std::move(list));
}

ControlOutcome CloseFaults(ControlCall& call) {
    call.control.GetService().GetFaults().Clear();
    return Done();
}

ControlOutcome SetFaultRate(ControlCall& call) {
    const std::string problem = call.control.GetService().GetFaultRate().Set(call.content);
    return problem.empty() ? Done() : Problem(400, problem);
}

ControlOutcome GetFaultRate(ControlCall& call) { return Done(call.control.GetService().GetFaultRate().Report()); }

ControlOutcome DeleteFaultRate(ControlCall& call) {
    call.control.GetService().GetFaultRate().Clear();
    return Done();
}

ControlOutcome Listed(const std::vector<ReceivedRequest>& entries) {
    Json list = Json::array();
    for (const ReceivedRequest& entry : entries) {
        list.push_back(ToJson(entry));
    }
    return Done(std::move(list));
}

ControlOutcome GetJournal(ControlCall& call) { return Listed(call.control.GetService().GetJournal().Entries()); }

ControlOutcome TakeJournal(ControlCall& call) {
    const long long most = NumberOf(call.content, "most", static_cast<long long>(Journal::capacity));
    return most < 1 ? Problem(400, "most is a number from 1 on")
                    : Listed(call.control.GetService().GetJournal().Take(static_cast<std::size_t>(most)));
}

ControlOutcome DeleteJournal(ControlCall& call) {
    call.control.GetService().GetJournal().Clear();
    return Done();
}

ControlOutcome GetUploads(ControlCall& call) {
    return Done(CloudOf(call).With([](CloudState& state) {
        Json list = Json::array();
        for (const Upload& upload : state.uploads) {
            list.push_back(ToJson(upload));
        }
        return list;
    }));
}

constexpr std::array routes = {
    Route{"GET", "/info", GetInfo},
    Route{"GET", "/stats", GetStatistics},
    Route{"POST", "/reset", Reset},
    Route{"GET", "/devices", GetDevices},
    Route{"PUT", "/devices", PutDevices},
    Route{"GET", "/devices/*", GetDevice},
    Route{"PUT", "/devices/*", PutDevice},
    Route{"DELETE", "/devices/*", DeleteDevice},
    Route{"PUT", "/devices/*/cameras/*", PutCamera},
    Route{"GET", "/account", GetAccount},
    Route{"PUT", "/account", PutAccount},
    Route{"POST", "/expire", Expire},
    Route{"GET", "/scripted-responses", ListScriptedResponses},
    Route{"POST", "/scripted-responses", AddScriptedResponses},
    Route{"DELETE", "/scripted-responses", DeleteScriptedResponses},
    Route{"GET", "/holds", GetHolds},
    Route{"POST", "/release", Release},
    Route{"POST", "/faults", OpenFault},
    Route{"GET", "/faults", ListFaults},
    Route{"DELETE", "/faults", CloseFaults},
    Route{"GET", "/fault-rate", GetFaultRate},
    Route{"PUT", "/fault-rate", SetFaultRate},
    Route{"DELETE", "/fault-rate", DeleteFaultRate},
    Route{"GET", "/journal", GetJournal},
    Route{"POST", "/journal/take", TakeJournal},
    Route{"DELETE", "/journal", DeleteJournal},
    Route{"GET", "/uploads", GetUploads},
};

}  // namespace

std::span<const Route> Routes() { return routes; }

}  // namespace vantix::simulator
