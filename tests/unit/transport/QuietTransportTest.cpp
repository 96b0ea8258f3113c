// Without lines the transport does the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "log/Logger.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "unit/transport/CurlSpy.h"
#include "unit/transport/Operations.h"

namespace vantix::test {
namespace {

class QuietTransport : public testing::Test {
protected:
    QuietTransport() { iLogLevel = level::kError + 1; }

    CleanSwitches m_switches;
    LogCapture m_log;
    CurlSpy m_spy;
};

TEST_F(QuietTransport, HandsOutShortAndLongBodies) {
    for (const size_t size : {size_t{0}, size_t{10240}, size_t{10241}}) {
        for (const Operation& operation : Operations()) {
            SCOPED_TRACE(std::string(operation.name) + " " + std::to_string(size));
            m_spy.Clear();
            m_spy.Respond(CURLE_OK, {std::string(size, 'x')});
            const Outcome outcome(operation);
            EXPECT_EQ(outcome.result, 0);
            EXPECT_EQ(outcome.length, size);
        }
    }
    EXPECT_THAT(m_log.Messages(), testing::IsEmpty());
}

TEST_F(QuietTransport, RefusesANullArgument) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        char* response = nullptr;
        uint32_t length = 4711;
        EXPECT_EQ(operation.run(CRequest(), nullptr, kParameters, &response, &length), 7);
        EXPECT_EQ(length, 4711U);
    }
    EXPECT_THAT(m_spy.Calls(), testing::IsEmpty());
    EXPECT_THAT(m_log.Messages(), testing::IsEmpty());
}

}  // namespace
}  // namespace vantix::test
