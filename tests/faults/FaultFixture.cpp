#include "faults/FaultFixture.h"

#include <algorithm>
#include <chrono>

#include "faults/Remembered.h"
#include "faults/Times.h"
#include "support/LogCapture.h"
#include "support/OutputJson.h"

namespace vantix::test {
namespace {

/// Without the members in which nothing but a time was.
Json WithoutEmpty(Json json) {
    for (auto member = json.begin(); member != json.end();) {
        member = member->is_object() && member->empty() ? json.erase(member) : std::next(member);
    }
    return json;
}

/// "127.0.0.1:443" of "https://127.0.0.1:443", and ":443".
std::string HostOf(const std::string& address) { return address.substr(address.find("//") + 2); }
std::string PortOf(const std::string& address) { return address.substr(address.rfind(':')); }

}  // namespace

void FaultFixture::TearDown() {
    if (!m_addresses.is_null()) {
        Cloud().ForgetScript();
        Cloud().Delete("/faults");
    }
    CoreFixture::TearDown();
}

void FaultFixture::ExpectSurvival(const std::vector<FaultCase>& faults) {
    Begin(faults);
    {
        const LogCapture log;
        ArrangeTokens(faults);
        if (faults.size() == 1 && faults.front().row.callers == 1) {
            MeetAlone(faults.front());
        } else {
            MeetTogether(faults);
        }
        for (const FaultCase& fault : faults) {
            EXPECT_TRUE(fault.Expected().logged.empty() || log.Contains(fault.Expected().logged));
        }
    }
    ExpectReceived(faults);
    PutBack(faults);
    for (const Encounter& encounter : m_encounters) {
        SCOPED_TRACE(encounter.fault->Name());
        ExpectOutcome(encounter);
    }
    ExpectRemembered(faults);
    ExpectGoodCall(faults.front().subject);
    m_encounters.clear();
    EXPECT_TRUE(FellBackTo(m_usage));
    size_t mayKeepMiB = 0;
    for (const FaultCase& fault : faults) {
        mayKeepMiB += fault.Expected().keptMiB;
    }
    const size_t keptMiB = std::max(ResidentMiB(), m_residentMiB) - m_residentMiB;
    RecordProperty("keptMiB", static_cast<int>(keptMiB));
    EXPECT_LE(keptMiB, mayKeepMiB);
}

std::string FaultFixture::TokenOf(const Subject& subject) const {
    return subject.mode == 2 ? "b2c.C10000001" : Account("accessToken");
}

Json FaultFixture::GoodCall(const Subject& subject) const {
    Outputs outputs = Prefilled();
    const CallResult call = Call(Center(), subject.operation, {.serial = subject.serial, .force = true}, outputs);
    EXPECT_EQ(call.result, 0);
    EXPECT_EQ(outputs.detail.deviceSerial, subject.serial);
    return WithoutTimes(ToJson(outputs));
}

/// One credential of each kind.
void FaultFixture::SetCredentials() const {
    SetDeviceTokens();
    Center().setGlobalTkToken(Account("globalTkToken"));
    Center().setSharedAccessToken(Account("sharedAccessToken"));
    Center().setSessionId(Account("sessionId"));
    Center().setAuthAddr(Account("authAddr"));
    Center().setRefreshToken(Account("refreshToken"));
    Center().setOpenID(Account("openId"));
    SetPermissionMode(2);
    std::string session;
    ASSERT_EQ(Center().RefreshSession(Account("refreshSessionId"), session), 0);
}

void FaultFixture::Begin(const std::vector<FaultCase>& faults) {
    const Subject& subject = faults.front().subject;
    for (const FaultCase& fault : faults) {
        if (!fault.row.device.is_null()) {
            Cloud().Put("/devices/" + fault.subject.serial, {{"device", fault.row.device}});
        }
    }
    SetCredentials();
    SetPermissionMode(subject.mode);
    m_good = GoodCall(subject);
    // A task would hand out a cached record before it asks.
    Center().ClearAllCache();
    FillCaches(Center(), TokenOf(subject));
    m_addresses = {{"b", BDomain()},
                   {"c", CDomain()},
                   {"bHost", HostOf(BDomain())},
                   {"cHost", HostOf(CDomain())},
                   {"bPort", PortOf(BDomain())},
                   {"cPort", PortOf(CDomain())},
                   {"closed", Cloud().ClosedPort()}};
    Cloud().ForgetRequests();
    m_remembered = Remembered(Center(), TokenOf(subject));
    ASSERT_EQ(Cloud().RequestCount(), 0U) << "what is remembered is not asked for";
    m_residentMiB = ResidentMiB();
    m_usage = ProcessUsage::Now();
}

void FaultFixture::Meet(Encounter& encounter) const {
    const FaultCase& fault = *encounter.fault;
    Outputs outputs = Prefilled();
    const Json before = ToJson(outputs);
    const size_t resident = ResidentMiB();
    ForgetPeak();
    const auto start = std::chrono::steady_clock::now();
    encounter.call =
        Call(Center(), fault.row.operation.value_or(fault.subject.operation), encounter.arguments, outputs);
    encounter.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    encounter.peakMiB = std::max(PeakMiB(), resident) - resident;
    const Json after = ToJson(outputs);
    encounter.outputs = WithoutTimes(after);
    encounter.changes = WithoutEmpty(WithoutCost(Changes(before, after)));
}

void FaultFixture::MeetAlone(const FaultCase& fault) {
    m_encounters.push_back({.fault = &fault, .arguments = Arrange(fault)});
    const std::shared_ptr<void> condition = fault.row.condition == nullptr ? nullptr : fault.row.condition(Cloud());
    Meet(m_encounters.front());
}

/// Calls of a port have read its address when it has their connections; the others need the domains.
void FaultFixture::WaitForConnections(size_t connections) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (Connections() < connections && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_EQ(Connections(), connections);
    Center().setDomain(BDomain(), CDomain());
}

void FaultFixture::MeetTogether(const std::vector<FaultCase>& faults) {
    std::vector<std::thread> threads;
    size_t connections = 0;
    for (const FaultCase& fault : faults) {
        const Arguments arguments = Arrange(fault);
        for (int i = 0; i < fault.row.callers; ++i) {
            Encounter& encounter = m_encounters.emplace_back(Encounter{.fault = &fault, .arguments = arguments});
            threads.emplace_back([this, &encounter] { Meet(encounter); });
        }
        connections += fault.Expected().connections;
        WaitForConnections(connections);
    }
    for (const FaultCase& fault : faults) {
        if (!fault.row.hold.empty()) {
            EXPECT_TRUE(Cloud().WaitUntilHeld(fault.row.hold, fault.row.callers));
            Cloud().Release(fault.row.hold);
        }
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace vantix::test
