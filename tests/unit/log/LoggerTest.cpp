// The format of a line, the filter, the two sinks.

#include "log/Logger.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "support/CleanSwitches.h"
#include "unit/log/Sinks.h"

#if defined(_WIN32)
#include <process.h>
#else
#include <pthread.h>
#include <unistd.h>
#endif

namespace vantix::test {
namespace {

int SystemProcessId() {
#if defined(_WIN32)
    return _getpid();
#else
    return getpid();
#endif
}

class LoggerTest : public testing::Test {
protected:
    /// The only text that the log library received.
    std::string OnlyText() const {
        const auto texts = sinks.Texts("log library");
        EXPECT_EQ(texts.size(), 1U);
        return texts.empty() ? "<nothing>" : texts.front();
    }

    CleanSwitches clean;
    Sinks sinks;
    const std::string pid = std::to_string(SystemProcessId());
};

TEST_F(LoggerTest, InformationLineIsWhatTheFormatSaysByteByByte) {
    log(3, VANTIX_INFO_PREFIX "value %d of %s", ProcessId(), "Class::method", 71, 5, "x");
    EXPECT_EQ(OnlyText(), "[" + pid + "] VX   INFO \t<Class::method>\t<71>,value 5 of x\n");
}

TEST_F(LoggerTest, ErrorLineIsWhatTheFormatSaysByteByByte) {
    log(5, VANTIX_ERROR_PREFIX "failed: %d", ProcessId(), "Function", 1, -1);
    EXPECT_EQ(OnlyText(), "[" + pid + "] VX   ERROR\t<Function>\t<1>,failed: -1\n");
}

TEST_F(LoggerTest, MessageIsItsTextBehindThePrefixOfItsWord) {
    const CallSite site{"Class::method", 71};
    LogMessage(site, level::kInfo, LineWord::Info, "took %d of %s", 5, "x");
    LogMessage(site, level::kError, LineWord::Error, "failed");
    LogMessage(site, level::kDetail, LineWord::Error, "filtered");
    WriteMessage(site, level::kDetail, LineWord::Error, "filtered, asked once more");
    const std::vector<std::string> expected{"[" + pid + "] VX   INFO \t<Class::method>\t<71>,took 5 of x\n",
                                            "[" + pid + "] VX   ERROR\t<Class::method>\t<71>,failed\n"};
    EXPECT_EQ(sinks.Texts("log library"), expected);
}

TEST_F(LoggerTest, StatementsTakeTheirPlaceInTheSource) {
    const int line = __LINE__ + 1;
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "counted %d", 3);
    VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "nothing to add");
    const auto texts = sinks.Texts("log library");
    ASSERT_EQ(texts.size(), 2U);
    const std::string tag = "LoggerTest_StatementsTakeTheirPlaceInTheSource_Test::TestBody";
    EXPECT_EQ(texts[0], "[" + pid + "] VX   INFO \t<" + tag + ">\t<" + std::to_string(line) + ">,counted 3\n");
    EXPECT_EQ(texts[1], "[" + pid + "] VX   ERROR\t<" + tag + ">\t<" + std::to_string(line + 1) + ">,nothing to add\n");
}

TEST_F(LoggerTest, EveryThreadsLinesBearTheProcessId) {
    std::thread([] { VANTIX_LOG_INFO((CallSite{"Function", 7}), level::kInfo, "from another thread"); }).join();
    EXPECT_EQ(OnlyText(), "[" + pid + "] VX   INFO \t<Function>\t<7>,from another thread\n");
    int fromAnotherThread = 0;
    std::thread([&] { fromAnotherThread = ProcessId(); }).join();
    EXPECT_EQ(fromAnotherThread, SystemProcessId());
}

TEST_F(LoggerTest, FunctionTakesLevelFormatAndValues) {
    void (*const function)(int, const char*, ...) = &log;
    function(level::kInfo, "%d %s", 5, "x");
    EXPECT_EQ(OnlyText(), "5 x\n");
    EXPECT_STREQ(VANTIX_INFO_PREFIX, "[%d] VX   INFO \t<%s>\t<%d>,");
    EXPECT_STREQ(VANTIX_ERROR_PREFIX, "[%d] VX   ERROR\t<%s>\t<%d>,");
}

