#pragma once

/// @file
/// Message formats as data: a row of a request table has its texts, and a text of the wrong shape does not compile.

#include <cstdint>
#include <string_view>

#include "base/TextView.h"
#include "log/CallSite.h"

namespace vantix {
namespace message_detail {

/// Whether the conversions of a format are exactly these, in order ("%s%d").
constexpr bool HasConversions(std::string_view format, std::string_view conversions) {
    std::string_view rest = conversions;
    for (size_t at = format.find('%'); at != std::string_view::npos; at = format.find('%')) {
        const size_t length = format.substr(at).substr(0, 3) == "%ld" ? 3 : 2;
        if (rest.empty() || rest.substr(0, length) != format.substr(at, length)) {
            return false;
        }
        rest.remove_prefix(length);
        format.remove_prefix(at + length);
    }
    return rest.empty();
}

template <char... Conversions>
struct Text {
    const char* format = nullptr;

    constexpr Text() = default;
    /// Refuses, at compile time, a format that takes other values.
    consteval Text(const char* text) : format(text) {  // NOLINT(google-explicit-constructor): rows read as texts
        constexpr char kConversions[] = {Conversions..., '\0'};
        if (!HasConversions(text, kConversions)) {
            throw "a message text with other conversions than its row has values";
        }
    }
    constexpr bool IsThere() const { return format != nullptr; }
};

}  // namespace message_detail

/// A text about a code: one "%d".
using CodeText = message_detail::Text<'%', 'd'>;
/// A text about a body: one "%s".
using BodyText = message_detail::Text<'%', 's'>;
/// A text about a body and a code: "%s", then "%d".
using BodyCodeText = message_detail::Text<'%', 's', '%', 'd'>;
/// A text about milliseconds: one "%ld".
using CostText = message_detail::Text<'%', 'l', 'd'>;

/// Writes the text with its values as a line of the call site, of the usual level of its word.
void LogInfo(const CallSite& site, BodyText text, TextView body);
void LogInfo(const CallSite& site, CostText text, int32_t milliseconds);
void LogError(const CallSite& site, CodeText text, int code);
void LogError(const CallSite& site, BodyText text, TextView body);
void LogError(const CallSite& site, BodyCodeText text, TextView body, int code);

}  // namespace vantix
