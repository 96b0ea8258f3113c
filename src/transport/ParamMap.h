#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantix {

/// Request parameters or headers: texts by key, in the byte order of their keys. The value that is added first under a
/// key stays.
class ParamMap {
public:
    /// Valid until the map changes.
    struct Entry {
        std::string_view key;
        std::string_view value;
    };

    /// Adds a text; nothing happens unless both are given.
    void Add(const char* key, const char* value);
    /// Adds a text, also an empty one; nothing happens without a key.
    void Add(const char* key, const std::string& value);
    /// Adds a number in decimal.
    void Add(const char* key, int value);

    size_t Size() const { return m_places.size(); }
    /// The entry at a position below the size, in the order of the keys.
    Entry At(size_t position) const;
    /// The value of a key, if it is there.
    std::optional<std::string_view> Find(std::string_view key) const;

    /// Whether a value has a zero byte, at which libcurl would cut what is sent.
    bool HasZeroByte() const;

    /// "key=value" pairs joined by "&", as they are: nothing is escaped.
    std::string Serialize() const;
    /// The same for the log: the values of credentials stand as "***".
    std::string SerializeMasked() const;

private:
    /// Where an entry stands in the text, as "key=value&".
    struct Place {
        uint64_t firstBytes;  ///< Of the key, so that most comparisons need no more.
        size_t begin;
        size_t keyLength;
        size_t valueLength;

        size_t Length() const { return keyLength + 1 + valueLength + 1; }
    };

    void Insert(std::string_view key, std::string_view value);

    std::string m_text;           ///< Of all entries, in the order in which they came.
    std::vector<Place> m_places;  ///< In the order of the keys.
};

}  // namespace vantix
