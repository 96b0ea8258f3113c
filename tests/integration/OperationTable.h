#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vantix::test {

/// An operation that may send a request, as the table in the documents has it.
struct OperationRow {
    std::string slot;
    std::string name;
    std::vector<std::string> arguments;
    std::string ownRequest;      ///< For what is the account's own.
    std::string sharedRequest;   ///< For what is shared in mode 2; often the same.
    std::string cache;           ///< "-" when there is none.
    std::string credentials[4];  ///< In mode 0, 1, 2 for what is the account's own, 2 for what is shared.
    std::string domain;
    std::string renewal;

    bool Takes(const std::string& argument) const;
    bool Renews(const std::string& what) const { return renewal.find(what) != std::string::npos; }
};

void PrintTo(const OperationRow& row, std::ostream* out);

/// All of them.
std::vector<OperationRow> ReadOperations();

}  // namespace vantix::test
