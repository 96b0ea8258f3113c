#pragma once

#include <string>

namespace vantix::simulator {

/// A self-signed ECDSA (P-256) certificate for 127.0.0.1 and localhost with its key, both as PEM text.
struct Certificate {
    std::string certificatePem;
    std::string keyPem;
};

/// Makes a fresh one in memory, valid from yesterday for ten years. Throws std::runtime_error.
Certificate MakeCertificate();

}  // namespace vantix::simulator
