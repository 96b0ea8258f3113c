// Times in addresses: their first blank is escaped and no other, and the transport refuses an address with a blank.

#include <gmock/gmock.h>

#include "OperationFixture.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

using ::testing::_;
using ::testing::HasSubstr;

class TimeWireTest : public OperationFixture {};

const Arguments kTwoBlanks = {
    .serial = kRecorder, .span = {"2024-01-02 00:00 00", "2024-01-02 23:59 59"}, .recordType = 0};

TEST_F(TimeWireTest, SecondBlankStopsTheRequest) {
    for (const char* operation : {"getDeviceFileBySerialEx", "GetCloudRecordFile"}) {
        const LogCapture log;
        EXPECT_EQ(Call(Center(), operation, kTwoBlanks), 100003);
        EXPECT_THAT(log.Lines(),
                    HasLine(3, "INFO ", "SyncRequestHeader", HasSubstr("&startTime=2024-01-02%2000:00 00")));
        EXPECT_THAT(log.Lines(),
                    HasLine(3, "INFO ", "SyncRequestHeader", HasSubstr("&endTime=2024-01-02%2023:59 59&")));
        EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", _, "SyncRequestHeader error:3"));
    }
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

TEST_F(TimeWireTest, SecondBlankStopsARequestOfTheConsumerServersToo) {
    SetPermissionMode(2);
    Arguments arguments = kTwoBlanks;
    arguments.serial = kShared;
    arguments.span.endTime = "";
    const LogCapture log;
    EXPECT_EQ(Call(Center(), "getDeviceFileBySerial", arguments), 100003);
    EXPECT_THAT(log.Lines(),
                HasLine(3, "INFO ", "SyncRequestHeader", HasSubstr("&startTime=2024-01-02%2000:00 00&stopTime=")));
    EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", "GetDeviceFileBySerialFromCServer",
                                     "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:3"));
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

TEST_F(TimeWireTest, BlankAtTheEndAndNothingAtAllAreTimesToo) {
    const Arguments arguments = {.serial = kRecorder, .span = {"2024-01-02 ", ""}, .recordType = 0};
    EXPECT_EQ(Call(Center(), "getDeviceFileBySerialEx", arguments), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].Parameter("startTime"), "2024-01-02%20");
    EXPECT_EQ(requests[0].Parameter("endTime"), "");
}

}  // namespace
}  // namespace vantix::test
