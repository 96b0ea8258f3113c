// Help, for the tool and for each command, from the same rows that the command line is read with.

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

/// "  name      help", the help wrapped and indented.
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

/// "serial [channel]" in capitals: what may be given without names.
std::string Usage(const Command& command) {
    std::string usage = "vantixctl " + std::string(command.name);
    for (const Use& use : command.uses.All()) {
        const bool isFlag = FindParameter(use.name).kind == Kind::Flag;
        const std::string shown = isFlag ? OptionName(use.name, {}) : Capitals(use.name);
        usage += use.fallback ? " [" + shown + "]" : " " + shown;
    }
    return usage;
}

std::string ArgumentHelp(const Use& use) {
    const Parameter& parameter = FindParameter(use.name);
    const bool worthTelling = use.fallback && !use.fallback->empty() && parameter.kind != Kind::Flag;
    return std::string(parameter.help) +
           (worthTelling ? " (" + std::string(*use.fallback) + " when not given)" : std::string());
}

std::string SettingsHelp(const Context& context) {
    std::string text = Heading(context, "Whom to ask, and as whom");
    for (const Setting& setting : Settings()) {
        text += HelpLine(context, OptionName(setting.option, setting.placeholder), setting.help);
    }
    text +=
        "\n  Each also comes from the environment (VANTIXCTL_B_DOMAIN, VANTIXCTL_ACCESS_TOKEN, …) and from the\n"
        "  file of --credentials or VANTIXCTL_CREDENTIALS ({\"bDomain\": …, \"accessToken\": …}); an option wins\n"
        "  over the environment, and that over the file. Without a domain the tool starts a loopback cloud of\n"
        "  its own and asks that with its sample account.\n";
    return text;
}

}  // namespace

std::string HelpText(const Context& context) {
    std::string text = context.paint(Style::Strong, "vantixctl") +
                       ": asks the data center what the cloud knows about cameras and recorders\n\n"
                       "  vantixctl [OPTION…] COMMAND [ARGUMENT…] [then COMMAND [ARGUMENT…]]…\n";
    text += Heading(context, Families().front().title);
    for (const Command& command : Families().front().commands) {
        text += HelpLine(context, std::string(command.name), command.help);
    }
    text += Heading(context, "Operations");
    text +=
        "  Every operation of the interface is a command of its name: vantixctl getTicketInfo C10000001 1.\n"
        "  \"vantixctl operations\" lists them. Caches last as long as the tool runs: chain operations with\n"
        "  \"then\", as in vantixctl getDevDetailInfoSync C10000001 then IsSupportSeekPlayback C10000001.\n";
    text += Heading(context, "Options");
    for (const GlobalOption& option : GlobalOptions()) {
        text += HelpLine(context, OptionName(option.name, option.placeholder), option.help);
    }
    text += SettingsHelp(context);
    text += Heading(context, "Exit status");
    text += "  0 success, 1 the operation failed, 2 wrong usage. \"vantixctl explain CODE\" tells what a code means.\n";
    return text;
}

std::string HelpText(const Context& context, const Command& command) {
    std::string text = context.paint(Style::Strong, std::string(command.name)) + ": " + std::string(command.help);
    text += command.IsOperation() ? " (slot " + std::to_string(command.slot) + ")\n" : "\n";
    text += "\n  " + Usage(command) + "\n";
    if (!command.uses.All().empty()) {
        text += Heading(context, "Arguments, in this order or by name");
    }
    for (const Use& use : command.uses.All()) {
        text += HelpLine(context, OptionName(use.name, FindParameter(use.name).placeholder), ArgumentHelp(use));
    }
    if (!command.more.empty()) {
        text += "\n" + std::string(command.more) + "\n";
    }
    return text + "\n\"vantixctl --help\" lists the options that every command understands.\n";
}

int RunHelp(Context& context, const Arguments& arguments) {
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
