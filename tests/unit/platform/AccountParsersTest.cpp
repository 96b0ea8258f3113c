// The answers about the account: configuration, names, push session, bandwidth check, passed-through messages.

#include "platform/Account.h"
#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

ParserCase Configuration() {
    ParserCase row = CaseOf(
        "ParseConfigInfoFromPlatform", ParseConfigInfoFromPlatform,
        ConfigInfo{
            .pushAddr = "push before", .pushAuthAddr = "auth before", .streamType = 1, .dataCollect = 2, .openP2P = 3});
    row.envelope = Envelope::Result;
    row.after = {{"pushAddr", "push.example"},
                 {"pushAuthAddr", "auth.example"},
                 {"streamType", 4},
                 {"dataCollect", 5},
                 {"openP2P", 6}};
    row.payload = {{"data", row.after}};
    row.members = MembersOf("/data/", "/",
                            {{"pushAddr", Accepts::Text},
                             {"pushAuthAddr", Accepts::Text},
                             {"streamType", Accepts::Int},
                             {"dataCollect", Accepts::Int},
                             {"openP2P", Accepts::Int}});
    row.members.push_back({.place = "/data",
                           .accepts = Accepts::Object,
                           .isRequired = true,
                           .line = "platform response invalid, szInfo = $"});
    return row;
}

ParserCase UserName() {
    ParserCase row = CaseOf<std::string>("ParseUsernameFromPlatform", ParseUsernameFromPlatform, "before");
    row.payload = {{"userName", "ada"}};
    row.after = "ada";
    row.members = {{.place = "/userName",
                    .fields = {""},
                    .isRequired = true,
                    .line = "platform response invalid, [userName] not exist or not string, szInfo = $"}};
    return row;
}

ParserCase UserId() {
    ParserCase row = CaseOf<std::string>("ParseUserIdFromPlatform", ParseUserIdFromPlatform, "before");
    row.payload = {{"result", {{"data", {{"userId", "u-1"}}}}}};
    row.after = "u-1";
    row.firstLine = "ParseUserId = $";
    const std::string line = "platform response invalid, [userId] not exist or not string, szInfo = $";
    row.members = {
        {.place = "/result/data/userId", .fields = {""}, .isRequired = true, .line = line},
        {.place = "/result/data", .accepts = Accepts::Object, .isRequired = true, .line = line},
    };
    return row;
}

ParserCase PushSession() {
    ParserCase row = CaseOf<std::string>("ParsePushSessionIdFromPlatform", ParsePushSessionIdFromPlatform, "before");
    row.envelope = Envelope::StrictMeta;
    row.payload = {{"pushSessionId", "push.1"}};
    row.after = "push.1";
    row.firstLine = "ParsePushSessionId = $";
    row.members = {{.place = "/pushSessionId",
                    .fields = {""},
                    .isRequired = true,
                    .line = "platform response invalid, [userId] not exist or not string, szInfo = $"}};
    return row;
}

ParserCase Bandwidth() {
    ParserCase row =
        CaseOf("ParseBWCheckInfoFromPlatform", ParseBWCheckInfoFromPlatform,
               BWCheckInfo{.id = "id before", .url = "url before", .publicKey = "key before", .version = 1});
    row.envelope = Envelope::StrictMeta;
    row.after = {{"id", "bw-1"}, {"url", "https://bw.example/"}, {"publicKey", "04ab"}, {"version", 2}};
    row.payload = {{"data", row.after}};
    row.firstLine = "BWCheckInfo = $";
    row.members = MembersOf(
        "/data/", "/",
        {{"id", Accepts::Text}, {"url", Accepts::Text}, {"publicKey", Accepts::Text}, {"version", Accepts::Int}});
    row.members.push_back({.place = "/data", .accepts = Accepts::Object});
    for (AnswerMember& member : row.members) {
        member.isRequired = true;
        member.line = "platform response invalid, [publicKey] not exist or not string, szInfo = $";
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
        row.members.push_back(
            {.place = "/result/msgData/" + key, .accepts = Accepts::TextOrNumber, .fields = {"/" + key}});
    }
    row.members.push_back({.place = "/result/msgData",
                           .accepts = Accepts::Object,
                           .isRequired = true,
                           .line = "platform response bad, [msgData] is not object, Resp:$",
                           .word = "INFO "});
    return row;
}

INSTANTIATE_TEST_SUITE_P(Account, HostileAnswer,
                         ::testing::Values(Configuration(), UserName(), UserId(), PushSession(), Bandwidth(),
                                           Message()),
                         [](const auto& row) { return row.param.name; });

class AccountAnswer : public testing::Test {
protected:
    CleanSwitches clean;
    LogCapture lines;
};

TEST_F(AccountAnswer, ConfigurationInTheResultGoesBeforeThatAtTheRoot) {
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
    EXPECT_EQ(lines.Count("platform response invalid, szInfo = " + none), 1U);
}

TEST_F(AccountAnswer, UserIdIsLookedForInTheResultAlone) {
    std::string userId = "before";
    EXPECT_EQ(ParseUserIdFromPlatform(R"({"resultCode":"200","userId":"a","data":{"userId":"b"}})", userId), 2);
    EXPECT_EQ(userId, "before");
}

TEST_F(AccountAnswer, MessageWithoutAResultSaysWhichIsMissing) {
    TransparentMsgDetail detail;
    for (const char* result : {"null", "[]", "\"x\"", "5", "true"}) {
        lines.Clear();
        const std::string body = std::string(R"({"resultCode":"200","result":)").append(result) + "}";
        EXPECT_EQ(ParseTransparentMsgDetailFromPlatform(body, detail), 2) << result;
        ASSERT_EQ(lines.Lines().size(), 1U);
        const LogLine line = lines.Lines()[0];
        EXPECT_EQ(line.Message(), "platform response bad, [result] is not object, Resp:" + body);
        EXPECT_EQ(line.level, 3U);
        EXPECT_EQ(line.Word(), "INFO ");
        EXPECT_EQ(line.Tag(), "ParseTransparentMsgDetailFromPlatform");
    }
}

}  // namespace
}  // namespace vantix::test
