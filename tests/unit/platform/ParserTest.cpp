// Every parser of the platform's responses against servers that err or lie: envelopes, texts that are no JSON, members
// that are missing or of another type. What each accepts stands with its own tests.

#include "support/JsonEdit.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

/// An element of a list: leaving it out makes the list shorter, so it has no key.
bool IsElement(const ResponseMember& member) { return member.place.back() >= '0' && member.place.back() <= '9'; }

std::string KeyOf(const ResponseMember& member) { return member.place.substr(member.place.rfind('/') + 1); }

/// Where a response has its code, if it has one.
const char* CodePlace(EnvelopeRuleKind envelope) {
    switch (envelope) {
        case EnvelopeRuleKind::Common:
        case EnvelopeRuleKind::Result: return "/result/code";
        case EnvelopeRuleKind::Meta:
        case EnvelopeRuleKind::StrictMeta: return "/meta/code";
        case EnvelopeRuleKind::None: break;
    }
    return nullptr;
}

TEST_P(PlatformParser, WholeResponseFillsTheRecordAndWritesItsLines) {
    const std::string body = Row().Response().dump();
    Expect(body, {0, Row().after});
    ExpectLines(body, 0, Row().lines, Row().linesWord);
}

TEST_P(PlatformParser, EveryFormOfSuccessIsOne) {
    for (const Json& success : Successes(Row().envelope)) {
        SCOPED_TRACE(success.dump());
        Json response = Row().payload;
        response.merge_patch(success);
        Expect(response.dump(), {0, Row().after});
    }
}

TEST_P(PlatformParser, CodeOfTheEnvelopeIsReturnedAndNothingIsRead) {
    for (const CodeRow& row : Refusals(Row().envelope)) {
        SCOPED_TRACE(row.body);
        Expect(row.body, {row.code, Row().before});
        if (row.code != 0) {
            ExpectLines(row.body, row.code, {"Platform Response Error:$code, Resp:$body"}, "INFO ");
        }
    }
    if (const char* place = CodePlace(Row().envelope)) {
        Expect(WithValue(Row().Response(), place, "20002"), {20002, Row().before},
               "Platform Response Error:20002, Resp:$body", "INFO ");
    }
}

TEST_P(PlatformParser, TextThatIsNoJsonGivesOne) {
    const std::string whole = Row().Response().dump();
    for (const std::string& body : std::vector<std::string>{
             "", " ", "x", "nul", "{", "{]", "<html><body>502 %s%n</body></html>", "\xEF\xBB\xBF" + whole, "{'a':1}",
             R"({"a":NaN})", R"({"a":Infinity})", R"({"a":1e400})", std::string(1001, '[') + std::string(1001, ']')}) {
        SCOPED_TRACE(body.substr(0, 100));
        Expect(body, {1, Row().before}, "platform response bad, szInfo = $body", "ERROR");
    }
    Expect(std::string(100'000, '['), {1, Row().before});
}

TEST_P(PlatformParser, TruncationAtAnyByteGivesOne) {
    const std::string whole = Row().Response().dump();
    for (size_t length = 0; length < whole.size(); ++length) {
        const std::string body = whole.substr(0, length);
        SCOPED_TRACE(body);
        Expect(body, {1, Row().before}, "platform response bad, szInfo = $body", "ERROR");
    }
}

TEST_P(PlatformParser, EachMemberThatIsMissingIsMissedAlone) {
    for (const ResponseMember& member : Row().members) {
        if (IsElement(member)) {
            continue;
        }
        SCOPED_TRACE(member.place);
        const std::string body = Without(Row().Response(), member.place);
        const Outcome expected = ExpectedWith(member, nullptr);
        Expect(body, expected);
        if (expected.code != 0) {
            ExpectLines(body, expected.code, {member.line}, member.word);
        }
    }
}

TEST_P(PlatformParser, EachMemberTakesTheValuesOfItsTypeAlone) {
    iLogLevel = 6;
    for (const ResponseMember& member : Row().members) {
        for (const MemberValue& value : member.values()) {
            SCOPED_TRACE(std::string(member.place).append(" = ").append(value.sent));
            Expect(WithValue(Row().Response(), member.place, value.sent), ExpectedWith(member, value.taken));
        }
    }
}

TEST_P(PlatformParser, RequiredMemberOfAnotherTypeWritesItsLine) {
    for (const ResponseMember& member : Row().members) {
        for (const MemberValue& value : member.values()) {
            if (member.isRequired && value.taken == nullptr) {
                SCOPED_TRACE(std::string(member.place).append(" = ").append(value.sent));
                Expect(WithValue(Row().Response(), member.place, value.sent), {2, Row().before}, member.line,
                       member.word);
            }
        }
    }
    Expect(Row().Response().dump(), {0, Row().after});
}

TEST_P(PlatformParser, LastOfEqualKeysCounts) {
    iLogLevel = 6;
    const Json response = Row().Response();
    for (const ResponseMember& member : Row().members) {
        if (IsElement(member)) {
            continue;
        }
        SCOPED_TRACE(member.place);
        const std::string key = "\"" + KeyOf(member) + "\":";
        const std::string value = response.at(Json::json_pointer(member.place)).dump();
        Expect(WithValue(response, member.place, std::string("null,").append(key).append(value)), {0, Row().after});
        Expect(WithValue(response, member.place, std::string(value).append(",").append(key) + "null"),
               ExpectedWith(member, nullptr));
    }
}

TEST_P(PlatformParser, TextsAreCopiedByteForByte) {
    iLogLevel = 6;
    const struct {
        std::string sent;
        std::string kept;
    } texts[] = {{R"(a\u0000b)", std::string("a\0b", 3)},
                 {"\xC3(\xFF", "\xC3(\xFF"},
                 {R"(\u00fc\u9580)", "\xC3\xBC\xE9\x96\x80"},
                 {"%s%n%.9999999d", "%s%n%.9999999d"},
                 {std::string(1U << 20U, 'x'), std::string(1U << 20U, 'x')}};
    for (const ResponseMember& member : Row().members) {
        if (member.values != TextValues && member.values != TextOrNumberValues) {
            continue;
        }
        SCOPED_TRACE(member.place);
        for (const auto& text : texts) {
            const Outcome outcome = Parse(WithValue(Row().Response(), member.place, "\"" + text.sent + "\""));
            EXPECT_EQ(outcome.code, 0);
            EXPECT_TRUE(outcome.record.at(Json::json_pointer(member.fields.front())) == Json(text.kept)) << text.sent;
        }
    }
    EXPECT_EQ(Parse(Row().Response().dump()).record, Row().after);
}

TEST_P(PlatformParser, UnknownMembersAndWhatFollowsAreNotLookedAt) {
    iLogLevel = 6;
    const std::string whole = Row().Response().dump();
    for (const std::string& unknown :
         {std::string(900, '[') + std::string(900, ']'), std::string(R"({"result":[],"meta":5,"data":null})")}) {
        SCOPED_TRACE(unknown.substr(0, 40));
        Expect(R"({"unknown":)" + unknown + "," + whole.substr(1), {0, Row().after});
    }
    // A number of a million digits is beyond every type, and so is the whole response.
    Expect(R"({"unknown":)" + std::string(1U << 20U, '7') + "," + whole.substr(1), {1, Row().before});
    EXPECT_EQ(Parse(whole + " and what follows").record, Row().after);
    EXPECT_EQ(Parse(" \n" + whole).record, Row().after);
}

}  // namespace
}  // namespace vantix::test
