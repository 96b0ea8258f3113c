// Every parser of the platform's answers against servers that err or lie: envelopes, texts that are no JSON, members
// that are missing or of another type. What each accepts stands with its own tests.

#include "unit/platform/HostileText.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

Json::json_pointer PlaceOf(const AnswerMember& member) { return Json::json_pointer(member.place); }

/// An element of a list: leaving it out makes the list shorter, so it has no key.
bool IsElement(const AnswerMember& member) { return member.place.back() >= '0' && member.place.back() <= '9'; }

bool IsStructure(const AnswerMember& member) {
    return member.accepts == Accepts::Object || member.accepts == Accepts::Array;
}

/// A member of that kind is read on; what it holds has rows of its own.
bool IsReadOn(const AnswerMember& member, const std::string& value) {
    return IsStructure(member) && value.find("1e400") == std::string::npos && Taken(member.accepts, value).has_value();
}

TEST_P(HostileAnswer, GoldenAnswerFillsTheRecordAndWritesItsLines) {
    const std::string body = GetParam().Golden().dump();
    Expect(body, {0, GetParam().after});
    ExpectLines(body, 0, GetParam().goldenLines, GetParam().goldenWord);
}

TEST_P(HostileAnswer, EveryFormOfSuccessIsOne) {
    for (const Json& success : Successes(GetParam().envelope)) {
        SCOPED_TRACE(success.dump());
        Json answer = GetParam().payload;
        answer.merge_patch(success);
        Expect(answer.dump(), {0, GetParam().after});
    }
}

TEST_P(HostileAnswer, CodeOfTheEnvelopeIsReturnedAndNothingIsRead) {
    for (const CodeRow& row : Refusals(GetParam().envelope)) {
        SCOPED_TRACE(row.body);
        Expect(row.body, {row.code, Before()});
        if (row.code != 0) {
            ExpectLines(row.body, row.code, {"Platform Response Error:#, Resp:$"}, "INFO ");
        }
    }
}

TEST_P(HostileAnswer, CodeGoesBeforeAGoodPayload) {
    if (GetParam().envelope == Envelope::None) {
        Json answer = GetParam().Golden();
        answer["resultCode"] = "20002";
        Expect(answer.dump(), {0, GetParam().after});
        return;
    }
    const bool isMeta = GetParam().envelope == Envelope::Meta || GetParam().envelope == Envelope::StrictMeta;
    Json answer = GetParam().Golden();
    answer[isMeta ? "meta" : "result"]["code"] = 20002;
    Expect(answer.dump(), {20002, Before()}, "Platform Response Error:#, Resp:$", "INFO ");
}

