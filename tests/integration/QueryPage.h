#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vantix::test {

/// A one-shot query as the page that was written by hand has it.
struct QueryPageRow {
    std::string slot;
    std::string name;
    std::string request;
    std::string tkKind;
    bool isRefreshed = false;
    std::string domain;
    std::vector<std::string> deviations;

    bool Deviates(const std::string& how) const;
    /// What is sent for a shared channel or token in mode 2.
    std::string SharedRequest() const;
    /// Whether the consumer session goes with that, in the place of a token.
    bool SharesSession() const { return tkKind == "session" || SharedRequest() != request; }
};

void PrintTo(const QueryPageRow& row, std::ostream* out);

std::vector<QueryPageRow> ReadQueryPage();

}  // namespace vantix::test
