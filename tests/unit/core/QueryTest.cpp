// The rows of the one-shot queries against a page that was written by hand, and the road that they share.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "base/LastError.h"
#include "core/QueryTable.h"
#include "support/PlainTable.h"
#include "support/TestData.h"
#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

/// One query as both sides can be brought to: slot, name, Tk kind, refresh, domain, repeat, form for shared devices.
Cells FromPage(const Cells& columns) {
    const Cells deviations = SplitCells(columns[6], ',');
    const bool isTransient = std::find(deviations.begin(), deviations.end(), "transient") != deviations.end();
    const bool isShared = columns[6].find("shared: ") != std::string::npos;
    return {columns[0],
            columns[1],
            columns[3],
            columns[4],
            columns[5],
            isTransient ? "repeats" : "-",
            isShared ? "shared" : "-"};
}

bool HasOwnRoad(const Cells& columns) { return columns[6].find("own road") != std::string::npos; }

/// The rows of the page, without those that are no rows of the code.
std::vector<Cells> ReadPage() {
    std::vector<Cells> queries;
    for (const Cells& columns : ReadPlainTable(TestData("queries.txt"), '|')) {
        if (columns.size() != 7) {
            ADD_FAILURE() << "not seven columns: " << columns.front();
        } else if (!HasOwnRoad(columns)) {
            queries.push_back(FromPage(columns));
        }
    }
    return queries;
}

const char* WordsOf(DomainRule rule) {
    switch (rule) {
        case DomainRule::Device: return "channel";
        case DomainRule::DeviceInPlace: return "channel in place";
        case DomainRule::Token: return "token";
        case DomainRule::TokenInPlace: return "token in place";
    }
    return "?";
}

std::vector<Cells> ReadCode() {
    std::vector<Cells> queries;
    for (const QueryRow* row : queries::kAll) {
        queries.push_back({std::to_string(row->slot), row->name,
                           row->tkType == tk::kNone ? "-" : std::to_string(row->tkType),
                           row->isRefreshed ? "yes" : "no", WordsOf(row->domain),
                           row->repeatsTransient ? "repeats" : "-", row->hasConsumerForm ? "shared" : "-"});
    }
    return queries;
}

TEST(QueryDrift, CodeAndPageHaveTheSameQueriesInTheSameOrder) {
    EXPECT_EQ(ReadPage().size(), 27U);
    EXPECT_EQ(ReadCode(), ReadPage());
}

class Query : public CoreTest {
protected:
    Query() { Configure(); }

    void ExpectEmptyCredential(int result, const std::string& tag) {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(transport.Count(), 0U);
        ExpectLine("get strToken error", "ERROR", 5, tag);
        EXPECT_EQ(lines.Lines().size(), 1U) << "nothing else is told, least of all a domain";
        SetThreadLastError(0);
        lines.Clear();
    }
};

TEST_F(Query, AccountListsOfTheSmallPermissionModeNeedTheGlobalToken) {
    core.setPermissionMode(1);
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"d","deviceVideoTkToken":"v","deviceSerial":"","channelNo":"1"}])");
    SetThreadLastError(0);
    lines.Clear();
    DeviceList list;
    ExpectEmptyCredential(core.getDevList(0, 10, list, false), "CVantixDataCenter::getDevList");
    ExpectEmptyCredential(core.getDeviceList(0, 10, "GB", list, false), "CVantixDataCenter::getDeviceList");
    ExpectEmptyCredential(core.getShareDevList(0, 10, list, false), "CVantixDataCenter::getShareDevList");
}

}  // namespace
}  // namespace vantix::test
