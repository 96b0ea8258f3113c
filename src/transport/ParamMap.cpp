#include "transport/ParamMap.h"

#include <charconv>
#include <iterator>

#include "log/Masking.h"

namespace vantix {
namespace {

/// Room for what a request has at most, as a rule: then all entries take two blocks of memory.
constexpr size_t kUsualEntries = 16;
constexpr size_t kUsualText = 512;

}  // namespace

ParamMap::Entry ParamMap::At(size_t position) const {
    const Place& place = m_places[position];
    const std::string_view text = m_text;
    return {text.substr(place.begin, place.keyLength), text.substr(place.begin + place.keyLength, place.valueLength)};
}

void ParamMap::Insert(std::string_view key, std::string_view value) {
    size_t position = Size();
    for (; position > 0; --position) {
        const int order = At(position - 1).key.compare(key);
        if (order == 0) {
            return;
        }
        if (order < 0) {
            break;
        }
    }
    if (m_places.empty()) {
        m_places.reserve(kUsualEntries);
        m_text.reserve(kUsualText);
    }
    const size_t begin = m_text.size();
    m_text.append(key).append(value);
    m_places.insert(m_places.begin() + static_cast<std::ptrdiff_t>(position), {begin, key.size(), value.size()});
}

void ParamMap::Add(const char* key, const char* value) {
    if (key != nullptr && value != nullptr) {
        Insert(key, value);
    }
}

void ParamMap::Add(const char* key, const std::string& value) {
    if (key != nullptr) {
        Insert(key, value);
    }
}

void ParamMap::Add(const char* key, int value) {
    char digits[12];
    const char* const end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    if (key != nullptr) {
        Insert(key, {digits, static_cast<size_t>(end - digits)});
    }
}

std::optional<std::string_view> ParamMap::Find(std::string_view key) const {
    for (size_t i = 0; i < Size(); ++i) {
        if (const Entry entry = At(i); entry.key == key) {
            return entry.value;
        }
    }
    return std::nullopt;
}

bool ParamMap::HasZeroByte() const { return m_text.find('\0') != std::string::npos; }

template <class Shown>
std::string ParamMap::Join(Shown shown) const {
    std::string joined;
    joined.reserve(m_text.size() + 2 * Size());
    for (size_t i = 0; i < Size(); ++i) {
        const Entry entry = At(i);
        if (i > 0) {
            joined += '&';
        }
        joined.append(entry.key).append("=").append(shown(entry));
    }
    return joined;
}

std::string ParamMap::Serialize() const {
    return Join([](const Entry& entry) { return entry.value; });
}

std::string ParamMap::SerializeMasked() const {
    return Join([](const Entry& entry) { return IsSecretParameter(entry.key) ? kMask : entry.value; });
}

}  // namespace vantix
