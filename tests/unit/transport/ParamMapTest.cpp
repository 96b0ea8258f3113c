#include "transport/ParamMap.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vantix {
namespace {

TEST(ParamMap, SerializesInTheByteOrderOfKeys) {
    ParamMap params;
    params.Add("b", "2");
    params.Add("A", "1");
    params.Add("a", "x");
    EXPECT_EQ(params.Serialize(), "A=1&a=x&b=2");
}

TEST(ParamMap, KeysBeyondAsciiComeLast) {
    ParamMap params;
    params.Add("\xC3\xA9", "3");
    params.Add("zz", "2");
    params.Add("_", "1");
    EXPECT_EQ(params.Serialize(), "_=1&zz=2&\xC3\xA9=3");
}

TEST(ParamMap, KeysThatBeginAlikeAreInOrderToo) {
    ParamMap params;
    for (const char* key : {"channelNumbers", "channel", "channelNo", "channelN", "channelNumber", "channel0"}) {
        params.Add(key, "1");
        params.Add(key, "2");
    }
    EXPECT_EQ(params.Serialize(), "channel=1&channel0=1&channelN=1&channelNo=1&channelNumber=1&channelNumbers=1");
}

TEST(ParamMap, IsEmptyAtFirst) {
    const ParamMap params;
    EXPECT_EQ(params.Size(), 0U);
    EXPECT_EQ(params.Serialize(), "");
    EXPECT_EQ(params.SerializeMasked(), "");
}

TEST(ParamMap, ValuesArePutInAsTheyAre) {
    ParamMap params;
    params.Add("a", "x&y z=%20+#\n\xFF");
    params.Add("b c", "d");
    EXPECT_EQ(params.Serialize(), "a=x&y z=%20+#\n\xFF&b c=d");
}

TEST(ParamMap, NullTextsAddNothing) {
    ParamMap params;
    params.Add(nullptr, "value");
    params.Add("key", static_cast<const char*>(nullptr));
    params.Add(nullptr, static_cast<const char*>(nullptr));
    params.Add(nullptr, std::string("value"));
    params.Add(nullptr, 5);
    EXPECT_EQ(params.Size(), 0U);
}

TEST(ParamMap, EmptyTextsAreEntries) {
    ParamMap params;
    params.Add("text", "");
    params.Add("string", std::string());
    params.Add("", "no key");
    EXPECT_EQ(params.Serialize(), "=no key&string=&text=");
}

TEST(ParamMap, TheValueThatWasAddedFirstStays) {
    ParamMap params;
    params.Add("key", "first");
    params.Add("key", "second");
    params.Add("key", std::string("third"));
    params.Add("key", 4);
    EXPECT_EQ(params.Serialize(), "key=first");
    params.Add("empty", "");
    params.Add("empty", "later");
    EXPECT_EQ(params.Serialize(), "empty=&key=first");
}

TEST(ParamMap, NumbersAreDecimal) {
    struct Row {
        int number;
        const char* text;
    };
    constexpr Row kRows[] = {{0, "0"},
                             {19, "19"},
                             {-1, "-1"},
                             {1'000'000, "1000000"},
                             {std::numeric_limits<int>::max(), "2147483647"},
                             {std::numeric_limits<int>::min(), "-2147483648"}};
    for (const Row& row : kRows) {
        ParamMap params;
        params.Add("n", row.number);
        EXPECT_EQ(params.Serialize(), std::string("n=") + row.text);
    }
}

TEST(ParamMap, AStringMayHoldZeros) {
    ParamMap params;
    params.Add("key", std::string("a\0b", 3));
    EXPECT_EQ(params.Serialize(), std::string("key=a\0b", 7));
}

TEST(ParamMap, TheMaskedTextDiffersInCredentialsAlone) {
    ParamMap params;
    params.Add("accessToken", "at.secret");
    params.Add("AccessToken", "not masked");
    params.Add("accesstoken", "nor this");
    params.Add("accessTokenX", "nor this");
    params.Add("appKey", "key");
    params.Add("sessionId", "");
    params.Add("deviceSerial", "accessToken");
    EXPECT_EQ(params.SerializeMasked(),
              "AccessToken=not masked&accessToken=***&accessTokenX=nor this&accesstoken=nor this&appKey=***"
              "&deviceSerial=accessToken&sessionId=***");
    EXPECT_EQ(params.Serialize(),
              "AccessToken=not masked&accessToken=at.secret&accessTokenX=nor this&accesstoken=nor this&appKey=key"
              "&deviceSerial=accessToken&sessionId=");
}

TEST(ParamMap, EntriesAreFoundByPlaceAndByKey) {
    ParamMap params;
    params.Add("b", std::string("x\0y", 3));
    params.Add("a", "1");
    params.Add("", "no key");
    ASSERT_EQ(params.Size(), 3U);
    EXPECT_EQ(params.At(0).key, "");
    EXPECT_EQ(params.At(0).value, "no key");
    EXPECT_EQ(params.At(1).key, "a");
    EXPECT_EQ(params.At(2).value, std::string("x\0y", 3));
    EXPECT_EQ(params.Find("a"), "1");
    EXPECT_EQ(params.Find(""), "no key");
    EXPECT_EQ(params.Find("c"), std::nullopt);
}

TEST(ParamMap, ManyEntriesAndLongTextsStayInOrder) {
    ParamMap params;
    for (int i = 99; i >= 10; --i) {
        params.Add(std::to_string(i).c_str(), std::string(100, static_cast<char>('A' + i % 26)));
    }
    ASSERT_EQ(params.Size(), 90U);
    EXPECT_EQ(params.At(0).key, "10");
    EXPECT_EQ(params.At(0).value, std::string(100, 'K'));
    EXPECT_EQ(params.At(89).key, "99");
    EXPECT_EQ(params.At(89).value, std::string(100, 'V'));
    EXPECT_EQ(params.Serialize().size(), 90U * 103 + 89);
}

TEST(ParamMap, CopiesAreTheirOwn) {
    ParamMap first;
    first.Add("a", "1");
    ParamMap second = first;
    second.Add("b", "2");
    EXPECT_EQ(first.Serialize(), "a=1");
    EXPECT_EQ(second.Serialize(), "a=1&b=2");
}

}  // namespace
}  // namespace vantix