TEST_P(HostileAnswer, TextThatIsNoJsonGivesOne) {
    const std::string golden = GetParam().Golden().dump();
    for (const std::string& body : std::vector<std::string>{
             "", " ", "x", "nul", "{", "{]", "<html><body>502 %s%n</body></html>", "\xEF\xBB\xBF" + golden, "{'a':1}",
             R"({"a":NaN})", R"({"a":Infinity})", R"({"a":1e400})", std::string(1001, '[') + std::string(1001, ']')}) {
        SCOPED_TRACE(body.substr(0, 100));
        Expect(body, {1, Before()}, "platform response bad, szInfo = $", "ERROR");
    }
    Expect(std::string(100'000, '['), {1, Before()});
}

TEST_P(HostileAnswer, TruncationAtAnyByteGivesOne) {
    const std::string golden = GetParam().Golden().dump();
    for (size_t length = 0; length < golden.size(); ++length) {
        const std::string body = golden.substr(0, length);
        SCOPED_TRACE(body);
        Expect(body, {1, Before()}, "platform response bad, szInfo = $", "ERROR");
    }
}

TEST_P(HostileAnswer, EachMemberThatIsMissingIsMissedAlone) {
    for (const AnswerMember& member : GetParam().members) {
        if (IsElement(member)) {
            continue;
        }
        SCOPED_TRACE(member.place);
        Json answer = GetParam().Golden();
        const Json::json_pointer place = PlaceOf(member);
        answer[place.parent_pointer()].erase(place.back());
        const Outcome expected = Expected(member, std::nullopt);
        Expect(answer.dump(), expected);
        if (expected.code != 0) {
            ExpectLines(answer.dump(), expected.code, {member.line}, member.word);
        }
    }
}

TEST_P(HostileAnswer, EachMemberOfAnotherTypeIsMissedAlone) {
    iLogLevel = 6;
    for (const AnswerMember& member : GetParam().members) {
        for (const std::string& value : OddValues()) {
            if (!IsReadOn(member, value)) {
                SCOPED_TRACE(std::string(member.place).append(" = ").append(value));
                Expect(WithValue(GetParam().Golden(), PlaceOf(member), value), Expected(member, value));
            }
        }
    }
}

TEST_P(HostileAnswer, RequiredMemberOfAnotherTypeWritesItsLine) {
    for (const AnswerMember& member : GetParam().members) {
        for (const std::string value : {"null", "true", "5", "\"x\"", "[]", "{}"}) {
            if (!member.isRequired || Taken(member.accepts, value)) {
                continue;
            }
            SCOPED_TRACE(std::string(member.place).append(" = ").append(value));
            const std::string body = WithValue(GetParam().Golden(), PlaceOf(member), value);
            Expect(body, {2, Before()}, member.line, member.word);
        }
    }
    Expect(GetParam().Golden().dump(), {0, GetParam().after});
}

TEST_P(HostileAnswer, LastOfEqualKeysCounts) {
    iLogLevel = 6;
    const Json golden = GetParam().Golden();
    for (const AnswerMember& member : GetParam().members) {
        if (IsElement(member)) {
            continue;
        }
        SCOPED_TRACE(member.place);
        const std::string key = "\"" + PlaceOf(member).back() + "\":";
        const std::string value = golden.at(PlaceOf(member)).dump();
        const std::string good = WithValue(golden, PlaceOf(member), std::string("null,").append(key).append(value));
        Expect(good, {0, GetParam().after});
        const std::string bad = WithValue(golden, PlaceOf(member), std::string(value).append(",").append(key) + "null");
        Expect(bad, Expected(member, "null"));
    }
}

TEST_P(HostileAnswer, TextsAreCopiedByteForByte) {
    iLogLevel = 6;
    const struct {
        std::string sent;
        std::string kept;
    } texts[] = {{R"(a\u0000b)", std::string("a\0b", 3)},
                 {"\xC3(\xFF", "\xC3(\xFF"},
                 {R"(\u00fc\u9580)", "\xC3\xBC\xE9\x96\x80"},
                 {"%s%n%.9999999d", "%s%n%.9999999d"},
                 {std::string(1U << 20U, 'x'), std::string(1U << 20U, 'x')}};
    for (const AnswerMember& member : GetParam().members) {
        if (member.accepts != Accepts::Text && member.accepts != Accepts::TextOrNumber) {
            continue;
        }
        SCOPED_TRACE(member.place);
        for (const auto& text : texts) {
            const Outcome outcome = Parse(WithValue(GetParam().Golden(), PlaceOf(member), "\"" + text.sent + "\""));
            EXPECT_EQ(outcome.code, 0);
            EXPECT_TRUE(outcome.record.at(Json::json_pointer(member.fields.front())) == Json(text.kept)) << text.sent;
        }
    }
    const Outcome golden = Parse(GetParam().Golden().dump());
    EXPECT_EQ(golden.record, GetParam().after);
}

TEST_P(HostileAnswer, WhatNobodyAskedForIsNotLookedAt) {
    iLogLevel = 6;
    const std::string golden = GetParam().Golden().dump();
    const std::string deep = std::string(900, '[') + std::string(900, ']');
    for (const std::string& unknown :
         {deep, std::string("{\"result\":[],\"meta\":5,\"data\":null}"), std::string(1U << 20U, '7')}) {
        SCOPED_TRACE(unknown.substr(0, 40));
        // A number of a million digits is beyond every type, and so is the whole answer.
        const bool isNumber = unknown[0] == '7';
        const std::string body = R"({"unknown":)" + unknown + "," + golden.substr(1);
        const Outcome outcome = Parse(body);
        EXPECT_EQ(outcome.code, isNumber ? 1 : 0);
        EXPECT_EQ(outcome.record, isNumber ? Before() : GetParam().after);
    }
    EXPECT_EQ(Parse(golden + " and what follows").record, GetParam().after);
    EXPECT_EQ(Parse(" \n" + golden).record, GetParam().after);
}

}  // namespace
}  // namespace vantix::test
