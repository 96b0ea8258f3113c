#pragma once

#include <string>

namespace vantix {

/// Calls `body` and returns its result, or `neutral` when it throws.
template <class Body, class Result>
auto Shielded(Body body, Result neutral) noexcept -> decltype(body()) {
    try {
        return body();
    } catch (...) {
        return neutral;
    }
}

/// Calls `body`; an exception ends here.
template <class Body>
void Shielded(Body body) noexcept {
    try {
        body();
    } catch (...) {  // NOLINT(bugprone-empty-catch): a slot without a result has nothing to report
    }
}

/// Puts what `body` returns into `text`, or nothing when it throws: no old text is taken for the answer.
template <class Body>
std::string& Filled(std::string& text, Body body) noexcept {
    try {
        text = body();
    } catch (...) {
        text.clear();
    }
    return text;
}

}  // namespace vantix
