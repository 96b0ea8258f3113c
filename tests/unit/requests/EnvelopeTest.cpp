#include "requests/Envelope.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

constexpr int kMax = std::numeric_limits<int32_t>::max();
constexpr int kMin = std::numeric_limits<int32_t>::min();

struct Row {
    const char* json;
    int code;
};

/// The common rule where both readers agree.
constexpr Row kCommon[] = {
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

/// The lenient rule, both readers.
constexpr Row kMeta[] = {
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

/// The strict rule, both readers.
constexpr Row kStrictMeta[] = {
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
    static void ExpectRows(const Row (&rows)[Count], int (*rule)(const View& root)) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.json);
            typename Reader::Document document;
            ASSERT_TRUE(document.Parse(row.json));
            EXPECT_EQ(rule(document.Root()), row.code);
        }
    }
};
TYPED_TEST_SUITE(Envelope, BothReaders, ReaderName);

TYPED_TEST(Envelope, CommonRule) { this->ExpectRows(kCommon, json::EnvelopeCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, LenientMetaRule) { this->ExpectRows(kMeta, json::MetaCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, StrictMetaRule) { this->ExpectRows(kStrictMeta, json::StrictMetaCode<typename TypeParam::View>); }

TYPED_TEST(Envelope, NothingIsMalformed) {
    const typename TypeParam::View nothing;
    EXPECT_EQ(json::EnvelopeCode(nothing), json::kBadFormat);
    EXPECT_EQ(json::MetaCode(nothing), json::kBadFormat);
    EXPECT_EQ(json::StrictMetaCode(nothing), json::kBadFormat);
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
        EXPECT_EQ(json::EnvelopeCode(fromJson11.Root()), row.json11);
        json::JsonCppDocument fromJsonCpp;
        ASSERT_TRUE(fromJsonCpp.Parse(text));
        EXPECT_EQ(json::EnvelopeCode(fromJsonCpp.Root()), row.jsonCpp);
    }
}

TEST(SuccessAsZero, TurnsOnlyTheSecondSuccessCode) {
    static_assert(json::SuccessAsZero(200) == 0);
    static_assert(json::SuccessAsZero(0) == 0);
    for (const int code : {1, 2, 199, 201, 20000, -200, -1, kMax, kMin}) {
        EXPECT_EQ(json::SuccessAsZero(code), code);
    }
    EXPECT_EQ(json::kNotJson, 1);
    EXPECT_EQ(json::kBadFormat, 2);
}

}  // namespace
}  // namespace vantix::test
