// The responses with tickets and tokens.

#include "platform/Tokens.h"

#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

constexpr char kInvalidTokens[] = "platform response invalid, szInfo = $body";

ParserCase Ticket() {
    ParserCase row = CaseOf<std::string>("ParseTicketInfoFromPlatform", ParseTicketInfoFromPlatform, "before");
    row.envelope = EnvelopeRuleKind::Meta;
    row.payload = {{"ticketInfo", {{"ticket", "tk.1"}}}};
    row.after = "tk.1";
    row.members = {{.place = "/ticketInfo/ticket", .fields = {""}},
                   {.place = "/ticketInfo", .values = NoObjects, .fields = {""}}};
    return row;
}

ParserCase RelayTicket() {
    ParserCase row =
        CaseOf<std::string>("ParseRealyTicketInfoFromPlatform", ParseRealyTicketInfoFromPlatform, "before");
    row.envelope = EnvelopeRuleKind::Meta;
    row.payload = {{"data", {{"ticket", "tk.2"}}}};
    row.after = "tk.2";
    row.members = {{.place = "/data/ticket", .fields = {""}},
                   {.place = "/data", .values = NoObjects, .isRequired = true, .line = kInvalidTokens}};
    return row;
}

ParserCase StreamTokens() {
    ParserCase row = CaseOf<std::deque<std::string>>("ParseTokensFromPlatform", ParseTokensFromPlatform, {"st.before"});
    row.payload = {{"tokenArray", {"st.1", "st.2", "st.3"}}};
    row.after = {"st.before", "st.1", "st.2", "st.3"};
    row.members = {
        {.place = "/tokenArray", .values = NoArrays, .isRequired = true, .line = kInvalidTokens},
        // An element that is no text is skipped.
        {.place = "/tokenArray/1", .fields = {"/2"}, .shorter = Json{"st.before", "st.1", "st.3"}},
    };
    return row;
}

ParserCase Refresh() {
    ParserCase row = CaseOf("ParseRefreshTokenFromPlatform", ParseRefreshTokenFromPlatform,
                            RefreshTokenInfo{.access_token = "access before",
                                             .openId = "open before",
                                             .refresh_token = "refresh before",
                                             .expires_in = "1"});
    row.payload = {{"data", {{"access_token", "at"}, {"openId", "o"}, {"refresh_token", "rt"}, {"expires_in", 7200}}}};
    row.after = {{"access_token", "at"}, {"openId", "o"}, {"refresh_token", "rt"}, {"expires_in", "7200"}};
    row.members = MembersOf("/data/", "/",
                            {{"access_token", TextValues},
                             {"openId", TextValues},
                             {"refresh_token", TextValues},
                             {"expires_in", NumberAsTextValues}});
    for (ResponseMember& member : row.members) {
        member.isRequired = true;
        member.line = "platform response invalid, szInfo = $body, " + member.fields[0].substr(1) + " not exist!";
    }
    row.members.push_back({.place = "/data",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "platform response invalid, szInfo = $body, data not exist!"});
    return row;
}

INSTANTIATE_TEST_SUITE_P(Tokens, PlatformParser, ::testing::Values(Ticket(), RelayTicket(), StreamTokens(), Refresh()),
                         [](const auto& row) { return row.param.name; });

class TokenResponse : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(TokenResponse, TokensThatAreNoTextsAreSkippedAndNoneIsAsGoodAsMany) {
    std::deque<std::string> tokens;
    EXPECT_EQ(
        ParseTokensFromPlatform(R"({"resultCode":"200","tokenArray":[1,"a",null,["b"],{"c":"d"},"",true]})", tokens),
        0);
    EXPECT_EQ(tokens, std::deque<std::string>({"a", ""}));
    EXPECT_EQ(ParseTokensFromPlatform(R"({"resultCode":"200","tokenArray":[]})", tokens), 0);
    EXPECT_EQ(tokens.size(), 2U);
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(TokenResponse, LifetimeIsAnyNumberAsText) {
    const struct {
        const char* number;
        const char* text;
    } rows[] = {{"7200", "7200"},
                {"7200.0", "7200"},
                {"7200.9", "7200"},
                {"7.2e3", "7200"},
                {"0", "0"},
                {"-1", "-1"},
                {"4294967296", "4294967296"},
                {"9223372036854775807", "9223372036854775807"}};
    for (const auto& row : rows) {
        RefreshTokenInfo info;
        EXPECT_EQ(ParseRefreshTokenFromPlatform(
                      std::string(R"({"code":"200","data":{"access_token":"a","openId":"o","refresh_token":"r",)") +
                          R"("expires_in":)" + row.number + "}}",
                      info),
                  0)
            << row.number;
        EXPECT_EQ(info.expires_in, row.text);
    }
}

TEST_F(TokenResponse, RefreshDataInTheResultGoesBeforeThatAtTheRoot) {
    const std::string root = R"({"access_token":"root","openId":"o","refresh_token":"r","expires_in":1})";
    const std::string inner = R"({"access_token":"inner","openId":"o","refresh_token":"r","expires_in":1})";
    RefreshTokenInfo info;
    EXPECT_EQ(
        ParseRefreshTokenFromPlatform(R"({"result":{"code":"200","data":)" + inner + R"(},"data":)" + root + "}", info),
        0);
    EXPECT_EQ(info.access_token, "inner");
    EXPECT_EQ(ParseRefreshTokenFromPlatform(R"({"result":{"code":"200","data":[]},"data":)" + root + "}", info), 0);
    EXPECT_EQ(info.access_token, "root");
    const std::string lacking = R"({"result":{"code":"200","data":{}},"data":)" + root + "}";
    EXPECT_EQ(ParseRefreshTokenFromPlatform(lacking, info), 2);
    EXPECT_EQ(m_log.Count("platform response invalid, szInfo = " + lacking + ", access_token not exist!"), 1U);
}

}  // namespace
}  // namespace vantix::test
