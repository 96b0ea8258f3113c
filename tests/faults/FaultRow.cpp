#include "faults/FaultRow.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

namespace vantix::test {
namespace {

using Words = std::vector<std::pair<std::string, std::string>>;

std::string HexNumber(size_t number) {
    char text[20];
    std::snprintf(text, sizeof text, "%zx", number);
    return text;
}

/// Longer words first: one may begin like another.
Words WordsOf(const Subject& subject, const Json& addresses) {
    const size_t length = subject.body.size();
    return {
        {"$expired", subject.expiredCode},
        {"$refresh", subject.refreshPath},
        {"$length", std::to_string(length)},
        {"$path", subject.path},
        {"$long", subject.longBody},
        {"$list", subject.listBody},
        {"$body", subject.body},
        {"$half", subject.body.substr(0, length / 2)},
        {"$hexLength", HexNumber(length)},
        {"$serial", subject.serial},
        {"$query", "deviceSerial=" + subject.serial},
        {"$host", addresses.value(subject.IsConsumer() ? "cHost" : "bHost", "")},
        {"$port", addresses.value(subject.IsConsumer() ? "cPort" : "bPort", "")},
        {"$other", addresses.value(subject.IsConsumer() ? "b" : "c", "")},
        {"$closed", addresses.value("closed", "")},
    };
}

std::string Replaced(std::string text, const Words& words) {
    size_t at = 0;
    while ((at = text.find('$', at)) != std::string::npos) {
        const auto word = std::find_if(words.begin(), words.end(), [&](const auto& one) {
            return text.compare(at, one.first.size(), one.first) == 0;
        });
        if (word == words.end()) {
            ++at;
            continue;
        }
        text.replace(at, word->first.size(), word->second);
        at += word->second.size();
    }
    return text;
}

}  // namespace

const Outcome& FaultCase::Expected() const {
    if (subject.isTask && row.task) {
        return *row.task;
    }
    return subject.IsConsumer() && row.consumer ? *row.consumer : row.outcome;
}

void PrintTo(const FaultCase& fault, std::ostream* out) { *out << fault.Name(); }

std::vector<FaultCase> CasesOf(const std::vector<FaultRow>& rows) {
    std::vector<FaultCase> cases;
    for (const FaultRow& row : rows) {
        for (const Subject& subject : Subjects()) {
            const bool isMeant =
                std::find(row.families.begin(), row.families.end(), subject.family) != row.families.end();
            // Another operation has one front only.
            if (isMeant && !(subject.isTask && row.operation)) {
                cases.push_back({row, subject});
            }
        }
    }
    return cases;
}

std::string Filled(std::string text, const Subject& subject, const Json& addresses) {
    return Replaced(std::move(text), WordsOf(subject, addresses));
}

Json Filled(const Json& json, const Subject& subject, const Json& addresses) {
    if (json.is_string()) {
        return Filled(json.get<std::string>(), subject, addresses);
    }
    Json filled = json;
    if (json.is_structured()) {
        for (auto& member : filled) {
            member = Filled(member, subject, addresses);
        }
    }
    return filled;
}

}  // namespace vantix::test
