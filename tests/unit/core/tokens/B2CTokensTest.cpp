// The B2C tokens, and which devices they say are shared with the account.

#include <climits>
#include <thread>
#include <vector>

#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

std::string Entry(const std::string& token, const std::string& serial, const std::string& channel,
                  const std::string& isShared) {
    return R"({"token":")" + token + R"(","deviceSerial":")" + serial + R"(","channelNo":")" + channel +
           R"(","isShared":)" + isShared + "}";
}

class B2CTokens : public CoreTest {
protected:
    B2CTokens() { iLogLevel = level::kTrace; }

    void Set(const std::string& json) {
        core.SetB2CTokens(json);
        lines.Clear();
    }
};

TEST_F(B2CTokens, KeysHaveASeparator) {
    Set("[" + Entry("t", "ABC123", "1", "1") + "]");
    EXPECT_EQ(core.getB2CTokens("ABC123", 1), "t");
    EXPECT_EQ(core.getB2CTokens("ABC123", "1"), "t");
    EXPECT_EQ(core.getB2CTokens("ABC", "123_1"), "");
    EXPECT_EQ(core.getB2CTokens("ABC12", "31"), "");
}

TEST_F(B2CTokens, SettingLogsEveryKeyAndTheSize) {
    core.SetB2CTokens("[" + Entry("t1", "A", "1", "1") + "," + Entry("t2", "B", "2", "0") + "," +
                      Entry("t3", "A", "1", "-5") + "]");
    EXPECT_EQ(lines.Messages(),
              (std::vector<std::string>{"setB2CTokens key = A_1 isShared = 1", "setB2CTokens key = B_2 isShared = 0",
                                        "setB2CTokens key = A_1 isShared = -5", "m_mapB2CTokens size = 2 "}));
    for (const LogLine& line : lines.Lines()) {
        EXPECT_EQ(line.Word(), "INFO ");
        EXPECT_EQ(line.Tag(), "CVantixDataCenter::SetB2CTokens");
        EXPECT_EQ(line.level, line.Message().substr(0, 1) == "s" ? 1U : 3U);
    }
    EXPECT_EQ(core.getB2CTokens("A", 1), "t3") << "a later element replaces an earlier one";
}

TEST_F(B2CTokens, LookUpLogsTheKey) {
    Set("[" + Entry("t", "A", "1", "1") + "]");
    core.getB2CTokens("A", 1);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getB2CTokens", "getB2CTokens key = A_1 "));
    core.isB2CSharedDevice("A", 1);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::isB2CSharedDevice", "isB2CSharedDevice key = A_1 "));
    EXPECT_EQ(lines.Lines().size(), 2U);
}

TEST_F(B2CTokens, AbsentKeyGivesAnErrorLineAndNothing) {
    EXPECT_EQ(core.getB2CTokens("S", 1), "");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::getB2CTokens", "The key does not exist key = S_1"));
    lines.Clear();
    EXPECT_EQ(core.getB2CTokens("S", "x"), "");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::getB2CTokens", "The key does not exist key = S_x"));
    lines.Clear();
    EXPECT_FALSE(core.isB2CSharedDevice("S", -1));
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::isB2CSharedDevice", "The key does not exist key = S_-1"));
}

TEST_F(B2CTokens, AnythingButZeroIsShared) {
    const struct {
        const char* json;
        bool shared;
    } rows[] = {{"1", true},     {"0", false},         {"2", true},           {"-1", true},
                {"1.9", true},   {"0.9", false},       {"\"1\"", false},      {"true", false},
                {"null", false}, {"[1]", false},       {"{}", false},         {"1e400", false},
                {"1e20", false}, {"2147483647", true}, {"-2147483648", true}, {"2147483648", false}};
    for (const auto& row : rows) {
        Set("[" + Entry("t", "A", "1", row.json) + "]");
        EXPECT_EQ(core.isB2CSharedDevice("A", 1), row.shared) << row.json;
        EXPECT_EQ(core.isB2CSharedDevice("t"), row.shared) << row.json;
    }
    Set(R"([{"token":"t","deviceSerial":"A","channelNo":"1"}])");
    EXPECT_FALSE(core.isB2CSharedDevice("A", 1)) << "missing";
}

