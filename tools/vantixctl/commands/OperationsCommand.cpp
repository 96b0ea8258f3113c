#include "Report.h"
#include "commands/Commands.h"
#include "text/Table.h"

namespace vantix::ctl {
namespace {

Json AsJson(const Command& command, std::string_view family) {
    Json arguments = Json::array();
    for (const Argument& argument : command.arguments.All()) {
        Json entry = {
            {"name", argument.name}, {"required", !argument.fallback}, {"help", FindParameter(argument.name).help}};
        if (argument.fallback) {
            entry["default"] = *argument.fallback;
        }
        arguments.push_back(std::move(entry));
    }
    return {{"slot", command.slot},
            {"name", command.name},
            {"family", family},
            {"arguments", std::move(arguments)},
            {"help", command.help}};
}

}  // namespace

int RunOperations(Context& context, const ArgumentValues& /*arguments*/) {
    Json list = Json::array();
    Table table({{"slot", Align::Right}, {"operation"}, {"", Align::Left, true}});
    for (const Family& family : Families().subspan(1)) {
        if (!table.Empty()) {
            table.AddRule();
        }
        table.Add({"", Cell(std::string(family.title), Style::Strong)});
        for (const Command& command : family.commands) {
            list.push_back(AsJson(command, family.title));
            table.Add({std::to_string(command.slot), Cell(std::string(command.name), Style::Accent),
                       Cell(std::string(command.help))});
        }
    }
    Print(context.json ? Dumped(list) + "\n"
                       : table.Drawn(context.paint, context.width) +
                             "  \"vantixctl help NAME\" explains the arguments of an operation.\n");
    return kSuccess;
}

}  // namespace vantix::ctl
