// The responses about the account: configuration, names, push session, bandwidth check, passed-through messages.

#include "platform/Account.h"
#include "support/LineMatcher.h"
#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

ParserCase Configuration() {
    ParserCase row = CaseOf(
        "ParseConfigInfoFromPlatform", ParseConfigInfoFromPlatform,
        ConfigInfo{
            .pushAddr = "push before", .pushAuthAddr = "auth before", .streamType = 1, .dataCollect = 2, .openP2P = 3});
    row.envelope = EnvelopeRuleKind::Result;
    row.after = {{"pushAddr", "push.example"},
                 {"pushAuthAddr", "auth.example"},
                 {"streamType", 4},
                 {"dataCollect", 5},
                 {"openP2P", 6}};
    row.payload = {{"data", row.after}};
    row.members = MembersOf("/data/", "/",
                            {{"pushAddr", TextValues},
                             {"pushAuthAddr", TextValues},
                             {"streamType", IntValues},
                             {"dataCollect", IntValues},
                             {"openP2P", IntValues}});
    row.members.push_back({.place = "/data",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "platform response invalid, szInfo = $body"});
    return row;
}

ParserCase UserName() {
    ParserCase row = CaseOf<std::string>("ParseUsernameFromPlatform", ParseUsernameFromPlatform, "before");
    row.payload = {{"userName", "ada"}};
    row.after = "ada";
    row.members = {{.place = "/userName",
                    .fields = {""},
                    .isRequired = true,
                    .line = "platform response invalid, [userName] not exist or not string, szInfo = $body"}};
    return row;
}

ParserCase UserId() {
    ParserCase row = CaseOf<std::string>("ParseUserIdFromPlatform", ParseUserIdFromPlatform, "before");
    row.payload = {{"result", {{"data", {{"userId", "u-1"}}}}}};
    row.after = "u-1";
    row.firstLine = "ParseUserId = $body";
    const std::string line = "platform response invalid, [userId] not exist or not string, szInfo = $body";
    row.members = {
        {.place = "/result/data/userId", .fields = {""}, .isRequired = true, .line = line},
        {.place = "/result/data", .values = NoObjects, .isRequired = true, .line = line},
    };
    return row;
}

ParserCase PushSession() {
    ParserCase row = CaseOf<std::string>("ParsePushSessionIdFromPlatform", ParsePushSessionIdFromPlatform, "before");
    row.envelope = EnvelopeRuleKind::StrictMeta;
    row.payload = {{"pushSessionId", "push.1"}};
    row.after = "push.1";
    row.firstLine = "ParsePushSessionId = $body";
    row.members = {{.place = "/pushSessionId",
                    .fields = {""},
                    .isRequired = true,
                    .line = "platform response invalid, [userId] not exist or not string, szInfo = $body"}};
    return row;
}

ParserCase Bandwidth() {
    ParserCase row =
        CaseOf("ParseBWCheckInfoFromPlatform", ParseBWCheckInfoFromPlatform,
               BWCheckInfo{.id = "id before", .url = "url before", .publicKey = "key before", .version = 1});
    row.envelope = EnvelopeRuleKind::StrictMeta;
    row.after = {{"id", "bw-1"}, {"url", "https://bw.example/"}, {"publicKey", "04ab"}, {"version", 2}};
    row.payload = {{"data", row.after}};
    row.firstLine = "BWCheckInfo = $body";
    row.members = MembersOf(
        "/data/", "/", {{"id", TextValues}, {"url", TextValues}, {"publicKey", TextValues}, {"version", IntValues}});
    row.members.push_back({.place = "/data", .values = NoObjects});
    for (ResponseMember& member : row.members) {
        member.isRequired = true;
        member.line = "platform response invalid, [publicKey] not exist or not string, szInfo = $body";
    }
    return row;
}

ParserCase Message() {
    ParserCase row = CaseOf("ParseTransparentMsgDetailFromPlatform", ParseTransparentMsgDetailFromPlatform,
                            TransparentMsgDetail{.msgSeq = "seq before",
                                                 .msgType = "type before",
                                                 .data = "data before",
                                                 .destination = "destination before",
                                                 .sn = "sn before",
                                                 .createDate = "date before"});
    row.after = {{"msgSeq", "M1"},          {"msgType", "alarm"}, {"data", "payload"},
                 {"destination", "client"}, {"sn", "C1"},         {"createDate", "2024-01-02 03:04:05"}};
    row.payload = {{"result", {{"msgData", row.after}}}};
    for (const auto& [key, value] : row.after.items()) {
        row.members.push_back({.place = "/result/msgData/" + key, .values = TextOrNumberValues, .fields = {"/" + key}});
    }
    row.members.push_back({.place = "/result/msgData",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "platform response bad, [msgData] is not object, Resp:$body",
                           .word = "INFO "});
    return row;
}

INSTANTIATE_TEST_SUITE_P(Account, PlatformParser,
                         ::testing::Values(Configuration(), UserName(), UserId(), PushSession(), Bandwidth(),
                                           Message()),
                         [](const auto& row) { return row.param.name; });

class AccountResponse : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(AccountResponse, ConfigurationInTheResultGoesBeforeThatAtTheRoot) {
    ConfigInfo config;
    EXPECT_EQ(ParseConfigInfoFromPlatform(
                  R"({"result":{"code":"200","data":{"streamType":1}},"data":{"streamType":2}})", config),
              0);
    EXPECT_EQ(config.streamType, 1);
    EXPECT_EQ(ParseConfigInfoFromPlatform(R"({"result":{"code":200,"data":[]},"data":{"streamType":2}})", config), 0);
    EXPECT_EQ(config.streamType, 2);
    const std::string none = R"({"result":{"code":0,"data":[]},"data":"x"})";
    EXPECT_EQ(ParseConfigInfoFromPlatform(none, config), 2);
    EXPECT_EQ(config.streamType, 2);
    EXPECT_EQ(m_log.Count("platform response invalid, szInfo = " + none), 1U);
}

TEST_F(AccountResponse, UserIdIsLookedForInTheResultAlone) {
    std::string userId = "before";
    EXPECT_EQ(ParseUserIdFromPlatform(R"({"resultCode":"200","userId":"a","data":{"userId":"b"}})", userId), 2);
    EXPECT_EQ(userId, "before");
}

TEST_F(AccountResponse, MessageWithoutAResultSaysWhichIsMissing) {
    TransparentMsgDetail detail;
    for (const char* result : {"null", "[]", "\"x\"", "5", "true"}) {
        m_log.Clear();
        const std::string body = std::string(R"({"resultCode":"200","result":)").append(result) + "}";
        EXPECT_EQ(ParseTransparentMsgDetailFromPlatform(body, detail), 2) << result;
        EXPECT_THAT(m_log.Lines(),
                    testing::ElementsAre(Line(3, "INFO ", "ParseTransparentMsgDetailFromPlatform",
                                              "platform response bad, [result] is not object, Resp:" + body)));
    }
}

}  // namespace
}  // namespace vantix::test
