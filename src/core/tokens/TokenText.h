#pragma once

/// @file
/// The JSON texts with which the host sets tokens: arrays of objects, one for each channel.

#include <cstddef>
#include <string>
#include <utility>

#include "json/Fields.h"
#include "json/Json11Reader.h"
#include "log/Logger.h"

namespace vantix {

/// How many buckets a map of tokens begins with.
inline constexpr size_t kTokenBuckets = 8;

/// Reads a text and calls `take` with each entry, in order. False, and a line, when the text is not JSON; well-formed
/// JSON that is no array has no entries.
template <const auto& Members, class Entry, class Take>
bool ReadTokenText(const CallSite& site, const std::string& text, Take take) {
    json::Json11Document document;
    if (!document.Parse(text)) {
        // The line names one kind of tokens for both, on purpose.
        VANTIX_LOG_ERROR(site, level::kError, "szDeviceTkTokens parse error %s", document.Error().c_str());
        return false;
    }
    const json::Json11View root = document.Root();
    for (size_t i = 0; i < root.Size(); ++i) {
        Entry entry;
        json::ReadFields<Members>(root.Element(i), entry);
        take(std::move(entry));
    }
    return true;
}

}  // namespace vantix
