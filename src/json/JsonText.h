#pragma once

/// @file
/// Writing JSON texts: compact, on one line, without a newline at the end.

#include <cstdint>
#include <memory>
#include <string>

#include "json/JsonCppReader.h"

namespace vantix::json {

/// A JSON value that is being built. Copying copies the value.
class JsonBuilder {
public:
    /// An empty object.
    static JsonBuilder Object();
    /// An empty array.
    static JsonBuilder Array();
    /// A copy of what a reader sees; null when it sees nothing.
    static JsonBuilder CopyOf(const JsonCppView& view);

    JsonBuilder(const JsonBuilder& other);
    JsonBuilder& operator=(const JsonBuilder& other);
    ~JsonBuilder();

    /// Sets a member of an object.
    JsonBuilder& Set(const char* key, const std::string& text);
    JsonBuilder& Set(const char* key, const char* text);
    JsonBuilder& Set(const char* key, int32_t number);
    JsonBuilder& Set(const char* key, const JsonBuilder& value);
    /// Sets a member to what a reader sees; does nothing when it sees nothing.
    JsonBuilder& SetIfThere(const char* key, const JsonCppView& view);
    /// Appends to an array.
    JsonBuilder& Append(const JsonBuilder& value);

    /// The text.
    std::string Compact() const;

private:
    explicit JsonBuilder(std::unique_ptr<Json::Value> value);

    std::unique_ptr<Json::Value> m_value;
};

}  // namespace vantix::json
