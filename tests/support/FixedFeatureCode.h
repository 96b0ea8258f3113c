#pragma once

#include <cstdio>
#include <string>

#include "requests/FeatureCode.h"

namespace vantix::test {

/// While it exists, the feature code of the process is this text of at most 63 characters, on every machine. One at a
/// time.
class FixedFeatureCode {
public:
    explicit FixedFeatureCode(const std::string& text = "f-code") {
        s_text = text;
        ForgetFeatureCode();
        PublicGetHDSign({.diskSerial = [](char*, char*) { return -1; },
                         .macAddress = [](char*) { return -1; },
                         .md5 =
                             [](const void*, unsigned, char* digestText, unsigned* digestLength) {
                                 *digestLength =
                                     static_cast<unsigned>(std::snprintf(digestText, 64, "%s", s_text.c_str()));
                                 return 0;
                             }});
    }
    ~FixedFeatureCode() { ForgetFeatureCode(); }
    FixedFeatureCode(const FixedFeatureCode&) = delete;
    FixedFeatureCode& operator=(const FixedFeatureCode&) = delete;

private:
    static inline std::string s_text;
};

}  // namespace vantix::test
