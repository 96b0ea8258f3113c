#pragma once

/// @file
/// One parser of the platform's responses as its tests see it: a whole response, the record that it makes, and for each
/// member the values that it takes and what becomes of all others.

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/TextView.h"
#include "support/CleanSwitches.h"
#include "support/FailingNew.h"
#include "support/LogCapture.h"
#include "support/MemberValues.h"
#include "support/PlatformRecords.h"
#include "support/TestJson.h"

namespace vantix::test {

struct ResponseMember {
    std::string place;  ///< JSON pointer into the response.
    const MemberValues& (*values)() = TextValues;
    std::vector<std::string> fields{};  ///< JSON pointers into the record that hold it; the first takes the values.
    bool isRequired = false;
    std::string line{};               ///< Of a response without it; "$body" is the response.
    std::string word = "ERROR";       ///< Of the line.
    std::optional<Json> otherwise{};  ///< What the fields hold without it; else what `ParserCase::defaults` says.
    std::optional<Json> shorter{};    ///< The whole record without it, where a list gets shorter.
};

/// How the response's code is found.
enum class EnvelopeRuleKind {
    None,
    Common,
    Meta,
    StrictMeta,
    Result,  ///< The "code" of "result" alone.
};

struct ParserCase {
    std::string name;  ///< The parser's, and its log tag.
    EnvelopeRuleKind envelope = EnvelopeRuleKind::Common;
    Json payload{};   ///< Of the whole response, without its code.
    Json before{};    ///< The record that a parser is handed.
    Json after{};     ///< What the whole response makes of it.
    Json defaults{};  ///< Its fields for members that are not there.
    std::function<int(const std::string& body, Json& record)> parse{};
    std::vector<ResponseMember> members{};
    std::string firstLine{};           ///< Written before anything else; "$body" is the response.
    std::string acceptedLine{};        ///< Written for every response whose code is good.
    std::vector<std::string> lines{};  ///< Written for the whole response.
    std::string linesWord = "INFO ";
    std::string lastLine{};  ///< Written after everything else; "$code" is the code.
    std::string copied{};    ///< Place in the response that the record's "/data" copies.

    /// The whole response.
    Json Response() const;
};

void PrintTo(const ParserCase& row, std::ostream* out);

inline Json ToJson(const std::string& text) { return text; }
inline Json ToJson(const std::deque<std::string>& texts) { return texts; }

/// The frame of a case: the parser, and the record that it is handed.
template <class Record>
ParserCase CaseOf(const std::string& name, int (*parser)(TextView body, Record& record), const Record& before) {
    ParserCase row{.name = name};
    row.before = ToJson(before);
    row.defaults = row.before;
    row.parse = [parser, before](const std::string& body, Json& json) {
        std::optional<FailingNew::Suspended> ownWork(std::in_place);
        Record record = before;
        ownWork.reset();
        const int code = parser(body, record);
        ownWork.emplace();
        json = ToJson(record);
        return code;
    };
    return row;
}

/// Optional members of one object whose keys are those of the fields.
std::vector<ResponseMember> MembersOf(const std::string& object, const std::string& record,
                                      const std::vector<std::pair<std::string, const MemberValues& (*)()>>& keys);

/// Forms of the code that mean success; merged into the payload they make a good response. The usual one is first.
std::vector<Json> Successes(EnvelopeRuleKind envelope);

/// Whole responses, and the code that the envelope's rule finds in them.
struct CodeRow {
    std::string body;
    int code;
};
std::vector<CodeRow> Refusals(EnvelopeRuleKind envelope);

/// Runs every case of a parser.
class PlatformParser : public testing::TestWithParam<ParserCase> {
protected:
    struct Outcome {
        int code;
        Json record;
    };

    static const ParserCase& Row() { return GetParam(); }
    Outcome Parse(const std::string& body);
    /// What becomes of a response in which a member has a value that is taken so, or null: not taken, or not there.
    static Outcome ExpectedWith(const ResponseMember& member, const char* taken);

    /// Parses, and expects this code and record.
    void Expect(const std::string& body, const Outcome& expected);
    /// The same, and besides the parser's first and last line only this one.
    void Expect(const std::string& body, const Outcome& expected, const std::string& line, const std::string& word);
    /// Expects these lines of the last response, besides the parser's first and last one.
    void ExpectLines(const std::string& body, int code, const std::vector<std::string>& middle,
                     const std::string& word);

    CleanSwitches m_switches;
    LogCapture m_log;
};

}  // namespace vantix::test
