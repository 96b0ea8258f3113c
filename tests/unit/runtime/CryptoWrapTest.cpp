#include "cryptowrap/cryptowrap.h"

#include <gtest/gtest.h>
#if !defined(_WIN32)
#include <openssl/evp.h>
#endif

#include <algorithm>
#include <string>

#include "cryptowrap/HexText.h"

namespace {

#if !defined(_WIN32)
/// What the digest function of the cryptographic library is to say instead of working.
struct DigestFault {
    bool isOn = false;
    int result = 1;
    unsigned size = 0;
};
DigestFault g_fault;
#endif

struct KnownAnswer {
    std::string data;
    const char* digest;
};

/// The suite that the algorithm was published with, and the code of a known machine.
const KnownAnswer kKnownAnswers[] = {
    {"", "d41d8cd98f00b204e9800998ecf8427e"},
    {"a", "0cc175b9c0f1b6a831c399e269772661"},
    {"abc", "900150983cd24fb0d6963f7d28e17f72"},
    {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
    {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
    {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", "d174ab98d277d9f5a5611c2c9f419d9f"},
    {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
     "57edf4a22be3c955ac49da2e2107b67a"},
    {std::string(1, '\0'), "93b885adfe0da089cdf634904fd59f71"},
    {"ABC|00-11-22-33-44-55", "a3d4512a48b1908a15222e4f630a88e6"},
};

#if !defined(_WIN32)
TEST(Md5, ADigestThatIsNotMadeIsMinusOneAndLeavesTheText) {
    const DigestFault faults[] = {{true, 0, 16}, {true, -1, 16}, {true, 1, 8}, {true, 1, 0}};
    for (const DigestFault& fault : faults) {
        SCOPED_TRACE(fault.result * 100 + static_cast<int>(fault.size));
        g_fault = fault;
        char text[64] = "before";
        unsigned length = 7;
        EXPECT_EQ(ssl_md5_digest("a", 1, text, &length), -1);
        EXPECT_STREQ(text, "before");
        EXPECT_EQ(length, 7U);
        g_fault = {};
    }
}
#endif

TEST(Md5, KnownAnswers) {
    for (const KnownAnswer& row : kKnownAnswers) {
        SCOPED_TRACE(row.data);
        char text[64] = {};
        unsigned length = 0;
        EXPECT_EQ(ssl_md5_digest(row.data.data(), static_cast<unsigned>(row.data.size()), text, &length), 0);
        EXPECT_STREQ(text, row.digest);
        EXPECT_EQ(length, 32U);
    }
}

TEST(Md5, EndsItsTextWithAZeroAndWritesNoFurther) {
    char text[64];
    std::fill(std::begin(text), std::end(text), '#');
    unsigned length = 0;
    ASSERT_EQ(ssl_md5_digest("abc", 3, text, &length), 0);
    EXPECT_EQ(text[32], '\0');
    EXPECT_EQ(std::string(text + 33, sizeof(text) - 33), std::string(sizeof(text) - 33, '#'));
}

TEST(Md5, TakesTheLengthThatItIsGiven) {
    char text[64] = {};
    unsigned length = 0;
    ASSERT_EQ(ssl_md5_digest("abcdef", 3, text, &length), 0);
    EXPECT_STREQ(text, "900150983cd24fb0d6963f7d28e17f72");
}

TEST(Md5, NullPointersAreRefused) {
    char text[64] = "as before";
    unsigned length = 7;
    EXPECT_LT(ssl_md5_digest(nullptr, 0, text, &length), 0);
    EXPECT_LT(ssl_md5_digest("abc", 3, nullptr, &length), 0);
    EXPECT_LT(ssl_md5_digest("abc", 3, text, nullptr), 0);
    EXPECT_STREQ(text, "as before");
    EXPECT_EQ(length, 7U);
}

TEST(HexText, WritesTwoLowerCaseDigitsForEachByte) {
    const unsigned char digest[cryptowrap::kMd5Bytes] = {0x00, 0x01, 0x0f, 0x10, 0x7f, 0x80, 0x9a, 0xab,
                                                         0xbc, 0xcd, 0xde, 0xef, 0xf0, 0xfe, 0xff, 0x42};
    char text[64] = {};
    cryptowrap::WriteHex(digest, text);
    EXPECT_STREQ(text, "00010f107f809aabbccddeeff0feff42");
}

}  // namespace

#if !defined(_WIN32)
// The linker leads calls of this function here (options.cmake).
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __real_EVP_Digest(const void* data, size_t count, unsigned char* digest, unsigned* size, const EVP_MD* type,
                      ENGINE* engine);

int __wrap_EVP_Digest(const void* data, size_t count, unsigned char* digest, unsigned* size, const EVP_MD* type,
                      ENGINE* engine) {
    if (!g_fault.isOn) {
        return __real_EVP_Digest(data, count, digest, size, type, engine);
    }
    *size = g_fault.size;
    return g_fault.result;
}
}
// NOLINTEND(bugprone-reserved-identifier)
#endif
