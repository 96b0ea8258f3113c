#include "TlsConnection.h"

#include <gnutls/gnutls.h>

#include <array>
#include <memory>
#include <string_view>

namespace vantix::simulator {
namespace {

constexpr unsigned timeoutMilliseconds = 5000;

using Session = std::unique_ptr<gnutls_session_int, decltype(&gnutls_deinit)>;
using Credentials = std::unique_ptr<gnutls_certificate_credentials_st, decltype(&gnutls_certificate_free_credentials)>;

gnutls_datum_t Datum(std::string& text) {
    return {reinterpret_cast<unsigned char*>(text.data()), static_cast<unsigned>(text.size())};
}

Credentials MakeCredentials(Certificate certificate) {
    gnutls_certificate_credentials_t made = nullptr;
    (void)gnutls_certificate_allocate_credentials(&made);
    Credentials credentials(made, gnutls_certificate_free_credentials);
    const gnutls_datum_t text = Datum(certificate.certificatePem);
    const gnutls_datum_t key = Datum(certificate.keyPem);
    (void)gnutls_certificate_set_x509_key_mem(made, &text, &key, GNUTLS_X509_FMT_PEM);
    return credentials;
}

bool IsInterrupted(ssize_t result) { return result == GNUTLS_E_INTERRUPTED || result == GNUTLS_E_AGAIN; }

bool Handshake(gnutls_session_t session, gnutls_certificate_credentials_t credentials, std::string protocol,
               int socket) {
    const gnutls_datum_t name = Datum(protocol);
    (void)gnutls_set_default_priority(session);
    (void)gnutls_credentials_set(session, GNUTLS_CRD_CERTIFICATE, credentials);
    (void)gnutls_alpn_set_protocols(session, &name, 1, 0);
    gnutls_transport_set_int(session, socket);
    gnutls_handshake_set_timeout(session, timeoutMilliseconds);
    gnutls_record_set_timeout(session, timeoutMilliseconds);
    int result = gnutls_handshake(session);
    while (IsInterrupted(result)) {
        result = gnutls_handshake(session);
    }
    return result == GNUTLS_E_SUCCESS;
}

/// Whether an HTTP/2 client has sent its whole first request, which a frame with END_STREAM ends.
bool HasEndOfStream(std::string_view received) {
    constexpr std::size_t preface = 24;
    constexpr std::size_t frameHeader = 9;
    constexpr unsigned endStream = 1;
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(received[at])); };
    std::size_t at = preface;
    while (at + frameHeader <= received.size()) {
        const std::size_t length = (byteAt(at) << 16U) | (byteAt(at + 1) << 8U) | byteAt(at + 2);
        const unsigned type = byteAt(at + 3);
        const bool isMessage = type <= 1;  // DATA or HEADERS
        if (isMessage && (byteAt(at + 4) & endStream) != 0 && at + frameHeader + length <= received.size()) {
            return true;
        }
        at += frameHeader + length;
    }
    return false;
}

bool IsWhole(std::string_view received, const std::string& protocol) {
    return protocol == "h2" ? HasEndOfStream(received) : received.find("\r\n\r\n") != std::string_view::npos;
}

void ReadRequest(gnutls_session_t session, const std::string& protocol) {
    std::string received;
    std::array<char, 4096> chunk{};
    while (!IsWhole(received, protocol)) {
        const auto size = gnutls_record_recv(session, chunk.data(), chunk.size());
        if (size > 0) {
            received.append(chunk.data(), static_cast<std::size_t>(size));
        } else if (!IsInterrupted(size)) {
            return;
        }
    }
}

}  // namespace

void ServeOverTls(int socket, const TlsOptions& options, const std::string& bytes, bool isClosed) {
    const Credentials credentials = MakeCredentials(options.certificate);
    gnutls_session_t made = nullptr;
    if (gnutls_init(&made, GNUTLS_SERVER | GNUTLS_NO_SIGNAL) < 0) {
        return;
    }
    const Session session(made, gnutls_deinit);
    if (!Handshake(made, credentials.get(), options.protocol, socket)) {
        return;
    }
    ReadRequest(made, options.protocol);
    (void)gnutls_record_send(made, bytes.data(), bytes.size());
    if (isClosed) {
        (void)gnutls_bye(made, GNUTLS_SHUT_WR);
    }
}

}  // namespace vantix::simulator
