// The fault matrix: every row for every subject, through the one procedure.

#include "faults/FaultFixture.h"

namespace vantix::test {
namespace {

class FaultTest : public FaultFixture, public ::testing::WithParamInterface<FaultCase> {};

TEST_P(FaultTest, ConcernsThatCallAlone) { ExpectSurvival({GetParam()}); }

std::string NameOf(const ::testing::TestParamInfo<FaultCase>& fault) { return fault.param.Name(); }

INSTANTIATE_TEST_SUITE_P(Connection, FaultTest, ::testing::ValuesIn(CasesOf(ConnectionRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Framing, FaultTest, ::testing::ValuesIn(CasesOf(FramingRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Status, FaultTest, ::testing::ValuesIn(CasesOf(StatusRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Size, FaultTest, ::testing::ValuesIn(CasesOf(SizeRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Redirect, FaultTest, ::testing::ValuesIn(CasesOf(RedirectRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Json, FaultTest, ::testing::ValuesIn(CasesOf(JsonRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Credential, FaultTest, ::testing::ValuesIn(CasesOf(CredentialRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Argument, FaultTest, ::testing::ValuesIn(CasesOf(ArgumentRows())), NameOf);
INSTANTIATE_TEST_SUITE_P(Host, FaultTest, ::testing::ValuesIn(CasesOf(HostRows())), NameOf);

}  // namespace
}  // namespace vantix::test
