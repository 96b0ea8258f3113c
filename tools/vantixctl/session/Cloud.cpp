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

bool Same(char left, char right) {
    return std::tolower(static_cast<unsigned char>(left)) == std::tolower(static_cast<unsigned char>(right));
}

bool IsForm(const simulator::Exchange& exchange) {
    constexpr std::string_view kName = "content-type";
    return std::any_of(exchange.headers.begin(), exchange.headers.end(), [&](const auto& header) {
        return std::equal(header.first.begin(), header.first.end(), kName.begin(), kName.end(), &Same) &&
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

std::vector<SeenRequest> Cloud::Seen() const {
    std::vector<SeenRequest> seen;
    for (const simulator::Exchange& exchange : m_parts->simulator.Journal()) {
        SeenRequest request{
            exchange.domain == simulator::Domain::b ? "platform" : "consumer", exchange.method, exchange.path, {}, {}};
        AddPairs(exchange.query, request.parameters);
        if (IsForm(exchange)) {
            AddPairs(exchange.body, request.parameters);
        } else {
            request.otherBody = exchange.body;
        }
        seen.push_back(std::move(request));
    }
    return seen;
}

#else

struct Cloud::Parts {};

Cloud::Cloud() { throw std::runtime_error("this build has no loopback cloud: give --b-domain or --c-domain"); }

bool Cloud::IsAvailable() { return false; }

Json Cloud::Credentials() const { return Json::object(); }

std::string Cloud::ControlAddress() const { return {}; }

std::vector<SeenRequest> Cloud::Seen() const { return {}; }

#endif

Cloud::~Cloud() = default;

}  // namespace vantix::ctl
