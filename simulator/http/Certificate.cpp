#include "Certificate.h"

#include <gnutls/crypto.h>
#include <gnutls/gnutls.h>
#include <gnutls/x509.h>

#include <array>
#include <ctime>
#include <memory>
#include <stdexcept>

namespace vantix::simulator {
namespace {

constexpr std::time_t secondsPerDay = 24L * 60 * 60;

using KeyOwner = std::unique_ptr<gnutls_x509_privkey_int, decltype(&gnutls_x509_privkey_deinit)>;
using CertificateOwner = std::unique_ptr<gnutls_x509_crt_int, decltype(&gnutls_x509_crt_deinit)>;

void Check(int result, const char* step) {
    if (result < 0) {
        throw std::runtime_error(std::string(step) + ": " + gnutls_strerror(result));
    }
}

std::string TakeText(gnutls_datum_t datum) {
    std::string text(reinterpret_cast<const char*>(datum.data), datum.size);
    gnutls_free(datum.data);
    return text;
}

KeyOwner MakeKey() {
    gnutls_x509_privkey_t key = nullptr;
    Check(gnutls_x509_privkey_init(&key), "key");
    KeyOwner owner(key, gnutls_x509_privkey_deinit);
    Check(gnutls_x509_privkey_generate(key, GNUTLS_PK_ECDSA, GNUTLS_CURVE_TO_BITS(GNUTLS_ECC_CURVE_SECP256R1), 0),
          "key generation");
    return owner;
}

void NameLoopback(gnutls_x509_crt_t crt) {
    static constexpr std::string_view name = "localhost";
    static constexpr std::array<unsigned char, 4> address = {127, 0, 0, 1};
    Check(gnutls_x509_crt_set_dn_by_oid(crt, GNUTLS_OID_X520_COMMON_NAME, 0, name.data(),
                                        static_cast<unsigned>(name.size())),
          "common name");
    Check(gnutls_x509_crt_set_subject_alt_name(crt, GNUTLS_SAN_DNSNAME, name.data(), static_cast<unsigned>(name.size()),
                                               GNUTLS_FSAN_SET),
          "host name");
    Check(gnutls_x509_crt_set_subject_alt_name(crt, GNUTLS_SAN_IPADDRESS, address.data(), address.size(),
                                               GNUTLS_FSAN_APPEND),
          "host address");
}

void SetSerialNumber(gnutls_x509_crt_t crt) {
    std::array<unsigned char, 16> number{};
    Check(gnutls_rnd(GNUTLS_RND_NONCE, number.data(), number.size()), "serial number");
    number[0] &= 0x7FU;
    Check(gnutls_x509_crt_set_serial(crt, number.data(), number.size()), "serial number");
}

}  // namespace

Certificate MakeCertificate(Validity validity) {
    const KeyOwner key = MakeKey();
    gnutls_x509_crt_t crt = nullptr;
    Check(gnutls_x509_crt_init(&crt), "certificate");
    const CertificateOwner owner(crt, gnutls_x509_crt_deinit);
    const std::time_t now = std::time(nullptr);
    const bool isExpired = validity == Validity::expired;
    Check(gnutls_x509_crt_set_version(crt, 3), "version");
    SetSerialNumber(crt);
    Check(gnutls_x509_crt_set_activation_time(crt, now - (isExpired ? 2 : 1) * secondsPerDay), "activation");
    Check(gnutls_x509_crt_set_expiration_time(crt, now + (isExpired ? -1 : 3650) * secondsPerDay), "expiration");
    NameLoopback(crt);
    Check(gnutls_x509_crt_set_key(crt, key.get()), "public key");
    Check(gnutls_x509_crt_sign2(crt, crt, key.get(), GNUTLS_DIG_SHA256, 0), "signature");

    gnutls_datum_t certificateText{};
    Check(gnutls_x509_crt_export2(crt, GNUTLS_X509_FMT_PEM, &certificateText), "certificate text");
    Certificate made;
    made.certificatePem = TakeText(certificateText);
    gnutls_datum_t keyText{};
    Check(gnutls_x509_privkey_export2(key.get(), GNUTLS_X509_FMT_PEM, &keyText), "key text");
    made.keyPem = TakeText(keyText);
    return made;
}

}  // namespace vantix::simulator
