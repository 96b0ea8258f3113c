// Recordings on a device: the request's own check, and the list that is handed on unread.

#include "cserver/Recordings.h"

#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kRecordingsTag[] = "ParseDeviceRecordFileFromCServer";
constexpr char kRecordingsRequest[] = "GetDeviceFileBySerialFromCServer";
constexpr char kWhole[] =
    R"({"meta":{"code":200},"isFinished":false,"records":[{"startTime":"a","x":[1,{"y":null}]},"text",5,true]})";
constexpr char kList[] = R"({"data":[{"startTime":"a","x":[1,{"y":null}]},"text",5,true]})";

class ConsumerRecordings : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        records = "before";
        m_log.Clear();
        return ParseDeviceRecordFileFromCServer(body, records);
    }
    int Fetch(const TimeSpan& span = {"2024-01-02 03:04:05", "2024-01-02 23:59:59"}) {
        records = "before";
        m_log.Clear();
        return GetDeviceFileBySerialFromCServer(Route(), "S", 3, span, 2, records);
    }

    ScriptedTransport transport;
    std::string records;
};

TEST_F(ConsumerRecordings, AreHandedOnUnread) {
    EXPECT_EQ(Parse(kWhole), 0);
    EXPECT_EQ(records, kList);
    EXPECT_TRUE(m_log.Lines().empty());
    EXPECT_EQ(Parse(R"({"records":[]})"), 0);
    EXPECT_EQ(records, R"({"data":[]})");
}

TEST_F(ConsumerRecordings, WhetherTheListIsFinishedIsNotPassedOn) {
    for (const std::string& value : AnyValues()) {
        EXPECT_EQ(Parse(WithValue(Json::parse(kWhole), "/isFinished", value)), 0) << value;
        EXPECT_EQ(records, kList) << value;
    }
    EXPECT_EQ(Parse(Without(Json::parse(kWhole), "/isFinished")), 0);
    EXPECT_EQ(records, kList);
}

TEST_F(ConsumerRecordings, BytesThatAreNoUtf8AreReplacedAndNulStays) {
    bUtf8 = true;
    EXPECT_EQ(Parse("{\"records\":[\"\xFF\",\"a\\u0000b\"]}"), 0);
    EXPECT_EQ(records, "{\"data\":[\"\\ufffd\",\"a\\u0000b\"]}");
}

TEST_F(ConsumerRecordings, WithoutLinesARefusalIsTheSame) {
    iLogLevel = level::kError + 1;
    EXPECT_EQ(Parse(R"({"meta":{"code":401},"records":[]})"), 401);
    EXPECT_THAT(m_log.Messages(), testing::IsEmpty());
}

TEST_F(ConsumerRecordings, ListMustBeThere) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       Without(Json::parse(kWhole), "/records"),
                                       "true",
                                       "\"x\"",
                                       R"({"data":{"records":[]}})"};
    for (const MemberValue& value : NoArrays()) {
        bodies.push_back(WithValue(Json::parse(kWhole), "/records", value.sent));
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kRecordingsTag, "platform response invalid, szInfo = " + body)));
        EXPECT_EQ(records, "before");
    }
}