TEST_F(LoggerTest, DebuggerReceivesALineBeforeTheLogLibraryAndBothReceiveTheSameText) {
    VANTIX_LOG_ERROR(VANTIX_HERE, 4, "one");
    VANTIX_LOG_INFO(VANTIX_HERE, 5, "two");
    const auto all = sinks.All();
    ASSERT_EQ(all.size(), 4U);
    for (size_t i = 0; i < all.size(); i += 2) {
        EXPECT_EQ(all[i].sink, "debugger");
        EXPECT_EQ(all[i + 1].sink, "log library");
        EXPECT_EQ(all[i].text, all[i + 1].text);
    }
    EXPECT_EQ(all[1].level, 4U);
    EXPECT_EQ(all[3].level, 5U);
    EXPECT_EQ(all[1].moduleName, "Vantix");
    EXPECT_EQ(all[3].moduleName, "Vantix");
}

TEST_F(LoggerTest, TextEndsWithASingleNewline) {
    VANTIX_LOG_INFO(VANTIX_HERE, 3, "text");
    for (const Emitted& emitted : sinks.All()) {
        ASSERT_GT(emitted.text.size(), 2U);
        EXPECT_EQ(emitted.text.substr(emitted.text.size() - 2), "t\n");
        EXPECT_EQ(emitted.text.find('\n'), emitted.text.size() - 1);
    }
}

TEST_F(LoggerTest, DefaultThresholdIsThree) {
    EXPECT_EQ(level::kInfo, 3);
    VANTIX_LOG_INFO(VANTIX_HERE, 1, "level 1");
    VANTIX_LOG_INFO(VANTIX_HERE, 2, "level 2");
    EXPECT_TRUE(sinks.All().empty());
    VANTIX_LOG_INFO(VANTIX_HERE, 3, "level 3");
    VANTIX_LOG_ERROR(VANTIX_HERE, 4, "level 4");
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "level 5");
    EXPECT_EQ(sinks.All().size(), 6U);
}

/// Writes a line by the function and by both statements.
void WriteLines(int lineLevel) {
    log(lineLevel, VANTIX_INFO_PREFIX "%s", ProcessId(), "f", 1, "x");
    VANTIX_LOG_INFO(VANTIX_HERE, lineLevel, "%s", "x");
    VANTIX_LOG_ERROR(VANTIX_HERE, lineLevel, "%s", "x");
}

TEST_F(LoggerTest, LevelAloneDecides) {
    constexpr size_t kTexts = 6;  // three lines, two sinks
    for (const int threshold : {-2147483647 - 1, -1, 0, 1, 2, 3, 4, 5, 6, 7, 2147483647}) {
        for (int lineLevel = 1; lineLevel <= 5; ++lineLevel) {
            SCOPED_TRACE("threshold " + std::to_string(threshold) + ", line " + std::to_string(lineLevel));
            iLogLevel = threshold;
            sinks.Clear();
            WriteLines(lineLevel);
            EXPECT_EQ(sinks.All().size(), lineLevel >= threshold ? kTexts : 0U);
        }
    }
}

TEST_F(LoggerTest, FilteredLineIsNeitherFormattedNorAreItsValuesComputed) {
    int computed = 0;
    const auto value = [&] { return ++computed; };
    int written = -1;
    log(2, "%s%n", "four", &written);
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, 2, "%d", value());
    VANTIX_LOG_ERROR(site, 2, "%d", value());
    EXPECT_EQ(written, -1);
    EXPECT_EQ(computed, 0);
    EXPECT_TRUE(sinks.All().empty());
}

TEST_F(LoggerTest, FormatCharactersInValuesAreText) {
    const std::string hostile = "%s%s%n%d%99999999d%*d\\ \t end";
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "Resp:%s", hostile.c_str());
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_ERROR(site, 5, "Resp:%s", hostile.c_str());
    for (const std::string& text : sinks.Texts("log library")) {
        EXPECT_NE(text.find(",Resp:" + hostile + "\n"), std::string::npos) << text;
    }
    EXPECT_EQ(sinks.All().size(), 4U);
}

TEST_F(LoggerTest, BytesPassAsTheyAre) {
    const std::string bytes = "\xE8\xAE\xBE \xBB\xF1 \xFF\x01\x7F";
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "%s", bytes.c_str());
    EXPECT_NE(OnlyText().find("," + bytes + "\n"), std::string::npos);
}

