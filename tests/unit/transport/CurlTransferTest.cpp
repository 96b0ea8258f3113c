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
        transfer.AddFormText("name", "value");
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
        transfer.AddFormText("name", "value");
        transfer.AddFormFile("file", "/nowhere");
        transfer.ApplyForm();
        transfer.SetCommonOptions("https://cloud.test/", true);
        EXPECT_EQ(transfer.Perform(), CURLE_NOT_BUILT_IN);
        EXPECT_EQ(transfer.Perform(), CURLE_NOT_BUILT_IN);
        EXPECT_EQ(transfer.Body(), "");
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

TEST_F(Transfer, AFormTextMayHoldZeros) {
    CurlTransfer transfer(false);
    transfer.AddFormText("name", std::string("a\0b", 3));
    EXPECT_EQ(m_spy.Calls().back(), std::string("part data a\0b", 13));
}

TEST_F(Transfer, TheBodyGrowsWithEachPiece) {
    m_spy.Answer(CURLE_OK, {"one", "two", ""});
    CurlTransfer transfer(false);
    transfer.SetCommonOptions("https://cloud.test/", true);
    EXPECT_EQ(transfer.Perform(), CURLE_OK);
    EXPECT_EQ(transfer.Body(), "onetwo");
}

}  // namespace
}  // namespace vantix::test