TEST_F(ConsumerRecordings, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_EQ(records, "before");
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kRecordingsTag, "platform response bad, szInfo = " + body)));
    }
    ExpectTruncationIsNoJson(kWhole, [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerRecordings, CodeOfTheEnvelopeIsReturnedUnderTheParsersOwnWords) {
    const struct {
        const char* body;
        int code;
        const char* line;
    } rows[] = {
        {R"({"meta":{"code":201},"records":[]})", 201,
         R"(ParseDeviceRecordFileFromCServer Response Error:201, Resp:{"meta":{"code":201},"records":[]})"},
        {R"({"meta":{"code":401}})", 401,
         R"(ParseDeviceRecordFileFromCServer Response Error:401, Resp:{"meta":{"code":401}})"},
        {R"({"meta":{"code":-5}})", -5,
         R"(ParseDeviceRecordFileFromCServer Response Error:-5, Resp:{"meta":{"code":-5}})"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Parse(row.body), row.code);
        EXPECT_THAT(m_log.Lines(), ElementsAre(Line(3, "INFO ", kRecordingsTag, row.line)));
        EXPECT_EQ(records, "before");
    }
    for (const MetaRow& row : MetaRows()) {
        EXPECT_EQ(Parse(WithValue(Json::parse(kWhole), "/meta", row.meta)), row.code) << row.meta;
    }
}

// ---- The request

TEST_F(ConsumerRecordings, OnlyTheFirstBlankOfATimeIsEscaped) {
    transport.Respond(kWhole, 3);
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

TEST_F(ConsumerRecordings, ResponseIsLoggedWholeBeforeItIsChecked) {
    for (const char* body : {kWhole, "no json", "", "{}"}) {
        transport.Respond(body);
        Fetch();
        EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kRecordingsRequest,
                                                 std::string("ZQR TEST GetDeviceFileBySerialFromCServer:") + body))
                                       .Times(1));
    }
    EXPECT_FALSE(m_log.Contains("CostTime")) << "this request is not timed";
}

TEST_F(ConsumerRecordings, RequestChecksTheEnvelopeItself) {
    const struct {
        const char* body;
        int result;
        const char* line;
    } rows[] = {
        {"", 300001, "ZQR TEST GetLocalRecordFileBySerialFromPlatform: error:1"},
        {"<html>%s</html>", 300001, "ZQR TEST GetLocalRecordFileBySerialFromPlatform:<html>%s</html> error:1"},
        {"{}", 300002, "ZQR TEST GetLocalRecordFileBySerialFromPlatform:{} error:2"},
        {"[]", 300002, "ZQR TEST GetLocalRecordFileBySerialFromPlatform:[] error:2"},
        {R"({"records":[]})", 300002, R"(ZQR TEST GetLocalRecordFileBySerialFromPlatform:{"records":[]} error:2)"},
        {R"({"meta":"x"})", 300002, R"(ZQR TEST GetLocalRecordFileBySerialFromPlatform:{"meta":"x"} error:2)"},
        {R"({"meta":{"code":401}})", 300401,
         R"(ZQR TEST GetLocalRecordFileBySerialFromPlatform:{"meta":{"code":401}} error:401)"},
        {R"({"meta":{"code":-1}})", 300002,
         R"(ZQR TEST GetLocalRecordFileBySerialFromPlatform:{"meta":{"code":-1}} error:-1)"},
    };
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result) << row.body;
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kRecordingsRequest, row.line)).Times(1));
        EXPECT_FALSE(m_log.Contains(kRecordingsTag)) << "the parser is not asked";
        EXPECT_EQ(records, "before");
    }
}

TEST_F(ConsumerRecordings, ParsersRefusalHasAnotherLabel) {
    transport.Respond(R"({"meta":{"code":200},"records":{}})");
    EXPECT_EQ(Fetch(), 300002);
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(5, "ERROR", kRecordingsRequest,
                              R"(ParseServerInfoFromPlatform:{"meta":{"code":200},"records":{}} error:2)"))
                    .Times(1));
    for (const char* body : {R"({"meta":{},"records":[]})", R"({"meta":{"code":"401"},"records":[]})"}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 0) << "an envelope without a number is a success: " << body;
    }
}

TEST_F(ConsumerRecordings, FailedTransferIsPassedOn) {
    transport.Fail(7);
    EXPECT_EQ(Fetch(), 100007);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kRecordingsRequest,
                                             "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:7"))
                                   .Times(1));
    EXPECT_EQ(records, "before");
    EXPECT_FALSE(m_log.Contains("ZQR TEST GetDeviceFileBySerialFromCServer"));
    EXPECT_FALSE(m_log.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
