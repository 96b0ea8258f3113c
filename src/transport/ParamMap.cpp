#include "transport/ParamMap.h"

#include <charconv>
#include <iterator>
#include <utility>

#include "log/Masking.h"

namespace vantix {
namespace {

/// Room for what a request has at most, as a rule: then all entries take two blocks of memory.
constexpr size_t kUsualEntries = 16;
constexpr size_t kUsualText = 512;

/// Entries stand as they are sent, each with "&" behind it, also the last one.
std::string WithoutLastAnd(std::string joined) {
    if (!joined.empty()) {
        joined.pop_back();
    }
    return joined;
}

constexpr size_t kFirstBytes = sizeof(uint64_t);

template <size_t... Place>
uint64_t BigEndian(const char* bytes, std::index_sequence<Place...> /*places*/) {
    return (... | (static_cast<uint64_t>(static_cast<unsigned char>(bytes[Place])) << (8 * (kFirstBytes - 1 - Place))));
}

/// The first bytes of a key as a number: numbers compare as the bytes do, zeros standing behind a shorter key.
uint64_t FirstBytes(std::string_view key) {
    constexpr auto kPlaces = std::make_index_sequence<kFirstBytes>();
    if (key.size() >= kFirstBytes) {
        return BigEndian(key.data(), kPlaces);
    }
    char padded[kFirstBytes] = {};
    key.copy(padded, key.size());
    return BigEndian(padded, kPlaces);
}

}  // namespace

ParamMap::Entry ParamMap::At(size_t position) const {
    const Place& place = m_places[position];
    const std::string_view text = m_text;
    return {text.substr(place.begin, place.keyLength),
            text.substr(place.begin + place.keyLength + 1, place.valueLength)};
}

void ParamMap::Insert(std::string_view key, std::string_view value) {
    const uint64_t firstBytes = FirstBytes(key);
    size_t position = Size();
    for (; position > 0 && m_places[position - 1].firstBytes >= firstBytes; --position) {
        const int order = m_places[position - 1].firstBytes > firstBytes ? 1 : At(position - 1).key.compare(key);
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
    m_text.append(key).push_back('=');
    m_text.append(value).push_back('&');
    m_places.insert(m_places.begin() + static_cast<std::ptrdiff_t>(position),
                    {firstBytes, begin, key.size(), value.size()});
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

std::string ParamMap::Serialize() const {
    std::string joined;
    joined.reserve(m_text.size());
    for (const Place& place : m_places) {
        joined.append(m_text, place.begin, place.Length());
    }
    return WithoutLastAnd(std::move(joined));
}

std::string ParamMap::SerializeMasked() const {
    std::string joined;
    joined.reserve(m_text.size());
    for (size_t i = 0; i < Size(); ++i) {
        const Entry entry = At(i);
        joined.append(entry.key)
            .append(1, '=')
            .append(IsSecretParameter(entry.key) ? kMask : entry.value)
            .append(1, '&');
    }
    return WithoutLastAnd(std::move(joined));
}

}  // namespace vantix
