// The form post of the jobs with other C++ libraries: a new connection each, certificates unchecked, the body as a
// text.

#include "../BareRequest.h"  // before cpprestsdk, which defines a word that libcurl's header asks for

#define CPPHTTPLIB_OPENSSL_SUPPORT
#include <cpprest/http_client.h>
#include <httplib.h>

#include <string>

#include "PeerCases.h"

namespace vantix::bench {
namespace {

constexpr char kPath[] = "/api/lapp/video/by/id";
constexpr char kForm[] =
    "accessToken=at.4r7v0c2c8pqn6mzk1x9h5d3b-6tfu2w8y4j-1s0aq7e-lkn5vbxdr&alarmId=2601020304055f3c8a71d2e94b06&"
    "channelNo=1&clientType=19&clientVersion=v5.25.0&deviceSerial=C10000000&featureCode="
    "0123456789abcdef0123456789abcdef&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515";
constexpr char kFormType[] = "application/x-www-form-urlencoded";

template <bool Tls>
const std::string& Address() {
    static const std::string address = ServerAddress(Tls);
    return address;
}

template <bool Tls>
void ByLibcurl() {
    static const BareRequest request{.url = Address<Tls>() + kPath, .form = kForm, .headers = {}};
    BareBody body;
    Require(Send(request, body) == CURLE_OK && body.Size() > 0, "libcurl failed");
}

template <bool Tls>
void ByHttplib() {
    httplib::Client client(Address<Tls>());
    client.enable_server_certificate_verification(false);
    const auto response = client.Post(kPath, kForm, kFormType);
    Require(response && response->status == 200 && !response->body.empty(), "cpp-httplib failed");
}

template <bool Tls>
void ByCpprest() {
    web::http::client::http_client_config settings;
    settings.set_validate_certificates(false);
    web::http::client::http_client client(Address<Tls>(), settings);
    const std::string body =
        client.request(web::http::methods::POST, kPath, kForm, kFormType)
            .then([](const web::http::http_response& response) { return response.extract_string(true); })
            .get();
    Require(!body.empty(), "cpprestsdk failed");
}

}  // namespace

std::vector<Case> RequestPeers() {
    return {
        MakeCase<PrepareNothing, ByLibcurl<false>>("peer/request/plain/libcurl", kFewRounds),
        MakeCase<PrepareNothing, ByHttplib<false>>("peer/request/plain/cpp-httplib", kFewRounds),
        MakeCase<PrepareNothing, ByCpprest<false>>("peer/request/plain/cpprestsdk", kFewRounds),
        MakeCase<PrepareNothing, ByLibcurl<true>>("peer/request/tls/libcurl", kFewRounds),
        MakeCase<PrepareNothing, ByHttplib<true>>("peer/request/tls/cpp-httplib", kFewRounds),
        MakeCase<PrepareNothing, ByCpprest<true>>("peer/request/tls/cpprestsdk", kFewRounds),
    };
}

}  // namespace vantix::bench
