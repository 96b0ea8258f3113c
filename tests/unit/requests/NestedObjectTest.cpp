// Nested JSON as an object and as a text.

#include "requests/NestedObject.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

struct Found {
    bool failed = false;
    bool isObject = false;
    std::string text;  ///< That of the member "a".

    friend bool operator==(const Found&, const Found&) = default;
};

template <class Reader>
class Nested : public testing::Test {
protected:
    /// What is found in a member of this value.
    static Found In(const std::string& value) {
        typename Reader::Document document;
        EXPECT_TRUE(document.Parse("{\"nested\":" + value + "}")) << value;
        const NestedObject<typename Reader::Document> nested(document.Root().Member("nested"));
        Found found{nested.Failed(), nested.Object().IsObject(), {}};
        nested.Object().Member("a").Read(found.text);
        return found;
    }
};
TYPED_TEST_SUITE(Nested, BothReaders, ReaderName);

TYPED_TEST(Nested, ObjectAndTextGiveTheSame) {
    const Found expected{false, true, "x"};
    EXPECT_EQ(this->In(R"({"a":"x"})"), expected);
    EXPECT_EQ(this->In(R"("{\"a\":\"x\"}")"), expected);
    EXPECT_EQ(this->In("{}"), (Found{false, true, ""}));
    EXPECT_EQ(this->In(R"("{}")"), (Found{false, true, ""}));
}

TYPED_TEST(Nested, AnythingElseFails) {
    for (const char* value : {"5", "1.5", "true", "false", "[]", R"([{"a":"x"}])", R"("")", R"(" ")", R"("x")",
                              R"("[]")", R"("null")", R"("5")", R"("{")", R"("{\"a\":")"}) {
        EXPECT_EQ(this->In(value), (Found{true, false, ""})) << value;
    }
}

TYPED_TEST(Nested, WithoutTheMemberThereIsNothingAndNoFailure) {
    EXPECT_EQ(this->In("null"), (Found{false, false, ""}));
    const NestedObject<typename TypeParam::Document> nested{typename TypeParam::View()};
    EXPECT_FALSE(nested.Failed());
    EXPECT_FALSE(nested.Object().IsObject());
}

}  // namespace
}  // namespace vantix::test