// ---- By token

TEST_F(B2CTokens, AccessTokenIsNeverAShareEvenIfTheMapSaysSo) {
    Set("[" + Entry("mine", "A", "1", "1") + "]");
    core.setAccessToken("mine");
    core.setSharedAccessToken("mine");
    EXPECT_FALSE(core.isB2CSharedDevice("mine"));
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(B2CTokens, SharedAccessTokenIsAShareWithoutTheMap) {
    core.setAccessToken("mine");
    core.setSharedAccessToken("shared");
    EXPECT_TRUE(core.isB2CSharedDevice("shared"));
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(B2CTokens, TokenInTheMapIsLoggedAsAHit) {
    core.setAccessToken("mine");
    core.setSharedAccessToken("also shared");
    Set("[" + Entry("one", "A", "1", "7") + "," + Entry("zero", "B", "1", "0") + "]");
    EXPECT_TRUE(core.isB2CSharedDevice("one"));
    EXPECT_THAT(lines.Lines(),
                HasLine(2, "INFO ", "CVantixDataCenter::isB2CSharedDevice", "Token found in B2C map, isShared=7"));
    EXPECT_FALSE(core.isB2CSharedDevice("zero"));
    EXPECT_THAT(lines.Lines(),
                HasLine(2, "INFO ", "CVantixDataCenter::isB2CSharedDevice", "Token found in B2C map, isShared=0"));
    EXPECT_EQ(lines.Lines().size(), 2U);
}

TEST_F(B2CTokens, UnknownTokenIsLoggedAndNotShared) {
    core.setAccessToken("mine");
    core.setSharedAccessToken("shared");
    EXPECT_FALSE(core.isB2CSharedDevice("unknown"));
    EXPECT_THAT(lines.Lines(),
                HasLine(4, "ERROR", "CVantixDataCenter::isB2CSharedDevice",
                        "Unknown token provided, cannot determine if it's a shared device. Defaulting to false."));
}

TEST_F(B2CTokens, EmptyTokenIsNeverTheSharedOne) {
    EXPECT_FALSE(core.isB2CSharedDevice(""));
    EXPECT_TRUE(lines.Lines().empty()) << "equal to the empty access token";
    core.setAccessToken("mine");
    EXPECT_FALSE(core.isB2CSharedDevice("")) << "no shared token is set";
    EXPECT_EQ(lines.Lines().size(), 1U);
    core.setSharedAccessToken("shared");
    EXPECT_FALSE(core.isB2CSharedDevice(""));
    EXPECT_EQ(lines.Lines().size(), 2U);
}

// ---- Replacing

TEST_F(B2CTokens, EveryCallReplacesTheWholeSet) {
    Set("[" + Entry("a", "A", "1", "1") + "," + Entry("b", "B", "1", "1") + "]");
    Set("[" + Entry("c", "C", "1", "1") + "]");
    EXPECT_EQ(core.getB2CTokens("A", 1), "");
    EXPECT_FALSE(core.isB2CSharedDevice("b"));
    EXPECT_EQ(core.getB2CTokens("C", 1), "c");
}

TEST_F(B2CTokens, JsonThatIsNoArrayEmptiesTheSet) {
    for (const char* json : {"[]", "{}", "5", "\"text\"", "false", "null"}) {
        Set("[" + Entry("a", "A", "1", "1") + "]");
        core.SetB2CTokens(json);
        EXPECT_EQ(lines.Messages(), std::vector<std::string>{"m_mapB2CTokens size = 0 "}) << json;
        EXPECT_FALSE(core.isB2CSharedDevice("A", 1)) << json;
    }
}

TEST_F(B2CTokens, TextThatIsNoJsonChangesNothing) {
    Set("[" + Entry("a", "A", "1", "1") + "]");
    const std::pair<std::string, std::string> rows[] = {
        {"", "unexpected end of input"},
        {"x", "expected value, got 'x' (120)"},
        {"[{]", "expected '\"' in object, got ']' (93)"},
        {"[]x", "unexpected trailing 'x' (120)"},
        {"\xEF\xBB\xBF[]", "expected value, got (-17)"},
        {std::string(100'000, '['), "exceeded maximum nesting depth"},
    };
    for (const auto& [text, error] : rows) {
        SCOPED_TRACE(text.substr(0, 30));
        lines.Clear();
        core.SetB2CTokens(text);
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", "CVantixDataCenter::SetB2CTokens", "szDeviceTkTokens parse error " + error));
        EXPECT_EQ(lines.Lines().size(), 1U);
        EXPECT_EQ(core.getB2CTokens("A", 1), "a");
    }
}

TEST_F(B2CTokens, TruncationAtAnyByteChangesNothing) {
    Set("[" + Entry("a", "A", "1", "1") + "]");
    iLogLevel = 6;
    const std::string whole = "[" + Entry("b", "A", "1", "0") + "," + Entry("c", "B", "2", "1") + "]";
    for (size_t length = 0; length < whole.size(); ++length) {
        core.SetB2CTokens(whole.substr(0, length));
        EXPECT_EQ(core.getB2CTokens("A", 1), "a") << length;
    }
}

TEST_F(B2CTokens, TextMembersOfAnotherTypeAreEmpty) {
    for (const char* value : {"null", "5", "true", "[]", "{}"}) {
        SCOPED_TRACE(value);
        Set(R"([{"token":)" + std::string(value) + R"(,"deviceSerial":"A","channelNo":"1","isShared":1}])");
        EXPECT_EQ(core.getB2CTokens("A", 1), "");
        EXPECT_TRUE(core.isB2CSharedDevice("A", 1));
        Set(R"([{"token":"t","deviceSerial":)" + std::string(value) + R"(,"channelNo":1,"isShared":1}])");
        EXPECT_EQ(core.getB2CTokens("", ""), "t");
    }
}

TEST_F(B2CTokens, ElementsThatAreNoObjectsHaveTheEmptyKey) {
    core.SetB2CTokens("[1,[],\"x\"," + Entry("a", "A", "1", "1") + "]");
    EXPECT_EQ(lines.Count("setB2CTokens key = _ isShared = 0"), 3U);
    EXPECT_EQ(lines.Count("m_mapB2CTokens size = 2 "), 1U);
    EXPECT_EQ(core.getB2CTokens("A", 1), "a");
}

TEST_F(B2CTokens, ChannelNumbersAreSignedDecimalText) {
    Set("[" + Entry("a", "A", "-2147483648", "1") + "," + Entry("b", "A", "2147483647", "1") + "]");
    EXPECT_EQ(core.getB2CTokens("A", INT_MIN), "a");
    EXPECT_EQ(core.getB2CTokens("A", INT_MAX), "b");
}

TEST_F(B2CTokens, ClearingTheCachesKeepsThem) {
    Set("[" + Entry("a", "A", "1", "1") + "]");
    core.ClearAllCache();
    EXPECT_EQ(core.getB2CTokens("A", 1), "a");
}

TEST_F(B2CTokens, TkTokensAndB2CTokensAreApart) {
    Set("[" + Entry("a", "A", "1", "1") + "]");
    core.SetDeviceTkTokens("[]");
    EXPECT_EQ(core.getB2CTokens("A", 1), "a");
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"d","deviceSerial":"A","channelNo":"1"}])");
    Set("[]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d");
}

TEST_F(B2CTokens, SettingAndReadingRunSideBySide) {
    iLogLevel = 6;
    const std::string one = "[" + Entry("t1", "A", "1", "1") + "]";
    const std::string two = "[" + Entry("t2", "A", "1", "1") + "," + Entry("t2", "B", "1", "1") + "]";
    core.setAccessToken("mine");
    core.SetB2CTokens(one);
    std::thread writer([&] {
        for (int i = 0; i < 500; ++i) {
            core.SetB2CTokens(i % 2 == 0 ? two : one);
        }
    });
    for (int i = 0; i < 500; ++i) {
        const std::string token = core.getB2CTokens("A", 1);
        EXPECT_TRUE(token == "t1" || token == "t2") << token;
        EXPECT_TRUE(core.isB2CSharedDevice("A", 1));
        core.isB2CSharedDevice("t2");
    }
    writer.join();
}

/// A million bytes and more: read whole when they are an array, and refused when they are no JSON.
TEST_F(B2CTokens, TextOfAMegabyteIsReadOrRefusedLikeAnyOther) {
    iLogLevel = 6;
    const std::string megabyte(1'000'000, 'x');
    std::string many = "[" + Entry("first", "A", "1", "1");
    for (int i = 0; many.size() < 1'000'000; ++i) {
        many += "," + Entry("t" + std::to_string(i), "S" + std::to_string(i), "1", "0");
    }
    core.SetB2CTokens(many + "]");
    EXPECT_EQ(core.getB2CTokens("A", 1), "first");
    EXPECT_EQ(core.getB2CTokens("S9999", 1), "t9999");
    core.setAccessToken("mine");
    EXPECT_FALSE(core.isB2CSharedDevice("t9999"));
    EXPECT_TRUE(core.isB2CSharedDevice("first"));
    const std::vector<std::string> noJson = {many,
                                             megabyte,
                                             "\"" + megabyte,
                                             std::string(1'000'000, '['),
                                             std::string(1'000'000, '{'),
                                             std::string(1'000'000, ' ')};
    for (const std::string& text : noJson) {
        core.SetB2CTokens(text);
        EXPECT_EQ(core.getB2CTokens("S9999", 1), "t9999") << text.substr(0, 20);
    }
    core.SetB2CTokens("[" + Entry(megabyte, megabyte, "1", "1") + "]");
    EXPECT_EQ(core.getB2CTokens(megabyte, 1), megabyte);
    EXPECT_TRUE(core.isB2CSharedDevice(megabyte));
    core.SetB2CTokens("\"" + megabyte + "\"");
    EXPECT_EQ(core.getB2CTokens(megabyte, 1), "");
}

/// Longer than any log buffer: the line's text is empty then, and nothing else happens.
TEST_F(B2CTokens, KeyBeyondTheLogBufferIsFoundAllTheSame) {
    const std::string serial(100'000, 's');
    core.SetB2CTokens("[" + Entry("t", serial, "1", "1") + "]");
    EXPECT_EQ(core.getB2CTokens(serial, 1), "t");
    EXPECT_EQ(core.getB2CTokens(serial, 2), "");
}

/// Every set has one mark, and each token, serial by serial, is of one set: a reader never sees half of a replacement.
TEST_F(B2CTokens, ManyReplaceAndManyLookUpAtOnce) {
    iLogLevel = 6;
    constexpr int kRounds = 200;
    const auto setOf = [](const std::string& mark, const std::string& isShared) {
        return "[" + Entry(mark, "A", "1", isShared) + "," + Entry(mark, "B", "2", isShared) + "]";
    };
    const std::string sets[] = {setOf("zero", "0"), setOf("one", "1"), setOf("two", "1")};
    core.setAccessToken("mine");
    core.SetB2CTokens(sets[0]);
    std::vector<std::thread> threads;
    threads.reserve(6);
    for (int writer = 0; writer < 3; ++writer) {
        threads.emplace_back([this, &sets, writer] {
            for (int i = 0; i < kRounds; ++i) {
                core.SetB2CTokens(sets[(writer + i) % 3]);
                core.SetB2CTokens("no json");
                core.setAccessToken(i % 2 == 0 ? "mine" : "mine too");
                core.setSharedAccessToken(i % 2 == 0 ? "shared" : "shared too");
            }
        });
    }
    for (int reader = 0; reader < 3; ++reader) {
        threads.emplace_back([this] {
            for (int i = 0; i < kRounds; ++i) {
                for (const std::string& token : {core.getB2CTokens("A", 1), core.getB2CTokens("B", "2")}) {
                    EXPECT_TRUE(token == "zero" || token == "one" || token == "two") << token;
                }
                EXPECT_EQ(core.getB2CTokens("C", 1), "");
                core.isB2CSharedDevice("A", 1);
                core.isB2CSharedDevice("one");
                EXPECT_FALSE(core.isB2CSharedDevice("zero")) << "never shared in any set";
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace vantix::test
