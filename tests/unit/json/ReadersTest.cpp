// Every accessor of both readers on a value of every JSON type, and on nothing.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

/// What the accessors return for a value.
struct ValueRow {
    const char* json;
    bool isNull = false;
    bool isObject = false;
    bool isArray = false;
    std::optional<std::string> text;
    std::optional<int32_t> number;
    std::optional<bool> flag;
    size_t size = 0;
};

ValueRow Of(const char* json) { return ValueRow{json, false, false, false, {}, {}, {}, 0}; }

ValueRow Null() {
    ValueRow row = Of("null");
    row.isNull = true;
    return row;
}

ValueRow Object(const char* json) {
    ValueRow row = Of(json);
    row.isObject = true;
    return row;
}

ValueRow Array(const char* json, size_t size) {
    ValueRow row = Of(json);
    row.isArray = true;
    row.size = size;
    return row;
}

ValueRow Text(const char* json, const std::string& text) {
    ValueRow row = Of(json);
    row.text = text;
    return row;
}

ValueRow Number(const char* json, int32_t number) {
    ValueRow row = Of(json);
    row.number = number;
    return row;
}

ValueRow Flag(const char* json, bool flag) {
    ValueRow row = Of(json);
    row.flag = flag;
    return row;
}

const std::vector<ValueRow>& ValueRows() {
    static const std::vector<ValueRow> rows = {
        Null(),
        Flag("true", true),
        Flag("false", false),
        Number("0", 0),
        Number("1", 1),
        Number("-7", -7),
        Number("200", 200),
        Number("3.0", 3),
        Text(R"("")", ""),
        Text(R"("text")", "text"),
        Text(R"("200")", "200"),
        Text(R"("true")", "true"),
        Text(R"("a\"b\\c\/d\n\t")", "a\"b\\c/d\n\t"),
        Text(R"("\u00e9\u20ac\ud83d\ude00")", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"),
        Text(R"("a\u0000b")", std::string("a\0b", 3)),
        Array("[]", 0),
        Array("[1]", 1),
        Array(R"([null, "two", [3], {"four": 4}])", 4),
        Object("{}"),
        Object(R"({"inner": 1})"),
    };
    return rows;
}

template <class Value, class View>
std::optional<Value> ReadValueAs(const View& view) {
    Value value{};
    return view.Read(value) ? std::optional<Value>(value) : std::nullopt;
}

template <class View>
void ExpectRow(const View& view, const ValueRow& row) {
    EXPECT_EQ(view.IsNull(), row.isNull);
    EXPECT_EQ(view.IsObject(), row.isObject);
    EXPECT_EQ(view.IsArray(), row.isArray);
    EXPECT_EQ(view.IsString(), row.text.has_value());
    EXPECT_EQ(view.Size(), row.size);
    EXPECT_EQ(ReadValueAs<std::string>(view), row.text);
    EXPECT_EQ(ReadValueAs<int32_t>(view), row.number);
    EXPECT_EQ(ReadValueAs<bool>(view), row.flag);
}

/// The members that no value of a row has.
template <class View>
void ExpectNothingInside(const View& view) {
    EXPECT_TRUE(view.Member("absent").IsNull());
    EXPECT_TRUE(view.Member("").IsNull());
    EXPECT_TRUE(view.Member("absent").Member("deeper").Element(0).IsNull());
    EXPECT_TRUE(view.Element(view.Size()).IsNull());
    EXPECT_TRUE(view.Element(std::numeric_limits<size_t>::max()).IsNull());
    EXPECT_TRUE(view.Element(size_t{1} << 32U).IsNull());
}

template <class Reader>
class Readers : public testing::Test {
protected:
    using View = typename Reader::View;

    View Parsed(const std::string& text) {
        EXPECT_TRUE(m_document.Parse(text)) << text;
        return m_document.Root();
    }

    typename Reader::Document m_document;
};
TYPED_TEST_SUITE(Readers, BothReaders, ReaderName);

TYPED_TEST(Readers, EveryAccessorOnAMemberOfEveryType) {
    for (const ValueRow& row : ValueRows()) {
        SCOPED_TRACE(row.json);
        const auto root = this->Parsed(std::string(R"({"before": 1, "v": )") + row.json + "}");
        ExpectRow(root.Member("v"), row);
        ExpectNothingInside(root.Member("v"));
    }
}

