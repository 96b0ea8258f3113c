#pragma once

/// @file
/// The only access to json11 values: the same surface and the same exception as the JsonCpp reader's, with json11's
/// notion of types.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/FunctionRef.h"
#include "base/TextView.h"

namespace json11 {
class Json;
}  // namespace json11

namespace vantix::json {

/// A value inside a `Json11Document`, or nothing. Cheap to copy; not valid after its document.
class Json11View {
public:
    Json11View() = default;
    explicit Json11View(const json11::Json* value) : m_value(value) {}

    bool IsNull() const;  ///< Also when there is no value at all.
    bool IsObject() const;
    bool IsArray() const;
    bool IsString() const;

    /// The member of an object; nothing when this is no object or has no such member.
    Json11View Member(const char* key) const;
    /// Calls `use` with the position of each key that is a member, and the member. The keys are in byte order, so one
    /// walk finds them all.
    void VisitMembers(std::span<const std::string_view> keys,
                      FunctionRef<void(size_t position, const Json11View& member)> use) const;
    /// Number of elements of an array; 0 for everything else.
    size_t Size() const;
    /// An element of an array; nothing beyond its end.
    Json11View Element(size_t index) const;

    /// Copies the value out when it has the field's type; returns whether it did. A number is truncated toward zero;
    /// one outside 32 bits is not read.
    bool Read(std::string& text) const;
    bool Read(int32_t& number) const;
    bool Read(bool& flag) const;

    /// The string's own bytes, or null when this is no string. Saves a copy of long texts.
    const std::string* Text() const;

private:
    const json11::Json* m_value = nullptr;
};

/// A parsed text.
class Json11Document {
public:
    Json11Document();
    ~Json11Document();
    Json11Document(const Json11Document&) = delete;
    Json11Document& operator=(const Json11Document&) = delete;

    /// Parses a text; false when it is not JSON or nested too deeply.
    bool Parse(TextView text);
    /// The same without a copy: json11 reads a string.
    bool Parse(const std::string& text);
    bool Parse(const char* text) { return Parse(TextView(text)); }
    /// The value of the whole text; nothing before a successful `Parse`.
    Json11View Root() const;
    /// Why the last `Parse` failed, in the parser's words.
    const std::string& Error() const { return m_error; }

private:
    std::unique_ptr<json11::Json> m_root;
    std::string m_error;
};

}  // namespace vantix::json
