#include <windows.h>
// The system's main header comes before its cryptography.
#include <bcrypt.h>

#include "cryptowrap/HexText.h"
#include "cryptowrap/cryptowrap.h"

int ssl_md5_digest(const void* data, unsigned length, char* digestText, unsigned* digestLength) {
    if (data == nullptr || digestText == nullptr || digestLength == nullptr) {
        return -1;
    }
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    if (BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_MD5_ALGORITHM, nullptr, 0) != 0) {
        return -1;
    }
    unsigned char digest[cryptowrap::kMd5Bytes] = {};
    auto* bytes = static_cast<UCHAR*>(const_cast<void*>(data));  // the call only reads them
    const auto status = BCryptHash(algorithm, nullptr, 0, bytes, length, digest, sizeof(digest));
    BCryptCloseAlgorithmProvider(algorithm, 0);
    if (status != 0) {
        return -1;
    }
    cryptowrap::WriteHex(digest, digestText);
    *digestLength = 2 * cryptowrap::kMd5Bytes;
    return 0;
}
