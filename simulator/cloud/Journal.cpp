#include "Journal.h"

#include "../Bytes.h"

#include <algorithm>
#include <iterator>

namespace vantix::simulator {
namespace {

void AddBytes(Json& entry, const char* key, const char* hexKey, const std::string& bytes) {
    entry[key] = bytes;
    if (!IsUtf8(bytes)) {
        entry[hexKey] = ToHex(bytes);
    }
}

bool AllUtf8(const HeaderList& headers) {
    return std::all_of(headers.begin(), headers.end(),
                       [](const auto& header) { return IsUtf8(header.first) && IsUtf8(header.second); });
}

}  // namespace

void Journal::Add(Domain domain, const Request& request) {
    ReceivedRequest entry{domain, request.method, request.path, request.query, request.body, request.headers};
    const std::lock_guard lock(m_mutex);
    m_entries.push_back(std::move(entry));
    if (m_entries.size() > capacity) {
        m_entries.pop_front();
        ++m_dropped;
    }
}

std::vector<ReceivedRequest> Journal::Entries() const {
    const std::lock_guard lock(m_mutex);
    return {m_entries.begin(), m_entries.end()};
}

std::vector<ReceivedRequest> Journal::Take(std::size_t most) {
    const std::lock_guard lock(m_mutex);
    const auto end = m_entries.begin() + static_cast<std::ptrdiff_t>(std::min(most, m_entries.size()));
    std::vector<ReceivedRequest> taken(std::move_iterator(m_entries.begin()), std::move_iterator(end));
    m_entries.erase(m_entries.begin(), end);
    return taken;
}

void Journal::Clear() {
    const std::lock_guard lock(m_mutex);
    m_entries.clear();
    m_dropped = 0;
}

std::uint64_t Journal::Dropped() const {
    const std::lock_guard lock(m_mutex);
    return m_dropped;
}

Json ToJson(const ReceivedRequest& entry) {
    Json json;
    json["domain"] = entry.domain == Domain::b ? "B" : "C";
    json["method"] = entry.method;
    AddBytes(json, "path", "pathHex", entry.path);
    AddBytes(json, "query", "queryHex", entry.query);
    AddBytes(json, "body", "bodyHex", entry.body);
    json["headers"] = Json::array();
    for (const auto& [name, value] : entry.headers) {
        json["headers"].push_back(Json::array({name, value}));
    }
    if (!AllUtf8(entry.headers)) {
        json["headersHex"] = Json::array();
        for (const auto& [name, value] : entry.headers) {
            json["headersHex"].push_back(Json::array({ToHex(name), ToHex(value)}));
        }
    }
    return json;
}

}  // namespace vantix::simulator
