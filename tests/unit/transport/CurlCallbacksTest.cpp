#include "transport/CurlCallbacks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>

#include "transport/ResponseBody.h"

namespace vantix {
namespace {

constexpr auto kAbort = static_cast<size_t>(-1);

TEST(WriteCallback, AppendsAndReturnsTheCount) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("before "));
    char data[] = "text that goes on";
    EXPECT_EQ(AppendToBody(data, 1, 4, &body), 4U);
    EXPECT_EQ(body.Text(), "before text");
}

TEST(WriteCallback, ReturnsTheCountAndNotTheBytes) {
    ResponseBody body;
    char data[] = "abcdef";
    EXPECT_EQ(AppendToBody(data, 2, 3, &body), 3U);
    EXPECT_EQ(body.Text(), "abcdef");
}

TEST(WriteCallback, TakesZerosAndNothing) {
    ResponseBody body;
    char data[] = "a\0b";
    EXPECT_EQ(AppendToBody(data, 1, 3, &body), 3U);
    EXPECT_EQ(body.Text(), std::string("a\0b", 3));
    EXPECT_EQ(AppendToBody(data, 1, 0, &body), 0U);
    EXPECT_EQ(body.Text().size(), 3U);
}

TEST(WriteCallback, NullPointersAbort) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("before"));
    char data[] = "text";
    EXPECT_EQ(AppendToBody(nullptr, 1, 4, &body), kAbort);
    EXPECT_EQ(AppendToBody(data, 1, 4, nullptr), kAbort);
    EXPECT_EQ(AppendToBody(nullptr, 1, 4, nullptr), kAbort);
    EXPECT_EQ(AppendToBody(nullptr, 1, 0, &body), kAbort);
    EXPECT_EQ(body.Text(), "before");
}

TEST(WriteCallback, WhatNoMemoryCanHoldAborts) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("before"));
    char data[] = "text";
    // Longer than a body can be, so it refuses before it reads.
    EXPECT_EQ(AppendToBody(data, 1, std::numeric_limits<size_t>::max() - 16, &body), kAbort);
    EXPECT_EQ(body.Text(), "before");
}

struct Printed {
    int result;
    std::string out;
    std::string debugger;  // standard error, where there is no debugger channel
};

Printed Trace(curl_infotype type, std::string data) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int result = PrintTrace(nullptr, type, data.data(), data.size(), nullptr);
    const std::string out = testing::internal::GetCapturedStdout();
    return {result, out, testing::internal::GetCapturedStderr()};
}

struct Row {
    curl_infotype type;
    const char* out;
    const char* debugger;
};

constexpr Row kRows[] = {
    {CURLINFO_TEXT, "", "libcurl  infotype:0 info:some %s data \n"},
    {CURLINFO_HEADER_IN, "[HEADER_IN]some %s data\n", "libcurl  infotype:1 info:some %s data \n"},
    {CURLINFO_HEADER_OUT, "[HEADER_OUT]some %s data\n", "libcurl  infotype:2 info:some %s data \n"},
    {CURLINFO_DATA_IN, "[DATA_IN]some %s data\n", "libcurl  infotype:3 info:some %s data \n"},
    {CURLINFO_DATA_OUT, "[DATA_OUT]some %s data\n", "libcurl  infotype:4 info:some %s data \n"},
    {CURLINFO_SSL_DATA_IN, "", "libcurl  infotype:5 info:some %s data \n"},
    {CURLINFO_SSL_DATA_OUT, "", "libcurl  infotype:6 info:some %s data \n"},
};

TEST(TraceCallback, PrintsHeadersAndDataAndHandsTheDebuggerEverything) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(static_cast<int>(row.type));
        const Printed printed = Trace(row.type, "some %s data");
        EXPECT_EQ(printed.result, 0);
        EXPECT_EQ(printed.out, row.out);
#if !defined(_WIN32)
        EXPECT_EQ(printed.debugger, row.debugger);
#endif
    }
}

TEST(TraceCallback, ReadsNoFurtherThanTheDatasLength) {
    const std::string data = "only this and nothing more";
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::string copy = data;
    EXPECT_EQ(PrintTrace(nullptr, CURLINFO_DATA_IN, copy.data(), 9, nullptr), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "[DATA_IN]only this\n");
    const std::string debugger = testing::internal::GetCapturedStderr();
#if !defined(_WIN32)
    EXPECT_EQ(debugger, "libcurl  infotype:3 info:only this \n");
#endif
}

TEST(TraceCallback, CutsTheDebuggersTextToItsBuffer) {
    const Printed printed = Trace(CURLINFO_DATA_OUT, std::string(5000, 'x'));
    EXPECT_EQ(printed.result, 0);
    EXPECT_EQ(printed.out, "[DATA_OUT]" + std::string(5000, 'x') + "\n");
#if !defined(_WIN32)
    EXPECT_EQ(printed.debugger.size(), 1023U);
    EXPECT_EQ(printed.debugger.substr(0, 26), "libcurl  infotype:4 info:x");
#endif
}

TEST(TraceCallback, DataIsPrintedAsTextThatEndsAtAZero) {
    const Printed printed = Trace(CURLINFO_DATA_IN, std::string("a\0b", 3));
    EXPECT_EQ(printed.out, "[DATA_IN]a\n");
#if !defined(_WIN32)
    EXPECT_EQ(printed.debugger, "libcurl  infotype:3 info:a \n");
#endif
}

TEST(TraceCallback, EmptyDataIsPrintedToo) {
    const Printed printed = Trace(CURLINFO_HEADER_IN, "");
    EXPECT_EQ(printed.result, 0);
    EXPECT_EQ(printed.out, "[HEADER_IN]\n");
}

}  // namespace
}  // namespace vantix
