// A host that shares the runtime's locks and takes the log lines.

#include <tvl/tvl.h>
#include <tvllog/tvllog.h>
#include <vantix/IVantixDataCenter.h>

#include <iostream>

namespace {

TVL_Mutex g_mutex;
int g_lines = 0;

void TakeLine(unsigned /*level*/, const char* /*moduleName*/, const char* /*text*/) {
    TVL_Guard guard(&g_mutex);
    ++g_lines;
}

}  // namespace

int main() {
    TVLLOG_SetCallback(TakeLine);
    vantix::IVantixDataCenter* center = CreateVantixDataCenterInstance();
    center->setLogLevel(1);
    DestroyVantixDataCenterInstance(center);
    std::cout << g_lines << " lines\n";
    return g_lines > 0 ? 0 : 1;
}
