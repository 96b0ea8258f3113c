#pragma once

#include "../Json.h"

#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantix::simulator {

/// Credentials of one kind: several may be valid at once, since two clients may refresh at the same time.
struct Credentials {
    std::set<std::string> valid;
    std::set<std::string> validForRefresh;

    /// Makes all credentials issued so far invalid.
    void Expire() { valid.clear(); }
};

/// An upload address that was issued, and what was uploaded to it.
struct Upload {
    std::string id;
    std::string url;
    std::string fileName;
    std::string fileType;
    bool received = false;
    Json fields = Json::object();
    std::string content;
};

/// The data of the cloud. Not safe by itself: `Cloud` guards it.
struct CloudState {
    Json account = Json::object();
    Json devices = Json::array();
    Credentials tokens;
    Credentials sessions;
    std::vector<Upload> uploads;
    std::string bDomain;
    std::string cDomain;

    /// Issues a text that was never issued before: the prefix and a number.
    std::string IssueUnique(const std::string& prefix);

private:
    unsigned long long m_issued = 0;
};

/// The account's state behind one lock, which no request keeps while it is delayed.
class Cloud {
public:
    /// Starts with the sample data for these addresses.
    Cloud(std::string bDomain, std::string cDomain);

    void Reset();

    template <typename Function>
    auto With(Function&& function) {
        const std::lock_guard lock(m_mutex);
        return std::forward<Function>(function)(m_state);
    }

private:
    std::mutex m_mutex;
    CloudState m_state;
};

/// The device of this serial, null when there is none. The pointer is valid until the device list changes.
Json* FindDevice(CloudState& state, const std::string& serial);

/// The device's camera of this number, null when there is none.
Json* FindCamera(Json& device, long long cameraNo);

/// Merges the changes into the account (null deletes a member); new credentials in them become valid.
void MergeAccount(CloudState& state, const Json& changes);

}  // namespace vantix::simulator
