#pragma once

#include "../http/Message.h"

#include <map>
#include <string>
#include <string_view>

namespace vantix::simulator {

/// The named values of a request: of its query, of a form body and of a JSON body's top level together. Of a name
/// that occurs twice the first value counts. "%XX" is decoded, "+" is not: clients do not encode times and serials.
class Parameters {
public:
    Parameters() = default;
    explicit Parameters(const Request& request);

    [[nodiscard]] bool Has(std::string_view name) const;
    /// Empty when absent.
    [[nodiscard]] std::string Text(std::string_view name) const;
    /// The fallback when absent, empty or not a number.
    [[nodiscard]] long long Number(std::string_view name, long long fallback) const;

private:
    void AddForm(std::string_view form);
    void AddJson(std::string_view text);

    std::map<std::string, std::string, std::less<>> m_values;
};

/// Value of a header, its name compared without regard to case; empty when absent.
std::string HeaderValue(const HeaderList& headers, std::string_view name);

}  // namespace vantix::simulator
