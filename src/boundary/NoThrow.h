#pragma once

/// @file
/// The exception barrier between the library and its host: an exception inside becomes a neutral result.

#include <string>

#include "vantix/ReturnCodes.h"

namespace vantix {

/// Calls `body` and returns its result, or `neutral` when it throws.
template <class Body, class Result>
auto NoThrow(Body body, Result neutral) noexcept -> decltype(body()) {
    try {
        return body();
    } catch (...) {
        return neutral;
    }
}

/// Calls `body`, whatever it throws.
template <class Body>
void NoThrow(Body body) noexcept {
    try {
        body();
    } catch (...) {  // NOLINT(bugprone-empty-catch): a slot without a result has nothing to report
    }
}

/// Calls `body` and returns its code, or -1 when it throws.
template <class Body>
int Code(Body body) noexcept {
    return NoThrow(body, VANTIX_ERROR);
}

/// Puts the text that `body` returns into `text`, or an empty one when it throws, so that an old text is never taken
/// for the result.
template <class Body>
std::string& NoThrowInto(std::string& text, Body body) noexcept {
    try {
        text = body();
    } catch (...) {
        text.clear();
    }
    return text;
}

}  // namespace vantix