TYPED_TEST(Readers, EveryAccessorOnARootOfEveryType) {
    for (const ValueRow& row : ValueRows()) {
        SCOPED_TRACE(row.json);
        const auto root = this->Parsed(row.json);
        ExpectRow(root, row);
        ExpectNothingInside(root);
    }
}

TYPED_TEST(Readers, EveryAccessorOnAnElementOfEveryType) {
    for (const ValueRow& row : ValueRows()) {
        SCOPED_TRACE(row.json);
        const auto root = this->Parsed(std::string("[0, ") + row.json + "]");
        ASSERT_EQ(root.Size(), 2U);
        ExpectRow(root.Element(1), row);
        ExpectNothingInside(root.Element(1));
    }
}

TYPED_TEST(Readers, EveryAccessorOnNothing) {
    const ValueRow nothing = Null();
    const typename TypeParam::View none;
    ExpectRow(none, nothing);
    ExpectNothingInside(none);
    ExpectRow(typename TypeParam::View(nullptr), nothing);
    const auto root = this->Parsed(R"({"a": [1]})");
    ExpectRow(root.Member("b"), nothing);
    ExpectRow(root.Element(0), nothing);
    ExpectRow(root.Member("a").Element(1), nothing);
    ExpectRow(root.Member("a").Member("a"), nothing);
}

TYPED_TEST(Readers, AReadThatFailsLeavesTheValueAsItWas) {
    for (const ValueRow& row : ValueRows()) {
        SCOPED_TRACE(row.json);
        const auto view = this->Parsed(row.json);
        std::string text = "before";
        int32_t number = 4711;
        bool flag = true;
        EXPECT_EQ(view.Read(text), row.text.has_value());
        EXPECT_EQ(view.Read(number), row.number.has_value());
        EXPECT_EQ(view.Read(flag), row.flag.has_value());
        EXPECT_EQ(text, row.text.value_or("before"));
        EXPECT_EQ(number, row.number.value_or(4711));
        EXPECT_EQ(flag, row.flag.value_or(true));
    }
}

TYPED_TEST(Readers, MembersAreFoundByTheirWholeKeyInExactCase) {
    const auto root = this->Parsed(R"({"key": 1, "Key": 2, "keys": 3, "": 4, "\u00e9": 5, "a\u0000b": 6})");
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("key")), 1);
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("Key")), 2);
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("keys")), 3);
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("")), 4);
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("\xC3\xA9")), 5);
    EXPECT_TRUE(root.Member("ke").IsNull());
    EXPECT_TRUE(root.Member("KEY").IsNull());
    EXPECT_TRUE(root.Member("a").IsNull()) << "a key that goes on behind a zero is another key";
}

TYPED_TEST(Readers, OfDuplicateKeysTheLastWins) {
    const auto root = this->Parsed(R"({"a": 1, "a": "two", "b": 3, "a": 4})");
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("a")), 4);
    EXPECT_EQ(ReadValueAs<int32_t>(root.Member("b")), 3);
}

TYPED_TEST(Readers, ElementsKeepTheirOrder) {
    const auto root = this->Parsed("[10, 20, 30]");
    ASSERT_EQ(root.Size(), 3U);
    for (size_t i = 0; i < root.Size(); ++i) {
        EXPECT_EQ(ReadValueAs<int32_t>(root.Element(i)), static_cast<int32_t>(10 * (i + 1)));
    }
}

TYPED_TEST(Readers, NothingIsThereBeforeAParse) {
    EXPECT_TRUE(this->m_document.Root().IsNull());
    EXPECT_FALSE(this->m_document.Root().IsObject());
    EXPECT_TRUE(this->m_document.Root().Member("a").IsNull());
}

TYPED_TEST(Readers, AFailedParseForgetsTheOneBefore) {
    ASSERT_TRUE(this->m_document.Parse(R"({"a": 1})"));
    EXPECT_FALSE(this->m_document.Parse("{"));
    EXPECT_TRUE(this->m_document.Root().IsNull());
    EXPECT_TRUE(this->m_document.Root().Member("a").IsNull());
}

TYPED_TEST(Readers, ADocumentParsesAgain) {
    EXPECT_FALSE(this->m_document.Parse("nonsense"));
    EXPECT_EQ(ReadValueAs<int32_t>(this->Parsed(R"({"a": 1})").Member("a")), 1);
    const auto second = this->Parsed(R"({"b": 2})");
    EXPECT_TRUE(second.Member("a").IsNull());
    EXPECT_EQ(ReadValueAs<int32_t>(second.Member("b")), 2);
}

}  // namespace
}  // namespace vantix::test
