#pragma once

#include <map>
#include <optional>
#include <utility>

#include "base/Guarded.h"

namespace vantix {

/// A map and the mutex that guards it. Entries are copied out and put in; no reference leaves.
template <class Map>
class GuardedMap {
public:
    using Key = typename Map::key_type;
    using Value = typename Map::mapped_type;
    using Entry = typename Map::node_type;

    /// An entry, made outside of the map: adding it needs memory only when the table grows.
    static Entry EntryFor(const Key& key, Value value) {
        Map one;
        one.emplace(key, std::move(value));
        return one.extract(one.begin());
    }

    /// Copies a value out; false, and `value` as it was, when the key is absent.
    bool CopyOut(const Key& key, Value& value) const {
        return Read(key, false, [&](const Value& stored) {
            value = stored;
            return true;
        });
    }
    /// A copy of a value, or nothing when the key is absent.
    std::optional<Value> Find(const Key& key) const {
        std::optional<Value> found;
        Read(key, false, [&](const Value& stored) {
            found = stored;
            return true;
        });
        return found;
    }

    /// Calls `use(value)` under the lock, when the key is there, and returns what it returns; else `absent`.
    template <class Result, class Use>
    Result Read(const Key& key, Result absent, Use use) const {
        return m_map.With([&](const Map& map) {
            const auto found = map.find(key);
            return found == map.end() ? absent : use(found->second);
        });
    }
    /// Calls `use(value)` under the lock; false when the key is absent.
    template <class Use>
    bool Edit(const Key& key, Use use) {
        return m_map.With([&](Map& map) {
            const auto found = map.find(key);
            if (found == map.end()) {
                return false;
            }
            use(found->second);
            return true;
        });
    }

    /// Puts an entry in; it replaces the one with its key.
    void Put(Entry entry) {
        m_map.With([&](Map& map) {
            const auto present = map.find(entry.key());
            if (present == map.end()) {
                map.insert(std::move(entry));
            } else {
                present->second = std::move(entry.mapped());
            }
        });
    }

    /// Puts an entry in unless its key is there already.
    void PutIfAbsent(Entry entry) {
        m_map.With([&](Map& map) { map.insert(std::move(entry)); });
    }

    void Clear() { m_map.Assign({}); }

private:
    Guarded<Map> m_map;
};

}  // namespace vantix
