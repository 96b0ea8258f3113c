// What must hold after a row: the outcome, what the servers received, what is remembered.

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "faults/FaultFixture.h"
#include "faults/Remembered.h"
#include "faults/Times.h"
#include "support/OutputJson.h"

namespace vantix::test {
namespace {

std::string InWords(const ReceivedRequest& request) {
    std::string words = request.domain + " " + request.method;
    if (!request.body.empty()) {
        words += " form";
    }
    if (request.Header("sessionId") != "<none>") {
        words += " session";
    }
    if (request.Parameter("accessToken") != "<none>") {
        words += " token";
    }
    return words;
}

/// Where a row sees what was sent.
std::string SentTexts(const ReceivedRequest& request) {
    return request.query + "\n" + request.body + "\nsessionId: " + request.Header("sessionId") +
           "\nhost: " + request.Header("Host") + "\n";
}

}  // namespace

void FaultFixture::ExpectReceived(const std::vector<FaultCase>& faults) const {
    size_t atLeast = 0;
    size_t atMost = 0;
    size_t connections = 0;
    for (const FaultCase& fault : faults) {
        const Outcome& expected = fault.Expected();
        atLeast += expected.requests;
        atMost += std::max(expected.requests, expected.requestsAtMost);
        connections += expected.connections;
    }
    EXPECT_GE(Cloud().RequestCount(), atLeast);
    EXPECT_LE(Cloud().RequestCount(), atMost);
    EXPECT_EQ(Connections(), connections);
    if (faults.size() == 1) {
        ExpectJournal(faults.front());
    } else {
        ExpectReceivedByDevice(faults);
    }
}

/// Rows that are met together have a device each; a renewal's request names none.
void FaultFixture::ExpectReceivedByDevice(const std::vector<FaultCase>& faults) const {
    std::map<std::string, size_t> byDevice;
    for (const ReceivedRequest& request : Cloud().Requests()) {
        ++byDevice[request.Parameter("deviceSerial")];
    }
    for (const FaultCase& fault : faults) {
        const Outcome& expected = fault.Expected();
        if (fault.row.serial && fault.row.callers == 1) {
            const size_t renewals = expected.renewed.empty() ? 0 : 1;
            EXPECT_EQ(byDevice[*fault.row.serial], expected.requests - renewals) << fault.Name();
        }
    }
}

void FaultFixture::ExpectJournal(const FaultCase& fault) const {
    const Outcome& expected = fault.Expected();
    const std::vector<ReceivedRequest> requests = Cloud().Requests();
    std::vector<std::string> journal;
    for (const ReceivedRequest& request : requests) {
        journal.push_back(InWords(request));
    }
    if (!expected.journal.empty()) {
        EXPECT_EQ(journal, expected.journal);
    }
    if (!expected.sent.empty()) {
        ASSERT_FALSE(requests.empty());
        const std::string sent = Filled(expected.sent, fault.subject, m_addresses);
        EXPECT_NE(SentTexts(requests.back()).find(sent), std::string::npos) << sent.substr(0, 200);
    }
}

void FaultFixture::ExpectOutcome(const Encounter& encounter) const {
    const Outcome& expected = encounter.fault->Expected();
    const int result = encounter.call.result;
    std::vector<int> allowed = {expected.result};
#if defined(_WIN32)
    allowed = expected.onWindows.empty() ? allowed : expected.onWindows;
#endif
    if (allowed.front() == kSomeTransportFailure) {
        EXPECT_GT(result, 100000);
        EXPECT_LT(result, 100100);
    } else {
        EXPECT_THAT(allowed, ::testing::Contains(result));
    }
    EXPECT_EQ(encounter.call.started, encounter.fault->subject.isTask);
    ExpectHandedOut(encounter);
    if (expected.secondsAtMost > 0) {
        EXPECT_GE(encounter.seconds, expected.secondsAtLeast);
        EXPECT_LE(encounter.seconds, expected.secondsAtMost);
    }
    if (expected.peakMiB > 0) {
        RecordProperty("peakMiB", static_cast<int>(encounter.peakMiB));
        EXPECT_LE(encounter.peakMiB, expected.peakMiB);
    }
}

void FaultFixture::ExpectHandedOut(const Encounter& encounter) const {
    const Outcome& expected = encounter.fault->Expected();
    const FaultRow& row = encounter.fault->row;
    if (encounter.call.result != 0) {
        EXPECT_EQ(encounter.changes, Json::object());
        return;
    }
    if (!row.operation) {
        EXPECT_EQ(encounter.outputs.at("detail").at("deviceSerial"), encounter.fault->subject.serial);
    }
    if (expected.isAsBefore) {
        EXPECT_EQ(Changes(m_good, encounter.outputs), Json::object());
    }
    if (!expected.handedOut.is_null()) {
        Json merged = encounter.outputs;
        merged.merge_patch(expected.handedOut);
        EXPECT_EQ(Changes(merged, encounter.outputs), Json::object());
    }
    if (!expected.kept.empty()) {
        EXPECT_NE(encounter.outputs.at("text").get<std::string>().find(expected.kept), std::string::npos);
    }
    if (expected.idLength != 0) {
        EXPECT_EQ(encounter.outputs.at("channel").at("cameraId").get<std::string>().size(), expected.idLength);
    }
}

void FaultFixture::ExpectRemembered(const std::vector<FaultCase>& faults) const {
    const Subject& subject = faults.front().subject;
    Json before = m_remembered;
    Cloud().ForgetRequests();
    const Json now = Remembered(Center(), TokenOf(subject));
    Json after = now;
    EXPECT_EQ(Cloud().RequestCount(), 0U) << "what was remembered is remembered still";
    for (const FaultCase& fault : faults) {
        const Outcome& expected = fault.Expected();
        const std::string credential = fault.subject.IsConsumer() ? "getSessionId " : "getAccessToken ";
        if (!expected.renewed.empty()) {
            EXPECT_EQ(now.at(credential).at("live"), expected.renewed);
            for (const std::string& changed : {credential, std::string("getTokenExpireTime ")}) {
                before.erase(changed);
                after.erase(changed);
            }
        }
    }
    for (const Encounter& encounter : m_encounters) {
        if (encounter.call.result == 0) {
            // A success is remembered, of its own device alone.
            for (const char* question : {"getDevInfoCache ", "getDeviceRecord ", "IsSupportSeekPlayback "}) {
                before.erase(question + encounter.fault->subject.serial);
                after.erase(question + encounter.fault->subject.serial);
            }
        }
    }
    EXPECT_EQ(Changes(before, after), Json::object());
}

void FaultFixture::ExpectGoodCall(const Subject& subject) const {
    Center().setAccessToken(Account("accessToken"));
    Center().setSessionId(m_remembered.at("getSessionId ").at("live"));
    SetPermissionMode(subject.mode);
    if (subject.isTask) {
        Center().ClearAllCache();  // a task that finds a record asks for none
    }
    Cloud().ForgetRequests();
    EXPECT_EQ(Changes(m_good, GoodCall(subject)), Json::object());
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

}  // namespace vantix::test
