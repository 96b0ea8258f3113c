#pragma once

#include <string>
#include <vector>

namespace vantix::test {

using Cells = std::vector<std::string>;

/// The text without the blanks around it.
std::string Trimmed(const std::string& text);

/// The parts of a text, each without the blanks around it; at least one.
Cells SplitCells(const std::string& text, char separator);

/// The lines of a plain table as cells; empty lines, and those that begin with "#" or "[", are none. Empty when the
/// file cannot be read.
std::vector<Cells> ReadPlainTable(const std::string& path, char separator);

}  // namespace vantix::test
