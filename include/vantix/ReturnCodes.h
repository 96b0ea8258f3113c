#pragma once

/// @file
/// The return codes of the whole library: signed 32-bit integers, composed in three layers.
///
/// A check or parser yields a response code: 0, 1, 2 or the server's own. A request adds a base to what failed: 100000
/// to libcurl's code, 300000 to a response code. The core passes these through and adds its own -1.

#include <cstdint>

namespace vantix {

enum ReturnCode : int32_t {
    VANTIX_NOERROR = 0,  ///< Success, at every layer.
    VANTIX_ERROR = -1,   ///< The core's own failure: bad argument, nothing cached, empty credential.

    VANTIX_RESP_NOT_JSON = 1,    ///< Response code: the body is not JSON.
    VANTIX_RESP_BAD_FORMAT = 2,  ///< Response code: envelope or required member missing or of the wrong type.

    VANTIX_NET_ERROR_BASE = 100000,       ///< Added to libcurl's code: no response.
    VANTIX_PLATFORM_ERROR_BASE = 300000,  ///< Added to a response code that is no success.

    VANTIX_ACCESS_TOKEN_EXPIRED = 310002,  ///< Platform code 10002: renewed, and repeated once.
    VANTIX_PLATFORM_CODE_49999 = 349999,   ///< Platform code 49999: transient.
    VANTIX_PLATFORM_CODE_50000 = 350000,   ///< Platform code 50000: transient.

    VANTIX_DEV_RELEASE_MISMATCH = 600001,  ///< A cached device of another release is not served.

    VANTIX_VERIFY_CODE_10001 = -3,     ///< Authentication server's code 10001.
    VANTIX_VERIFY_TOKEN_EXPIRED = -5,  ///< Authentication server's code 10002.
    VANTIX_VERIFY_CODE_20031 = -101,   ///< Authentication server's code 20031.
    VANTIX_VERIFY_OTHER = -1,          ///< Any other of its codes but 200.
};

}  // namespace vantix
