#include "support/PlainTable.h"

#include <fstream>

namespace vantix::test {

std::string Trimmed(const std::string& text) {
    constexpr char kBlanks[] = " \r";
    const size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

Cells SplitCells(const std::string& text, char separator) {
    Cells cells;
    size_t begin = 0;
    for (size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, begin)) {
        cells.push_back(Trimmed(text.substr(begin, end - begin)));
        begin = end + 1;
    }
    cells.push_back(Trimmed(text.substr(begin)));
    return cells;
}

std::vector<Cells> ReadPlainTable(const std::string& path, char separator) {
    std::vector<Cells> rows;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (!Trimmed(line).empty() && line.front() != '#' && line.front() != '[') {
            rows.push_back(SplitCells(line, separator));
        }
    }
    return rows;
}

}  // namespace vantix::test
