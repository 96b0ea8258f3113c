// Memory that runs out at any place of any parser: it throws, or the record is whole.

#include <new>
#include <set>

#include "platform/DeviceDetailParser.h"
#include "support/DetailResponse.h"
#include "support/OutputJson.h"
#include "tvllog/tvllog.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

/// Calls `parse` with every allocation failing. It returns a code, writes into `record` when it does, and throws when
/// there is no memory. Every success must be `whole`, and so must the next call.
template <class Parse>
void ExpectWholeOrThrown(const Json& whole, Parse parse) {
    std::set<size_t> wrongCodes;  // by number of the allocation that failed
    std::set<size_t> holes;
    std::set<size_t> sticky;
    size_t thrown = 0;
    int code = 0;
    bool isThrown = false;
    Json record;
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            isThrown = false;
            try {
                code = parse(record);
            } catch (const std::bad_alloc&) {
                isThrown = true;
            }
        },
        [&](size_t n) {
            thrown += isThrown ? 1U : 0U;
            if (!isThrown && code != 0) {
                wrongCodes.insert(n);
            }
            if (!isThrown && record != whole) {
                holes.insert(n);
            }
            if (parse(record) != 0 || record != whole) {
                sticky.insert(n);
            }
        });
    EXPECT_EQ(wrongCodes, std::set<size_t>()) << "memory is no property of the response";
    EXPECT_EQ(holes, std::set<size_t>()) << "of " << allocations;
    EXPECT_EQ(sticky, std::set<size_t>());
    EXPECT_GT(thrown, 0U);
}

TEST_P(PlatformParser, IsWholeOrThrowsWhicheverAllocationFails) {
    TVLLOG_SetCallback(nullptr);  // a capture of lines would allocate inside the parser
    const std::string body = Row().Response().dump();
    ExpectWholeOrThrown(Row().after, [&](Json& record) { return Row().parse(body, record); });
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
        ExpectWholeOrThrown(whole, [&](Json& record) { return ParseDetail(parser, body, record); });
    }
}

}  // namespace
}  // namespace vantix::test
