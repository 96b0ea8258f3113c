// The table of consumer requests is held against a page that was written by hand.

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cserver/RequestTable.h"
#include "support/TestData.h"

namespace vantix::test {
namespace {

using Texts = std::vector<std::string>;

/// One request as both sides can be brought to: the columns of the page, blanks trimmed.
struct Row {
    Texts columns;

    bool operator==(const Row&) const = default;
};

void PrintTo(const Row& row, std::ostream* out) {
    for (const std::string& column : row.columns) {
        *out << column << " | ";
    }
}

std::string Trimmed(const std::string& text) {
    const size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::vector<Row> ReadPage() {
    std::vector<Row> rows;
    std::ifstream page(TestData("consumer_requests.txt"));
    for (std::string line; std::getline(page, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        Row row;
        std::istringstream stream(line);
        for (std::string column; std::getline(stream, column, '|');) {
            row.columns.push_back(Trimmed(column));
        }
        EXPECT_EQ(row.columns.size(), 9U) << line;
        rows.push_back(row);
    }
    return rows;
}

std::string TransportOf(Way way) {
    switch (way) {
        case Way::Get: return "SyncRequestHeader";
        case Way::BodylessPost: return "SyncRequestHeaderPost";
        case Way::Put: return "SyncPutRequestHeader";
        default: return "a way that these servers do not know";
    }
}

std::string ParametersOf(const RequestRow& row) {
    std::string text;
    for (const char* own : row.own) {
        if (own != nullptr) {
            text += std::string(" ") + own;
        }
    }
    for (const FixedParameter& fixed : row.fixed) {
        if (fixed.key != nullptr) {
            text += std::string(" ") + fixed.key + "=" + fixed.value;
        }
    }
    return text.empty() ? "-" : text.substr(1);
}

std::string HeadersOf(const RequestRow& row) {
    const auto carries = [&](unsigned what) { return (row.carried & what) != 0; };
    std::string text = carries(carries::kHeadersA) ? "A" : "";
    text += carries(carries::kHeadersB) ? "B" : "";
    text += carries(carries::kSessionHeader) ? "sessionId" : "";
    text += carries(carries::kFormHeader) ? " +form" : "";
    const unsigned known = carries::kHeadersA | carries::kHeadersB | carries::kSessionHeader | carries::kFormHeader;
    return (row.carried & ~known) == 0 ? text : text + " and more";
}

/// A label without the part that all of its kind share.
template <class Format>
std::string LabelOf(const Format& label, const std::string& shared) {
    if (!label.IsThere()) {
        return "-";
    }
    const std::string text = label.format;
    const size_t at = text.size() - std::min(text.size(), shared.size());
    return text.substr(at) == shared ? text.substr(0, at) : text;
}

Row FromCode(const RequestRow& row) {
    return {{row.name, TransportOf(row.way), std::to_string(row.endpoint), ParametersOf(row), HeadersOf(row),
             LabelOf(row.transportFailure, ":%d"), LabelOf(row.checkFailure, ":%s error:%d"),
             LabelOf(row.parserFailure, ":%s error:%d"), LabelOf(row.cost, " CostTime: = %ld milliseconds")}};
}

TEST(ConsumerDrift, CodeAndPageHaveTheSameRequestsInTheSameOrder) {
    std::vector<Row> code;
    for (const RequestRow* row : cserver_requests::kAll) {
        // The list of shared devices stands on the platform's page: it belongs to that family.
        if (row != &cserver_requests::kSharedDevices) {
            code.push_back(FromCode(*row));
        }
    }
    EXPECT_EQ(code.size(), 8U) << "seven requests, one of them in two transfers";
    EXPECT_THAT(code, ::testing::ElementsAreArray(ReadPage()));
}

}  // namespace
}  // namespace vantix::test
