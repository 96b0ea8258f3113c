#pragma once

/// @file
/// The tests of a request table against servers that err or lie: what each row's operation makes of its response with
/// anything wrong in it. No network. One file of a program includes this.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/JsonEdit.h"
#include "support/MemberValues.h"
#include "support/RequestTest.h"

namespace vantix::test {

class HostileRequestTest : public RequestTest {
protected:
    void SetUp() override {
        RequestTest::SetUp();
        iLogLevel = 6;
    }

    /// The row's own refusal of this body, which is a literal of its table; null when the response is handed on unread.
    static const Refusal* RefusalOf(const std::string& body) {
        for (const Refusal& refusal : Row().refusals) {
            if (refusal.body == body && refusal.fills.value("text", "") != body) {
                return &refusal;
            }
        }
        return nullptr;
    }
    /// Whether one of the row's own refusals of a malformed response has this result: a reader that throws ends the
    /// operation with -1, which is therefore good for those rows alone that have it.
    static bool RefusesAsMalformedWith(int result) {
        static const std::set<int> kOfMalformed = {-1, 1, 300001, 300002};
        return kOfMalformed.contains(result) &&
               std::any_of(Row().refusals.begin(), Row().refusals.end(),
                           [result](const Refusal& refusal) { return refusal.result == result; });
    }
    static bool IsHandedOn() { return RefusalOf("no json") == nullptr; }

    int CallWith(const std::string& body, Json& changes) {
        Prepare();
        iLogLevel = 6;
        bUtf8 = true;  // bytes stay what they are
        m_transport.Respond(body);
        for (const Exchange& exchange : Row().after) {
            m_transport.Respond(exchange.response);
        }
        return Call(changes);
    }

    /// The body has the same effect as this refused one.
    void ExpectRefusedAs(const Refusal& refusal, const std::string& body) {
        SCOPED_TRACE(body.substr(0, 200));
        Json changes;
        EXPECT_EQ(CallWith(body, changes), refusal.result);
        Json expected = Row().costFills;
        expected.update(refusal.fills);
        EXPECT_EQ(changes, expected);
    }
    void ExpectHandedOn(const std::string& body) {
        SCOPED_TRACE(body.substr(0, 200));
        Json changes;
        EXPECT_EQ(CallWith(body, changes), 0);
        EXPECT_EQ(changes, Json({{"text", body}}));
    }
    void ExpectNoJson(const std::string& body) {
        if (IsHandedOn()) {
            ExpectHandedOn(body);
        } else {
            ExpectRefusedAs(*RefusalOf("no json"), body);
        }
    }

    /// Accepted or refused, as malformed and not by a code that the server did not send. What is refused leaves the
    /// outputs; what is accepted fills those of the operation alone.
    void ExpectBounded(const std::string& body) {
        SCOPED_TRACE(body.substr(0, 400));
        Json changes;
        const int result = CallWith(body, changes);
        EXPECT_TRUE(result == 0 || RefusesAsMalformedWith(result)) << result;
        const Json& mayFill = result == 0 ? Row().fills : Row().costFills;
        for (const auto& [key, value] : changes.items()) {
            EXPECT_TRUE(mayFill.contains(key) || Row().costFills.contains(key) || (IsHandedOn() && key == "text"))
                << key << ' ' << value;
        }
        if (result != 0) {
            EXPECT_LE(changes.size(), Row().costFills.size() + (Row().operation == "RefreshToken" ? 1U : 0U));
        }
    }
    void ExpectGood(const std::string& body) {
        SCOPED_TRACE(body.substr(0, 400));
        Json changes;
        EXPECT_EQ(CallWith(body, changes), 0);
        EXPECT_EQ(changes, HandsOutTheBody() ? Json({{"text", body}}) : Row().fills);
    }
    /// After a look at its code the response is handed out as it is.
    static bool HandsOutTheBody() { return Row().fills == Json({{"text", Row().response}}); }

