#pragma once

#include <map>
#include <string>

namespace vantix {

/// Request parameters or headers: texts by key, in the byte order of their keys. The value that is added first under a
/// key stays.
class ParamMap {
public:
    using Entries = std::map<std::string, std::string>;

    /// Adds a text; nothing happens unless both are given.
    void Add(const char* key, const char* value);
    /// Adds a text, also an empty one; nothing happens without a key.
    void Add(const char* key, const std::string& value);
    /// Adds a number in decimal.
    void Add(const char* key, int value);

    const Entries& All() const { return m_entries; }

    /// Whether a text has a zero byte, at which libcurl would cut what is sent.
    bool HasZeroByte() const;

    /// "key=value" pairs joined by "&", as they are: nothing is escaped.
    std::string Serialize() const;
    /// The same for the log: the values of credentials stand as "***".
    std::string SerializeMasked() const;

private:
    Entries m_entries;
};

}  // namespace vantix
