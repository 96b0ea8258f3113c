// Recordings on a device: the request's own check, and the list that is handed on unread.

#include "cserver/Recordings.h"

#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseDeviceRecordFileFromCServer";
constexpr char kRequest[] = "GetDeviceFileBySerialFromCServer";
constexpr char kGolden[] =
    R"({"meta":{"code":200},"isFinished":false,"records":[{"startTime":"a","x":[1,{"y":null}]},"text",5,true]})";
constexpr char kList[] = R"({"data":[{"startTime":"a","x":[1,{"y":null}]},"text",5,true]})";

class ConsumerRecordings : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        records = "before";
        lines.Clear();
        return ParseDeviceRecordFileFromCServer(body, records);
    }
    int Fetch(const TimeSpan& span = {"2024-01-02 03:04:05", "2024-01-02 23:59:59"}) {
        records = "before";
        lines.Clear();
        return GetDeviceFileBySerialFromCServer({"https://c.example", "the-session", "the-app"}, "S", 3, span, 2,
                                                records);
    }

    ScriptedTransport transport;
    std::string records;
};

TEST_F(ConsumerRecordings, AreHandedOnUnread) {
    EXPECT_EQ(Parse(kGolden), 0);
    EXPECT_EQ(records, kList);
    EXPECT_TRUE(lines.Lines().empty());
    EXPECT_EQ(Parse(R"({"records":[]})"), 0);
    EXPECT_EQ(records, R"({"data":[]})");
}

TEST_F(ConsumerRecordings, WhetherTheListIsFinishedIsNotPassedOn) {
    for (const std::string& value : OddValues()) {
        EXPECT_EQ(Parse(WithValue(Json::parse(kGolden), "/isFinished", value)), 0) << value;
        EXPECT_EQ(records, kList) << value;
    }
    EXPECT_EQ(Parse(Without(Json::parse(kGolden), "/isFinished")), 0);
    EXPECT_EQ(records, kList);
}

TEST_F(ConsumerRecordings, BytesThatAreNoUtf8AreReplacedAndNulStays) {
    bUtf8 = true;
    EXPECT_EQ(Parse("{\"records\":[\"\xFF\",\"a\\u0000b\"]}"), 0);
    EXPECT_EQ(records, "{\"data\":[\"\\ufffd\",\"a\\u0000b\"]}");
}

TEST_F(ConsumerRecordings, ListMustBeThere) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       Without(Json::parse(kGolden), "/records"),
                                       "true",
                                       "\"x\"",
                                       R"({"data":{"records":[]}})"};
    for (const std::string& value : OddValues()) {
        if (value[0] != '[') {
            bodies.push_back(WithValue(Json::parse(kGolden), "/records", value));
        }
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    testing::ElementsAre(Line(5, "ERROR", kTag, "platform response invalid, szInfo = " + body)));
        EXPECT_EQ(records, "before");
    }
}

TEST_F(ConsumerRecordings, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_EQ(records, "before");
        if (body.size() < 1000) {
            EXPECT_THAT(lines.Lines(),
                        testing::ElementsAre(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)));
        }
    }
    ExpectTruncationIsNoJson(kGolden, [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerRecordings, CodeOfTheEnvelopeIsReturnedUnderTheParsersOwnWords) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Json::parse(kGolden), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            const std::string code = std::to_string(row.code);
            EXPECT_THAT(
                lines.Lines(),
                testing::ElementsAre(Line(
                    3, "INFO ", kTag,
                    std::string("ParseDeviceRecordFileFromCServer Response Error:").append(code) + ", Resp:" + body)));
            EXPECT_EQ(records, "before");
        }
    }
}

// ---- The request

TEST_F(ConsumerRecordings, OnlyTheFirstBlankOfATimeIsEscaped) {
    transport.Respond(kGolden, 3);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(records, kList);
    EXPECT_EQ(transport.Sent()[0].url,
              "https://c.example/v3/streaming/records?channelNo=3&deviceSerial=S&recordType=2&size=100"
              "&startTime=2024-01-02%2003:04:05&stopTime=2024-01-02%2023:59:59");
    EXPECT_EQ(Fetch({"a b c", " "}), 0);
    EXPECT_EQ(transport.Sent()[1].Param("startTime"), "a%20b c");
    EXPECT_EQ(transport.Sent()[1].Param("stopTime"), "%20");
    EXPECT_EQ(Fetch({"", "ab"}), 0);
    EXPECT_EQ(transport.Sent()[2].Param("startTime"), "");
    EXPECT_EQ(transport.Sent()[2].Param("stopTime"), "ab");
}

TEST_F(ConsumerRecordings, AnswerIsLoggedWholeBeforeItIsChecked) {
    for (const char* body : {kGolden, "no json", "", "{}"}) {
        transport.Respond(body);
        Fetch();
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", kRequest, std::string("ZQR TEST GetDeviceFileBySerialFromCServer:") + body));
    }
    EXPECT_FALSE(lines.Contains("CostTime")) << "this request is not timed";
}

TEST_F(ConsumerRecordings, RequestChecksTheEnvelopeItself) {
    const struct {
        const char* body;
        int code;
        int result;
    } rows[] = {{"", 1, 300001},
                {"<html>%s</html>", 1, 300001},
                {"{}", 2, 300002},
                {"[]", 2, 300002},
                {R"({"records":[]})", 2, 300002},
                {R"({"meta":"x","records":[]})", 2, 300002},
                {R"({"meta":{"code":401},"records":[]})", 401, 300401},
                {R"({"meta":{"code":201},"records":[]})", 201, 300201},
                {R"({"meta":{"code":-1}})", -1, 300002}};
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result) << row.body;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest,
                                           std::string("ZQR TEST GetLocalRecordFileBySerialFromPlatform:") + row.body +
                                               " error:" + std::to_string(row.code)));
        EXPECT_FALSE(lines.Contains(kTag)) << "the parser is not asked";
        EXPECT_EQ(records, "before");
    }
}

TEST_F(ConsumerRecordings, ParsersRefusalHasAnotherLabel) {
    transport.Respond(R"({"meta":{"code":200},"records":{}})");
    EXPECT_EQ(Fetch(), 300002);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest,
                                       R"(ParseServerInfoFromPlatform:{"meta":{"code":200},"records":{}} error:2)"));
    for (const char* body : {R"({"meta":{},"records":[]})", R"({"meta":{"code":"401"},"records":[]})"}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 0) << "an envelope without a number is a success: " << body;
    }
}

TEST_F(ConsumerRecordings, FailedTransferIsPassedOn) {
    transport.Fail(7);
    EXPECT_EQ(Fetch(), 100007);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kRequest, "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:7"));
    EXPECT_EQ(records, "before");
    EXPECT_FALSE(lines.Contains("ZQR TEST GetDeviceFileBySerialFromCServer"));
    EXPECT_FALSE(lines.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