    /// The places of all members and elements of the response.
    static std::vector<std::string> Places() {
        std::vector<std::string> places;
        const Json leaves = Json::parse(Row().response).flatten();
        std::set<std::string> all;
        for (const auto& [place, value] : leaves.items()) {
            for (std::string part = place; !part.empty(); part.erase(part.rfind('/'))) {
                all.insert(part);
            }
        }
        return {all.begin(), all.end()};
    }
    static bool IsElement(const std::string& place) {
        const Json response = Json::parse(Row().response);
        return response.at(Json::json_pointer(place.substr(0, place.rfind('/')))).is_array();
    }
};

TEST_P(HostileRequestTest, ResponseTruncatedAtAnyByteIsNoJson) {
    const std::string whole = Row().response;
    for (size_t length = 0; length < whole.size(); ++length) {
        ExpectNoJson(whole.substr(0, length));
    }
    ExpectGood(whole);
}

TEST_P(HostileRequestTest, TextsThatAreNoJsonAreRefusedAlike) {
    const std::string whole = Row().response;
    for (const std::string& body :
         std::vector<std::string>{" \t\r\n ", "nul", "{]", "\xEF\xBB\xBF" + whole, R"({"a":NaN})", R"({"a":Infinity})",
                                  R"({"a":-Infinity})", "{'a':1}", std::string("{\0\"a\":1}", 8), std::string(1, '\0'),
                                  std::string(1001, '[') + std::string(1001, ']'), std::string(100'000, '['),
                                  "<!DOCTYPE html><html><body>502 %s%n</body></html>"}) {
        ExpectNoJson(body);
    }
    ExpectGood(whole);
}

TEST_P(HostileRequestTest, RootsThatAreNoObjectAreRefusedAsAnEmptyOne) {
    for (const char* body : {"[]", "[{}]", "null", "true", "false", "42", "-1.9", "1e20", "\"\"", "\"text\"", "{}"}) {
        if (IsHandedOn()) {
            ExpectHandedOn(body);
        } else {
            ASSERT_NE(RefusalOf("{}"), nullptr);
            ExpectRefusedAs(*RefusalOf("{}"), body);
        }
    }
    ExpectGood(Row().response);
}

TEST_P(HostileRequestTest, AnyValueInThePlaceOfAnyMemberIsBounded) {
    const Json response = Json::parse(Row().response);
    std::vector<std::string> values = AnyValues();
    for (const std::string& more : std::vector<std::string>{
             "-2147483648", "9223372036854775807", "9223372036854775808", "-9223372036854775809", "-1e20", "1e308",
             R"("a\u0000b")", std::string("\"a\0b\"", 5), "\"\xC3(\xFF\"", R"("%s%s%n%.9999999d")", R"("\ud800")",
             "\"" + std::string(50'000, 'x') + "\"", std::string(190, '[') + std::string(190, ']'),
             std::string(990, '[') + std::string(990, ']')}) {
        values.push_back(more);
    }
    for (const std::string& place : Places()) {
        for (const std::string& value : values) {
            ExpectBounded(WithValue(response, place, value));
        }
    }
    ExpectGood(Row().response);
}

TEST_P(HostileRequestTest, AnyMemberThatIsMissingIsBounded) {
    const Json response = Json::parse(Row().response);
    for (const std::string& place : Places()) {
        if (!IsElement(place)) {
            ExpectBounded(Without(response, place));
        }
    }
    ExpectGood(Row().response);
}

TEST_P(HostileRequestTest, LastOfEqualKeysCounts) {
    const Json response = Json::parse(Row().response);
    for (const std::string& place : Places()) {
        if (IsElement(place)) {
            continue;
        }
        const std::string value = response.at(Json::json_pointer(place)).dump();
        const std::string key = ",\"" + place.substr(place.rfind('/') + 1) + "\":";
        ExpectGood(WithValue(response, place, std::string("null").append(key).append(value)));
    }
}

}  // namespace vantix::test
