#include "OperationTable.h"

#include <algorithm>
#include <ostream>

#include "support/PlainTable.h"
#include "support/TestData.h"

namespace vantix::test {
namespace {

constexpr size_t kColumns = 13;

OperationRow FromCells(const Cells& cells) {
    const size_t slash = cells[5].find(" / ");
    OperationRow row;
    row.slot = cells[0];
    row.name = cells[1];
    row.arguments = SplitCells(cells[3], ',');
    row.ownRequest = cells[5].substr(0, slash);
    row.sharedRequest = slash == std::string::npos ? cells[5] : cells[5].substr(slash + 3);
    row.cache = cells[6];
    std::copy(cells.begin() + 7, cells.begin() + 11, row.credentials);
    row.domain = cells[11];
    row.renewal = cells[12];
    return row;
}

}  // namespace

bool OperationRow::Takes(const std::string& argument) const {
    return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
}

void PrintTo(const OperationRow& row, std::ostream* out) { *out << row.slot << ' ' << row.name; }

std::vector<OperationRow> ReadOperations() {
    std::vector<OperationRow> rows;
    for (const Cells& cells : ReadPlainTable(TestData("../../docs/operations.tsv"), '\t')) {
        if (cells.size() == kColumns && cells[0] != "slot" && cells[5] != "-") {
            rows.push_back(FromCells(cells));
        }
    }
    return rows;
}

}  // namespace vantix::test
