// The line buffer of 40,960 bytes, and what becomes of texts that fill it or do not fit.

#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <string>

#include "log/Logger.h"
#include "support/CleanSwitches.h"
#include "support/FailingNew.h"
#include "unit/log/EndOfProcess.h"
#include "unit/log/LoggerThatDrops.h"
#include "unit/log/Sinks.h"

namespace vantix::test {
namespace {

constexpr CallSite kSite{"void vantix::Function()", 1};

/// The length of a line's prefix when it is written in the name of kSite.
size_t PrefixLength() {
    return std::string("[] VX   INFO \t<Function>\t<1>,").size() + std::to_string(ProcessId()).size();
}

#if defined(VANTIX_DROP_OVERLONG_LINE)
constexpr bool kThisBuildDrops = true;
#else
constexpr bool kThisBuildDrops = false;
#endif

/// A statement that writes a message, and how many characters it puts before it.
struct Statement {
    const char* name;
    void (*write)(const char* message);
    size_t before;
};

/// The name of the case.
void PrintTo(const Statement& statement, std::ostream* stream) { *stream << statement.name; }

const Statement kLog{"Log", [](const char* message) { log(5, "%s", message); }, 0};
const Statement kInSite{"InTheNameOfASite", [](const char* message) { VANTIX_LOG_INFO(kSite, 5, "%s", message); },
                        PrefixLength()};

class LoggerBufferTest : public testing::TestWithParam<Statement> {
protected:
    /// A message that makes a text of this many characters.
    static std::string Message(size_t length) {
        std::string message;
        message.resize(length - GetParam().before, 'x');
        return message;
    }
    static void Write(size_t length) { GetParam().write(Message(length).c_str()); }

    CleanSwitches clean;
    Sinks sinks;
};

/// Both sinks received one text: this many characters and a newline, or nothing.
void ExpectBothReceived(const Sinks& sinks, size_t length, bool empty) {
    SCOPED_TRACE(length);
    const auto all = sinks.All();
    ASSERT_EQ(all.size(), 2U);
    for (const Emitted& emitted : all) {
        EXPECT_EQ(emitted.text.size(), empty ? 0 : length + 1) << emitted.sink;
        EXPECT_EQ(emitted.text.find('\n'), empty ? std::string::npos : length) << emitted.sink;
    }
    EXPECT_EQ(all[0].sink, "debugger");
}

TEST_P(LoggerBufferTest, TextThatLeavesRoomArrivesWhole) {
    for (const size_t length : {100U, 40'957U, 40'958U}) {
        sinks.Clear();
        Write(length);
        ExpectBothReceived(sinks, length, false);
    }
}

TEST_P(LoggerBufferTest, TextThatDoesNotFitBecomesEmpty) {
    for (const size_t length : {40'961U, 40'962U, 100'000U, 1'000'000U}) {
        sinks.Clear();
        Write(length);
        ExpectBothReceived(sinks, length, true);
    }
}

TEST_P(LoggerBufferTest, TextThatFillsTheBufferEndsTheProcessAndIsNotEmitted) {
    if (kThisBuildDrops) {
        GTEST_SKIP() << "this build makes an empty text of it";
    }
    for (const size_t length : {40'959U, 40'960U}) {
        EXPECT_TRUE(TriesToEndTheProcess(GetParam().write, Message(length).c_str())) << length;
        EXPECT_TRUE(sinks.All().empty()) << length;
    }
    for (const size_t length : {40'958U, 40'961U}) {
        EXPECT_FALSE(TriesToEndTheProcess(GetParam().write, Message(length).c_str())) << length;
    }
}

TEST_P(LoggerBufferTest, NothingCatchesThatEndOfTheProcess) {
    if (kThisBuildDrops) {
        GTEST_SKIP() << "this build makes an empty text of it";
    }
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH_IF_SUPPORTED(Write(40'959), "");
    EXPECT_DEATH_IF_SUPPORTED(Write(40'960), "");
}

TEST_P(LoggerBufferTest, FilteredTextOfAnyLengthDoesNothing) {
    iLogLevel = 6;
    for (const size_t length : {40'959U, 40'960U, 40'961U}) {
        Write(length);
    }
    EXPECT_TRUE(sinks.All().empty());
}

INSTANTIATE_TEST_SUITE_P(Statements, LoggerBufferTest, testing::Values(kLog, kInSite),
                         [](const auto& statement) { return statement.param.name; });

TEST(LoggerBuffer, BuildThatDropsOverlongLinesMakesEmptyTextsOfThem) {
    const CleanSwitches clean;
    Sinks sinks;
    for (const auto& [length, empty] : {std::pair{40'958U, false}, {40'959U, true}, {40'960U, true}, {40'961U, true}}) {
        sinks.Clear();
        EXPECT_FALSE(TriesToEndTheProcess(LogWhereOverlongLinesAreDropped, std::string(length, 'x').c_str()));
        ExpectBothReceived(sinks, length, empty);
    }
}

TEST(LoggerBuffer, EmptyTextIsANewline) {
    const CleanSwitches clean;
    const Sinks sinks;
    log(5, "%s", "");
    ASSERT_EQ(sinks.All().size(), 2U);
    EXPECT_EQ(sinks.All()[0].text, "\n");
    EXPECT_EQ(sinks.All()[1].text, "\n");
}

TEST(LoggerBuffer, LineAfterALongOneShowsNothingOfIt) {
    const CleanSwitches clean;
    Sinks sinks;
    log(5, "%s", std::string(40'000, 'x').c_str());
    sinks.Clear();
    log(5, "%s", "xxx");
    ASSERT_EQ(sinks.All().size(), 2U);
    EXPECT_EQ(sinks.All()[1].text, "xxx\n");
}

TEST(LoggerBuffer, LoggingAllocatesNothing) {
    const CleanSwitches clean;
    log(5, "%s", "the first line builds the core");
    const std::string text(30'000, 'x');
    const FailingNew failing(1);
    VANTIX_LOG_ERROR(VANTIX_HERE, 5, "%d %s", 5, text.c_str());
    VANTIX_LOG_ERROR(kSite, 5, "%d %s", 5, text.c_str());
    EXPECT_FALSE(FailingNew::Fired());
}

#if GTEST_HAS_DEATH_TEST
TEST(LoggerBuffer, LineIsDroppedWhenTheCoreCannotBeBuilt) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";  // in a process that has just started
    const auto steps = [] {
        {
            const FailingNew failing(1);
            VANTIX_LOG_ERROR(VANTIX_HERE, 5, "first of the process");
        }
        const size_t first = Sinks::DebuggerTexts();
        VANTIX_LOG_ERROR(VANTIX_HERE, 5, "second");
        std::_Exit(FailingNew::Fired() && first == 0 && Sinks::DebuggerTexts() == 1 ? 0 : 1);
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
}  // namespace vantix::test
