#pragma once

#include <cstdio>

#include "requests/FeatureCode.h"

namespace vantix::test {

/// While it exists, the feature code of the process is "f-code" on every machine.
class FixedFeatureCode {
public:
    FixedFeatureCode() {
        ForgetFeatureCode();
        PublicGetHDSign({.diskSerial = [](char*, char*) { return -1; },
                         .macAddress = [](char*) { return -1; },
                         .md5 =
                             [](const void*, unsigned, char* digestText, unsigned* digestLength) {
                                 *digestLength = static_cast<unsigned>(std::snprintf(digestText, 64, "f-code"));
                                 return 0;
                             }});
    }
    ~FixedFeatureCode() { ForgetFeatureCode(); }
    FixedFeatureCode(const FixedFeatureCode&) = delete;
    FixedFeatureCode& operator=(const FixedFeatureCode&) = delete;
};

}  // namespace vantix::test
