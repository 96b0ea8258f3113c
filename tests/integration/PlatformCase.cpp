#include "PlatformCase.h"

#include <ostream>

namespace vantix::test {

void PrintTo(const PlatformCase& row, std::ostream* out) { *out << row.name; }

Pairs WithClient(Pairs more) {
    const Pairs client = {{"accessToken", "$token"},
                          {"clientType", "19"},
                          {"featureCode", "$feature"},
                          {"osVersion", "wins"},
                          {"netType", "UNKNOWN"},
                          {"clientVersion", "v5.25.0"},
                          {"sdkVersion", "v5.25.0.20260515"}};
    more.insert(more.end(), client.begin(), client.end());
    return more;
}

std::vector<PlatformCase> PlatformCases() {
    std::vector<PlatformCase> all;
    for (const auto subject : {DeviceCases, ServerCases, TokenCases, ListCases, RecordingCases, AccountCases}) {
        for (PlatformCase& row : subject()) {
            all.push_back(std::move(row));
        }
    }
    return all;
}

}  // namespace vantix::test
