#include "session/Cloud.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <string_view>

#if defined(VANTIX_WITH_SIMULATOR)
#include "simulator/Simulator.h"
#endif

namespace vantix::ctl {

#if defined(VANTIX_WITH_SIMULATOR)

namespace {

using PairList = std::vector<std::pair<std::string, std::string>>;

void AddPairs(const std::string& text, PairList& pairs) {
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find('&', start), text.size());
        const std::string pair = text.substr(start, end - start);
        const size_t equals = std::min(pair.find('='), pair.size());
        pairs.emplace_back(pair.substr(0, equals), equals < pair.size() ? pair.substr(equals + 1) : std::string());
        start = end + 1;
    }
}

bool IsSameLetter(char left, char right) {
    return std::tolower(static_cast<unsigned char>(left)) == std::tolower(static_cast<unsigned char>(right));
}

bool IsForm(const simulator::ReceivedRequest& request) {
    constexpr std::string_view kName = "content-type";
    return std::any_of(request.headers.begin(), request.headers.end(), [&](const auto& header) {
        return std::equal(header.first.begin(), header.first.end(), kName.begin(), kName.end(), &IsSameLetter) &&
               header.second.starts_with("application/x-www-form-urlencoded");
    });
}

}  // namespace

struct Cloud::Parts {
    simulator::Simulator simulator;
};

Cloud::Cloud() : m_parts(std::make_unique<Parts>()) {}

bool Cloud::IsAvailable() { return true; }

Json Cloud::Credentials() const { return Parsed(m_parts->simulator.InfoJson()); }

std::string Cloud::ControlAddress() const { return m_parts->simulator.ControlAddress(); }

std::vector<ReceivedRequest> Cloud::ReceivedRequests() const {
    std::vector<ReceivedRequest> requests;
    for (const simulator::ReceivedRequest& received : m_parts->simulator.Journal()) {
        ReceivedRequest request{
            received.domain == simulator::Domain::b ? "platform" : "consumer", received.method, received.path, {}, {}};
        AddPairs(received.query, request.parameters);
        if (IsForm(received)) {
            AddPairs(received.body, request.parameters);
        } else {
            request.otherBody = received.body;
        }
        requests.push_back(std::move(request));
    }
    return requests;
}

#else

struct Cloud::Parts {};

Cloud::Cloud() { throw std::runtime_error("this build has no loopback cloud: give --b-domain or --c-domain"); }

bool Cloud::IsAvailable() { return false; }

Json Cloud::Credentials() const { return Json::object(); }

std::string Cloud::ControlAddress() const { return {}; }

std::vector<ReceivedRequest> Cloud::ReceivedRequests() const { return {}; }

#endif

Cloud::~Cloud() = default;

}  // namespace vantix::ctl
