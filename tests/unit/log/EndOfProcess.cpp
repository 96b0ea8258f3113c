// Takes the place of abort by the linker's --wrap=abort

#include "unit/log/EndOfProcess.h"

#include <csetjmp>

namespace {

thread_local std::jmp_buf* t_wayBack = nullptr;

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,cert-err52-cpp): the names are the linker's, and C has no other way back
extern "C" {
[[noreturn]] void __real_abort();

[[noreturn]] void __wrap_abort() {
    if (t_wayBack != nullptr) {
        std::longjmp(*t_wayBack, 1);
    }
    __real_abort();
}
}

namespace vantix::test {

bool TriesToEndTheProcess(void (*action)(const char*), const char* argument) {
    std::jmp_buf wayBack;
    t_wayBack = &wayBack;
    if (setjmp(wayBack) != 0) {
        t_wayBack = nullptr;
        return true;
    }
    action(argument);
    t_wayBack = nullptr;
    return false;
}

}  // namespace vantix::test
// NOLINTEND(bugprone-reserved-identifier,cert-err52-cpp)
