#pragma once

#include <string>

namespace vantix::simulator {

/// A self-signed ECDSA (P-256) certificate for 127.0.0.1 and localhost with its key, both as PEM text.
struct Certificate {
    std::string certificatePem;
    std::string keyPem;
};

enum class Validity {
    current,  ///< from yesterday for ten years
    expired,  ///< until yesterday
};

/// Makes a new certificate in memory. Throws std::runtime_error.
Certificate MakeCertificate(Validity validity = Validity::current);

}  // namespace vantix::simulator
