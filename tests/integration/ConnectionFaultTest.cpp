// Servers that are not there, or that fail before a request reaches them.

#include "FaultFixture.h"

namespace vantix::test {
namespace {

class PortFaultTest : public FaultFixture {};

TEST_P(PortFaultTest, FailsThatCallAlone) { ExpectSurvivalOfTheFault(); }

const FaultRow kFaultRows[] = {
    {"AcceptThenReset", {{"then", "reset"}}, kSomeTransportFailure},
    {"AcceptThenClose", {{"then", "close"}}, 100035},
    {"GarbageInsteadOfAHello", {{"send", "garbage that is no handshake at all\r\n"}, {"then", "close"}}, 100035},
    {"PlainTextOnTheTlsPort",
     {{"send", "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n"}, {"then", "close"}},
     100035},
    {"TlsAlert", {{"sendHex", "15030300020228"}, {"then", "close"}}, 100035},
};

INSTANTIATE_TEST_SUITE_P(Ports, PortFaultTest, ::testing::ValuesIn(kFaultRows),
                         [](const auto& row) { return row.param.name; });

class ConnectionFaultTest : public SurvivalFixture {
protected:
    /// The B domain under another name, with the same port.
    std::string BDomainAt(const std::string& start) const { return start + BDomain().substr(BDomain().rfind(':')); }
};

TEST_F(ConnectionFaultTest, ClosedPort) {
    Center().setDomain(Cloud().ClosedPort(), "");
    ExpectSurvival(100007, 0);
}

TEST_F(ConnectionFaultTest, HostThatNobodyKnows) {
    // A label of 64 characters cannot even be asked for.
    Center().setDomain("https://" + std::string(64, 'n') + ".invalid", "");
    ExpectSurvival(100006, 0);
}

TEST_F(ConnectionFaultTest, AddressThatIsNone) {
    Center().setDomain("https://127.0.0.1 :443", "");
    ExpectSurvival(100003, 0);
}

TEST_F(ConnectionFaultTest, SchemeThatNobodySpeaks) {
    Center().setDomain("nosuch://127.0.0.1", "");
    ExpectSurvival(100001, 0);
}

TEST_F(ConnectionFaultTest, PlainTextToTheTlsPort) {
    Center().setDomain(BDomainAt("http://127.0.0.1"), "");
    ExpectSurvival(kSomeTransportFailure, 0);
}

TEST_F(ConnectionFaultTest, CertificateOfAnotherHostIsTakenAsItIs) {
    Center().setDomain(BDomainAt("https://another-host.localhost"), "");
    Detail detail;
    EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ("https://" + requests[0].Header("Host"), BDomainAt("https://another-host.localhost"));
    ExpectGoodCall();
}

TEST_F(ConnectionFaultTest, EveryRequestHasAConnectionOfItsOwn) {
    const auto opened = [&] { return Cloud().Get("/stats").at("B").at("connectionsOpened").get<int>(); };
    const int before = opened();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Fetch(kCamera, 1), 0);
    }
    EXPECT_EQ(opened(), before + 3);
}

}  // namespace
}  // namespace vantix::test
