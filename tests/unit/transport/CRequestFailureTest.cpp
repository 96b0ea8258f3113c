// What each operation of CRequest does when something is missing or fails on the way.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "unit/transport/CurlSpy.h"
#include "unit/transport/Operations.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CRequestFailure : public testing::Test {
protected:
    /// Nothing was sent, everything is released, and there is an empty body in a block of its own.
    void ExpectNothingSent(const Outcome& outcome, int result) const {
        EXPECT_EQ(outcome.result, result);
        EXPECT_EQ(m_spy.Count("perform"), 0U);
        EXPECT_EQ(m_spy.Unreleased(), 0);
        ASSERT_NE(outcome.response, nullptr);
        EXPECT_EQ(outcome.length, 0U);
        EXPECT_STREQ(outcome.response, "");
    }

    CleanSwitches m_switches;
    LogCapture m_log;
    CurlSpy m_spy;
};

TEST_F(CRequestFailure, ANullArgumentGivesSevenAndALineAndNothingElse) {
    struct Row {
        const char* missing;
        const char* address;
        const char* second;
        bool withLength;
    };
    const Row rows[] = {
        {"address", nullptr, kParameters, true},    {"parameters or path", kAddress, nullptr, true},
        {"length", kAddress, kParameters, false},   {"address and parameters", nullptr, nullptr, true},
        {"address and length", nullptr, "", false}, {"parameters and length", kAddress, nullptr, false},
        {"everything", nullptr, nullptr, false},
    };
    for (const Operation& operation : Operations()) {
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(operation.name) + " without " + row.missing);
            m_log.Clear();
            char before = 'x';
            char* response = &before;
            uint32_t length = 4711;
            EXPECT_EQ(operation.run(CRequest(), row.address, row.second, &response, row.withLength ? &length : nullptr),
                      7);
            EXPECT_EQ(response, &before);
            EXPECT_EQ(length, 4711U);
            ASSERT_THAT(m_log.Messages(), ElementsAre("param is NULL"));
            EXPECT_EQ(m_log.Lines()[0].Word(), "ERROR");
            EXPECT_EQ(m_log.Lines()[0].level, 5U);
            EXPECT_EQ(m_log.Lines()[0].Tag(), operation.tag);
        }
    }
    EXPECT_THAT(m_spy.Calls(), IsEmpty()) << "no network traffic";
}

TEST_F(CRequestFailure, WithoutAHandleTheResultIsTwoAndTheBodyEmpty) {
    for (const Operation& operation : Operations()) {
        for (const bool verbose : {false, true}) {
            SCOPED_TRACE(operation.name);
            m_spy.Clear();
            m_spy.FailInit();
            const Outcome outcome(operation, CRequest(verbose));
            ExpectNothingSent(outcome, 2);
            EXPECT_THAT(m_spy.Calls(), ElementsAre("init"));
        }
    }
}

TEST_F(CRequestFailure, AHeaderThatCannotBeAddedStopsTheRequest) {
    for (const size_t index : {size_t{2}, size_t{3}, size_t{4}, size_t{5}, size_t{6}}) {
        const Operation operation = Operations()[index];
        m_spy.Clear();
        { const Outcome whole(operation); }
        const size_t headers = m_spy.Count("header ");
        EXPECT_EQ(headers, index == 2 ? 1U : 2U);
        for (size_t n = 1; n <= headers; ++n) {
            SCOPED_TRACE(std::string(operation.name) + ", header " + std::to_string(n));
            m_spy.Clear();
            m_spy.FailHeader(n);
            const Outcome outcome(operation);
            ExpectNothingSent(outcome, 27);
            EXPECT_EQ(m_spy.Count("header "), n) << "and nothing more is tried";
            EXPECT_EQ(m_spy.Count("HTTPHEADER"), 0U);
        }
    }
}

