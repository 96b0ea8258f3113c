#pragma once

#include "SurvivalFixture.h"

namespace vantix::test {

/// What a port of its own does with each connection, and the code that this becomes.
struct TrapRow {
    const char* name;
    Json conduct;
    int result;
};

inline void PrintTo(const TrapRow& row, std::ostream* out) { *out << row.name; }

/// A case about one such port. No request there reaches the cloud.
class TrapFixture : public SurvivalFixture, public ::testing::WithParamInterface<TrapRow> {
protected:
    void ExpectSurvivalOfTheTrap() const {
        Center().setDomain(Cloud().OpenFaultPort(GetParam().conduct), "");
        ExpectSurvival(GetParam().result, 0);
    }
};

}  // namespace vantix::test
