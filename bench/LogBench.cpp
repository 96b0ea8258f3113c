// Log lines that are dropped, and log lines that are written to sinks without effect.

#include "Cases.h"
#include "log/Logger.h"

namespace vantix::bench {
namespace {

void UsualLevel() { iLogLevel = level::kInfo; }

void FilteredOut() { VANTIX_LOG_INFO(level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

void FilteredOutAtCallSite() { LogInfoAt(VANTIX_HERE, level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

void Written() { VANTIX_LOG_INFO(level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1"); }

void WrittenAtCallSite() {
    LogInfoAt(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1");
}

}  // namespace

std::vector<Case> LogCases() {
    return {
        MakeCase<UsualLevel, FilteredOut>("Log/filtered/macro"),
        MakeCase<UsualLevel, FilteredOutAtCallSite>("Log/filtered/call_site"),
        MakeCase<UsualLevel, Written>("Log/written/macro"),
        MakeCase<UsualLevel, WrittenAtCallSite>("Log/written/call_site"),
    };
}

}  // namespace vantix::bench
