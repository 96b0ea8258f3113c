#pragma once

#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Json.h"

namespace vantix {
class IVantixDataCenter;
}

namespace vantix::ctl {

/// What the caller got wrong; the tool ends with status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One thing that a host tells the data center before it asks anything.
///
/// It can come from an option (`--access-token`), from the environment (`VANTIXCTL_ACCESS_TOKEN`) or from a member of
/// the credentials file ("accessToken"); the first of these that gives it wins.
struct Setting {
    std::string_view option;       ///< without the dashes
    std::string_view key;          ///< in the credentials file
    std::string_view alias;        ///< another spelling there, may be empty
    std::string_view placeholder;  ///< in the help
    std::string_view help;
    bool isSecret;
    void (*apply)(IVantixDataCenter& center, const std::string& value);
};

/// All settings, in the order in which they are applied.
std::span<const Setting> Settings();

/// The setting of this option name, or null.
const Setting* FindSetting(std::string_view option);

/// The name of the environment variable of an option.
std::string EnvironmentName(std::string_view option);

/// The values that were given, by option name.
class Configuration {
public:
    void Set(const Setting& setting, std::string value) { m_values[setting.option] = std::move(value); }
    bool Has(std::string_view option) const { return m_values.contains(option); }
    /// The value of an option, empty when it was not given.
    const std::string& Get(std::string_view option) const;

    /// Takes from the environment what is still missing.
    void TakeEnvironment();
    /// Takes from a credentials object, or from its member "account", what is still missing.
    void TakeJson(const Json& content);
    /// Takes from a credentials file what is still missing. Throws UsageError when it cannot be read.
    void TakeFile(const std::string& path);

    bool HasDomain() const { return Has("b-domain") || Has("c-domain"); }
    /// Hands everything to the data center.
    void Apply(IVantixDataCenter& center) const;

private:
    std::map<std::string_view, std::string> m_values;
};

/// The text as a number of 32 bits. Throws UsageError, naming `what`, when it is none.
int ToNumber(const std::string& text, std::string_view what);

}  // namespace vantix::ctl
