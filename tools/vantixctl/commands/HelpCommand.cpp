// Help, for the tool and for each command, from the same tables as the command line.

#include <algorithm>
#include <cctype>

#include "CommandLine.h"
#include "Help.h"
#include "Report.h"
#include "commands/Commands.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

constexpr int kNameColumn = 28;

/// "  name      help", with the help wrapped and indented.
std::string HelpLine(const Context& context, const std::string& name, std::string_view help) {
    const int indent = kNameColumn + 2;
    std::string text = "  " + context.paint(Style::Accent, name);
    const int used = 2 + DisplayWidth(name);
    bool first = used < indent - 1;
    text += first ? std::string(static_cast<size_t>(indent - used), ' ') : "\n";
    for (const std::string& line : Wrapped(help, context.width - indent)) {
        text += (first ? "" : std::string(static_cast<size_t>(indent), ' ')) + line + "\n";
        first = false;
    }
    return text;
}

std::string Heading(const Context& context, std::string_view title) {
    return "\n" + context.paint(Style::Strong, title) + "\n";
}

std::string OptionName(std::string_view name, std::string_view placeholder) {
    return "--" + std::string(name) + (placeholder.empty() ? "" : " " + std::string(placeholder));
}

std::string Capitals(std::string_view name) {
    std::string text(name);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

/// "vantixctl NAME SERIAL [CHANNEL]": the arguments that may be given without their names.
std::string Usage(const Command& command) {
    std::string usage = "vantixctl " + std::string(command.name);
    for (const Argument& argument : command.arguments.All()) {
        const bool isFlag = FindParameter(argument.name).kind == Kind::Flag;
        const std::string shown = isFlag ? OptionName(argument.name, {}) : Capitals(argument.name);
        usage += argument.fallback ? " [" + shown + "]" : " " + shown;
    }
    return usage;
}

std::string ArgumentHelp(const Argument& argument) {
    const Parameter& parameter = FindParameter(argument.name);
    const bool isShown = argument.fallback && !argument.fallback->empty() && parameter.kind != Kind::Flag;
    return std::string(parameter.help) +
           (isShown ? " (default " + std::string(*argument.fallback) + ")" : std::string());
}

std::string SettingsHelp(const Context& context) {
    std::string text = Heading(context, "Servers and credentials");
    for (const Setting& setting : Settings()) {
        text += HelpLine(context, OptionName(setting.option, setting.placeholder), setting.help);
    }
    text +=
        "\n  Each can also be set in the environment (VANTIXCTL_B_DOMAIN, VANTIXCTL_ACCESS_TOKEN, …) and in the file\n"
        "  of --credentials or VANTIXCTL_CREDENTIALS ({\"bDomain\": …, \"accessToken\": …}). An option overrides the\n"
        "  environment, the environment overrides the file. Without a domain the tool starts its own loopback\n"
        "  cloud and uses its sample account.\n";
    return text;
}

}  // namespace

std::string HelpText(const Context& context) {
    std::string text = context.paint(Style::Strong, "vantixctl") +
                       ": a host of the data center for the command line\n\n"
                       "  vantixctl [OPTION…] COMMAND [ARGUMENT…] [then COMMAND [ARGUMENT…]]…\n";
    text += Heading(context, Families().front().title);
    for (const Command& command : Families().front().commands) {
        text += HelpLine(context, std::string(command.name), command.help);
    }
    text += Heading(context, "Operations");
    text +=
        "  Every operation of the interface is a command with the same name: vantixctl getTicketInfo C10000001 1.\n"
        "  \"vantixctl operations\" lists them. Caches last as long as the tool runs: chain operations with\n"
        "  \"then\", as in vantixctl getDevDetailInfoSync C10000001 then IsSupportSeekPlayback C10000001.\n";
    text += Heading(context, "Options");
    for (const GlobalOption& option : GlobalOptions()) {
        text += HelpLine(context, OptionName(option.name, option.placeholder), option.help);
    }
    text += SettingsHelp(context);
    text += Heading(context, "Exit status");
    text += "  0 success, 1 the operation failed, 2 wrong usage. \"vantixctl explain CODE\" explains a code.\n";
    return text;
}

std::string HelpText(const Context& context, const Command& command) {
    std::string text = context.paint(Style::Strong, std::string(command.name)) + ": " + std::string(command.help);
    text += command.IsOperation() ? " (slot " + std::to_string(command.slot) + ")\n" : "\n";
    text += "\n  " + Usage(command) + "\n";
    if (!command.arguments.All().empty()) {
        text += Heading(context, "Arguments, in this order or by name");
    }
    for (const Argument& argument : command.arguments.All()) {
        text += HelpLine(context, OptionName(argument.name, FindParameter(argument.name).placeholder),
                         ArgumentHelp(argument));
    }
    if (!command.more.empty()) {
        text += "\n" + std::string(command.more) + "\n";
    }
    return text + "\n\"vantixctl --help\" lists the options that every command accepts.\n";
}

int RunHelp(Context& context, const ArgumentValues& arguments) {
    const std::string& name = arguments.Text("command");
    if (name.empty()) {
        Print(HelpText(context));
        return kSuccess;
    }
    const Command* command = FindCommand(name);
    if (command == nullptr) {
        throw UsageError("there is no command \"" + name + "\"");
    }
    Print(HelpText(context, *command));
    return kSuccess;
}

}  // namespace vantix::ctl
