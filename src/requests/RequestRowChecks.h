#pragma once

/// @file
/// Checks at compile time: a row is consistent, and a call gives a value for each key of its row and for no other.

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "requests/ClientInfo.h"
#include "requests/RequestKeys.h"
#include "requests/RequestRow.h"

namespace vantix {
namespace row_detail {

constexpr bool HasOwnPath(RequestKind kind) {
    return kind == RequestKind::JsonPost || kind == RequestKind::TicketGet || kind == RequestKind::Put;
}

/// Consumer requests authenticate with a session, in a header; platform requests with an access token; authorization
/// requests with neither.
constexpr bool FitsFamily(const RequestRow& row) {
    const bool hasSession = row.headers.set != HeaderSet::None;
    const CommonParameters& common = row.common;
    switch (row.family) {
        case RequestFamily::Platform: return !hasSession;
        case RequestFamily::Consumer: return hasSession && !common.accessToken && !common.clientSet && !common.appKey;
        case RequestFamily::Authorization: return !hasSession && !common.accessToken;
    }
    return false;
}

/// The keys that a row sends, in any order.
struct SentKeys {
    std::string_view names[24] = {};
    size_t size = 0;

    constexpr explicit SentKeys(const RequestRow& row) {
        Add(row.common.accessToken, {"accessToken"});
        Add(row.common.clientSet, {kClientTypeKey});
        for (const ClientText& text : kClientTexts) {
            Add(row.common.clientSet, {text.key});
        }
        Add(row.common.appKey, {"appKey"});
        for (const char* key : row.keys) {
            Add(key != nullptr, {key});
        }
        for (const char* key : row.optionalKeys) {
            Add(key != nullptr, {key});
        }
        for (const FixedParameter& fixed : row.fixed) {
            Add(fixed.key != nullptr, {fixed.key});
        }
    }
    constexpr void Add(bool isSent, std::initializer_list<const char*> keys) {
        for (const char* key : keys) {
            if (isSent) {
                names[size++] = key;
            }
        }
    }
    /// Whether a key occurs twice: the second value would be lost.
    constexpr bool Repeat() const {
        bool repeats = false;
        for (size_t i = 0; i < size; ++i) {
            for (size_t j = 0; j < i; ++j) {
                repeats = repeats || names[i] == names[j];
            }
        }
        return repeats;
    }
};

constexpr bool Contains(std::initializer_list<KeyInfo> given, std::string_view name, bool isOptional) {
    bool found = false;
    for (const KeyInfo& key : given) {
        found = found || (key.name == name && key.isOptional == isOptional);
    }
    return found;
}

}  // namespace row_detail

/// Whether a row is consistent: it has nothing that its kind or family would ignore.
constexpr bool IsConsistent(const RequestRow& row) {
    const row_detail::SentKeys keys(row);
    const bool hasHeaders = row.headers.set != HeaderSet::None || row.headers.formContentType;
    return row_detail::HasOwnPath(row.kind) == (row.endpoint == 0) && (SendsHeaders(row.kind) || !hasHeaders) &&
           row_detail::FitsFamily(row) && (row.kind != RequestKind::JsonPost || keys.size == 0) && !keys.Repeat();
}

/// Whether these are the keys of the row, each once.
constexpr bool AreKeysOf(const RequestRow& row, std::initializer_list<KeyInfo> given) {
    size_t wanted = 0;
    bool complete = true;
    for (const char* key : row.keys) {
        wanted += key != nullptr ? 1U : 0U;
        complete = complete && (key == nullptr || row_detail::Contains(given, key, false));
    }
    for (const char* key : row.optionalKeys) {
        wanted += key != nullptr ? 1U : 0U;
        complete = complete && (key == nullptr || row_detail::Contains(given, key, true));
    }
    return complete && given.size() == wanted;
}

}  // namespace vantix
