#include "unit/platform/ParserCase.h"

#include <ostream>

#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

void Replace(std::string& text, const std::string& place, const std::string& value) {
    if (const size_t at = text.find(place); at != std::string::npos) {
        text.replace(at, place.size(), value);
    }
}

}  // namespace

Json ParserCase::Response() const {
    Json response = payload;
    response.merge_patch(Successes(envelope).front());
    return response;
}

void PrintTo(const ParserCase& row, std::ostream* out) { *out << row.name; }

std::vector<ResponseMember> MembersOf(const std::string& object, const std::string& record,
                                      const std::vector<std::pair<std::string, const MemberValues& (*)()>>& keys) {
    std::vector<ResponseMember> members;
    members.reserve(keys.size());
    for (const auto& [key, values] : keys) {
        members.push_back({.place = object + key, .values = values, .fields = {record + key}});
    }
    return members;
}

std::vector<Json> Successes(EnvelopeRuleKind envelope) {
    switch (envelope) {
        case EnvelopeRuleKind::Common:
            return {{{"result", {{"code", "200"}}}},
                    {{"result", {{"code", 200}}}},
                    {{"result", {{"code", 0}}}},
                    {{"resultCode", "200"}},
                    {{"resultCode", "0"}},
                    {{"code", "200"}},
                    {{"code", " 200 or so"}},
                    {{"resultCode", "letters only"}},
                    {{"resultCode", ""}}};
        case EnvelopeRuleKind::Meta:
            return {{{"meta", {{"code", 200}}}},   {{"meta", {{"code", 0}}}},    {{"meta", Json::object()}},
                    {{"meta", {{"code", "500"}}}}, {{"meta", {{"code", true}}}}, {{"meta", {{"code", 2147483648}}}}};
        case EnvelopeRuleKind::StrictMeta: return {{{"meta", {{"code", 200}}}}, {{"meta", {{"code", 0}}}}};
        case EnvelopeRuleKind::Result:
            return {{{"result", {{"code", "200"}}}},
                    {{"result", {{"code", "0"}}}},
                    {{"result", {{"code", 200}}}},
                    {{"result", {{"code", 0}}}}};
        case EnvelopeRuleKind::None: break;
    }
    return {Json::object()};
}

std::vector<CodeRow> Refusals(EnvelopeRuleKind envelope) {
    const int root = envelope == EnvelopeRuleKind::None ? 0 : 2;
    std::vector<CodeRow> rows = {
        {"{}", root},   {"[]", root}, {"[{}]", root},    {"null", root},
        {"true", root}, {"5", root},  {"\"200\"", root}, {std::string(900, '[') + std::string(900, ']'), root}};
    const auto add = [&rows](const std::vector<CodeRow>& more) { rows.insert(rows.end(), more.begin(), more.end()); };
    if (envelope == EnvelopeRuleKind::Common || envelope == EnvelopeRuleKind::Result) {
        add({{R"({"result":{"code":"10002"}})", 10002},
             {R"({"result":{"code":10002}})", 10002},
             {R"({"result":{"code":" 20002 or so"}})", 20002},
             {R"({"result":{"code":true}})", 2},
             {R"({"result":{"code":null}})", 2},
             {R"({"result":{"code":2147483648}})", 2},
             {R"({"result":{}})", 2},
             {R"({"result":[]})", 2},
             {R"({"result":"200"})", 2},
             {R"({"resultCode":200,"code":200})", 2}});
    }
    if (envelope == EnvelopeRuleKind::Common) {
        add({{R"({"resultCode":"10002"})", 10002},
             {R"({"code":"20002","result":{"code":200}})", 20002},
             {R"({"resultCode":"7","code":"8","result":{"code":9}})", 7}});
    } else if (envelope == EnvelopeRuleKind::Result) {
        add({{R"({"resultCode":"200","code":"200"})", 2}});
    } else if (envelope == EnvelopeRuleKind::Meta || envelope == EnvelopeRuleKind::StrictMeta) {
        add({{R"({"meta":{"code":10002}})", 10002},
             {R"({"meta":{"code":-5}})", -5},
             {R"({"meta":[]})", 2},
             {R"({"meta":"200"})", 2},
             {R"({"meta":null})", 2},
             {R"({"result":{"code":"200"}})", 2}});
    }
    if (envelope == EnvelopeRuleKind::StrictMeta) {
        add({{R"({"meta":{}})", 2}, {R"({"meta":{"code":"200"}})", 2}, {R"({"meta":{"code":2147483648}})", 2}});
    }
    return rows;
}

PlatformParser::Outcome PlatformParser::Parse(const std::string& body) {
    m_log.Clear();
    Outcome outcome{-1, Json()};
    EXPECT_NO_THROW(outcome.code = Row().parse(body, outcome.record));
    return outcome;
}

PlatformParser::Outcome PlatformParser::ExpectedWith(const ResponseMember& member, const char* taken) {
    Json record = Row().after;
    if (taken != nullptr) {
        record[Json::json_pointer(member.fields.front())] = Json::parse(taken);
    } else if (member.isRequired) {
        return {2, Row().before};
    } else if (member.shorter) {
        return {0, *member.shorter};
    } else {
        for (const std::string& field : member.fields) {
            const Json::json_pointer place(field);
            record[place] = member.otherwise ? *member.otherwise : Row().defaults.at(place);
        }
    }
    return {0, record};
}

void PlatformParser::Expect(const std::string& body, const Outcome& expected) {
    const Outcome outcome = Parse(body);
    EXPECT_EQ(outcome.code, expected.code);
    if (Row().copied.empty() || expected.code != 0) {
        EXPECT_EQ(outcome.record, expected.record);
        return;
    }
    Json record = expected.record;
    record["data"] = Json::parse(body).at(Json::json_pointer(Row().copied));
    EXPECT_EQ(outcome.record, record);
}

void PlatformParser::Expect(const std::string& body, const Outcome& expected, const std::string& line,
                            const std::string& word) {
    Expect(body, expected);
    ExpectLines(body, expected.code, {line}, word);
}

void PlatformParser::ExpectLines(const std::string& body, int code, const std::vector<std::string>& middle,
                                 const std::string& word) {
    std::vector<testing::Matcher<const LogLine&>> expected;
    const auto expect = [&](std::string message, const std::string& itsWord) {
        Replace(message, "$code", std::to_string(code));
        Replace(message, "$body", body);
        expected.push_back(Line(itsWord == "ERROR" ? 5 : 3, itsWord, Row().name, message));
    };
    if (!Row().firstLine.empty()) {
        expect(Row().firstLine, "INFO ");
    }
    const bool isAccepted = code == 0 || (!middle.empty() && middle[0].rfind("platform response invalid", 0) == 0);
    if (!Row().acceptedLine.empty() && isAccepted) {
        expect(Row().acceptedLine, "INFO ");
    }
    for (const std::string& message : middle) {
        expect(message, word);
    }
    if (!Row().lastLine.empty()) {
        expect(Row().lastLine, "INFO ");
    }
    EXPECT_THAT(m_log.Lines(), testing::ElementsAreArray(expected));
}

}  // namespace vantix::test
