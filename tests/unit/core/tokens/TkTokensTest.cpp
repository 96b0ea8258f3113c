// The Tk tokens: five for each channel, and one for the account.

#include <climits>
#include <thread>
#include <vector>

#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

class TkTokens : public CoreTest {
protected:
    TkTokens() { iLogLevel = level::kTrace; }

    static std::string Entry(const std::string& mark, const std::string& serial, const std::string& channel) {
        return R"({"deviceTkToken":"d)" + mark + R"(","deviceVideoTkToken":"v)" + mark + R"(","previewTkToken":"p)" +
               mark + R"(","playTackTkToken":"b)" + mark + R"(","talkTkToken":"t)" + mark + R"(","deviceSerial":")" +
               serial + R"(","channelNo":")" + channel + R"("})";
    }
    void Set(const std::string& json) {
        core.SetDeviceTkTokens(json);
        lines.Clear();
    }
};

TEST_F(TkTokens, KindChoosesTheToken) {
    Set("[" + Entry("1", "ABC123", "1") + "]");
    core.setGlobalTkToken("global");
    const struct {
        int kind;
        const char* token;
    } rows[] = {{1, "global"}, {2, "d1"}, {3, "v1"}, {4, "p1"},     {5, "b1"},    {6, "t1"},
                {7, ""},       {0, ""},   {-1, ""},  {INT_MAX, ""}, {INT_MIN, ""}};
    for (const auto& row : rows) {
        EXPECT_EQ(core.getDeviceTkTokens(row.kind, "ABC123", 1), row.token) << row.kind;
        EXPECT_EQ(core.getDeviceTkTokens(row.kind, "ABC123", "1"), row.token) << row.kind;
    }
}

TEST_F(TkTokens, UnknownKindOfAKnownKeyIsSilent) {
    Set("[" + Entry("1", "ABC123", "1") + "]");
    EXPECT_EQ(core.getDeviceTkTokens(7, "ABC123", 1), "");
    EXPECT_EQ(lines.Messages(), (std::vector<std::string>{"tkType = 7 strSerial = ABC123 iChannelNo = 1",
                                                          "getDeviceTkTokens key = ABC1231 "}));
}

TEST_F(TkTokens, SettingLogsEveryKeyAndTheSize) {
    core.SetDeviceTkTokens("[" + Entry("1", "A", "1") + "," + Entry("2", "B", "12") + "," + Entry("3", "A", "1") + "]");
    EXPECT_EQ(lines.Messages(),
              (std::vector<std::string>{"SetDeviceTkTokens key = A1 ", "SetDeviceTkTokens key = B12 ",
                                        "SetDeviceTkTokens key = A1 ", "m_mapDeviceTkTokens size = 2 "}));
    for (const LogLine& line : lines.Lines()) {
        EXPECT_EQ(line.Word(), "INFO ");
        EXPECT_EQ(line.Tag(), "CVantixDataCenter::SetDeviceTkTokens");
        EXPECT_EQ(line.level, line.Message().substr(0, 1) == "S" ? 1U : 3U);
    }
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d3") << "a later element replaces an earlier one";
}

TEST_F(TkTokens, LookUpLogsArgumentsAndKey) {
    Set("[" + Entry("1", "ABC123", "1") + "]");
    core.getDeviceTkTokens(2, "ABC123", 1);
    EXPECT_THAT(lines.Lines(), HasLine(1, "INFO ", "CVantixDataCenter::getDeviceTkTokens",
                                       "tkType = 2 strSerial = ABC123 iChannelNo = 1"));
    EXPECT_THAT(lines.Lines(),
                HasLine(1, "INFO ", "CVantixDataCenter::getDeviceTkTokens", "getDeviceTkTokens key = ABC1231 "));
    EXPECT_EQ(lines.Lines().size(), 2U);
    lines.Clear();
    core.getDeviceTkTokens(2, "ABC123", "1");
    EXPECT_THAT(lines.Lines(), HasLine(1, "INFO ", "CVantixDataCenter::getDeviceTkTokens",
                                       "tkType = 2 strSerial = ABC123 strChannelNo = 1"));
    EXPECT_THAT(lines.Lines(),
                HasLine(1, "INFO ", "CVantixDataCenter::getDeviceTkTokens", "getDeviceTkTokens key = ABC1231 "));
    EXPECT_EQ(lines.Lines().size(), 2U);
}

