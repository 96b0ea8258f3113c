#pragma once

/// @file
/// Both JSON readers under one name each, for cases that hold for either.

#include <gtest/gtest.h>

#include <string>

#include "json/Json11Reader.h"
#include "json/JsonCppReader.h"

namespace vantix::test {

struct JsonCpp {
    using Document = json::JsonCppDocument;
    using View = json::JsonCppView;
};

struct Json11 {
    using Document = json::Json11Document;
    using View = json::Json11View;
};

using BothReaders = testing::Types<JsonCpp, Json11>;

struct ReaderName {
    template <class Reader>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Reader, JsonCpp> ? "JsonCpp" : "json11";
    }
};

/// "[[[…]]]" of so many levels, with something innermost.
inline std::string NestedArrays(size_t levels, const std::string& innermost = "") {
    return std::string(levels, '[') + innermost + std::string(levels, ']');
}

/// {"a":{"a":…1…}} of so many levels.
inline std::string NestedObjects(size_t levels) {
    std::string text;
    for (size_t i = 0; i < levels; ++i) {
        text += R"({"a":)";
    }
    return text + "1" + std::string(levels, '}');
}

}  // namespace vantix::test
