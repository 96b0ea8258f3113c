// No exception is thrown inside the library but JsonCpp's, which its reader catches: the barrier to the host would hide
// any other. The linker leads the library's handlers here: --wrap=__cxa_begin_catch

#include <cxxabi.h>

#include <string_view>
#include <typeinfo>

#include "Fuzzer.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {
void* __real___cxa_begin_catch(void* exception) noexcept;

void* __wrap___cxa_begin_catch(void* exception) noexcept {
    void* caught = __real___cxa_begin_catch(exception);
    const std::type_info* type = abi::__cxa_current_exception_type();
    vantix::fuzz::Require(type != nullptr && std::string_view(type->name()).substr(0, 6) == "N4Json");
    return caught;
}
}
// NOLINTEND(bugprone-reserved-identifier)
