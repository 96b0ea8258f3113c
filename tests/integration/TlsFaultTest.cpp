// Servers whose TLS or HTTP version is not that of the two domains.

#include "FaultFixture.h"
#include "support/Hex.h"

namespace vantix::test {
namespace {

class TlsFaultTest : public FaultFixture {};

TEST_P(TlsFaultTest, ConcernsThatCallAlone) { ExpectSurvivalOfTheFault(); }

constexpr size_t kBodyLength = sizeof(kSmallResponse) - 1;

/// An HTTP/1.1 response with this many bytes of the body.
std::string Response(size_t sent) {
    std::string response = "HTTP/1.1 200 OK\r\nContent-Length: ";
    return response.append(std::to_string(kBodyLength)).append("\r\n\r\n").append(kSmallResponse, sent);
}

Json Tls(const char* protocol, bool isExpired = false) { return {{"protocol", protocol}, {"isExpired", isExpired}}; }

const FaultRow kRows[] = {
    {"ExpiredCertificateIsTakenAsItIs", {{"tls", Tls("http/1.1", true)}, {"send", Response(kBodyLength)}}, 0},
    {"ResetWithinTheBody", {{"tls", Tls("http/1.1")}, {"send", Response(kBodyLength / 2)}, {"then", "reset"}}, 100056},
};

INSTANTIATE_TEST_SUITE_P(Http1, TlsFaultTest, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

#if !defined(_WIN32)
// The transport is built without HTTP/2 there, and never offers it.

/// A frame as hexadecimal text. `stream` is one digit, the payload is hexadecimal.
std::string Frame(const char* type, const char* flags, char stream, const std::string& payload) {
    const size_t length = payload.size() / 2;
    const std::string bytes = {static_cast<char>(length >> 16U), static_cast<char>(length >> 8U),
                               static_cast<char>(length)};
    return Hex(bytes).append(type).append(flags).append("0000000").append(1, stream).append(payload);
}

std::string Opening() { return Frame("04", "00", '0', "") + Frame("04", "01", '0', ""); }

/// Status 200, by its place in the table that every peer knows.
std::string Ok() { return Frame("01", "04", '1', "88"); }

std::string Body(const char* flags, size_t sent) { return Frame("00", flags, '1', Hex({kSmallResponse, sent})); }

constexpr char kInternalError[] = "00000002";
constexpr char kThisStreamAndNoError[] = "0000000100000000";

Json Http2(const std::string& frames) { return {{"tls", Tls("h2")}, {"sendHex", Opening() + frames}}; }

const FaultRow kHttp2Rows[] = {
    {"ResponseIsRead", Http2(Ok() + Body("01", kBodyLength)), 0},
    {"StreamReset", Http2(Ok() + Body("00", kBodyLength / 2) + Frame("03", "00", '1', kInternalError)), 100092},
    {"GoAwayWithinTheBody", Http2(Ok() + Body("00", kBodyLength / 2) + Frame("07", "00", '0', kThisStreamAndNoError)),
     100018},
};

INSTANTIATE_TEST_SUITE_P(Http2, TlsFaultTest, ::testing::ValuesIn(kHttp2Rows),
                         [](const auto& row) { return row.param.name; });
#endif

}  // namespace
}  // namespace vantix::test
