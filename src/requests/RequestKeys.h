#pragma once

/// @file
/// Parameters of a request, each under a key that the compiler knows: `"deviceSerial"_key = serial`.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "transport/ParamMap.h"

namespace vantix {

/// A text as a template argument.
template <size_t Size>
struct FixedText {
    consteval FixedText(const char (&literal)[Size]) {  // NOLINT(google-explicit-constructor): literals become keys
        std::copy(literal, literal + Size, text);
    }

    char text[Size] = {};
};

template <class T>
inline constexpr bool kIsText = std::is_same_v<T, std::string> || std::is_same_v<std::decay_t<const T&>, const char*>;

/// What a parameter can be: a text or a number. An optional one is a `std::optional` of that.
template <class T>
concept ParameterType = kIsText<T> || std::is_same_v<T, int32_t>;

/// What calls and rows are compared by: a key and whether its value is optional.
struct KeyInfo {
    std::string_view name;
    bool isOptional = false;
};

/// A key and its value; a text is referenced, not copied.
class Parameter {
public:
    template <ParameterType Value>
    Parameter(const char* key, const Value& value) : m_key(key), m_value(Held(value)) {}
    template <ParameterType Value>
    Parameter(const char* key, const std::optional<Value>& value) : m_key(key) {
        if (value) {
            m_value = Held(*value);
        }
    }

    /// Adds the value under the key; an optional value that is not there adds nothing.
    void AddTo(ParamMap& params) const;

private:
    static const std::string* Held(const std::string& text) { return &text; }
    static const char* Held(const char* text) { return text; }
    static int32_t Held(int32_t number) { return number; }

    const char* m_key;
    std::variant<std::monostate, const std::string*, const char*, int32_t> m_value;
};

/// A parameter whose key is part of its type.
template <FixedText Name, bool IsOptional>
struct KeyedParameter : Parameter {
    using Parameter::Parameter;

    static constexpr KeyInfo kKey{Name.text, IsOptional};
};

template <class T>
inline constexpr bool kIsKeyedParameter = false;
template <FixedText Name, bool IsOptional>
inline constexpr bool kIsKeyedParameter<KeyedParameter<Name, IsOptional>> = true;

/// A key that waits for its value.
template <FixedText Name>
struct Key {
    // NOLINTBEGIN(misc-unconventional-assign-operator): assigning makes a parameter, and changes no key
    template <ParameterType Value>
    KeyedParameter<Name, false> operator=(const Value& value) const {
        return {Name.text, value};
    }
    template <ParameterType Value>
    KeyedParameter<Name, true> operator=(const std::optional<Value>& value) const {
        return {Name.text, value};
    }
    // NOLINTEND(misc-unconventional-assign-operator)
};

template <FixedText Name>
constexpr Key<Name> operator""_key() {
    return {};
}

}  // namespace vantix
