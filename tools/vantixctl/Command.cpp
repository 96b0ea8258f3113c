#include "Command.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <numeric>

#include "commands/Commands.h"
#include "operations/Operations.h"
#include "session/Configuration.h"

namespace vantix::ctl {
namespace {

/// How many letters have to be changed, added or left out to get from one text to the other; case does not count.
size_t Distance(std::string_view from, std::string_view to) {
    std::vector<size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t line = 1; line <= from.size(); ++line) {
        size_t diagonal = row[0];
        row[0] = line;
        for (size_t column = 1; column <= to.size(); ++column) {
            const bool same = std::tolower(static_cast<unsigned char>(from[line - 1])) ==
                              std::tolower(static_cast<unsigned char>(to[column - 1]));
            const size_t changed = diagonal + (same ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({changed, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

int ArgumentValues::Number(std::string_view name) const { return ToNumber(Text(name), "--" + std::string(name)); }

std::span<const Family> Families() {
    static const std::array families = {
        Family{"Commands", ToolCommands()},
        Family{"Device detail and its caches", DetailOperations()},
        Family{"Tickets, servers and P2P", ServerOperations()},
        Family{"Lists, alarms and account", ListOperations()},
        Family{"Stream tokens and credentials", TokenOperations()},
        Family{"Recordings and pictures", RecordingOperations()},
        Family{"Settings", SettingOperations()},
    };
    return families;
}

const Command* FindCommand(std::string_view name) {
    for (const Family& family : Families()) {
        for (const Command& command : family.commands) {
            if (command.name == name) {
                return &command;
            }
        }
    }
    return nullptr;
}

std::string_view NearestCommand(std::string_view name) {
    std::string_view nearest;
    size_t best = std::numeric_limits<size_t>::max();
    for (const Family& family : Families()) {
        for (const Command& command : family.commands) {
            const size_t distance = Distance(name, command.name);
            if (distance < best) {
                best = distance;
                nearest = command.name;
            }
        }
    }
    return best <= std::max<size_t>(1, name.size() / 3) ? nearest : std::string_view();
}

}  // namespace vantix::ctl
