#include "requests/Envelope.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

constexpr int kMax = std::numeric_limits<int32_t>::max();
constexpr int kMin = std::numeric_limits<int32_t>::min();

struct EnvelopeRow {
    const char* json;
    int code;
};

/// The common rule where both readers agree.
constexpr EnvelopeRow kCommon[] = {
    // The textual "resultCode" comes first.
    {R"({"resultCode": "0"})", 0},
    {R"({"resultCode": "200"})", 0},
    {R"({"resultCode": "10002"})", 10002},
    {R"({"resultCode": "-6"})", -6},
    {R"({"resultCode": "201", "code": "200", "result": {"code": "0"}})", 201},
    {R"({"resultCode": "200", "code": "500", "result": {"code": 500}})", 0},
    // Then the textual "code".
    {R"({"code": "0"})", 0},
    {R"({"code": "200"})", 0},
    {R"({"code": "49999"})", 49999},
    {R"({"code": "10002", "result": {"code": "200"}})", 10002},
    // Other types of the two are passed over.
    {R"({"resultCode": 200})", 2},
    {R"({"resultCode": 0})", 2},
    {R"({"code": 200})", 2},
    {R"({"code": 0})", 2},
    {R"({"resultCode": 200, "code": "10002"})", 10002},
    {R"({"resultCode": 10002, "result": {"code": "200"}})", 0},
    {R"({"resultCode": null, "code": null, "result": {"code": 7}})", 7},
    {R"({"resultCode": {}, "code": [], "result": {"code": "7"}})", 7},
    {R"({"resultCode": true, "code": false})", 2},
    // Last the "code" of "result".
    {R"({"result": {"code": "200"}})", 0},
    {R"({"result": {"code": "0"}})", 0},
    {R"({"result": {"code": "10002"}})", 10002},
    {R"({"result": {"code": 200}})", 0},
    {R"({"result": {"code": 0}})", 0},
    {R"({"result": {"code": 10002}})", 10002},
    {R"({"result": {"code": -1}})", -1},
    {R"({"result": {"code": 2147483647}})", kMax},
    {R"({"result": {"code": -2147483648}})", kMin},
    {R"({"result": {"code": 2147483648}})", 2},
    {R"({"result": {"code": -2147483649}})", 2},
    {R"({"result": {"code": 9223372036854775808}})", 2},
    {R"({"result": {"code": 1e20}})", 2},
    {R"({"result": {"code": true}})", 2},
    {R"({"result": {"code": null}})", 2},
    {R"({"result": {"code": []}})", 2},
    {R"({"result": {"code": {}}})", 2},
    {R"({"result": {}})", 2},
    {R"({"result": {"Code": "200"}})", 2},
    {R"({"result": "200"})", 2},
    {R"({"result": 200})", 2},
    {R"({"result": [{"code": "200"}]})", 2},
    {R"({"result": null})", 2},
    // Texts are read as a stream reads a number.
    {R"({"code": " 10002abc"})", 10002},
    {R"({"code": "\t\n 200"})", 0},
    {R"({"code": "+200"})", 0},
    {R"({"code": "200.9"})", 0},
    {R"({"code": "00200"})", 0},
    {R"({"code": "abc"})", 0},
    {R"({"code": ""})", 0},
    {R"({"code": " "})", 0},
    {R"({"code": "-"})", 0},
    {R"({"code": "0x10"})", 0},
    {R"({"code": "2147483648"})", kMax},
    {R"({"code": "-2147483649"})", kMin},
    {R"({"code": "99999999999999999999"})", kMax},
    {R"({"code": "\u0000200"})", 0},
    {R"({"resultCode": "abc", "code": "10002"})", 0},
    {R"({"result": {"code": "abc"}})", 0},
    {R"({"result": {"code": " 10002abc"}})", 10002},
    // Of duplicates the last one counts.
    {R"({"code": "10002", "code": "200"})", 0},
    {R"({"code": "200", "code": 5})", 2},
    // Nothing of the kind, and roots that are no object.
    {"{}", 2},
    {R"({"ResultCode": "200"})", 2},
    {R"({"data": {"resultCode": "200"}})", 2},
    {R"({"meta": {"code": 200}})", 2},
    {"[]", 2},
    {R"([{"code": "200"}])", 2},
    {"null", 2},
    {"200", 2},
    {R"("200")", 2},
    {"true", 2},
};

