#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "tvllog/tvllog.h"

namespace {

struct Line {
    unsigned level;
    std::string module;
    std::string text;

    friend bool operator==(const Line&, const Line&) = default;
};

std::vector<Line> g_lines;
std::atomic<int> g_count{0};

void Keep(unsigned level, const char* moduleName, const char* text) { g_lines.push_back({level, moduleName, text}); }

void Count(unsigned /*level*/, const char* /*moduleName*/, const char* /*text*/) { ++g_count; }

/// Writes a line of its own for every line of level 1.
void WriteAnother(unsigned level, const char* moduleName, const char* text) {
    Keep(level, moduleName, text);
    if (level == 1) {
        TVLLOG_Write(level + 1, moduleName, "from inside");
    }
}

class TvlLog : public testing::Test {
public:
    TvlLog() {
        g_lines.clear();
        g_count = 0;
    }
    ~TvlLog() override { TVLLOG_SetCallback(nullptr); }
    TvlLog(const TvlLog&) = delete;
    TvlLog& operator=(const TvlLog&) = delete;
};

TEST_F(TvlLog, DropsLinesWithoutACallback) {
    TVLLOG_Write(5, "Vantix", "nobody listens\n");
    EXPECT_TRUE(g_lines.empty());
}

TEST_F(TvlLog, HandsLevelModuleAndTextOver) {
    TVLLOG_SetCallback(Keep);
    TVLLOG_Write(3, "Vantix", "first\n");
    TVLLOG_Write(0xFFFFFFFFU, "", "%s%n\n");
    EXPECT_EQ(g_lines, (std::vector<Line>{{3, "Vantix", "first\n"}, {0xFFFFFFFFU, "", "%s%n\n"}}));
}

TEST_F(TvlLog, NullDropsLinesAgain) {
    TVLLOG_SetCallback(Keep);
    TVLLOG_SetCallback(nullptr);
    TVLLOG_Write(5, "Vantix", "gone\n");
    EXPECT_TRUE(g_lines.empty());
}

TEST_F(TvlLog, ALaterCallbackReplacesTheEarlierOne) {
    TVLLOG_SetCallback(Keep);
    TVLLOG_SetCallback(Count);
    TVLLOG_Write(5, "Vantix", "text\n");
    EXPECT_TRUE(g_lines.empty());
    EXPECT_EQ(g_count, 1);
}

TEST_F(TvlLog, ACallbackMayWriteItself) {
    TVLLOG_SetCallback(WriteAnother);
    TVLLOG_Write(1, "Vantix", "outside");
    EXPECT_EQ(g_lines, (std::vector<Line>{{1, "Vantix", "outside"}, {2, "Vantix", "from inside"}}));
}

TEST_F(TvlLog, TakesLinesFromManyThreadsAtOnce) {
    constexpr int kThreads = 8;
    constexpr int kLines = 500;
    TVLLOG_SetCallback(Count);
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([] {
            for (int line = 0; line < kLines; ++line) {
                TVLLOG_Write(3, "Vantix", "text\n");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(g_count, kThreads * kLines);
}

}  // namespace
