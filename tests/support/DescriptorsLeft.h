#pragma once

#if defined(__linux__)

#include <sys/resource.h>

#include "support/ProcessUsage.h"

namespace vantix::test {

/// While it exists, the process can open so many descriptors more.
class DescriptorsLeft {
public:
    explicit DescriptorsLeft(size_t left) {
        getrlimit(RLIMIT_NOFILE, &m_before);
        rlimit lowered = m_before;
        lowered.rlim_cur = ProcessUsage::Now().descriptors - 1 + left;  // counting took one
        setrlimit(RLIMIT_NOFILE, &lowered);
    }
    ~DescriptorsLeft() { setrlimit(RLIMIT_NOFILE, &m_before); }
    DescriptorsLeft(const DescriptorsLeft&) = delete;
    DescriptorsLeft& operator=(const DescriptorsLeft&) = delete;

private:
    rlimit m_before{};
};

}  // namespace vantix::test

#endif
