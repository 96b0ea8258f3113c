#pragma once

/// @file
/// The only access to JsonCpp values: typed and total. Whatever a server sent, nothing is thrown but
/// `std::bad_alloc`: memory that runs out fails the operation and says nothing about the text.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/FunctionRef.h"
#include "base/TextView.h"

namespace Json {
class Value;
}  // namespace Json

namespace vantix::json {

/// A value inside a `JsonCppDocument`, or nothing. Cheap to copy; not valid after its document.
class JsonCppView {
public:
    JsonCppView() = default;
    explicit JsonCppView(const Json::Value* value) : m_value(value) {}

    bool IsNull() const;  ///< Also when there is no value at all.
    bool IsObject() const;
    bool IsArray() const;
    bool IsString() const;

    /// The member of an object; nothing when this is no object or has no such member.
    JsonCppView Member(const char* key) const;
    /// Calls `use` with the position of each key that is a member, and the member. The keys are in byte order, so one
    /// walk finds them all.
    void VisitMembers(std::span<const std::string_view> keys,
                      FunctionRef<void(size_t position, const JsonCppView& member)> use) const;
    /// Number of elements of an array; 0 for everything else.
    size_t Size() const;
    /// An element of an array; nothing beyond its end.
    JsonCppView Element(size_t index) const;

    /// Copies the value out when it has the field's type; returns whether it did. An int is an integer, or a real
    /// without fraction, within 32 bits.
    bool Read(std::string& text) const;
    bool Read(int32_t& number) const;
    bool Read(bool& flag) const;
    /// The string's own bytes, or nothing when this is no string. Saves a copy of long texts.
    std::optional<TextView> Text() const;
    /// Any number, truncated toward zero; not one outside 64 bits.
    bool ReadNumber(int64_t& number) const;

    /// A string as it is, an integer as decimal text.
    bool ReadText(std::string& text) const;
    /// An integer within 32 bits, or a text that holds a number.
    bool ReadIntOrText(int32_t& number) const;

    /// The value as one line without blanks; empty when there is none. Texts that are not UTF-8 keep their bytes,
    /// unless the host has said that all texts are UTF-8: then what is not becomes U+FFFD.
    std::string Compact() const;

private:
    friend class JsonBuilder;

    const Json::Value* m_value = nullptr;
};

/// A parsed text.
class JsonCppDocument {
public:
    JsonCppDocument();
    ~JsonCppDocument();
    JsonCppDocument(const JsonCppDocument&) = delete;
    JsonCppDocument& operator=(const JsonCppDocument&) = delete;

    /// Parses a text; false when it is not JSON or nested too deeply.
    bool Parse(TextView text);
    /// Parses a text that must be exactly one object: false as well when it is another value, when something stands
    /// behind the object, and when there is a comment, which `Parse` does not mind.
    bool ParseObjectStrictly(TextView text);
    /// The value of the whole text; nothing before a successful parse.
    JsonCppView Root() const;

private:
    std::unique_ptr<Json::Value> m_root;
};

}  // namespace vantix::json
