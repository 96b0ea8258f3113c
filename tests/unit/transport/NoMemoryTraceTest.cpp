// Memory that runs out while libcurl traces: the line is dropped, the transfer goes on.

#include <gtest/gtest.h>

#include <string>

#include "support/FailingNew.h"
#include "transport/CurlCallbacks.h"

namespace vantix::test {
namespace {

TEST(TraceCallback, WithoutMemoryTheLineIsDroppedAndTheTransferGoesOn) {
    std::string piece = "a piece that is too long for a short string";
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    int result = -1;
    bool fired = false;
    {
        const FailingNew failing(1);
        result = PrintTrace(nullptr, CURLINFO_DATA_IN, piece.data(), piece.size(), nullptr);
        fired = FailingNew::Fired();
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(fired);
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace vantix::test
