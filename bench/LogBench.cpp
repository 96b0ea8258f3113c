// A log line that is dropped, and one that is written to sinks that do nothing.

#include "Cases.h"
#include "log/Logger.h"

namespace vantix::bench {
namespace {

void UsualLevel() { iLogLevel = level::kInfo; }

void FilteredOut() { VANTIX_LOG_INFO(level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

void FilteredOutFurtherDown() { LogInfoAt(VANTIX_HERE, level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

void Written() { VANTIX_LOG_INFO(level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1"); }

void WrittenFurtherDown() {
    LogInfoAt(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1");
}

}  // namespace

std::vector<Case> LogCases() {
    return {
        MakeCase<UsualLevel, FilteredOut>("Log/filtered/macro"),
        MakeCase<UsualLevel, FilteredOutFurtherDown>("Log/filtered/call_site"),
        MakeCase<UsualLevel, Written>("Log/written/macro"),
        MakeCase<UsualLevel, WrittenFurtherDown>("Log/written/call_site"),
    };
}

}  // namespace vantix::bench