TEST_F(TkTokens, AbsentKeyGivesAnErrorLineAndNothing) {
    EXPECT_EQ(core.getDeviceTkTokens(2, "S", 1), "");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::getDeviceTkTokens", "The key does not exist key = S1"));
    EXPECT_EQ(core.getDeviceTkTokens(99, "T", "x"), "");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::getDeviceTkTokens", "The key does not exist key = Tx"));
}

TEST_F(TkTokens, GlobalTokenNeedsNoMapAndLogsOnlyTheArguments) {
    core.setGlobalTkToken("global");
    EXPECT_EQ(core.getDeviceTkTokens(1, "S", 1), "global");
    EXPECT_EQ(lines.Messages(), std::vector<std::string>{"tkType = 1 strSerial = S iChannelNo = 1"});
    lines.Clear();
    EXPECT_EQ(core.getDeviceTkTokens(1, "", ""), "global");
    EXPECT_EQ(lines.Messages(), std::vector<std::string>{"tkType = 1 strSerial =  strChannelNo = "});
}

TEST_F(TkTokens, EmptyGlobalTokenIsIgnored) {
    core.setGlobalTkToken("");
    EXPECT_EQ(core.getGlobalTkToken(), "");
    core.setGlobalTkToken("first");
    core.setGlobalTkToken("");
    EXPECT_EQ(core.getGlobalTkToken(), "first");
    core.setGlobalTkToken("second");
    EXPECT_EQ(core.getGlobalTkToken(), "second");
}

TEST_F(TkTokens, TracingIsNotWrittenAtTheDefaultThreshold) {
    iLogLevel = level::kInfo;
    core.SetDeviceTkTokens("[" + Entry("1", "A", "1") + "]");
    core.getDeviceTkTokens(2, "A", 1);
    EXPECT_EQ(lines.Messages(), std::vector<std::string>{"m_mapDeviceTkTokens size = 1 "});
}

TEST_F(TkTokens, KeysHaveNoSeparatorSoThatTheLaterOfTwoDevicesWins) {
    Set("[" + Entry("first", "AB1", "23") + "," + Entry("later", "AB12", "3") + "]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "AB1", 23), "dlater");
    EXPECT_EQ(core.getDeviceTkTokens(2, "AB12", 3), "dlater");
    EXPECT_EQ(core.getDeviceTkTokens(2, "", "AB123"), "dlater");
}

TEST_F(TkTokens, EveryCallReplacesTheWholeSet) {
    Set("[" + Entry("1", "A", "1") + "," + Entry("2", "B", "1") + "]");
    Set("[" + Entry("3", "C", "1") + "]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "");
    EXPECT_EQ(core.getDeviceTkTokens(2, "B", 1), "");
    EXPECT_EQ(core.getDeviceTkTokens(2, "C", 1), "d3");
}

TEST_F(TkTokens, JsonThatIsNoArrayEmptiesTheSet) {
    for (const char* json : {"[]", "{}", "5", "\"text\"", "true", "null", R"({"deviceSerial":"A","channelNo":"1"})"}) {
        Set("[" + Entry("1", "A", "1") + "]");
        core.SetDeviceTkTokens(json);
        EXPECT_EQ(lines.Messages(), std::vector<std::string>{"m_mapDeviceTkTokens size = 0 "}) << json;
        EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "") << json;
    }
}

TEST_F(TkTokens, TextThatIsNoJsonChangesNothing) {
    const std::pair<std::string, std::string> rows[] = {
        {"", "unexpected end of input"},
        {" ", "unexpected end of input"},
        {"x", "expected value, got 'x' (120)"},
        {"[", "unexpected end of input"},
        {"[{", "unexpected end of input"},
        {"[{}", "unexpected end of input"},
        {"[]x", "unexpected trailing 'x' (120)"},
        {"[]]", "unexpected trailing ']' (93)"},
        {"[1,]", "expected value, got ']' (93)"},
        {"{\"a\"}", "expected ':' in object, got '}' (125)"},
        {"<html></html>", "expected value, got '<' (60)"},
        {"\xEF\xBB\xBF[]", "expected value, got (-17)"},
        {"[NaN]", "expected value, got 'N' (78)"},
        {"[01]", "leading 0s not permitted in numbers"},
        {"['a']", "expected value, got ''' (39)"},
        {"[\"a\nb\"]", "unescaped (10) in string"},
        {std::string("[]\0", 3), "unexpected trailing (0)"},
        {std::string(100'000, '['), "exceeded maximum nesting depth"},
        {"[" + Entry("2", "A", "1"), "unexpected end of input"},
        {"// comment\n[]", "expected value, got '/' (47)"},
    };
    Set("[" + Entry("1", "A", "1") + "]");
    for (const auto& [text, error] : rows) {
        SCOPED_TRACE(text.substr(0, 30));
        lines.Clear();
        core.SetDeviceTkTokens(text);
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::SetDeviceTkTokens",
                                           "szDeviceTkTokens parse error " + error));
        EXPECT_EQ(lines.Lines().size(), 1U);
        EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d1");
    }
}

TEST_F(TkTokens, MembersThatAreMissingOrOfAnotherTypeAreEmpty) {
    for (const char* value : {"null", "5", "true", "[]", "{}", "[\"d\"]", "1e400"}) {
        SCOPED_TRACE(value);
        Set(R"([{"deviceTkToken":)" + std::string(value) +
            R"(,"previewTkToken":"p","deviceSerial":"A","channelNo":"1"}])");
        EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "");
        EXPECT_EQ(core.getDeviceTkTokens(3, "A", 1), "");
        EXPECT_EQ(core.getDeviceTkTokens(4, "A", 1), "p");
    }
    Set(R"([{"deviceTkToken":"d","deviceSerial":"A","channelNo":1}])");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "") << "a number is no channel text";
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", ""), "d");
}

