#pragma once

/// @file
/// The function and line number that a log line shows.

#include <cstddef>
#include <cstdint>
#include <limits>

#if defined(__GNUC__)
#define VANTIX_FUNCTION_NAME __PRETTY_FUNCTION__
#else
#define VANTIX_FUNCTION_NAME __FUNCTION__
#endif

namespace vantix {
namespace tag_detail {

/// A part of a text: from `begin` up to `end`.
struct Range {
    uint16_t begin = 0;
    uint16_t end = 0;
};

constexpr bool StartsWith(const char* text, const char* start) {
    while (*start != '\0' && *text == *start) {
        ++text;
        ++start;
    }
    return *start == '\0';
}

/// Whether the text before `end` ends with the word of an operator's name, as in "operator bool".
constexpr bool EndsWithOperator(const char* name, size_t end) {
    constexpr size_t kLength = 8;
    return end >= kLength && StartsWith(name + end - kLength, "operator");
}

/// Whether these are the parentheses of the call operator's own name: "operator()", also with a blank between.
constexpr bool IsCallOperator(const char* name, size_t parenthesis) {
    const bool isBehindABlank = parenthesis > 0 && name[parenthesis - 1] == ' ';
    return StartsWith(name + parenthesis, "()") && EndsWithOperator(name, parenthesis - (isBehindABlank ? 1 : 0));
}

/// Whether a parenthesis belongs to an unnamed namespace, a deduced return type ("decltype(auto)") or an operator.
constexpr bool OpensNoArguments(const char* name, size_t parenthesis) {
    return StartsWith(name + parenthesis, "(anonymous") || StartsWith(name + parenthesis, "(auto)") ||
           IsCallOperator(name, parenthesis);
}

/// The first parenthesis that opens an argument list, or the name's end.
constexpr size_t ArgumentsBegin(const char* name) {
    size_t depth = 0;  // inside template arguments, which may hold lists of their own
    for (size_t i = 0;; ++i) {
        const char c = name[i];
        if (c == '\0' || (c == '(' && depth == 0 && !OpensNoArguments(name, i))) {
            return i;
        }
        if (c == '<') {
            ++depth;
        } else if (c == '>' && depth > 0) {
            --depth;
        }
    }
}

/// One past the parenthesis that closes the one at `open`.
constexpr size_t ArgumentsEnd(const char* name, size_t open) {
    size_t depth = 0;
    size_t i = open;
    for (; name[i] != '\0'; ++i) {
        if (name[i] == '(') {
            ++depth;
        } else if (name[i] == ')' && --depth == 0) {
            return i + 1;
        }
    }
    return i;
}

/// Where the qualified name that ends at `end` begins: after the return type.
constexpr size_t NameBegin(const char* name, size_t end) {
    size_t depth = 0;
    size_t begin = end;
    while (begin > 0) {
        const char c = name[begin - 1];
        if (c == '>' || c == ')' || c == '}') {
            ++depth;
        } else if (c == '<' || c == '(' || c == '{') {
            --depth;
        } else if (depth == 0 && (c == ' ' || c == '*' || c == '&') && !EndsWithOperator(name, begin - 1)) {
            break;
        }
        --begin;
    }
    return begin;
}

/// Skips leading namespaces: all of ours, and unnamed ones, begin with a lower-case letter or a bracket.
constexpr size_t SkipNamespaces(const char* name, size_t begin, size_t end) {
    for (size_t i = begin; i + 1 < end && name[i] != '<'; ++i) {
        if (name[i] == ':' && name[i + 1] == ':') {
            const char first = name[begin];
            if (first >= 'A' && first <= 'Z') {
                break;
            }
            begin = i + 2;
            ++i;
        }
    }
    return begin;
}

/// A function's tag, as the parts of the compiler's name that make it up.
struct TagRanges {
    Range name;
    Range lambda;

    constexpr size_t Length() const { return size_t{name.end} - name.begin + lambda.end - lambda.begin; }
};

/// Whether this character stands in qualifiers behind an argument list: " const", " &".
constexpr bool IsQualifier(char c) { return c == ' ' || c == '&' || (c >= 'a' && c <= 'z'); }

/// A lambda's part of the name, behind the arguments and qualifiers of the function around it and without qualifiers of
/// its own; empty when the name is no lambda's.
constexpr Range LambdaPart(const char* name, size_t argumentsEnd) {
    size_t begin = argumentsEnd;
    while (IsQualifier(name[begin])) {
        ++begin;
    }
    size_t end = begin;
    if (StartsWith(name + begin, "::")) {
        for (size_t depth = 0; name[end] != '\0' && (depth > 0 || name[end] != ' '); ++end) {
            if (name[end] == '(' || name[end] == '<') {
                ++depth;
            } else if (depth > 0 && (name[end] == ')' || name[end] == '>')) {
                --depth;
            }
        }
    }
    return {static_cast<uint16_t>(begin), static_cast<uint16_t>(end)};
}

constexpr TagRanges FindTag(const char* name) {
    const size_t end = ArgumentsBegin(name);
    const size_t begin = SkipNamespaces(name, NameBegin(name, end), end);
    return {{static_cast<uint16_t>(begin), static_cast<uint16_t>(end)}, LambdaPart(name, ArgumentsEnd(name, end))};
}

}  // namespace tag_detail

/// A function's tag as text: "Class::method" without return type, namespaces or arguments. A lambda's
/// begins with the tag of the function around it.
struct FunctionTag {
    static constexpr size_t kLongest = 255;

    constexpr FunctionTag(const char* function, const tag_detail::TagRanges& tag) {
        char* out = text;
        for (const tag_detail::Range& part : {tag.name, tag.lambda}) {
            for (size_t i = part.begin; i < part.end; ++i) {
                *out++ = function[i];
            }
        }
    }

    char text[kLongest + 1] = {};
};

/// Where a log line comes from. The tag is found in the compiler's name of the function when the code is compiled.
class CallSite {
public:
    /// `function` is the compiler's name of a function, or a tag; static storage.
    template <size_t Size>
    consteval CallSite(const char (&function)[Size], int line)
        : m_function(function), m_tag(tag_detail::FindTag(function)), m_line(line) {
        static_assert(Size <= std::numeric_limits<uint16_t>::max(), "positions in the name have 16 bits");
        if (m_tag.Length() > FunctionTag::kLongest) {
            throw "a tag that is too long for a log line";
        }
    }

    constexpr FunctionTag Tag() const { return {m_function, m_tag}; }
    constexpr int Line() const { return m_line; }

private:
    const char* m_function;
    tag_detail::TagRanges m_tag;
    int m_line;
};

}  // namespace vantix

/// The place of this macro in the code.
#define VANTIX_HERE (::vantix::CallSite{VANTIX_FUNCTION_NAME, __LINE__})

/// The same under another tag: that of the operation on whose behalf the code runs ("CVantixDataCenter::getDomain").
#define VANTIX_HERE_AS(tag) (::vantix::CallSite{tag, __LINE__})
