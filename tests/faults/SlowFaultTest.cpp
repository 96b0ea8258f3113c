// The rows that wait for a time-out, all at the same time.

#include "faults/FaultFixture.h"

namespace vantix::test {
namespace {

class SlowFaultTest : public FaultFixture {
protected:
    /// Each for a device of its own, in the one mode in which both families are asked.
    static std::vector<FaultCase> Cases() {
        std::vector<FaultCase> cases = CasesOf(SlowRows());
        for (FaultCase& fault : cases) {
            fault.subject.mode = 2;
            if (!fault.row.operation) {
                fault.row.serial = fault.Name();
            }
        }
        return cases;
    }
};

TEST_F(SlowFaultTest, EveryTransferEndsAfterItsTime) { ExpectSurvival(Cases()); }

}  // namespace
}  // namespace vantix::test
