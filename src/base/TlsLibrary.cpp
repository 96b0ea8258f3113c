#include "base/TlsLibrary.h"

#if !defined(_WIN32)
#include <openssl/crypto.h>
#endif

namespace vantix {

void KeepTlsLibraryToTheEnd() {
#if !defined(_WIN32)
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
#endif
}

}  // namespace vantix
