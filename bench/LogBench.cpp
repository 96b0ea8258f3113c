// Log lines that are dropped, and log lines that are written to sinks without effect.

#include <unistd.h>

#include <atomic>
#include <thread>

#include "Cases.h"
#include "Center.h"
#include "HandLine.h"
#include "log/Logger.h"

namespace vantix::bench {
namespace {

void UsualLevel() { Center().setLogLevel(kUsual); }

void FilteredLine() { VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

std::atomic<int> g_threshold{kUsual};

void Comparison() {
    if (g_threshold.load(std::memory_order_relaxed) <= level::kTrace) {
        HandLine("SetDeviceTkTokens key = %s ", "C100000011");
    }
}

void WrittenLine() {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1");
}

constexpr char kFormat[] = "[%d] VX   INFO \t<%s>\t<%d>,m_mapDevDetailInfo not exist key = %s";

void HandWrittenLine() { HandLine(kFormat, getpid(), "WrittenLine", __LINE__, "C10000001_1"); }

void UnzeroedLine() { UnzeroedHandLine(kFormat, getpid(), "WrittenLine", __LINE__, "C10000001_1"); }

void FirstLineOfThread() { std::thread(WrittenLine).join(); }

void ThreadAlone() {
    std::thread([] {}).join();
}

}  // namespace

std::vector<Case> LogCases() {
    return {
        MakeCase<UsualLevel, FilteredLine>("log/filtered", kManyRounds),
        MakeCase<PrepareNothing, Comparison>("floor/log/filtered", kManyRounds),
        MakeCase<UsualLevel, WrittenLine>("log/written", kSomeRounds),
        MakeCase<PrepareNothing, HandWrittenLine>("floor/log/written", kSomeRounds),
        MakeCase<PrepareNothing, UnzeroedLine>("floor/log/unzeroed", kSomeRounds),
        MakeCase<UsualLevel, FirstLineOfThread>("log/first_line", kSomeRounds),
        MakeCase<PrepareNothing, ThreadAlone>("floor/log/first_line", kSomeRounds),
    };
}

}  // namespace vantix::bench
