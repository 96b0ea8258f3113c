// The table of platform requests is held against a page that was written by hand.

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cserver/RequestTable.h"
#include "platform/RequestTable.h"
#include "support/TestData.h"

namespace vantix::test {
namespace {

using Texts = std::vector<std::string>;

std::string Trimmed(const std::string& text) {
    const size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

Texts Split(const std::string& text, char separator) {
    Texts parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(Trimmed(part));
    }
    return parts;
}

constexpr const char* kClientSet[] = {"clientType",    "featureCode", "osVersion",
                                      "clientVersion", "netType",     "sdkVersion"};

/// One request as both sides can be brought to: everything in it is comparable text.
struct Comparable {
    std::string name;
    std::string transport;
    std::string index;
    Texts parameters;  ///< Sorted, with headers as "@name=value".
    Texts labels;      ///< Transport failure, first check, parser, cost.

    bool operator==(const Comparable&) const = default;
};

void PrintTo(const Comparable& request, std::ostream* out) {
    *out << request.name << " | " << request.transport << " | " << request.index << " |";
    for (const std::string& parameter : request.parameters) {
        *out << ' ' << parameter;
    }
    for (const std::string& label : request.labels) {
        *out << " | " << label;
    }
}

std::string WithTail(const std::string& text, const char* tail) { return text == "-" ? text : text + tail; }

Comparable FromPage(const Texts& columns) {
    Comparable request{columns[0], columns[1], columns[2], {}, {}};
    for (const std::string& parameter : Split(columns[3], ' ')) {
        if (parameter == "<client>") {
            request.parameters.insert(request.parameters.end(), std::begin(kClientSet), std::end(kClientSet));
        } else if (parameter != "-" && parameter.front() != '[') {
            request.parameters.push_back(parameter);
        }
    }
    std::sort(request.parameters.begin(), request.parameters.end());
    request.labels = {WithTail(columns[4], ":%d"), WithTail(columns[5], ":%s error:%d"),
                      WithTail(columns[6], ":%s error:%d"), WithTail(columns[7], " CostTime: = %ld milliseconds")};
    return request;
}

std::vector<Comparable> ReadPage() {
    std::vector<Comparable> requests;
    std::ifstream page(TestData("platform_requests.txt"));
    for (std::string line; std::getline(page, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const Texts columns = Split(line, '|');
        if (columns.size() != 8) {
            ADD_FAILURE() << "not eight columns: " << line;
            continue;
        }
        requests.push_back(FromPage(columns));
    }
    return requests;
}

const char* TransportOf(Way way) {
    switch (way) {
        case Way::Form: return "SyncRequest";
        case Way::Json: return "SyncRequestjson";
        case Way::Ticket: return "SyncRequest_v2";
        case Way::Get: return "SyncRequestHeader";
        case Way::BodylessPost: return "SyncRequestHeaderPost";
        case Way::Put: return "SyncPutRequestHeader";
    }
    return "?";
}

Texts CarriedBy(const RequestRow& row) {
    Texts carried;
    const auto carries = [&](unsigned what) { return (row.carried & what) != 0; };
    if (carries(carries::kAccessToken)) {
        carried.emplace_back("accessToken");
    }
    if (carries(carries::kAppKey)) {
        carried.emplace_back("appKey");
    }
    if (carries(carries::kFormHeader)) {
        carried.emplace_back("@Content-Type=application/x-www-form-urlencoded");
    }
    if (carries(carries::kSessionHeader)) {
        carried.emplace_back("@sessionId");
    }
    if (carries(carries::kClientSet)) {
        carried.insert(carried.end(), std::begin(kClientSet), std::end(kClientSet));
    }
    return carried;
}

template <class Format>
std::string LabelOf(const Format& text) {
    return text.IsThere() ? text.format : "-";
}

Comparable FromRow(const RequestRow& row) {
    Comparable request{row.name, TransportOf(row.way), std::to_string(row.endpoint), CarriedBy(row), {}};
    for (const char* own : row.own) {
        if (own != nullptr) {
            request.parameters.emplace_back(own);
        }
    }
    for (const FixedParameter& fixed : row.fixed) {
        if (fixed.key != nullptr) {
            request.parameters.push_back(std::string(fixed.key) + "=" + fixed.value);
        }
    }
    std::sort(request.parameters.begin(), request.parameters.end());
    request.labels = {LabelOf(row.transportFailure), LabelOf(row.checkFailure), LabelOf(row.parserFailure),
                      LabelOf(row.cost)};
    return request;
}

std::vector<Comparable> ReadCode() {
    std::vector<Comparable> requests;
    for (const RequestRow* row : platform_requests::kAll) {
        requests.push_back(FromRow(*row));
    }
    // The list of devices shared on the consumer servers belongs to this family and lives with the other.
    requests.push_back(FromRow(cserver_requests::kSharedDevices));
    return requests;
}

TEST(RequestDrift, PageHasEveryRequestOfTheCode) {
    const std::vector<Comparable> page = ReadPage();
    for (const Comparable& request : ReadCode()) {
        EXPECT_THAT(page, ::testing::Contains(request));
    }
}

TEST(RequestDrift, CodeHasEveryRequestOfThePage) {
    const std::vector<Comparable> code = ReadCode();
    const std::vector<Comparable> page = ReadPage();
    EXPECT_EQ(page.size(), 38U);
    for (const Comparable& request : page) {
        EXPECT_THAT(code, ::testing::Contains(request));
    }
    EXPECT_EQ(code.size(), page.size());
}

}  // namespace
}  // namespace vantix::test
