// The options of libcurl that each operation of CRequest sets, in their order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "unit/transport/CurlSpy.h"
#include "unit/transport/Operations.h"

namespace vantix::test {
namespace {

using Calls = std::vector<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;

Calls Common(const std::string& url, bool withReadFunction = true) {
    Calls calls{"URL " + url};
    if (withReadFunction) {
        calls.emplace_back("READFUNCTION null");
    }
    for (const char* call : {
             "WRITEFUNCTION AppendToBody", "WRITEDATA given", "NOSIGNAL 1", "SSL_VERIFYPEER 0", "SSL_VERIFYHOST 0",
                 "CONNECTTIMEOUT 20", "TIMEOUT 30", "FOLLOWLOCATION 1",
#if CURL_AT_LEAST_VERSION(7, 85, 0)
                 "PROTOCOLS_STR http,https", "REDIR_PROTOCOLS_STR http,https"
#else
                             "PROTOCOLS 3", "REDIR_PROTOCOLS 3"
#endif
         }) {
        calls.emplace_back(call);
    }
    return calls;
}

Calls Joined(const std::vector<Calls>& parts) {
    Calls all;
    for (const Calls& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

const char* const kQueryUrl = "https://cloud.test:8443/api/x?a=1&b=2";

class CRequestOptions : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
    CurlSpy m_spy;
};

TEST_F(CRequestOptions, ModesAreNumbersThatCallersKnow) {
    EXPECT_EQ(static_cast<int>(RequestMode::Get), 0);
    EXPECT_EQ(static_cast<int>(RequestMode::FormPost), 1);
    EXPECT_EQ(static_cast<int>(RequestMode::JsonPost), 2);
}

TEST_F(CRequestOptions, OfAGet) {
    const Outcome outcome(Operations()[0]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(m_spy.Calls(), Joined({{"init"}, Common(kQueryUrl), {"perform", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "GET");
}

TEST_F(CRequestOptions, OfAFormPost) {
    const Outcome outcome(Operations()[1]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(m_spy.Calls(),
              Joined({{"init", "POST 1", "POSTFIELDS a=1&b=2"}, Common(kAddress), {"perform", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "POST");
    EXPECT_EQ(m_spy.Body(), kParameters);
    EXPECT_THAT(m_spy.Headers(), IsEmpty()) << "libcurl's own content type applies";
}

TEST_F(CRequestOptions, OfAJsonPost) {
    const Outcome outcome(Operations()[2]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(m_spy.Calls(), Joined({{"init", "header Content-Type:application/json",
                                      "HTTPHEADER [Content-Type:application/json]", "POST 1", "POSTFIELDS a=1&b=2"},
                                     Common(kAddress),
                                     {"perform", "free headers", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "POST");
    EXPECT_EQ(m_spy.Body(), kParameters);
    EXPECT_THAT(m_spy.Headers(), ElementsAre("Content-Type:application/json"));
}

TEST_F(CRequestOptions, OfAGetWithHeaders) {
    const Outcome outcome(Operations()[3]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(
        m_spy.Calls(),
        Joined({{"init"},
                Common(kQueryUrl),
                {"header A: 1", "header b: 2", "HTTPHEADER [A: 1][b: 2]", "perform", "free headers", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "GET");
    EXPECT_THAT(m_spy.Headers(), ElementsAre("A: 1", "b: 2"));
}

TEST_F(CRequestOptions, OfABodylessPost) {
    const Outcome outcome(Operations()[4]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(
        m_spy.Calls(),
        Joined({{"init", "CUSTOMREQUEST POST"},
                Common(kQueryUrl),
                {"header A: 1", "header b: 2", "HTTPHEADER [A: 1][b: 2]", "perform", "free headers", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "POST");
    EXPECT_EQ(m_spy.Body(), "");
}

TEST_F(CRequestOptions, OfABodylessPut) {
    const Outcome outcome(Operations()[5]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(
        m_spy.Calls(),
        Joined({{"init", "CUSTOMREQUEST PUT"},
                Common(kQueryUrl, false),
                {"header A: 1", "header b: 2", "HTTPHEADER [A: 1][b: 2]", "perform", "free headers", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "PUT");
}

TEST_F(CRequestOptions, OfAPutWithABody) {
    const Outcome outcome(Operations()[6]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(
        m_spy.Calls(),
        Joined({{"init", "CUSTOMREQUEST PUT", "POSTFIELDS the body", "POSTFIELDSIZE 8"},
                Common(kQueryUrl, false),
                {"header A: 1", "header b: 2", "HTTPHEADER [A: 1][b: 2]", "perform", "free headers", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "PUT");
    EXPECT_EQ(m_spy.Body(), "the body");
}

TEST_F(CRequestOptions, OfAnUpload) {
    const Outcome outcome(Operations()[7]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(m_spy.Calls(),
              Joined({{"init", "form", "part", "part name A", "part data 1", "part", "part name b", "part data 2",
                       "part", "part name file", "part file " + ExistingFile(), "MIMEPOST given"},
                      Common(kAddress),
                      {"perform", "free form", "cleanup"}}));
    EXPECT_EQ(m_spy.Method(), "POST");
}

TEST_F(CRequestOptions, OfAnUploadWithoutFieldsAreTheFileAlone) {
    const Outcome outcome(Operations(ParamMap())[7]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(m_spy.Calls(),
              Joined({{"init", "form", "part", "part name file", "part file " + ExistingFile(), "MIMEPOST given"},
                      Common(kAddress),
                      {"perform", "free form", "cleanup"}}));
}

TEST_F(CRequestOptions, WithTheVerboseSwitchTheTraceComesFirst) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        const Outcome quiet(operation);
        Calls expected = m_spy.Calls();
        expected.insert(expected.begin() + 1, {"VERBOSE 1", "DEBUGFUNCTION PrintTrace"});
        m_spy.Clear();
        const Outcome verbose(operation, CRequest(true));
        EXPECT_EQ(m_spy.Calls(), expected);
    }
}

TEST_F(CRequestOptions, TheVerboseSwitchIsOffInANewObject) {
    const Outcome outcome(Operations()[0], CRequest());
    EXPECT_EQ(m_spy.Count("VERBOSE"), 0U);
    EXPECT_EQ(m_spy.Count("DEBUGFUNCTION"), 0U);
}

TEST_F(CRequestOptions, EmptyParametersGiveAnAddressThatEndsInAQuestionMark) {
    for (const size_t index : {size_t{0}, size_t{3}, size_t{4}, size_t{5}}) {
        SCOPED_TRACE(Operations()[index].name);
        char* response = nullptr;
        uint32_t length = 0;
        EXPECT_EQ(Operations()[index].run(CRequest(), kAddress, "", &response, &length), 0);
        EXPECT_EQ(m_spy.Url(), std::string(kAddress) + "?");
        std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
    }
}

TEST_F(CRequestOptions, AnEmptyFormPostStillSetsItsBody) {
    char* response = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(CRequest().SyncRequest(kAddress, "", RequestMode::FormPost, &response, &length), 0);
    EXPECT_EQ(m_spy.Count("POSTFIELDS "), 1U) << "without it libcurl reads standard input";
    EXPECT_EQ(m_spy.Method(), "POST");
    EXPECT_EQ(m_spy.Body(), "");
    std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
}

TEST_F(CRequestOptions, ParametersAndHeadersAreSentAsTheyAre) {
    ParamMap headers;
    headers.Add("k", "a&b c%20+#\xC3\xA9");
    char* response = nullptr;
    uint32_t length = 0;
    const char* const parameters = "a=x&y z%20+\xC3\xA9";
    EXPECT_EQ(CRequest().SyncRequest(kAddress, parameters, RequestMode::FormPost, &response, &length), 0);
    EXPECT_EQ(m_spy.Body(), parameters);
    std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
    EXPECT_EQ(CRequest().SyncRequestHeader(kAddress, parameters, headers, &response, &length), 0);
    EXPECT_EQ(m_spy.Url(), std::string(kAddress) + "?" + parameters);
    EXPECT_THAT(m_spy.Headers(), ElementsAre("k: a&b c%20+#\xC3\xA9"));
    std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
}

TEST_F(CRequestOptions, AHeaderWithAnEmptyValueIsReallySent) {
    ParamMap headers;
    headers.Add("sessionId", "");
    headers.Add("lang", "EN");
    const Outcome outcome(Operations(headers)[3]);
    EXPECT_THAT(m_spy.Headers(), ElementsAre("lang: EN", "sessionId;")) << "libcurl's spelling of an empty header";
}

TEST_F(CRequestOptions, WithoutHeadersNoneAreHandedOver) {
    for (const size_t index : {size_t{3}, size_t{4}, size_t{5}}) {
        const Outcome outcome(Operations(ParamMap())[index]);
        EXPECT_EQ(outcome.result, 0);
        EXPECT_THAT(m_spy.Headers(), IsEmpty());
    }
    EXPECT_EQ(m_spy.Count("header "), 0U);
}

}  // namespace
}  // namespace vantix::test
