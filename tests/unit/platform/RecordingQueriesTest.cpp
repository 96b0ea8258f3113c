// What two keys of the query for local recordings depend on, what a failed upload logs, and that a response which is
// handed on keeps its ends.

#include "platform/Recordings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Lists.h"
#include "platform/Tokens.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/LocalFile.h"
#include "support/LogCapture.h"
#include "support/ScriptedTransport.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

class RecordingQueries : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
    ScriptedTransport m_transport;
    const PlatformRoute m_route = PlatformRouteTo("https://b.example", "the-token", "the-app");
};

TEST_F(RecordingQueries, LocationAndRecordTypeAreSentEachByItself) {
    const struct {
        bool withLocation;
        int recordType;
        const char* location;
        const char* type;
    } rows[] = {
        {false, 0, "<none>", "<none>"}, {true, 0, "2", "<none>"}, {false, 5, "<none>", "5"}, {true, 5, "2", "5"},
        {true, -1, "2", "-1"},
    };
    for (const auto& row : rows) {
        RecordFileList list;
        EXPECT_EQ(
            GetDeviceFileBySerialFromPlatformEx(m_route, "C1", 1, {"a", "b"}, row.recordType, row.withLocation, list),
            100007);
        const SentRequest request = m_transport.Sent().back();
        EXPECT_EQ(request.Param("location"), row.location) << row.withLocation << row.recordType;
        EXPECT_EQ(request.Param("recordType"), row.type) << row.withLocation << row.recordType;
    }
}

TEST_F(RecordingQueries, FailedUploadLogsItsResponseToo) {
    const LocalFile picture(u8"picture.jpg");
    m_transport.Make([](const SentRequest&) { return ScriptedResponse{18, "the first part"}; });
    EXPECT_EQ(UploadCloudPicFile("https://u.example/put", picture.Path()), 100018);
    EXPECT_THAT(m_log.Lines(), HasLine(5, "ERROR", "UploadCloudPicFile", "[test] pOutBuffer = [the first part]"));
    m_log.Clear();
    EXPECT_EQ(UploadCloudPicFile("https://u.example/put", picture.Path()), 100007);
    EXPECT_THAT(m_log.Lines(), HasLine(5, "ERROR", "UploadCloudPicFile", "[test] pOutBuffer = []"));
    EXPECT_THAT(m_log.Lines(), HasLine(5, "ERROR", "UploadCloudPicFile", "SyncRequestHeader error:7"));
}

TEST_F(RecordingQueries, ResponseThatIsHandedOnKeepsItsEnds) {
    const std::string body = "\n {\"resultCode\":\"200\",\"meta\":{\"code\":200}} \r\n\n";
    m_transport.Always([&](const SentRequest&) { return ScriptedResponse{0, body}; });
    const TimeSpan span{"a", "b"};
    std::string text;
    const auto expectKept = [&](const char* request, int result) {
        EXPECT_EQ(result, 0) << request;
        EXPECT_EQ(text, body) << request;
        text.clear();
    };
    expectKept("alarms", GetAlarmListFromPlatform(m_route, "C1", 1, {0, 1, "a", "b", 0, 0}, text));
    expectKept("record", GetRecordByAlarmIdFromPlatform(m_route, "C1", 1, "id", text));
    expectKept("cloud files", GetCloudFileBySerialFromPlatform(m_route, "C1", 1, span, 1, text));
    expectKept("local files", GetLocalFileBySerialFromPlatform(m_route, "C1", 1, span, {"b", "p"}, text));
    expectKept("cloud details", GetCloudFileInfoBySerialEXFromPlatform(m_route, "{}", text));
    expectKept("stream tokens", GetStreamTokensFromPlatform(m_route, 1, text));
}

}  // namespace
}  // namespace vantix::test
