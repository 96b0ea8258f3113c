#include "unit/platform/ParserCase.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>

namespace vantix::test {
namespace {

std::optional<int64_t> Whole(const Json& value) {
    constexpr double kLimit = 9223372036854775808.0;  // 2^63
    if (value.is_number_unsigned()) {
        constexpr uint64_t kLargest = std::numeric_limits<int64_t>::max();
        const auto number = value.get<uint64_t>();
        return number <= kLargest ? std::optional(static_cast<int64_t>(number)) : std::nullopt;
    }
    if (value.is_number_integer()) {
        return value.get<int64_t>();
    }
    if (!value.is_number_float() || std::fabs(value.get<double>()) >= kLimit) {
        return std::nullopt;
    }
    return static_cast<int64_t>(value.get<double>());
}

bool HasFraction(const Json& value) {
    return value.is_number_float() && value.get<double>() != std::trunc(value.get<double>());
}

std::optional<Json> Int(const Json& value) {
    const std::optional<int64_t> number = Whole(value);
    const bool fits = number && !HasFraction(value) && *number == static_cast<int32_t>(*number);
    return fits ? std::optional<Json>(*number) : std::nullopt;
}

Json NumberIn(const Json& text) { return std::strtol(text.get<std::string>().c_str(), nullptr, 10); }

std::optional<Json> When(bool isTaken, const Json& value) {
    return isTaken ? std::optional<Json>(value) : std::nullopt;
}

void Replace(std::string& text, const std::string& place, const std::string& value) {
    if (const size_t at = text.find(place); at != std::string::npos) {
        text.replace(at, place.size(), value);
    }
}

}  // namespace

Json ParserCase::Golden() const {
    Json answer = payload;
    answer.merge_patch(Successes(envelope).front());
    return answer;
}

void PrintTo(const ParserCase& row, std::ostream* out) { *out << row.name; }

std::vector<AnswerMember> MembersOf(const std::string& object, const std::string& record,
                                    const std::vector<std::pair<std::string, Accepts>>& keys) {
    std::vector<AnswerMember> members;
    members.reserve(keys.size());
    for (const auto& [key, accepts] : keys) {
        members.push_back({.place = object + key, .accepts = accepts, .fields = {record + key}});
    }
    return members;
}

std::vector<Json> Successes(Envelope envelope) {
    switch (envelope) {
        case Envelope::Common:
            return {{{"result", {{"code", "200"}}}},
                    {{"result", {{"code", 200}}}},
                    {{"result", {{"code", 0}}}},
                    {{"resultCode", "200"}},
                    {{"resultCode", "0"}},
                    {{"code", "200"}},
                    {{"code", " 200 or so"}},
                    {{"resultCode", "letters only"}},
                    {{"resultCode", ""}}};
        case Envelope::Meta:
            return {{{"meta", {{"code", 200}}}},   {{"meta", {{"code", 0}}}},    {{"meta", Json::object()}},
                    {{"meta", {{"code", "500"}}}}, {{"meta", {{"code", true}}}}, {{"meta", {{"code", 2147483648}}}}};
        case Envelope::StrictMeta: return {{{"meta", {{"code", 200}}}}, {{"meta", {{"code", 0}}}}};
        case Envelope::Result:
            return {{{"result", {{"code", "200"}}}},
                    {{"result", {{"code", "0"}}}},
                    {{"result", {{"code", 200}}}},
                    {{"result", {{"code", 0}}}}};
        case Envelope::None: break;
    }
    return {Json::object()};
}

std::vector<CodeRow> Refusals(Envelope envelope) {
    const int root = envelope == Envelope::None ? 0 : 2;
    std::vector<CodeRow> rows = {
        {"{}", root},   {"[]", root}, {"[{}]", root},    {"null", root},
        {"true", root}, {"5", root},  {"\"200\"", root}, {std::string(900, '[') + std::string(900, ']'), root}};
    const auto add = [&rows](const std::vector<CodeRow>& more) { rows.insert(rows.end(), more.begin(), more.end()); };
    if (envelope == Envelope::Common || envelope == Envelope::Result) {
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
    if (envelope == Envelope::Common) {
        add({{R"({"resultCode":"10002"})", 10002},
             {R"({"code":"20002","result":{"code":200}})", 20002},
             {R"({"resultCode":"7","code":"8","result":{"code":9}})", 7}});
    } else if (envelope == Envelope::Result) {
        add({{R"({"resultCode":"200","code":"200"})", 2}});
    } else if (envelope == Envelope::Meta || envelope == Envelope::StrictMeta) {
        add({{R"({"meta":{"code":10002}})", 10002},
             {R"({"meta":{"code":-5}})", -5},
             {R"({"meta":[]})", 2},
             {R"({"meta":"200"})", 2},
             {R"({"meta":null})", 2},
             {R"({"result":{"code":"200"}})", 2}});
    }
    if (envelope == Envelope::StrictMeta) {
        add({{R"({"meta":{}})", 2}, {R"({"meta":{"code":"200"}})", 2}, {R"({"meta":{"code":2147483648}})", 2}});
    }
    return rows;
}

std::optional<Json> Taken(Accepts accepts, const std::string& value) {
    const Json json = Json::parse(value);
    switch (accepts) {
        case Accepts::Object: return When(json.is_object(), json);
        case Accepts::Array: return When(json.is_array(), json);
        case Accepts::Text: return When(json.is_string(), json);
        case Accepts::Flag: return When(json.is_boolean(), json);
        case Accepts::Int: return Int(json);
        case Accepts::DecimalText: return json.is_string() ? When(true, NumberIn(json)) : std::nullopt;
        case Accepts::NumberOrText: return json.is_string() ? When(true, NumberIn(json)) : Int(json);
        case Accepts::ObjectInText: return std::nullopt;
        case Accepts::TextOrNumber:
            if (json.is_string()) {
                return json;
            }
            return Whole(json) && !HasFraction(json) ? When(true, std::to_string(*Whole(json))) : std::nullopt;
        case Accepts::Number: return Whole(json) ? When(true, *Whole(json)) : std::nullopt;
        case Accepts::NumberAsText: return Whole(json) ? When(true, std::to_string(*Whole(json))) : std::nullopt;
    }
    return std::nullopt;
}

HostileAnswer::Outcome HostileAnswer::Parse(const std::string& body) {
    lines.Clear();
    Outcome outcome{-1, Json()};
    EXPECT_NO_THROW(outcome.code = GetParam().parse(body, outcome.record));
    return outcome;
}

HostileAnswer::Outcome HostileAnswer::Expected(const AnswerMember& member,
                                               const std::optional<std::string>& value) const {
    if (value && value->find("1e400") != std::string::npos) {
        return {1, Before()};
    }
    Json record = GetParam().after;
    const std::optional<Json> taken = value ? Taken(member.accepts, *value) : std::nullopt;
    if (taken && !member.fields.empty()) {
        record[Json::json_pointer(member.fields.front())] = *taken;
    } else if (!taken && member.isRequired) {
        return {2, Before()};
    } else if (!taken && member.shorter) {
        return {0, *member.shorter};
    } else if (!taken) {
        for (const std::string& field : member.fields) {
            const Json::json_pointer place(field);
            record[place] = member.otherwise ? *member.otherwise : GetParam().defaults.at(place);
        }
    }
    return {0, record};
}

void HostileAnswer::Expect(const std::string& body, const Outcome& expected) {
    const Outcome outcome = Parse(body);
    EXPECT_EQ(outcome.code, expected.code);
    if (GetParam().copied.empty() || expected.code != 0) {
        EXPECT_EQ(outcome.record, expected.record);
        return;
    }
    Json record = expected.record;
    record["data"] = Json::parse(body).at(Json::json_pointer(GetParam().copied));
    EXPECT_EQ(outcome.record, record);
}

void HostileAnswer::Expect(const std::string& body, const Outcome& expected, const std::string& line,
                           const std::string& word) {
    Expect(body, expected);
    ExpectLines(body, expected.code, {line}, word);
}

void HostileAnswer::ExpectLines(const std::string& body, int code, const std::vector<std::string>& middle,
                                const std::string& word) {
    struct Expected {
        std::string message;
        std::string word;
    };
    std::vector<Expected> expected;
    if (!GetParam().firstLine.empty()) {
        expected.push_back({GetParam().firstLine, "INFO "});
    }
    const bool isAccepted = code == 0 || (!middle.empty() && middle[0].rfind("platform response invalid", 0) == 0);
    if (!GetParam().acceptedLine.empty() && isAccepted) {
        expected.push_back({GetParam().acceptedLine, "INFO "});
    }
    for (const std::string& message : middle) {
        expected.push_back({message, word});
    }
    if (!GetParam().lastLine.empty()) {
        expected.push_back({GetParam().lastLine, "INFO "});
    }
    const std::vector<LogLine> written = lines.Lines();
    ASSERT_EQ(written.size(), expected.size());
    for (size_t i = 0; i < written.size(); ++i) {
        Replace(expected[i].message, "#", std::to_string(code));
        Replace(expected[i].message, "$", body);
        EXPECT_EQ(written[i].Message(), expected[i].message);
        EXPECT_EQ(written[i].Word(), expected[i].word);
        EXPECT_EQ(written[i].level, expected[i].word == "ERROR" ? 5U : 3U);
        EXPECT_EQ(written[i].Tag(), GetParam().name);
    }
}

}  // namespace vantix::test
