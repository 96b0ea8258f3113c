#include <openssl/evp.h>

#include "cryptowrap/HexText.h"
#include "cryptowrap/cryptowrap.h"

int ssl_md5_digest(const void* data, unsigned length, char* digestText, unsigned* digestLength) {
    unsigned char digest[cryptowrap::kMd5Bytes] = {};
    unsigned size = 0;
    if (data == nullptr || digestText == nullptr || digestLength == nullptr ||
        EVP_Digest(data, length, digest, &size, EVP_md5(), nullptr) != 1 || size != cryptowrap::kMd5Bytes) {
        return -1;
    }
    cryptowrap::WriteHex(digest, digestText);
    *digestLength = 2 * cryptowrap::kMd5Bytes;
    return 0;
}
