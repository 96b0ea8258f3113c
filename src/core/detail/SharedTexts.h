#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include "base/Guarded.h"

namespace vantix {

/// A text that any number of records hold together; it never changes.
using SharedText = std::shared_ptr<const std::string>;

/// Long texts of which there are many equal ones, such as the capabilities of a model: each is held once. Any thread.
class SharedTexts {
public:
    /// The shared text that equals this one.
    SharedText Share(std::string_view text);
    /// How many there are, with those that nobody holds any more and that have not been dropped yet.
    size_t Size() const;

private:
    struct Hash {
        using is_transparent = void;

        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
        size_t operator()(const SharedText& text) const { return (*this)(*text); }
    };
    struct Equal {
        using is_transparent = void;

        static std::string_view Text(std::string_view text) { return text; }
        static std::string_view Text(const SharedText& text) { return *text; }
        template <class One, class Other>
        bool operator()(const One& one, const Other& other) const {
            return Text(one) == Text(other);
        }
    };
    using Texts = std::unordered_set<SharedText, Hash, Equal>;
    struct Pool {
        Texts texts;
        size_t fullAt = 64;  ///< With so many it drops those that nobody holds.

        SharedText Find(std::string_view text) const;
        void DropUnheld();
    };

    Guarded<Pool> m_pool;
};

}  // namespace vantix
