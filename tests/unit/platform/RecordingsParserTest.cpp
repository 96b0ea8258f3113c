// The lists of recordings: on devices, in the cloud, and the address of an upload, which arrives in the same way.

#include "platform/Recordings.h"

#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

constexpr char kInvalidRecordings[] = "platform response invalid, szInfo = $body";

RecordFileList RecordingsBefore() {
    RecordFileList list;
    list.files.push_back({.startTime = "before", .endTime = "", .fileId = ""});
    list.strDeviceRecordList = "\"before\"";
    return list;
}

const Json kFiles = {{{"startTime", "2024-01-02 01:00:00"},
                      {"endTime", "2024-01-02 01:10:00"},
                      {"type", 2},
                      {"size", 5'000'000'000},
                      {"fileId", "f-1"}},
                     {{"startTime", "2024-01-02 02:00:00"},
                      {"endTime", "2024-01-02 02:10:00"},
                      {"type", 1},
                      {"size", 7},
                      {"fileId", "f-2"}}};

ParserCase Files(const std::string& name, int (*parser)(TextView, RecordFileList&), const std::string& data) {
    ParserCase row = CaseOf(name, parser, RecordingsBefore());
    row.payload[Json::json_pointer(data)] = kFiles;
    row.after = {{"files", kFiles}, {"data", kFiles}};
    row.copied = data;
    const Json empty = {{"startTime", ""}, {"endTime", ""}, {"type", 0}, {"size", 0}, {"fileId", ""}};
    row.defaults = {{"files", {empty, empty}}, {"data", Json()}};
    for (const std::string at : {"/0/", "/1/"}) {
        const auto members = MembersOf(data + at, "/files" + at,
                                       {{"startTime", TextValues},
                                        {"endTime", TextValues},
                                        {"type", IntOrTextValues},
                                        {"size", NumberValues},
                                        {"fileId", TextValues}});
        row.members.insert(row.members.end(), members.begin(), members.end());
    }
    row.members.push_back({.place = data + "/0", .values = NoObjects, .fields = {"/files"}});
    row.members.back().otherwise = Json::array({kFiles[1]});
    return row;
}

/// "data" may be of any kind but null: an upload address is an object.
ParserCase LocalOrCloud() {
    ParserCase row = Files("ParseLocalDeviceRecordFile", ParseLocalDeviceRecordFile, "/data");
    row.envelope = EnvelopeRuleKind::Meta;
    row.lastLine = "strDeviceRecordList iResult:$code, Resp:$body";
    return row;
}

ParserCase OnADevice() {
    ParserCase row = Files("ParseDeviceRecordFile", ParseDeviceRecordFile, "/result/data");
    row.members.push_back(
        {.place = "/result/data", .values = NoArrays, .isRequired = true, .line = kInvalidRecordings});
    row.members.push_back({.place = "/result",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "Platform Response Error:$code, Resp:$body",
                           .word = "INFO "});
    return row;
}

INSTANTIATE_TEST_SUITE_P(Recordings, PlatformParser, ::testing::Values(LocalOrCloud(), OnADevice()),
                         [](const auto& row) { return row.param.name; });

class RecordingsResponse : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
    RecordFileList list = RecordingsBefore();
};

TEST_F(RecordingsResponse, DataThatIsNoListIsKeptAsText) {
    for (const char* data : {R"({"expireDays":7,"url":"https://upload.example/1"})", "{}", "\"text\"", "5", "true",
                             "false", "[]", "[1]"}) {
        list = RecordingsBefore();
        const std::string body = std::string(R"({"meta":{"code":200},"data":)").append(data) + "}";
        EXPECT_EQ(ParseLocalDeviceRecordFile(body, list), 0);
        EXPECT_TRUE(list.files.empty());
        EXPECT_EQ(list.strDeviceRecordList, data);
        EXPECT_EQ(m_log.Count("strDeviceRecordList iResult:0, Resp:" + body), 1U);
    }
}

TEST_F(RecordingsResponse, DataThatIsMissingOrNullIsMalformed) {
    for (const std::string body : {R"({"meta":{}})", R"({"meta":{"code":200},"data":null})"}) {
        m_log.Clear();
        EXPECT_EQ(ParseLocalDeviceRecordFile(body, list), 2);
        EXPECT_EQ(ToJson(list), ToJson(RecordingsBefore()));
        const std::vector<std::string> expected = {"platform response invalid, szInfo = " + body,
                                                   "strDeviceRecordList iResult:2, Resp:" + body};
        EXPECT_EQ(m_log.Messages(), expected);
    }
}

TEST_F(RecordingsResponse, EmptyListReplacesWhatWasThere) {
    EXPECT_EQ(ParseDeviceRecordFile(R"({"result":{"code":"200","data":[]}})", list), 0);
    EXPECT_TRUE(list.files.empty());
    EXPECT_EQ(list.strDeviceRecordList, "[]");
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(RecordingsResponse, TextOfAnEarlierListIsReadAgain) {
    EXPECT_EQ(ReadRecordFiles(Json{{"data", kFiles}}.dump(), list), 0);
    EXPECT_EQ(ToJson(list), (Json{{"files", kFiles}, {"data", kFiles}}));
    for (const char* text : {"", "x", "{", "[]", "{}", R"({"data":null})", R"({"data":{}})", R"({"data":"[]"})"}) {
        list = RecordingsBefore();
        EXPECT_EQ(ReadRecordFiles(text, list), 2) << text;
        EXPECT_EQ(ToJson(list), ToJson(RecordingsBefore())) << text;
    }
}

}  // namespace
}  // namespace vantix::test
