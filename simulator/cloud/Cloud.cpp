#include "Cloud.h"

#include "Sample.h"

namespace vantix::simulator {
namespace {

void Accept(std::set<std::string>& known, const Json& account, std::string_view key) {
    if (const std::string value = TextOf(account, key); !value.empty()) {
        known.insert(value);
    }
}

void AcceptCredentials(CloudState& state, const Json& source) {
    Accept(state.tokens.valid, source, "accessToken");
    Accept(state.tokens.valid, source, "sharedAccessToken");
    Accept(state.tokens.validForRefresh, source, "refreshToken");
    Accept(state.sessions.valid, source, "sessionId");
    Accept(state.sessions.validForRefresh, source, "refreshSessionId");
}

}  // namespace

std::string CloudState::IssueUnique(const std::string& prefix) {
    std::string digits = std::to_string(++m_issued);
    digits.insert(0, digits.size() < 6 ? 6 - digits.size() : 0, '0');
    return prefix + digits;
}

Cloud::Cloud(std::string bDomain, std::string cDomain) {
    m_state.bDomain = std::move(bDomain);
    m_state.cDomain = std::move(cDomain);
    Reset();
}

void Cloud::Reset() {
    const std::lock_guard lock(m_mutex);
    m_state.account = SampleAccount(m_state.bDomain);
    m_state.devices = SampleDevices();
    m_state.tokens = {};
    m_state.sessions = {};
    m_state.uploads.clear();
    AcceptCredentials(m_state, m_state.account);
}

Json* FindDevice(CloudState& state, const std::string& serial) {
    for (Json& device : state.devices) {
        if (TextOf(device, "deviceSerial") == serial) {
            return &device;
        }
    }
    return nullptr;
}

Json* FindCamera(Json& device, long long cameraNo) {
    if (!device.contains("cameras")) {
        return nullptr;
    }
    for (Json& camera : device["cameras"]) {
        if (NumberOf(camera, "cameraNo", -1) == cameraNo) {
            return &camera;
        }
    }
    return nullptr;
}

void MergeAccount(CloudState& state, const Json& changes) {
    state.account.merge_patch(changes);
    AcceptCredentials(state, changes);
}

}  // namespace vantix::simulator
