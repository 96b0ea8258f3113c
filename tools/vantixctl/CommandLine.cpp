#include "CommandLine.h"

#include <algorithm>
#include <cstdlib>

namespace vantix::ctl {
namespace {

constexpr std::string_view kSeparator = "then";
constexpr const char* kCredentialsVariable = "VANTIXCTL_CREDENTIALS";

void ReadColour(CommandLine& line, const std::string& value) {
    if (value != "auto" && value != "always" && value != "never") {
        throw UsageError("--color takes auto, always or never, not \"" + value + "\"");
    }
    line.colour = value == "auto" ? ColourChoice::Auto : ColourChoice::Always;
    line.colour = value == "never" ? ColourChoice::Never : line.colour;
}

constexpr std::array kGlobalOptions = {
    GlobalOption{"json", "", "print JSON instead of tables",
                 [](CommandLine& line, const std::string&) { line.json = true; }},
    GlobalOption{"show-secrets", "", "do not mask keys and passwords in tables",
                 [](CommandLine& line, const std::string&) { line.showSecrets = true; }},
    GlobalOption{"credentials", "FILE", "a JSON file with the settings that no option and no variable gives",
                 [](CommandLine& line, const std::string& value) { line.credentials = value; }},
    GlobalOption{"log", "FILE", "append the library's log lines to a file; - writes them to standard error",
                 [](CommandLine& line, const std::string& value) { line.session.log.target = value; }},
    GlobalOption{
        "log-level", "N", "drop log lines below this level, 1 to 5 (default 3)",
        [](CommandLine& line, const std::string& value) { line.session.log.level = ToNumber(value, "--log-level"); }},
    GlobalOption{"utf8", "", "keep texts in UTF-8 (the default)",
                 [](CommandLine& line, const std::string&) { line.session.utf8 = true; }},
    GlobalOption{"ansi", "", "convert texts to the system's code page",
                 [](CommandLine& line, const std::string&) { line.session.utf8 = false; }},
    GlobalOption{"color", "WHEN", "auto, always or never", &ReadColour},
    GlobalOption{"help", "", "explain the tool, or the command before it",
                 [](CommandLine& line, const std::string&) {
                     (line.invocations.empty() ? line.help : line.invocations.back().help) = true;
                 }},
    GlobalOption{"version", "", "print the version",
                 [](CommandLine& line, const std::string&) { line.version = true; }},
};

bool IsNegativeNumber(const std::string& word) {
    return word.size() > 1 && word[0] == '-' && word[1] >= '0' && word[1] <= '9';
}

/// Parses the words of the command line one by one.
class Parser {
public:
    explicit Parser(const std::vector<std::string>& words) : m_words(words) {}

    CommandLine Parse() {
        while (m_at < m_words.size()) {
            TakeWord(m_words[m_at++]);
        }
        FinishCommand();
        return std::move(m_line);
    }

private:
    void TakeWord(const std::string& word) {
        if (word == "-h") {
            TakeOption("help", std::nullopt);
        } else if (word.size() > 2 && word.starts_with("--")) {
            const size_t equals = word.find('=');
            const bool hasValue = equals != std::string::npos;
            TakeOption(word.substr(2, hasValue ? equals - 2 : std::string::npos),
                       hasValue ? std::optional(word.substr(equals + 1)) : std::nullopt);
        } else if (word.size() > 1 && word[0] == '-' && !IsNegativeNumber(word)) {
            throw UsageError("unknown option " + word);
        } else if (word == kSeparator && !m_line.invocations.empty()) {
            FinishCommand();
            m_expectsCommand = true;
        } else if (m_expectsCommand) {
            TakeCommand(word);
        } else {
            TakePositional(word);
        }
    }

    void TakeCommand(const std::string& word) {
        const Command* command = FindCommand(word);
        if (command == nullptr) {
            const std::string_view nearest = NearestCommand(word);
            const std::string hint = nearest.empty() ? "" : "; did you mean " + std::string(nearest) + "?";
            throw UsageError("there is no command \"" + word + "\"" + hint);
        }
        m_line.invocations.push_back({command, {}});
        m_expectsCommand = false;
    }