TEST_F(TkTokens, ElementsThatAreNoObjectsHaveTheEmptyKey) {
    core.SetDeviceTkTokens("[1,\"x\",null,[]," + Entry("1", "A", "1") + "]");
    EXPECT_EQ(lines.Count("SetDeviceTkTokens key =  "), 4U);
    EXPECT_EQ(lines.Count("m_mapDeviceTkTokens size = 2 "), 1U);
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d1");
    EXPECT_EQ(core.getDeviceTkTokens(2, "", ""), "");
}

TEST_F(TkTokens, LastOfDuplicateMembersCounts) {
    Set(R"([{"deviceTkToken":"x","deviceTkToken":"y","deviceSerial":"A","channelNo":"1"}])");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "y");
}

TEST_F(TkTokens, AnyBytesAreTokens) {
    Set("[{\"deviceTkToken\":\"\\u0000\xFF\xC0 %s\",\"deviceSerial\":\"\xE8\xAE\xBE\",\"channelNo\":\"-1\"}]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "\xE8\xAE\xBE", -1), std::string("\0\xFF\xC0 %s", 6));
}

TEST_F(TkTokens, ChannelNumbersAreSignedDecimalText) {
    Set("[" + Entry("1", "A", "-2147483648") + "," + Entry("2", "A", "2147483647") + "]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", INT_MIN), "d1");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", INT_MAX), "d2");
}

TEST_F(TkTokens, TruncationAtAnyByteChangesNothing) {
    Set("[" + Entry("1", "A", "1") + "]");
    iLogLevel = 6;
    const std::string whole = "[" + Entry("2", "A", "1") + "," + Entry("3", "B", "2") + "]";
    for (size_t length = 0; length < whole.size(); ++length) {
        core.SetDeviceTkTokens(whole.substr(0, length));
        EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d1") << length;
    }
    core.SetDeviceTkTokens(whole);
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d2");
}

TEST_F(TkTokens, TokensAreHandedOutAsCopies) {
    Set("[" + Entry("1", "A", "1") + "]");
    const std::string token = core.getDeviceTkTokens(2, "A", 1);
    Set("[]");
    EXPECT_EQ(token, "d1");
}

