#pragma once

#include <deque>
#include <string>
#include <thread>
#include <vector>

#include "faults/FaultRow.h"
#include "support/CoreFixture.h"
#include "support/LocalFile.h"
#include "support/ProcessUsage.h"

namespace vantix::test {

/// A case in which calls meet faults, and nothing but these calls may suffer from it.
class FaultFixture : public CoreFixture {
protected:
    static void SetUpTestSuite() { KeepOneHeap(); }
    void TearDown() override;

    /// The one procedure of every row; several rows are met at the same time. Before, every cache is full and every
    /// credential there, so that there is something to lose. Then for each row: the result, what is handed out, the
    /// requests that the servers received; and afterwards: what the core remembers, the next good call, descriptors,
    /// threads and memory.
    void ExpectSurvival(const std::vector<FaultCase>& faults);

private:
    /// What one call did.
    struct Encounter {
        const FaultCase* fault;
        Arguments arguments{};
        CallResult call{};
        Json changes{};  ///< Of outputs that all held something; the elapsed time aside.
        Json outputs{};
        double seconds = 0;
        size_t peakMiB = 0;
    };

    void Begin(const std::vector<FaultCase>& faults);
    void SetCredentials() const;
    void MeetAlone(const FaultCase& fault);
    void MeetTogether(const std::vector<FaultCase>& faults);
    void Meet(Encounter& encounter) const;

    Arguments Arrange(const FaultCase& fault) const;
    void ArrangeScripts(const FaultCase& fault) const;
    std::string ArrangeAddress(const FaultCase& fault) const;
    void ArrangeCredential(const FaultCase& fault) const;
    void ArrangeTokens(const std::vector<FaultCase>& faults) const;
    void WaitForConnections(size_t connections) const;
    void PutBack(const std::vector<FaultCase>& faults);

    void ExpectOutcome(const Encounter& encounter) const;
    void ExpectHandedOut(const Encounter& encounter) const;
    void ExpectReceived(const std::vector<FaultCase>& faults) const;
    void ExpectReceivedByDevice(const std::vector<FaultCase>& faults) const;
    void ExpectJournal(const FaultCase& fault) const;
    void ExpectRemembered(const std::vector<FaultCase>& faults) const;
    void ExpectGoodCall(const Subject& subject) const;

    Json GoodCall(const Subject& subject) const;
    std::string TokenOf(const Subject& subject) const;
    size_t Connections() const;

    const LocalFile m_picture{u8"gate.jpg"};
    std::deque<Encounter> m_encounters;
    Json m_remembered;
    Json m_good;
    Json m_addresses;
    ProcessUsage m_usage;
    size_t m_residentMiB = 0;
};

}  // namespace vantix::test
