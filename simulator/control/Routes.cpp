#include "Routes.h"

#include "../Bytes.h"
#include "../cloud/Sample.h"
#include "../cloud/Uploads.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantix::simulator {
namespace {

Cloud& CloudOf(ControlCall& call) { return call.control.ServiceOf().CloudOf(); }

ControlReply Done(Json content = Json::object()) { return {200, std::move(content)}; }

ControlReply GetInfo(ControlCall& call) { return Done(call.control.Info()); }

ControlReply GetStatistics(ControlCall& call) { return Done(call.control.Statistics()); }

ControlReply Reset(ControlCall& call) {
    call.control.ServiceOf().Reset();
    return Done(call.control.Info());
}

ControlReply GetDevices(ControlCall& call) {
    return Done(CloudOf(call).With([](CloudState& state) { return state.devices; }));
}

bool IsDevice(const Json& device) { return Member(device, "deviceSerial").is_string(); }

ControlReply PutDevices(ControlCall& call) {
    if (!call.content.is_array() || !std::all_of(call.content.begin(), call.content.end(), IsDevice)) {
        return Problem(400, "an array of devices is expected, each with a deviceSerial");
    }
    return Done(CloudOf(call).With([&](CloudState& state) {
        state.devices = call.content;
        return state.devices;
    }));
}

ControlReply GetDevice(ControlCall& call) {
    return CloudOf(call).With([&](CloudState& state) {
        const Json* device = FindDevice(state, call.names[1]);
        return device == nullptr ? Problem(404, "no such device") : Done(*device);
    });
}

ControlReply PutDevice(ControlCall& call) {
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

ControlReply DeleteDevice(ControlCall& call) {
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

ControlReply PutCamera(ControlCall& call) {
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

ControlReply GetAccount(ControlCall& call) {
    return Done(CloudOf(call).With([](CloudState& state) { return state.account; }));
}

ControlReply PutAccount(ControlCall& call) {
    if (!call.content.is_object()) {
        return Problem(400, "an object is expected");
    }
    return Done(CloudOf(call).With([&](CloudState& state) {
        MergeAccount(state, call.content);
        return state.account;
    }));
}

ControlReply Expire(ControlCall& call) {
    const std::string what = TextOf(call.content, "what");
    if (what != "accessToken" && what != "session") {
        return Problem(400, "what is accessToken or session");
    }
    CloudOf(call).With([&](CloudState& state) { (what == "session" ? state.sessions : state.tokens).Expire(); });
    return Done();
}

ControlReply AddPlans(ControlCall& call) {
    const std::string problem = call.control.ServiceOf().PlansOf().Add(call.content);
    return problem.empty() ? Done() : Problem(400, problem);
}

ControlReply GetPlans(ControlCall& call) { return Done(call.control.ServiceOf().PlansOf().List()); }

ControlReply DeletePlans(ControlCall& call) {
    call.control.ServiceOf().PlansOf().Clear();
    call.control.ServiceOf().PauseOf().ReleaseAll();
    return Done();
}

ControlReply GetHolds(ControlCall& call) { return Done(Json(call.control.ServiceOf().PauseOf().Waiting())); }

ControlReply Release(ControlCall& call) {
    const std::string gate = TextOf(call.content, "hold");
    if (gate.empty()) {
        return Problem(400, "which hold?");
    }
    call.control.ServiceOf().PauseOf().Release(gate);
    return Done();
}

std::optional<TrapConduct::End> EndOf(const std::string& then) {
    if (then.empty() || then == "close") {
        return TrapConduct::End::close;
    }
    if (then == "reset") {
        return TrapConduct::End::reset;
    }
    return then == "hold" ? std::optional(TrapConduct::End::hold) : std::nullopt;
}

/// `{"protocol":"http/1.1"|"h2","isExpired":false}`, both optional; without the member no hands are shaken.
std::optional<TlsConduct> TlsOf(const Json& content) {
    const Json& tls = Member(content, "tls");
    if (!tls.is_object()) {
        return std::nullopt;
    }
    const auto validity = Member(tls, "isExpired") == true ? Validity::expired : Validity::current;
    return TlsConduct{TextOf(tls, "protocol", "http/1.1"), MakeCertificate(validity)};
}

ControlReply OpenTrap(ControlCall& call) {
    const auto bytes = FromHex(TextOf(call.content, "sendHex"));
    const auto end = EndOf(TextOf(call.content, "then"));
    if (!bytes || !end) {
        return Problem(400, "sendHex is hexadecimal, then is close, reset or hold");
    }
    const std::string text = TextOf(call.content, "send");
    return Done({{"address", call.control.ServiceOf().TrapsOf().Open({text + *bytes, *end, TlsOf(call.content)})}});
}

ControlReply CloseTraps(ControlCall& call) {
    call.control.ServiceOf().TrapsOf().Clear();
    return Done();
}

ControlReply GetJournal(ControlCall& call) {
    Json list = Json::array();
    for (const Exchange& entry : call.control.ServiceOf().JournalOf().Entries()) {
        list.push_back(ToJson(entry));
    }
    return Done(std::move(list));
}

ControlReply DeleteJournal(ControlCall& call) {
    call.control.ServiceOf().JournalOf().Clear();
    return Done();
}

ControlReply GetUploads(ControlCall& call) {
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
    Route{"GET", "/plans", GetPlans},
    Route{"POST", "/plans", AddPlans},
    Route{"DELETE", "/plans", DeletePlans},
    Route{"GET", "/holds", GetHolds},
    Route{"POST", "/release", Release},
    Route{"POST", "/traps", OpenTrap},
    Route{"DELETE", "/traps", CloseTraps},
    Route{"GET", "/journal", GetJournal},
    Route{"DELETE", "/journal", DeleteJournal},
    Route{"GET", "/uploads", GetUploads},
};

}  // namespace

std::span<const Route> Routes() { return routes; }

}  // namespace vantix::simulator
