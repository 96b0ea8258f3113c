// Servers that are not there, that fail before a request reaches them, or that speak HTTP/2.

#include "faults/FaultRow.h"
#include "support/Hex.h"

namespace vantix::test {
namespace {

constexpr char kUnknownHost[] = "https://nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn.invalid";

Json Tls(bool isExpired) { return {{"protocol", "http/1.1"}, {"isExpired", isExpired}}; }

constexpr char kWhole[] = "HTTP/1.1 200 OK\r\nContent-Length: $length\r\n\r\n$body";

std::vector<FaultRow> Http1Rows() {
    const Outcome kNotOneByte = {.result = 100035, .requests = 0, .connections = 1};
    return {
        {.name = "ClosedPort", .domain = "$closed", .outcome = {.result = 100007, .requests = 0}},
        // 35, or 7 when the reset comes before the connection is used.
        {.name = "AcceptThenReset",
         .port = {{"then", "reset"}},
         .outcome = {.result = kSomeTransportFailure, .requests = 0, .connections = 1}},
        {.name = "AcceptThenClose", .port = {{"then", "close"}}, .outcome = kNotOneByte},
        {.name = "GarbageInsteadOfAHello",
         .port = {{"send", "garbage that is no handshake at all\r\n"}, {"then", "close"}},
         .outcome = kNotOneByte},
        {.name = "PlainTextOnTheTlsPort",
         .port = {{"send", "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n"}, {"then", "close"}},
         .outcome = kNotOneByte},
        {.name = "TlsAlert", .port = {{"sendHex", "15030300020228"}, {"then", "close"}}, .outcome = kNotOneByte},
        {.name = "PlainTextToTheTlsPort",
         .domain = "http://$host",
         .outcome = {.result = kSomeTransportFailure, .requests = 0}},
        // libcurl speaks HTTP to an address without a scheme.
        {.name = "AddressWithoutAScheme",
         .domain = "$host",
         .outcome = {.result = kSomeTransportFailure, .requests = 0, .logged = "credentials are sent in clear text"}},
        {.name = "ExpiredCertificate",
         .port = {{"tls", Tls(true)}, {"send", kWhole}},
         .outcome = {.requests = 0, .connections = 1}},
        // Every certificate of the cloud is signed by itself, and for localhost.
        {.name = "SelfSignedCertificate", .outcome = {.isAsBefore = true}},
        {.name = "CertificateOfAnotherHost",
         .domain = "https://another-host.localhost$port",
         .outcome = {.sent = "host: another-host.localhost$port\n", .isAsBefore = true}},
        // A label of 64 characters cannot even be asked for.
        {.name = "UnknownHost", .domain = kUnknownHost, .outcome = {.result = 100006, .requests = 0}},
        {.name = "AddressThatIsNone", .domain = "https://127.0.0.1 :443", .outcome = {.result = 100003, .requests = 0}},
        {.name = "SchemeThatNobodySpeaks",
         .domain = "nosuch://127.0.0.1",
         .outcome = {.result = 100001, .requests = 0}},
        {.name = "ResetWithinTheBody",
         .port = {{"tls", Tls(false)},
                  {"send", "HTTP/1.1 200 OK\r\nContent-Length: $length\r\n\r\n$half"},
                  {"then", "reset"}},
         .outcome = {.result = 100056, .requests = 0, .connections = 1}},
    };
}

#if !defined(_WIN32)
// The transport is built without HTTP/2 there, and never offers it.

/// A frame as hexadecimal text. `stream` is one digit, the payload is hexadecimal.
std::string Frame(const char* type, const char* flags, char stream, const std::string& payload) {
    const size_t length = payload.size() / 2;
    const std::string bytes = {static_cast<char>(length >> 16U), static_cast<char>(length >> 8U),
                               static_cast<char>(length)};
    return Hex(bytes).append(type).append(flags).append("0000000").append(1, stream).append(payload);
}

/// The settings, and status 200 by its place in the table that every peer knows.
std::string Opening() { return Frame("04", "00", '0', "") + Frame("04", "01", '0', "") + Frame("01", "04", '1', "88"); }

std::string Body(const char* flags, const std::string& body) { return Frame("00", flags, '1', Hex(body)); }

std::string Half(const std::string& body) { return body.substr(0, body.size() / 2); }

Json Http2(const std::string& frames) { return {{"tls", {{"protocol", "h2"}}}, {"sendHex", Opening() + frames}}; }

constexpr char kInternalError[] = "00000002";
constexpr char kThisStreamAndNoError[] = "0000000100000000";

Json WholeOverHttp2(const std::string& body) { return Http2(Body("01", body)); }
Json StreamReset(const std::string& body) {
    return Http2(Body("00", Half(body)) + Frame("03", "00", '1', kInternalError));
}
Json GoAway(const std::string& body) {
    return Http2(Body("00", Half(body)) + Frame("07", "00", '0', kThisStreamAndNoError));
}

std::vector<FaultRow> Http2Rows() {
    return {
        {.name = "Http2Offered", .portOf = WholeOverHttp2, .outcome = {.requests = 0, .connections = 1}},
        {.name = "Http2StreamReset",
         .portOf = StreamReset,
         .outcome = {.result = 100092, .requests = 0, .connections = 1}},
        {.name = "Http2GoAwayWithinTheBody",
         .portOf = GoAway,
         .outcome = {.result = 100018, .requests = 0, .connections = 1}},
    };
}
#else
std::vector<FaultRow> Http2Rows() { return {}; }
#endif

}  // namespace

std::vector<FaultRow> ConnectionRows() {
    std::vector<FaultRow> rows = Http1Rows();
    for (FaultRow& row : Http2Rows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace vantix::test
