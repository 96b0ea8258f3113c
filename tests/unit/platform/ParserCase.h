#pragma once

/// @file
/// One parser of the platform's answers as its tests see it: a golden answer, the record that it makes, and for each
/// member what it accepts and what becomes of anything else.

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "support/TestJson.h"

namespace vantix::test {

/// What a member is read from.
enum class Accepts {
    Object,
    Array,
    Text,
    Int,           ///< 32 bits; a real without fraction counts.
    Flag,          ///< true or false alone.
    Number,        ///< Any within 64 bits, truncated.
    NumberAsText,  ///< The same, kept as decimal text.
    TextOrNumber,  ///< A text, or a whole number kept as decimal text.
    NumberOrText,  ///< An int, or the number that a text begins with.
    DecimalText,   ///< The number that a text begins with.
    ObjectInText,  ///< A text that holds an object.
};

struct AnswerMember {
    std::string place;  ///< Pointer into the answer.
    Accepts accepts = Accepts::Text;
    std::vector<std::string> fields{};  ///< Pointers into the record that hold it; the first takes odd values.
    bool isRequired = false;
    std::string line{};               ///< Of an answer without it; "$" is the answer.
    std::string word = "ERROR";       ///< Of the line.
    std::optional<Json> otherwise{};  ///< What the fields hold without it; else what `ParserCase::defaults` says.
    std::optional<Json> shorter{};    ///< The whole record without it, where a list gets shorter.
};

/// How the answer's code is found.
enum class Envelope {
    None,
    Common,
    Meta,
    StrictMeta,
    Result,  ///< The "code" of "result" alone.
};

struct ParserCase {
    std::string name;  ///< The parser's, and its log tag.
    Envelope envelope = Envelope::Common;
    Json payload{};   ///< Of the golden answer, without its code.
    Json before{};    ///< The record that a parser is handed.
    Json after{};     ///< What the golden answer makes of it.
    Json defaults{};  ///< Its fields for members that are not there.
    std::function<int(const std::string& body, Json& record)> parse{};
    std::vector<AnswerMember> members{};
    std::string firstLine{};                 ///< Written before anything else; "$" is the answer.
    std::string acceptedLine{};              ///< Written for every answer whose code is good.
    std::vector<std::string> goldenLines{};  ///< Written for the golden answer.
    std::string goldenWord = "INFO ";
    std::string lastLine{};  ///< Written after everything else; "#" is the code.
    std::string copied{};    ///< Place in the answer that the record's "/data" copies.

    /// The golden answer.
    Json Golden() const;
};

void PrintTo(const ParserCase& row, std::ostream* out);

inline Json ToJson(const std::string& text) { return text; }
inline Json ToJson(const std::deque<std::string>& texts) { return texts; }

/// The frame of a case: the parser, and the record that it is handed.
template <class Record>
ParserCase CaseOf(const std::string& name, int (*parser)(const std::string& body, Record& record),
                  const Record& before) {
    ParserCase row{.name = name};
    row.before = ToJson(before);
    row.defaults = row.before;
    row.parse = [parser, before](const std::string& body, Json& json) {
        Record record = before;
        const int code = parser(body, record);
        json = ToJson(record);
        return code;
    };
    return row;
}

/// Optional members of one object whose keys are those of the fields.
std::vector<AnswerMember> MembersOf(const std::string& object, const std::string& record,
                                    const std::vector<std::pair<std::string, Accepts>>& keys);

/// Variants of the code that mean success; merged into the payload they make a good answer. The golden one is first.
std::vector<Json> Successes(Envelope envelope);

/// Whole answers, and the code that the envelope's rule finds in them.
struct CodeRow {
    std::string body;
    int code;
};
std::vector<CodeRow> Refusals(Envelope envelope);

/// What a member makes of a value: nothing when it does not take it.
std::optional<Json> Taken(Accepts accepts, const std::string& value);

/// Runs every case of a parser.
class HostileAnswer : public testing::TestWithParam<ParserCase> {
protected:
    struct Outcome {
        int code;
        Json record;
    };

    const Json& Before() const { return GetParam().before; }
    Outcome Parse(const std::string& body);
    /// What becomes of an answer in which a member has this value, or is not there.
    Outcome Expected(const AnswerMember& member, const std::optional<std::string>& value) const;

    /// Parses, and expects this code and record.
    void Expect(const std::string& body, const Outcome& expected);
    /// The same, and besides the parser's first and last line only this one.
    void Expect(const std::string& body, const Outcome& expected, const std::string& line, const std::string& word);
    /// Expects these lines of the last answer, besides the parser's first and last one.
    void ExpectLines(const std::string& body, int code, const std::vector<std::string>& middle,
                     const std::string& word);

    CleanSwitches clean;
    LogCapture lines;
};

}  // namespace vantix::test