/// The rule for which "meta" must be an object, both readers.
constexpr EnvelopeRow kMeta[] = {
    {R"({"meta": {"code": 200}})", 0},
    {R"({"meta": {"code": 0}})", 0},
    {R"({"meta": {"code": 10002}})", 10002},
    {R"({"meta": {"code": 401}})", 401},
    {R"({"meta": {"code": -1}})", -1},
    {R"({"meta": {"code": 2147483647}})", kMax},
    {R"({"meta": {}})", 0},
    {R"({"meta": {"code": "10002"}})", 0},
    {R"({"meta": {"code": null}})", 0},
    {R"({"meta": {"code": true}})", 0},
    {R"({"meta": {"code": []}})", 0},
    {R"({"meta": {"code": {}}})", 0},
    {R"({"meta": {"code": 2147483648}})", 0},
    {R"({"meta": {"code": 1e20}})", 0},
    {R"({"meta": []})", 2},
    {R"({"meta": null})", 2},
    {R"({"meta": "200"})", 2},
    {R"({"meta": 200})", 2},
    {R"({"meta": true})", 2},
    {R"({"code": "200"})", 2},
    {"{}", 2},
    {"[]", 2},
    {"null", 2},
    {R"("meta")", 2},
};

/// The rule for which "meta" need not be there, both readers.
constexpr EnvelopeRow kOptionalMeta[] = {
    {R"({"meta": {"code": 200}})", 0},
    {R"({"meta": {"code": 0}})", 0},
    {R"({"meta": {"code": 201}})", 201},
    {R"({"meta": {"code": 401}})", 401},
    {R"({"meta": {"code": 2}})", 2},
    {R"({"meta": {"code": -5}})", -5},
    {R"({"meta": {"code": 2147483647}})", kMax},
    {R"({"meta": {"code": 2147483648}})", 0},
    {R"({"meta": {"code": "401"}})", 0},
    {R"({"meta": {"code": true}})", 0},
    {R"({"meta": {"code": null}})", 0},
    {R"({"meta": {"code": [401]}})", 0},
    {R"({"meta": {}})", 0},
    {R"({"meta": []})", 0},
    {R"({"meta": "401"})", 0},
    {R"({"meta": 401})", 0},
    {R"({"meta": null})", 0},
    {"{}", 0},
    {"[]", 0},
    {"5", 0},
    {"null", 0},
    {R"({"code": 401})", 0},
    {R"({"resultCode": "401"})", 0},
};

/// The strict rule, both readers.
constexpr EnvelopeRow kStrictMeta[] = {
    {R"({"meta": {"code": 200}})", 0},
    {R"({"meta": {"code": 0}})", 0},
    {R"({"meta": {"code": 10002}})", 10002},
    {R"({"meta": {"code": -2147483648}})", kMin},
    {R"({"meta": {}})", 2},
    {R"({"meta": {"code": "200"}})", 2},
    {R"({"meta": {"code": null}})", 2},
    {R"({"meta": {"code": true}})", 2},
    {R"({"meta": {"code": []}})", 2},
    {R"({"meta": {"code": {}}})", 2},
    {R"({"meta": {"code": 2147483648}})", 2},
    {R"({"meta": {"code": -2147483649}})", 2},
    {R"({"meta": {"code": 1e20}})", 2},
    {R"({"meta": []})", 2},
    {R"({"meta": null})", 2},
    {R"({"meta": 200})", 2},
    {"{}", 2},
    {"[]", 2},
    {"200", 2},
};

template <class Reader>
class Envelope : public testing::Test {
protected:
    using View = typename Reader::View;

    template <size_t Count>
    static void ExpectRows(const EnvelopeRow (&rows)[Count], int (*rule)(const View& root)) {
        for (const EnvelopeRow& row : rows) {
            SCOPED_TRACE(row.json);
            typename Reader::Document document;
            ASSERT_TRUE(document.Parse(row.json));
            EXPECT_EQ(rule(document.Root()), row.code);
        }
    }
};
TYPED_TEST_SUITE(Envelope, BothReaders, ReaderName);

