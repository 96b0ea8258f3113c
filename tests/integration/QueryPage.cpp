#include "QueryPage.h"

#include <algorithm>
#include <ostream>

#include "support/PlainTable.h"
#include "support/TestData.h"

namespace vantix::test {
namespace {

constexpr char kShared[] = "shared: ";
constexpr size_t kColumns = 7;

}  // namespace

bool QueryPageRow::Deviates(const std::string& how) const {
    return std::find(deviations.begin(), deviations.end(), how) != deviations.end();
}

std::string QueryPageRow::SharedRequest() const {
    for (const std::string& deviation : deviations) {
        if (deviation.rfind(kShared, 0) == 0) {
            return deviation.substr(sizeof(kShared) - 1);
        }
    }
    return request;
}

void PrintTo(const QueryPageRow& row, std::ostream* out) { *out << row.slot << ' ' << row.name; }

std::vector<QueryPageRow> ReadQueryPage() {
    std::vector<QueryPageRow> rows;
    for (const Cells& cells : ReadPlainTable(TestData("queries.txt"), '|')) {
        if (cells.size() == kColumns) {
            rows.push_back(
                {cells[0], cells[1], cells[2], cells[3], cells[4] == "yes", cells[5], SplitCells(cells[6], ',')});
        }
    }
    return rows;
}

}  // namespace vantix::test
