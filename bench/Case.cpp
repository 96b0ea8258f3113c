#include "Case.h"

#include <cstdio>
#include <cstdlib>

namespace vantix::bench {

void SilenceSinks() {
    static const bool done = [] {
        constexpr size_t kBuffer = size_t{1} << 20U;
        return std::freopen("/dev/null", "w", stderr) != nullptr && std::setvbuf(stderr, nullptr, _IOFBF, kBuffer) == 0;
    }();
    Require(done, "standard error could not be silenced: log lines would cost a system call each");
}

void Fail(const char* what) {
    std::printf("%s\n", what);
    std::exit(1);
}

}  // namespace vantix::bench
