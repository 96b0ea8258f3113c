#include "core/detail/CacheKey.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <unordered_map>

namespace vantix::test {
namespace {

TEST(CacheKey, IsItsText) {
    EXPECT_EQ(CacheKey("C1_1").Text(), "C1_1");
    EXPECT_TRUE(CacheKey("C1_1") == CacheKey("C1_1"));
    EXPECT_FALSE(CacheKey("C1_1") == CacheKey("C1_2"));
    EXPECT_FALSE(CacheKey("C1_1") == CacheKey(std::string("C1_1\0", 5)));
    EXPECT_FALSE(CacheKey("") == CacheKey("_"));
}

TEST(CacheKey, HasOneHashForEachText) {
    EXPECT_EQ(CacheKey::Hash()(CacheKey("C1_1")), CacheKey::Hash()(CacheKey("C1_1")));
    EXPECT_NE(CacheKey::Hash()(CacheKey("C1_1")), CacheKey::Hash()(CacheKey("C1_2")));
}

TEST(CacheKey, OrderIsStrict) {
    const CacheKey one("C1_1");
    const CacheKey other("C1_2");
    EXPECT_FALSE(one < one);
    EXPECT_NE(one < other, other < one);
}

TEST(CacheKey, FindsItsEntryAmongManyInBothKindsOfMaps) {
    std::map<CacheKey, int> ordered;
    std::unordered_map<CacheKey, int, CacheKey::Hash> hashed;
    for (int i = 0; i < 1000; ++i) {
        ordered.emplace("C" + std::to_string(i), i);
        hashed.emplace("C" + std::to_string(i), i);
    }
    EXPECT_EQ(ordered.size(), 1000U);
    EXPECT_EQ(ordered.at(CacheKey("C0")), 0);
    EXPECT_EQ(ordered.at(CacheKey("C517")), 517);
    EXPECT_EQ(hashed.at(CacheKey("C999")), 999);
    EXPECT_EQ(ordered.count(CacheKey("C1000")), 0U);
    EXPECT_EQ(hashed.count(CacheKey("c1")), 0U);
}

}  // namespace
}  // namespace vantix::test
