#include "transport/CurlTransfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;

class Transfer : public testing::Test {
protected:
    CurlSpy m_spy;
};

TEST_F(Transfer, ReleasesAHandleThatWasNeverUsed) {
    { const CurlTransfer transfer(false); }
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "cleanup"));
}

TEST_F(Transfer, ReleasesHeadersAndFormThatWereNeverHandedOver) {
    {
        CurlTransfer transfer(false);
        transfer.AddHeader("a: b");
        transfer.AddFormText({"name", "value"});
    }
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "header a: b", "form", "part", "part name name", "part data value",
                                           "free headers", "free form", "cleanup"));
    EXPECT_EQ(m_spy.Unreleased(), 0);
}

TEST_F(Transfer, TheFirstFailureDecidesAndNothingMoreIsDone) {
    m_spy.FailOption(1, CURLE_NOT_BUILT_IN);
    {
        CurlTransfer transfer(false);
        transfer.Set(CURLOPT_NOSIGNAL, 1L);
        transfer.Set(CURLOPT_TIMEOUT, 5L);
        transfer.AddHeader("a: b");
        transfer.ApplyHeaders();
        transfer.AddFormText({"name", "value"});
        transfer.AddFormFile("file", "/nowhere");
        transfer.ApplyForm();
        transfer.SetCommonOptions("https://cloud.test/", true);
        EXPECT_EQ(transfer.Perform(), CURLE_NOT_BUILT_IN);
        EXPECT_EQ(transfer.Perform(), CURLE_NOT_BUILT_IN);
        EXPECT_EQ(transfer.Body().Text(), "");
    }
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "NOSIGNAL 1", "cleanup"));
}

TEST_F(Transfer, AHeaderThatFailsKeepsNoneOfTheEarlierOnesBehind) {
    m_spy.FailHeader(2);
    {
        CurlTransfer transfer(false);
        transfer.AddHeader("a: 1");
        transfer.AddHeader("b: 2");
        transfer.AddHeader("c: 3");
        EXPECT_EQ(transfer.Perform(), CURLE_OUT_OF_MEMORY);
    }
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "header a: 1", "header b: 2", "free headers", "cleanup"));
}

TEST_F(Transfer, HeadersComeInTheOrderOfTheirKeysWithABlankBehindTheColon) {
    ParamMap headers;
    headers.Add("b", "2");
    headers.Add("A", "1");
    headers.Add("a", "");
    CurlTransfer transfer(false);
    transfer.AddHeaders(headers);
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "header A: 1", "header a;", "header b: 2"));
}

TEST_F(Transfer, LineBreaksAreTakenOutOfHeaders) {
    struct Row {
        const char* key;
        const char* value;
        const char* call;
    };
    constexpr Row kRows[] = {
        {"k", "a\r\nX-Injected: 1", "header k: aX-Injected: 1"},
        {"k", "\r\n\r\nbody", "header k: body"},
        {"k", "a\nb\rc\r", "header k: abc"},
        {"k\r\nX-Injected", "v", "header kX-Injected: v"},
        {"k\n", "", "header k;"},
        // Nothing but line breaks and blanks is an empty value.
        {"k", "\r\n", "header k;"},
        {"k", " \t\n\v\f\r", "header k;"},
        {"k", " a ", "header k:  a "},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.call);
        m_spy.Clear();
        ParamMap headers;
        headers.Add(row.key, row.value);
        CurlTransfer transfer(false);
        transfer.AddHeaders(headers);
        EXPECT_THAT(m_spy.Calls(), ElementsAre("init", row.call));
    }
    m_spy.Clear();
    CurlTransfer transfer(false);
    transfer.AddHeader("a:\r\n b\n");
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "header a: b"));
}

TEST_F(Transfer, LineBreaksAreTakenOutOfTheNamesOfFormPartsAndNotOutOfTheirTexts) {
    CurlTransfer transfer(false);
    transfer.AddFormText({"na\r\nme", "a\r\nb"});
    EXPECT_THAT(m_spy.Calls(), ElementsAre("init", "form", "part", "part name name", "part data a\r\nb"));
}

TEST_F(Transfer, AFormTextMayHoldZeros) {
    CurlTransfer transfer(false);
    transfer.AddFormText({"name", std::string("a\0b", 3)});
    EXPECT_EQ(m_spy.Calls().back(), std::string("part data a\0b", 13));
}

TEST_F(Transfer, TheBodyGrowsWithEachPiece) {
    m_spy.Respond(CURLE_OK, {"one", "two", ""});
    CurlTransfer transfer(false);
    transfer.SetCommonOptions("https://cloud.test/", true);
    EXPECT_EQ(transfer.Perform(), CURLE_OK);
    EXPECT_EQ(transfer.Body().Text(), "onetwo");
}

}  // namespace
}  // namespace vantix::test