    void TakePositional(const std::string& word) {
        Invocation& invocation = m_line.invocations.back();
        for (const Argument& argument : invocation.command->arguments.All()) {
            if (!invocation.values.Has(argument.name) && FindParameter(argument.name).kind != Kind::Flag) {
                SetArgument(invocation, argument.name, word);
                return;
            }
        }
        throw UsageError(std::string(invocation.command->name) + " takes no further argument, but got \"" + word +
                         "\"");
    }

    void SetArgument(Invocation& invocation, std::string_view name, const std::string& value) {
        if (FindParameter(name).kind == Kind::Number) {
            ToNumber(value, "--" + std::string(name));
        }
        invocation.values.Set(name, value);
    }

    std::string ValueOf(const std::string& name, const std::optional<std::string>& inlineValue) {
        if (inlineValue) {
            return *inlineValue;
        }
        if (m_at == m_words.size()) {
            throw UsageError("--" + name + " needs a value");
        }
        return m_words[m_at++];
    }

    void RefuseValue(const std::string& name, const std::optional<std::string>& inlineValue) {
        if (inlineValue) {
            throw UsageError("--" + name + " takes no value");
        }
    }

    void TakeOption(const std::string& name, const std::optional<std::string>& value) {
        if (!TakeArgument(name, value) && !TakeGlobal(name, value)) {
            const Setting* setting = FindSetting(name);
            if (setting == nullptr) {
                throw UsageError("unknown option --" + name);
            }
            m_line.session.configuration.Set(*setting, ValueOf(name, value));
        }
    }

    bool TakeArgument(const std::string& name, const std::optional<std::string>& value) {
        if (m_line.invocations.empty() || m_expectsCommand) {
            return false;
        }
        Invocation& invocation = m_line.invocations.back();
        const auto arguments = invocation.command->arguments.All();
        const auto argument =
            std::find_if(arguments.begin(), arguments.end(), [&](const Argument& one) { return one.name == name; });
        if (argument == arguments.end()) {
            return false;
        }
        if (FindParameter(argument->name).kind == Kind::Flag) {
            RefuseValue(name, value);
            invocation.values.Set(argument->name, "1");
        } else {
            SetArgument(invocation, argument->name, ValueOf(name, value));
        }
        return true;
    }

    bool TakeGlobal(const std::string& name, const std::optional<std::string>& value) {
        const auto* option = std::find_if(kGlobalOptions.begin(), kGlobalOptions.end(),
                                          [&](const GlobalOption& one) { return one.name == name; });
        if (option == kGlobalOptions.end()) {
            return false;
        }
        if (option->placeholder.empty()) {
            RefuseValue(name, value);
            option->take(m_line, {});
        } else {
            option->take(m_line, ValueOf(name, value));
        }
        return true;
    }

    /// Sets the fallbacks of arguments that were not given. Throws UsageError when one has none.
    void FinishCommand() {
        if (m_line.invocations.empty()) {
            return;
        }
        if (m_expectsCommand) {
            throw UsageError("a command is missing after \"then\"");
        }
        Invocation& invocation = m_line.invocations.back();
        for (const Argument& argument : invocation.command->arguments.All()) {
            if (invocation.values.Has(argument.name) || invocation.help) {
                continue;
            }
            if (!argument.fallback) {
                throw UsageError(std::string(invocation.command->name) + " needs --" + std::string(argument.name));
            }
            invocation.values.Set(argument.name, std::string(*argument.fallback));
        }
    }

    const std::vector<std::string>& m_words;
    size_t m_at = 0;
    bool m_expectsCommand = true;
    CommandLine m_line;
};

}  // namespace

std::span<const GlobalOption> GlobalOptions() { return kGlobalOptions; }

CommandLine ReadCommandLine(const std::vector<std::string>& words) {
    CommandLine line = Parser(words).Parse();
    Configuration& configuration = line.session.configuration;
    configuration.TakeEnvironment();
    const char* variable = std::getenv(kCredentialsVariable);
    if (!line.credentials.empty()) {
        configuration.TakeFile(line.credentials);
    } else if (variable != nullptr && *variable != '\0') {
        configuration.TakeFile(variable);
    }
    return line;
}

}  // namespace vantix::ctl