TEST_F(CRequestFailure, AnOptionThatIsRefusedStopsTheRequestWithItsCode) {
    for (const Operation& operation : Operations()) {
        m_spy.Clear();
        { const Outcome whole(operation, CRequest(true)); }
        const size_t options = m_spy.OptionCount();
        EXPECT_GE(options, 12U);
        for (size_t n = 1; n <= options; ++n) {
            SCOPED_TRACE(std::string(operation.name) + ", option " + std::to_string(n));
            m_spy.Clear();
            m_spy.FailOption(n, CURLE_UNKNOWN_OPTION);
            const Outcome outcome(operation, CRequest(true));
            ExpectNothingSent(outcome, CURLE_UNKNOWN_OPTION);
            EXPECT_EQ(m_spy.OptionCount(), n) << "and nothing more is set";
        }
    }
}

TEST_F(CRequestFailure, AFormThatCannotBeBuiltStopsTheUpload) {
    const Operation upload = Operations()[7];
    { const Outcome whole(upload); }
    const std::vector<std::string> calls = m_spy.Calls();
    const size_t formCalls = m_spy.FormCallCount();
    EXPECT_EQ(formCalls, 10U);
    for (size_t n = 1; n <= formCalls; ++n) {
        const std::string& failing = calls[n];
        SCOPED_TRACE(failing);
        m_spy.Clear();
        m_spy.FailFormCall(n, CURLE_BAD_FUNCTION_ARGUMENT);
        const Outcome outcome(upload);
        const bool failsAsNull = failing == "form" || failing == "part";
        ExpectNothingSent(outcome, failsAsNull ? 27 : CURLE_BAD_FUNCTION_ARGUMENT);
        EXPECT_EQ(m_spy.FormCallCount(), n) << "and nothing more is tried";
        EXPECT_EQ(m_spy.OptionCount(), 0U);
    }
}

TEST_F(CRequestFailure, AFileThatIsNotThereStopsTheUpload) {
    char* response = nullptr;
    uint32_t length = 4711;
    EXPECT_EQ(CRequest().SyncRequestUpload(kAddress, "/nowhere/picture.jpg", ParamMap(), &response, &length),
              CURLE_READ_ERROR);
    EXPECT_EQ(m_spy.Count("perform"), 0U);
    EXPECT_EQ(length, 0U);
    EXPECT_STREQ(response, "");
    std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
}

TEST_F(CRequestFailure, TheTransfersCodeIsReturnedAsItIs) {
    for (const Operation& operation : Operations()) {
        for (const CURLcode code : {CURLE_COULDNT_RESOLVE_HOST, CURLE_COULDNT_CONNECT, CURLE_OPERATION_TIMEDOUT,
                                    CURLE_SSL_CONNECT_ERROR, CURLE_RECV_ERROR}) {
            SCOPED_TRACE(operation.name);
            m_spy.Clear();
            m_spy.Respond(code);
            const Outcome outcome(operation);
            EXPECT_EQ(outcome.result, code);
            EXPECT_EQ(m_spy.Count("perform"), 1U) << "nothing is tried again";
            EXPECT_EQ(m_spy.Unreleased(), 0);
            ASSERT_NE(outcome.response, nullptr);
            EXPECT_EQ(outcome.length, 0U);
            EXPECT_STREQ(outcome.response, "");
        }
    }
}

#if !defined(_WIN32)  // there libcurl is a part of the program and lacks memory first
TEST_F(CRequestFailure, WithoutMemoryForAnEmptyBodyNothingIsHandedOut) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        m_spy.Respond(CURLE_OK);
        m_spy.FailBlocksFrom(1);
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, 27);
        EXPECT_EQ(outcome.response, nullptr);
        EXPECT_EQ(outcome.length, 0U);
        EXPECT_EQ(m_spy.Unreleased(), 0);
    }
}
#endif

TEST_F(CRequestFailure, WithoutMemoryForMoreOfABodyTheTransferEndsWithWhatIsThere) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        m_spy.Respond(CURLE_OK, {"the first piece", std::string(20'000, 'x')});
        m_spy.FailBlocksFrom(20'016);
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, 23);
        EXPECT_STREQ(outcome.response, "the first piece");
        EXPECT_EQ(outcome.length, 15U);
        EXPECT_EQ(m_spy.Unreleased(), 0);
    }
}

}  // namespace
}  // namespace vantix::test
