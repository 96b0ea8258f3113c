#pragma once

/// @file
/// The commands of the tool as rows of a table, which parsing, help, completion and the call itself all read.

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Json.h"

namespace vantix {
class IVantixDataCenter;
}

namespace vantix::ctl {

struct Context;

/// The kind of value that an argument takes.
enum class Kind { Text, Number, Flag };

/// The definition of an argument, which commands share.
struct Parameter {
    std::string_view name;  ///< without the dashes of the option
    Kind kind;
    std::string_view placeholder;
    std::string_view help;
};

/// The parameter with this name. Throws std::logic_error when there is none.
const Parameter& FindParameter(std::string_view name);

/// One argument of one command. Without a fallback it is required.
struct Argument {
    std::string_view name;
    std::optional<std::string_view> fallback = std::nullopt;
};

constexpr size_t kMaxArguments = 10;

/// The arguments of a command, in the order in which they may be given without their names.
class ArgumentList {
public:
    constexpr ArgumentList(std::initializer_list<Argument> arguments) : m_count(arguments.size()) {
        std::copy(arguments.begin(), arguments.end(), m_arguments.begin());
    }
    constexpr std::span<const Argument> All() const { return {m_arguments.data(), m_count}; }

private:
    std::array<Argument, kMaxArguments> m_arguments{};
    size_t m_count;
};

/// The values of a command's arguments: those given, and the fallbacks of the others.
class ArgumentValues {
public:
    void Set(std::string_view name, std::string value) { m_values[name] = std::move(value); }
    bool Has(std::string_view name) const { return m_values.contains(name); }
    const std::string& Text(std::string_view name) const { return m_values.at(name); }
    int Number(std::string_view name) const;
    bool Flag(std::string_view name) const { return Text(name) == "1"; }

private:
    std::map<std::string_view, std::string> m_values;
};

/// The outcome of an operation: its return code, and the value that it yields, if any.
struct Outcome {
    int32_t code = 0;
    Json value = nullptr;
    bool isDetail = false;          ///< the value is a channel's detail, {"channel": …, "device": …}
    bool isServerResponse = false;  ///< the value is a server's response as received, with its envelope
};

/// One call of an operation of the interface.
struct Call {
    IVantixDataCenter& center;
    const ArgumentValues& values;

    const std::string& Text(std::string_view name) const { return values.Text(name); }
    int Number(std::string_view name) const { return values.Number(name); }
    bool Flag(std::string_view name) const { return values.Flag(name); }
    const std::string& Serial() const { return Text("serial"); }
    int Channel() const { return Number("channel"); }
};

constexpr int kNoSlot = -1;

/// One command: an operation of the interface, with a slot and `operation`, or a command of the tool, with `run`.
struct Command {
    std::string_view name;
    int slot;
    ArgumentList arguments;
    std::string_view help;
    Outcome (*operation)(const Call& call);
    int (*run)(Context& context, const ArgumentValues& arguments) = nullptr;
    std::string_view secret = {};  ///< member of the value that is masked in tables
    std::string_view more = {};    ///< more help

    bool IsOperation() const { return slot != kNoSlot; }
};

/// A family of commands, with its heading.
struct Family {
    std::string_view title;
    std::span<const Command> commands;
};

/// All commands.
std::span<const Family> Families();

/// The command with this name, or null.
const Command* FindCommand(std::string_view name);

/// The name of the command that is most similar to a misspelt one; empty when none is similar.
std::string_view NearestCommand(std::string_view name);

}  // namespace vantix::ctl
