// Completion for bash, from the same tables as the command line.

#include "CommandLine.h"
#include "Report.h"
#include "commands/Commands.h"

namespace vantix::ctl {
namespace {

std::string Dashed(std::string_view name) { return "--" + std::string(name); }

std::string CommandNames() {
    std::string names;
    for (const Family& family : Families()) {
        for (const Command& command : family.commands) {
            names += (names.empty() ? "" : " ") + std::string(command.name);
        }
    }
    return names;
}

std::string CommonOptions() {
    std::string names;
    for (const GlobalOption& option : GlobalOptions()) {
        names += Dashed(option.name) + " ";
    }
    for (const Setting& setting : Settings()) {
        names += Dashed(setting.option) + " ";
    }
    return names;
}

/// Options whose values are not completed.
std::string OptionsWithValue() {
    std::string names;
    const auto add = [&](std::string_view name) { names += (names.empty() ? "" : "|") + Dashed(name); };
    for (const Setting& setting : Settings()) {
        if (setting.option != "mode") {
            add(setting.option);
        }
    }
    add("log-level");
    return names;
}

/// The branches of the script's case statement: the options of each command.
std::string OptionBranches() {
    std::string branches;
    for (const Family& family : Families()) {
        for (const Command& command : family.commands) {
            std::string options;
            for (const Argument& argument : command.arguments.All()) {
                options += (options.empty() ? "" : " ") + Dashed(argument.name);
            }
            if (!options.empty()) {
                branches += "        " + std::string(command.name) + ") own='" + options + "' ;;\n";
            }
        }
    }
    return branches;
}

std::string BashScript() {
    return "# Completion of vantixctl for bash; made by \"vantixctl completion bash\".\n"
           "_vantixctl() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    local commands='" +
           CommandNames() +
           "'\n"
           "    local word command='' own=''\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        if [[ $word == then ]]; then command=''; continue; fi\n"
           "        if [[ -z $command && \" $commands \" == *\" $word \"* ]]; then command=$word; fi\n"
           "    done\n"
           "    case $command in\n" +
           OptionBranches() +
           "    esac\n"
           "    COMPREPLY=()\n"
           "    case $previous in\n"
           "        --credentials|--log|--file) mapfile -t COMPREPLY < <(compgen -f -- \"$current\"); return ;;\n"
           "        --color) mapfile -t COMPREPLY < <(compgen -W 'auto always never' -- \"$current\"); return ;;\n"
           "        --mode) mapfile -t COMPREPLY < <(compgen -W '0 1 2' -- \"$current\"); return ;;\n"
           "        " +
           OptionsWithValue() +
           ") return ;;\n"
           "    esac\n"
           "    if [[ $current == -* ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$own " +
           CommonOptions() +
           "\" -- \"$current\")\n"
           "    elif [[ -z $command || $command == help ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$commands\" -- \"$current\")\n"
           "    elif [[ $command == completion ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W 'bash' -- \"$current\")\n"
           "    elif [[ -n $current && then == \"$current\"* ]]; then\n"
           "        COMPREPLY=(then)\n"
           "    fi\n"
           "}\n"
           "complete -F _vantixctl vantixctl\n";
}

}  // namespace

int RunCompletion(Context& /*context*/, const ArgumentValues& arguments) {
    if (arguments.Text("shell") != "bash") {
        throw UsageError("completion knows bash only, not \"" + arguments.Text("shell") + "\"");
    }
    Print(BashScript());
    return kSuccess;
}

}  // namespace vantix::ctl
