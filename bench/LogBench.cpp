// Log lines that are dropped, and log lines that are written to sinks without effect.

#include "Cases.h"
#include "log/Logger.h"

namespace vantix::bench {
namespace {

void UsualLevel() { iLogLevel = level::kInfo; }

void FilteredOut() { VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "SetDeviceTkTokens key = %s ", "C100000011"); }

void Written() { VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", "C10000001_1"); }

}  // namespace

std::vector<Case> LogCases() {
    return {
        MakeCase<UsualLevel, FilteredOut>("Log/filtered/macro"),
        MakeCase<UsualLevel, Written>("Log/written/macro"),
    };
}

}  // namespace vantix::bench
