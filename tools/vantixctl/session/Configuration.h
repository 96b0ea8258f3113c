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

/// Wrong usage of the tool, which ends with status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One setting of the data center that a host makes before its first operation.
///
/// It can come from an option (`--access-token`), from the environment (`VANTIXCTL_ACCESS_TOKEN`) or from a member of
/// the credentials file ("accessToken"); the first of these that has it is used.
struct Setting {
    std::string_view option;       ///< without the dashes
    std::string_view key;          ///< in the credentials file
    std::string_view alias;        ///< another name there; may be empty
    std::string_view placeholder;  ///< in the help
    std::string_view help;
    bool isSecret;
    void (*apply)(IVantixDataCenter& center, const std::string& value);
};

/// All settings, in the order in which they are applied.
std::span<const Setting> Settings();

/// The setting with this option name, or null.
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

    /// Takes values that are not set yet from the environment.
    void TakeEnvironment();
    /// Takes values that are not set yet from a credentials object, or from its member "account".
    void TakeJson(const Json& content);
    /// Takes values that are not set yet from a credentials file. Throws UsageError when it cannot be read.
    void TakeFile(const std::string& path);

    bool HasDomain() const { return Has("b-domain") || Has("c-domain"); }
    /// Passes all values to the data center.
    void Apply(IVantixDataCenter& center) const;

private:
    std::map<std::string_view, std::string> m_values;
};

/// The text as a 32-bit number. Throws UsageError, with `what` as its subject, when it is not a number.
int ToNumber(const std::string& text, std::string_view what);

}  // namespace vantix::ctl
