#pragma once

/// @file
/// What the tool can be asked for: rows of a table that parsing, help, completion and the call itself all read.

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

/// What an option takes.
enum class Kind { Text, Number, Flag };

/// An argument that commands may have.
struct Parameter {
    std::string_view name;  ///< the option without its dashes
    Kind kind;
    std::string_view placeholder;
    std::string_view help;
};

/// The parameter of this name. Throws std::logic_error when no row has it.
const Parameter& FindParameter(std::string_view name);

/// One argument of one command: without a fallback it must be given.
struct Use {
    std::string_view name;
    std::optional<std::string_view> fallback = std::nullopt;
};

constexpr size_t kMostUses = 10;

/// The arguments of a command, in the order in which they may be given without their names.
class Uses {
public:
    constexpr Uses(std::initializer_list<Use> uses) : m_count(uses.size()) {
        std::copy(uses.begin(), uses.end(), m_uses.begin());
    }
    constexpr std::span<const Use> All() const { return {m_uses.data(), m_count}; }

private:
    std::array<Use, kMostUses> m_uses{};
    size_t m_count;
};

/// The arguments that were given, with the fallbacks of those that were not.
class Arguments {
public:
    void Set(std::string_view name, std::string value) { m_values[name] = std::move(value); }
    bool Has(std::string_view name) const { return m_values.contains(name); }
    const std::string& Text(std::string_view name) const { return m_values.at(name); }
    int Number(std::string_view name) const;
    bool Flag(std::string_view name) const { return Text(name) == "1"; }

private:
    std::map<std::string_view, std::string> m_values;
};

/// What an operation answered: its return code, and a value when it hands one out.
struct Outcome {
    int32_t code = 0;
    Json value = nullptr;
    bool isDetail = false;  ///< the value is a channel's detail, {"channel": …, "device": …}
    bool isAnswer = false;  ///< the value is a server's answer as it came, envelope and all
};

/// One call of an operation of the interface.
struct Call {
    IVantixDataCenter& center;
    const Arguments& arguments;

    const std::string& Text(std::string_view name) const { return arguments.Text(name); }
    int Number(std::string_view name) const { return arguments.Number(name); }
    bool Flag(std::string_view name) const { return arguments.Flag(name); }
    const std::string& Serial() const { return Text("serial"); }
    int Channel() const { return Number("channel"); }
};

constexpr int kNoSlot = -1;

/// One command. An operation of the interface has a slot and `operation`, a command of the tool's own has `run`.
struct Command {
    std::string_view name;
    int slot;
    Uses uses;
    std::string_view help;
    Outcome (*operation)(const Call& call);
    int (*run)(Context& context, const Arguments& arguments) = nullptr;
    std::string_view secret = {};  ///< member of the value that people see masked
    std::string_view more = {};    ///< further help

    bool IsOperation() const { return slot != kNoSlot; }
};

/// A family of commands under a heading of the help.
struct Family {
    std::string_view title;
    std::span<const Command> commands;
};

/// Every command there is.
std::span<const Family> Families();

/// The command of this name, or null.
const Command* FindCommand(std::string_view name);

/// The command whose name is nearest to a misspelt one; empty when none is near.
std::string_view NearestCommand(std::string_view name);

}  // namespace vantix::ctl
