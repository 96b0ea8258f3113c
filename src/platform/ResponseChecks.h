#pragma once

/// @file
/// Checks of platform responses whose payload is not read. Each takes a body and returns a response code: 0, 1 (not
/// JSON), 2 (malformed), or the platform's own.

#include <optional>
#include <string>

#include "base/TextView.h"

namespace vantix {

/// The common envelope rule.
int CheckResponseInfoFromPlatform(TextView body);

/// The permission query: only a textual "result"."code" counts.
int CheckResponseAuthInfoFromPlatform(TextView body);

/// The cloud-video requests: "meta" with an integer "code" is required.
int CheckCloudResponseInfoFromPlatform(TextView body);

/// A reader that checks a body and, when it passes, copies it to `response`; else `response` stays as it was.
inline auto Keeping(int (*check)(TextView body), std::string& response) {
    return [check, &response](TextView body) {
        const int code = check(body);
        if (code == 0) {
            response.assign(body.begin(), body.end());
        }
        return code;
    };
}

/// The token error of a stream-token response that is handed on as it came: that of its "resultCode", 0 when this is
/// no text; nothing when the response is not JSON.
std::optional<int> VerifyErrorOf(TextView body);

/// Turns the result code of a stream-token response into a token error: 0 for 200, -3, -5, -101, else -1.
int ConvertVerifyErrorCode(int code);

}  // namespace vantix
