// Takes the place of the function of the C++ library that starts threads, by the linker's
// --wrap=_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE

#include "support/NoThreads.h"

#include <atomic>
#include <system_error>
#include <thread>

namespace {

std::atomic<bool> g_none{false};

}  // namespace

// The names are the linker's.
#define VANTIX_START_THREAD(prefix) \
    prefix##_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void VANTIX_START_THREAD(__real_)(std::thread* self, std::thread::_State_ptr state, void (*depend)());

void VANTIX_START_THREAD(__wrap_)(std::thread* self, std::thread::_State_ptr state, void (*depend)()) {
    if (g_none) {
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    VANTIX_START_THREAD(__real_)(self, std::move(state), depend);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace vantix::test {

NoThreads::NoThreads() { g_none = true; }
NoThreads::~NoThreads() { g_none = false; }

}  // namespace vantix::test