TEST_F(TkTokens, ClearingTheCachesKeepsThem) {
    Set("[" + Entry("1", "A", "1") + "]");
    core.setGlobalTkToken("global");
    core.ClearAllCache();
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "d1");
    EXPECT_EQ(core.getDeviceTkTokens(1, "A", 1), "global");
}

TEST_F(TkTokens, SettingAndReadingRunSideBySide) {
    iLogLevel = 6;
    const std::string one = "[" + Entry("1", "A", "1") + "]";
    const std::string two = "[" + Entry("2", "A", "1") + "," + Entry("2", "B", "1") + "]";
    core.SetDeviceTkTokens(one);
    std::thread writer([&] {
        for (int i = 0; i < 500; ++i) {
            core.SetDeviceTkTokens(i % 2 == 0 ? two : one);
        }
    });
    for (int i = 0; i < 500; ++i) {
        const std::string token = core.getDeviceTkTokens(2, "A", 1);
        EXPECT_TRUE(token == "d1" || token == "d2") << token;
    }
    writer.join();
}

/// A million bytes and more: read whole when they are an array, and refused when they are no JSON.
TEST_F(TkTokens, TextOfAMegabyteIsReadOrRefusedLikeAnyOther) {
    iLogLevel = 6;
    const std::string megabyte(1'000'000, 'x');
    std::string many = "[" + Entry("first", "A", "1");
    for (int i = 0; many.size() < 1'000'000; ++i) {
        many += "," + Entry(std::to_string(i), "S" + std::to_string(i), "_");
    }
    core.SetDeviceTkTokens(many + "]");
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "dfirst");
    EXPECT_EQ(core.getDeviceTkTokens(6, "S3999", "_"), "t3999");
    const std::vector<std::string> noJson = {many,
                                             megabyte,
                                             "\"" + megabyte,
                                             std::string(1'000'000, '['),
                                             std::string(1'000'000, '{'),
                                             std::string(1'000'000, ' ')};
    for (const std::string& text : noJson) {
        core.SetDeviceTkTokens(text);
        EXPECT_EQ(core.getDeviceTkTokens(6, "S3999", "_"), "t3999") << text.substr(0, 20);
    }
    core.SetDeviceTkTokens("[" + Entry(megabyte, megabyte, "1") + "]");
    EXPECT_EQ(core.getDeviceTkTokens(4, megabyte, 1), "p" + megabyte);
    core.SetDeviceTkTokens("\"" + megabyte + "\"");
    EXPECT_EQ(core.getDeviceTkTokens(4, megabyte, 1), "");
}

/// All five tokens of a channel are of one set, whenever one of them is read.
TEST_F(TkTokens, ManyReplaceAndManyLookUpAtOnce) {
    iLogLevel = 6;
    constexpr int kRounds = 200;
    const auto setOf = [](const std::string& mark) {
        return "[" + Entry(mark, "A", "1") + "," + Entry(mark, "B", "2") + "]";
    };
    const std::string sets[] = {setOf("0"), setOf("1"), setOf("2")};
    core.SetDeviceTkTokens(sets[0]);
    core.setGlobalTkToken("g0");
    std::vector<std::thread> threads;
    threads.reserve(6);
    for (int writer = 0; writer < 3; ++writer) {
        threads.emplace_back([this, &sets, writer] {
            for (int i = 0; i < kRounds; ++i) {
                core.SetDeviceTkTokens(sets[(writer + i) % 3]);
                core.SetDeviceTkTokens("no json");
                core.setGlobalTkToken("g" + std::to_string(i % 3));
            }
        });
    }
    const std::string starts = "gdvpbt";
    for (int reader = 0; reader < 3; ++reader) {
        threads.emplace_back([this, &starts] {
            for (int i = 0; i < kRounds; ++i) {
                for (int kind = 1; kind <= 6; ++kind) {
                    const std::string token = core.getDeviceTkTokens(kind, "A", 1);
                    ASSERT_EQ(token.size(), 2U) << token;
                    EXPECT_EQ(token[0], starts[static_cast<size_t>(kind) - 1]);
                    EXPECT_TRUE(token[1] >= '0' && token[1] <= '2') << token;
                }
                EXPECT_EQ(core.getDeviceTkTokens(2, "C", "1"), "");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace vantix::test
