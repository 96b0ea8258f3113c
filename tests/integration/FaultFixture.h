#pragma once

#include "SurvivalFixture.h"

namespace vantix::test {

/// What a port of its own does with each connection, and the code that this becomes.
struct FaultRow {
    const char* name;
    Json conduct;
    int result;
};

inline void PrintTo(const FaultRow& row, std::ostream* out) { *out << row.name; }

/// A case about one such port. No request there reaches the cloud.
class FaultFixture : public SurvivalFixture, public ::testing::WithParamInterface<FaultRow> {
protected:
    void ExpectSurvivalOfTheFault() const {
        Center().setDomain(Cloud().Fault(GetParam().conduct), "");
        ExpectSurvival(GetParam().result, 0);
    }
};

}  // namespace vantix::test