TEST_F(LoggerTest, LineInTheNameOfACallerBearsItsTagAndLine) {
    const CallSite site{"int vantix::CRequest::SyncRequest(const char*, int) const", 4711};
    VANTIX_LOG_INFO(site, 3, "a %d", 1);
    VANTIX_LOG_ERROR(site, 5, "b");
    const auto texts = sinks.Texts("log library");
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0], "[" + pid + "] VX   INFO \t<CRequest::SyncRequest>\t<4711>,a 1\n");
    EXPECT_EQ(texts[1], "[" + pid + "] VX   ERROR\t<CRequest::SyncRequest>\t<4711>,b\n");
}

void Helper(const CallSite& site) { VANTIX_LOG_INFO(site, 3, "done"); }

TEST_F(LoggerTest, PlaceIsHandedDown) {
    const int line = __LINE__ + 1;
    Helper(VANTIX_HERE);
    EXPECT_EQ(OnlyText(), "[" + pid + "] VX   INFO \t<LoggerTest_PlaceIsHandedDown_Test::TestBody>\t<" +
                              std::to_string(line) + ">,done\n");
}

TEST_F(LoggerTest, SinkMayLogItself) {
    int depth = 0;
    sinks.OnLine([&] {
        if (++depth < 3) {
            VANTIX_LOG_INFO(VANTIX_HERE, 3, "from the sink, depth %d", depth);
        }
    });
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "outer");
    sinks.OnLine(nullptr);
    const auto texts = sinks.Texts("log library");
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_NE(texts[0].find(",outer\n"), std::string::npos);
    EXPECT_NE(texts[1].find(",from the sink, depth 1\n"), std::string::npos);
    EXPECT_NE(texts[2].find(",from the sink, depth 2\n"), std::string::npos);
}

TEST_F(LoggerTest, LinesOfManyThreadsArriveWhole) {
    constexpr int kThreads = 8;
    constexpr int kLines = 50;
    const std::string filling(3000, '.');
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < kLines; ++i) {
                log(3, "%d/%d %s|%d/%d", thread, i, filling.c_str(), thread, i);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const auto texts = sinks.Texts("log library");
    EXPECT_EQ(texts.size(), static_cast<size_t>(kThreads * kLines));
    for (const std::string& text : texts) {
        const std::string name = text.substr(0, text.find(' '));
        EXPECT_EQ(text, std::string(name).append(" ").append(filling).append("|").append(name).append("\n"));
    }
}

TEST_F(LoggerTest, ThresholdIsReadAnewForEveryLine) {
    iLogLevel = 6;
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "silenced");
    iLogLevel = 5;
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "written");
    EXPECT_NE(OnlyText().find(",written\n"), std::string::npos);
}

#if !defined(_WIN32)
TEST_F(LoggerTest, TextThatCannotBeFormattedBecomesEmpty) {
    // In the locale of a program's start there is no byte for this character.
    log(5, "before %ls behind", L"\x4E2D");
    EXPECT_EQ(OnlyText(), "");
    EXPECT_EQ(sinks.Texts("debugger"), std::vector<std::string>{""});
}

TEST_F(LoggerTest, MessageThatCannotBeFormattedBecomesEmpty) {
    LogMessage(VANTIX_HERE, level::kInfo, LineWord::Info, "before %ls behind", L"\x4E2D");
    EXPECT_EQ(OnlyText(), "");
}

/// Runs a function on a thread with a stack of 32 KiB, less than a line's buffer, and nothing behind it.
void OnASmallStack(void* (*function)(void*)) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size_t{32} * 1024), 0);
    ASSERT_EQ(pthread_attr_setguardsize(&attributes, size_t{64} * 1024), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, function, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST_F(LoggerTest, FilteredLineNeedsNoBuffer) {
    OnASmallStack([](void* /*argument*/) -> void* {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kDetail, "%s", "filtered");
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kDetail, "%s", "filtered");
        LogMessage(VANTIX_HERE, level::kDetail, LineWord::Info, "%s", "filtered");
        return nullptr;
    });
    EXPECT_TRUE(sinks.All().empty());
}
#endif

}  // namespace
}  // namespace vantix::test
