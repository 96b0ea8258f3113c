// Memory that runs out at any place of any parser: it throws, or the record is whole.

#include <optional>

#include "platform/DeviceDetailParser.h"
#include "support/DetailResponse.h"
#include "support/NoMemoryParser.h"
#include "support/OutputJson.h"
#include "tvllog/tvllog.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

TEST_P(PlatformParser, IsWholeOrThrowsWhicheverAllocationFails) {
    TVLLOG_SetCallback(nullptr);  // a capture of lines would allocate inside the parser
    const std::string body = Row().Response().dump();
    EXPECT_GT(ExpectWholeOrThrown(Row().after, [&](Json& record) { return Row().parse(body, record); }), 0U);
}

using DetailParser = int (*)(TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                             std::optional<BelongDevInfo>& parent);

/// The records and the parent's serial, as JSON.
int ParseDetail(DetailParser parser, const std::string& body, Json& record) {
    std::optional<FailingNew::Suspended> ownWork(std::in_place);
    Outputs outputs;
    outputs.files.strDeviceRecordList = "null";  // as JSON it can be compared
    std::optional<BelongDevInfo> parent;
    ownWork.reset();
    const int code = parser(body, outputs.channel, outputs.detail, parent);
    ownWork.emplace();
    record = ToJson(outputs);
    record["parent"] = parent ? parent->deviceSerial + " " + parent->deviceIP : "";
    return code;
}

TEST(NoMemoryDetails, AreWholeOrThrownWhicheverAllocationFails) {
    const CleanSwitches clean;
    TVLLOG_SetCallback(nullptr);
    const std::string body = MarkedDetailResponse("C1", 1, "a mark that is no short string").dump();
    for (const DetailParser parser : {ParseDevDetailInfoFromPlatform, ParseDeviceDetailInfoFromPlatform}) {
        Json whole;
        ASSERT_EQ(ParseDetail(parser, body, whole), 0);
        EXPECT_NE(whole.dump().find("a mark that is no short string"), std::string::npos);
        EXPECT_NE(whole["parent"], "");
        EXPECT_GT(ExpectWholeOrThrown(whole, [&](Json& record) { return ParseDetail(parser, body, record); }), 0U);
    }
}

}  // namespace
}  // namespace vantix::test
