// Memory may run out at any allocation of a parse: that is thrown, and the document is then empty.

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string>

#include "support/FailingNew.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

constexpr const char* kNestedResponse =
    R"({"resultCode": "200", "result": {"code": 200, "list": [1, -2.5e3, true, null, {"deep": [[], {}]}],)"
    R"( "text": "long enough not to fit into a small string \u20ac"}})";

template <class Reader>
class OutOfMemory : public testing::Test {};
TYPED_TEST_SUITE(OutOfMemory, BothReaders, ReaderName);

TYPED_TEST(OutOfMemory, AtAnyAllocationAParseIsWholeOrThrowsAndLeavesNothing) {
    const std::string response = kNestedResponse;
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse(response)) << "and the parser has made what it keeps until the end";
    bool parsed = false;
    bool thrown = false;
    const auto parse = [&] {
        parsed = thrown = false;
        try {
            parsed = document.Parse(response);
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
    };
    const size_t allocations = WithEveryAllocationFailing(parse, [&](size_t n) {
        SCOPED_TRACE(n);
        EXPECT_NE(parsed, thrown) << "memory is no property of the text";
        EXPECT_TRUE(parsed || FailingNew::Fired());
        EXPECT_EQ(document.Root().IsNull(), !parsed) << "nor what was before";
    });
    EXPECT_GT(allocations, 10U);
    EXPECT_TRUE(parsed) << "the last run had memory enough";
    int32_t code = 0;
    EXPECT_TRUE(document.Root().Member("result").Member("code").Read(code));
    EXPECT_EQ(code, 200);
}

TEST(OutOfMemoryCompact, AtAnyAllocationTheTextIsThrownAwayOrWhole) {
    json::JsonCppDocument document;
    ASSERT_TRUE(document.Parse(kNestedResponse));
    const std::string whole = document.Root().Compact();
    std::string text;
    const auto write = [&] {
        try {
            text.clear();
            text = document.Root().Compact();
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(FailingNew::Fired());
        }
    };
    const size_t allocations = WithEveryAllocationFailing(write, [&](size_t n) {
        SCOPED_TRACE(n);
        EXPECT_EQ(text, FailingNew::Fired() ? "" : whole);
    });
    EXPECT_GT(allocations, 1U);
}

}  // namespace
}  // namespace vantix::test
