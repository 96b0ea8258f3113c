#pragma once

namespace vantix::test {

/// While it exists, no thread can be started by code of this program, as when the system has none left. One at a time.
/// The program is linked with the option that support/NoThreads.cpp names.
class NoThreads {
public:
    NoThreads();
    ~NoThreads();
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
};

}  // namespace vantix::test
