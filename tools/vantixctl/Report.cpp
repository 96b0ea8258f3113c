#include "Report.h"

#include <chrono>
#include <cstdio>

#include "DetailCard.h"
#include "Explain.h"
#include "commands/Commands.h"
#include "session/StandardError.h"
#include "text/Table.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

/// One value of a table: text as it is, yes and no, lists and objects compactly.
Cell ScalarCell(const Json& value, bool isSecret) {
    if (value.is_string()) {
        const auto& text = value.get_ref<const std::string&>();
        return text.empty() ? Cell("–", Style::Faint) : Cell(isSecret ? Masked(text) : text);
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? Cell("yes", Style::Good) : Cell("no", Style::Faint);
    }
    if (value.is_null()) {
        return {"–", Style::Faint};
    }
    return {Dumped(value, -1)};
}

bool IsListOfObjects(const Json& value) {
    return value.is_array() && !value.empty() &&
           std::all_of(value.begin(), value.end(), [](const Json& item) { return item.is_object(); });
}

/// The names of the members that the objects of a list have, in the order in which they turn up.
std::vector<std::string> Keys(const Json& list) {
    std::vector<std::string> keys;
    for (const Json& item : list) {
        for (const auto& [key, value] : item.items()) {
            if (std::find(keys.begin(), keys.end(), key) == keys.end()) {
                keys.push_back(key);
            }
        }
    }
    return keys;
}

std::string ListTable(const Context& context, const Json& list, std::string_view secret) {
    const std::vector<std::string> keys = Keys(list);
    std::vector<Column> columns;
    columns.reserve(keys.size());
    for (const std::string& key : keys) {
        const bool isNumber = list.front().contains(key) && list.front()[key].is_number();
        columns.push_back({key, isNumber ? Align::Right : Align::Left, !isNumber});
    }
    Table table(columns);
    for (const Json& item : list) {
        std::vector<Cell> cells;
        cells.reserve(keys.size());
        for (const std::string& key : keys) {
            cells.push_back(ScalarCell(item.contains(key) ? item[key] : Json(nullptr), key == secret));
        }
        table.Add(std::move(cells));
    }
    return table.Drawn(context.paint, context.width);
}

std::string ObjectTable(const Context& context, const Json& object, std::string_view secret) {
    Table table({{"", Align::Left, false}, {"", Align::Left, true}});
    std::string below;
    for (const auto& [key, value] : object.items()) {
        if (value.is_object() || IsListOfObjects(value)) {
            below += context.paint(Style::Strong, key) + "\n" + Readable(context, value, secret);
        } else {
            table.Add({Cell(key, Style::Accent), ScalarCell(value, key == secret)});
        }
    }
    return (table.Empty() ? "" : table.Drawn(context.paint, context.width)) + below;
}

/// An operation's success for people.
std::string Shown(const Context& context, const Command& command, const Outcome& outcome) {
    if (outcome.value.is_null()) {
        return context.paint(Style::Good, "done") + "\n";
    }
    return outcome.isDetail ? DetailCard(context, outcome.value)
                            : Readable(context, outcome.value, context.showSecrets ? "" : command.secret);
}

}  // namespace

void Print(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

std::string Readable(const Context& context, const Json& value, std::string_view secret) {
    if (value.is_object() && !value.empty()) {
        return ObjectTable(context, value, secret);
    }
    if (IsListOfObjects(value)) {
        return ListTable(context, value, secret);
    }
    if (value.is_string()) {
        return Printable(value.get<std::string>()) + "\n";
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? "yes\n" : "no\n";
    }
    return Dumped(value, -1) + "\n";
}

Json Document(const Command& command, const Outcome& outcome, int64_t milliseconds) {
    Json document = {{"operation", command.name}};
    if (command.IsOperation()) {
        document["slot"] = command.slot;
    }
    document["code"] = outcome.code;
    document["meaning"] = Explain(outcome.code).meaning;
    document["milliseconds"] = milliseconds;
    document["result"] = outcome.value;
    return document;
}

void ComplainAbout(std::string_view operation, int32_t code) {
    const Explanation explanation = Explain(code);
    Complain(std::string(operation) + ": " + std::to_string(code) + ": " + explanation.meaning);
    if (!explanation.advice.empty()) {
        for (const std::string& line : Wrapped(explanation.advice, 86)) {
            std::fputs(("           " + line + "\n").c_str(), StandardError::Stream());
        }
    }
}

int RunOperation(const Context& context, const Session& session, const Command& command, const Arguments& arguments,
                 Json& document) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const Outcome outcome = command.operation({session.Center(), arguments});
    const auto cost = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    document = Document(command, outcome, cost);
    if (!context.json && outcome.code != VANTIX_NOERROR) {
        ComplainAbout(command.name, outcome.code);
    } else if (!context.json) {
        Print(Shown(context, command, outcome));
    }
    return outcome.code == VANTIX_NOERROR ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