TYPED_TEST(Envelope, CommonRule) { this->ExpectRows(kCommon, EnvelopeCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, MetaRule) { this->ExpectRows(kMeta, MetaCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, OptionalMetaRule) { this->ExpectRows(kOptionalMeta, OptionalMetaCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, StrictMetaRule) { this->ExpectRows(kStrictMeta, StrictMetaCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, OfNothingIsMalformedWhereItMustBeThere) {
    const typename TypeParam::View nothing;
    EXPECT_EQ(EnvelopeCode(nothing), 2);
    EXPECT_EQ(MetaCode(nothing), 2);
    EXPECT_EQ(StrictMetaCode(nothing), 2);
    EXPECT_EQ(OptionalMetaCode(nothing), 0);
    EXPECT_FALSE(HasMeta(nothing));
}

/// Where a payload is looked for: the number in the "n" that is found, or -1.
TYPED_TEST(Envelope, PayloadHasItsPlaces) {
    const struct {
        const char* json;
        int root;
        int result;
        int either;
    } rows[] = {{R"({"data":{"n":1}})", 1, -1, 1},
                {R"({"result":{"data":{"n":2}}})", -1, 2, 2},
                {R"({"data":{"n":1},"result":{"data":{"n":2}}})", 1, 2, 2},
                {R"({"data":{"n":1},"result":{"data":{}}})", 1, -1, -1},
                {R"({"data":{"n":1},"result":{"data":[]}})", 1, -1, 1},
                {R"({"data":{"n":1},"result":{"data":null}})", 1, -1, 1},
                {R"({"data":{"n":1},"result":[]})", 1, -1, 1},
                {R"({"n":3})", -1, -1, -1},
                {"[]", -1, -1, -1}};
    const auto number = [](const auto& data) {
        int32_t n = -1;
        data.Member("n").Read(n);
        return n;
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.json);
        typename TypeParam::Document document;
        ASSERT_TRUE(document.Parse(row.json));
        EXPECT_EQ(number(RootData(document.Root())), row.root);
        EXPECT_EQ(number(ResultData(document.Root())), row.result);
        EXPECT_EQ(number(ResultOrRootData(document.Root())), row.either);
    }
}

/// A member beside "data" or inside it: its number, or -1 when no number is found.
TYPED_TEST(Envelope, MemberIsLookedForBesideDataFirst) {
    const struct {
        const char* json;
        int number;
    } rows[] = {{R"({"n":1})", 1},
                {R"({"data":{"n":2}})", 2},
                {R"({"n":1,"data":{"n":2}})", 1},
                {R"({"n":null,"data":{"n":2}})", 2},
                {R"({"n":false,"data":{"n":2}})", -1},
                {R"({"n":"","data":{"n":2}})", -1},
                {R"({"data":{"data":{"n":3}}})", -1},
                {R"({"data":[]})", -1},
                {R"({"data":[{"n":2}]})", -1},
                {"{}", -1},
                {"[]", -1},
                {"null", -1}};
    for (const auto& row : rows) {
        typename TypeParam::Document document;
        ASSERT_TRUE(document.Parse(row.json));
        int32_t number = -1;
        BesideOrInsideData(document.Root(), "n").Read(number);
        EXPECT_EQ(number, row.number) << row.json;
    }
}

/// Numbers with a fraction: an integer to one reader after truncation, no integer to the other.
TEST(EnvelopeOfAReal, FollowsTheReadersOwnTypes) {
    struct RealRow {
        const char* number;
        int json11;
        int jsonCpp;
    };
    constexpr RealRow kRows[] = {{"200.0", 0, 0}, {"200.9", 0, 2}, {"1.9", 1, 2}, {"10002.5", 10002, 2}, {"0.1", 0, 2}};
    for (const RealRow& row : kRows) {
        SCOPED_TRACE(row.number);
        const std::string text = std::string(R"({"result": {"code": )") + row.number + "}}";
        json::Json11Document fromJson11;
        ASSERT_TRUE(fromJson11.Parse(text));
        EXPECT_EQ(EnvelopeCode(fromJson11.Root()), row.json11);
        json::JsonCppDocument fromJsonCpp;
        ASSERT_TRUE(fromJsonCpp.Parse(text));
        EXPECT_EQ(EnvelopeCode(fromJsonCpp.Root()), row.jsonCpp);
    }
}

TEST(SuccessAsZero, TurnsOnlyTheSecondSuccessCode) {
    static_assert(SuccessAsZero(200) == 0);
    static_assert(SuccessAsZero(0) == 0);
    static_assert(SuccessAsZero(1) == 1);
    static_assert(SuccessAsZero(199) == 199);
    static_assert(SuccessAsZero(201) == 201);
    static_assert(SuccessAsZero(20000) == 20000);
    static_assert(SuccessAsZero(-200) == -200);
    EXPECT_EQ(SuccessAsZero(kMax), 2147483647);
}

}  // namespace
}  // namespace vantix::test
