#include "support/SimulatorClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

namespace vantix::test {
namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

void AddPairs(const std::string& text, std::vector<std::string>& pairs) {
    size_t begin = 0;
    while (begin < text.size()) {
        const size_t end = std::min(text.find('&', begin), text.size());
        pairs.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

unsigned char Nibble(char digit) {
    const auto c = static_cast<unsigned char>(std::tolower(static_cast<unsigned char>(digit)));
    return static_cast<unsigned char>(c <= '9' ? c - '0' : c - 'a' + 10);
}

std::string FromHex(const std::string& hex) {
    std::string bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(Nibble(hex[i]) << 4U | Nibble(hex[i + 1]));
    }
    return bytes;
}

/// Bytes that are no UTF-8 stand exactly under the second key.
std::string Bytes(const Json& entry, const char* key, const char* hexKey) {
    return entry.contains(hexKey) ? FromHex(entry.at(hexKey)) : entry.at(key).get<std::string>();
}

ReceivedRequest FromJournal(const Json& entry) {
    ReceivedRequest request;
    request.domain = entry.at("domain");
    request.method = entry.at("method");
    request.path = Bytes(entry, "path", "pathHex");
    request.query = Bytes(entry, "query", "queryHex");
    request.body = Bytes(entry, "body", "bodyHex");
    const bool isHex = entry.contains("headersHex");
    for (const Json& header : entry.at(isHex ? "headersHex" : "headers")) {
        const std::string name = header.at(0);
        const std::string value = header.at(1);
        request.headers.emplace_back(isHex ? FromHex(name) : name, isHex ? FromHex(value) : value);
    }
    return request;
}

std::vector<ReceivedRequest> AllFromJournal(const Json& journal) {
    std::vector<ReceivedRequest> requests;
    for (const Json& entry : journal) {
        requests.push_back(FromJournal(entry));
    }
    return requests;
}

/// A curl handle that is freed.
class Handle {
public:
    Handle() : m_handle(curl_easy_init()) {
        if (m_handle == nullptr) {
            throw std::runtime_error("no curl handle");
        }
    }
    ~Handle() { curl_easy_cleanup(m_handle); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    template <class Value>
    void Set(CURLoption option, Value value) {
        if (curl_easy_setopt(m_handle, option, value) != CURLE_OK) {
            throw std::runtime_error("a curl option was refused");
        }
    }

    long Perform() {
        if (const CURLcode code = curl_easy_perform(m_handle); code != CURLE_OK) {
            throw std::runtime_error(std::string("the loopback cloud's control interface: ") +
                                     curl_easy_strerror(code));
        }
        long status = 0;
        curl_easy_getinfo(m_handle, CURLINFO_RESPONSE_CODE, &status);
        return status;
    }

private:
    CURL* m_handle;
};

size_t Append(char* data, size_t size, size_t count, void* text) {
    static_cast<std::string*>(text)->append(data, size * count);
    return size * count;
}

}  // namespace

std::vector<std::string> ReceivedRequest::Parameters() const {
    std::vector<std::string> pairs;
    AddPairs(query, pairs);
    AddPairs(body, pairs);
    return pairs;
}

std::string ReceivedRequest::Parameter(const std::string& key) const {
    for (const std::string& pair : Parameters()) {
        if (pair.compare(0, key.size() + 1, key + "=") == 0) {
            return pair.substr(key.size() + 1);
        }
    }
    return "<none>";
}

std::string ReceivedRequest::Header(const std::string& name) const {
    for (const auto& [key, value] : headers) {
        if (Lower(key) == Lower(name)) {
            return value;
        }
    }
    return "<none>";
}

std::vector<std::string> ReceivedRequest::HeaderNames() const {
    std::vector<std::string> names;
    for (const auto& [key, value] : headers) {
        names.push_back(Lower(key));
    }
    std::sort(names.begin(), names.end());
    return names;
}

SimulatorClient::SimulatorClient() {
    const char* address = std::getenv("VANTIX_SIMULATOR");
    if (address == nullptr || *address == '\0') {
        throw std::runtime_error(
            "VANTIX_SIMULATOR is not set: run the tests as `vantix-simulator --run -- integration`");
    }
    m_address = address;
}

Json SimulatorClient::Call(const char* method, const std::string& path, const Json* content) const {
    Handle handle;
    std::string response;
    const std::string url = m_address + path;
    const std::string body = content == nullptr ? "" : content->dump();
    handle.Set(CURLOPT_URL, url.c_str());
    handle.Set(CURLOPT_CUSTOMREQUEST, method);
    if (content != nullptr) {
        handle.Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
        handle.Set(CURLOPT_POSTFIELDS, body.c_str());
    }
    handle.Set(CURLOPT_NOPROXY, "*");
    handle.Set(CURLOPT_NOSIGNAL, 1L);
    handle.Set(CURLOPT_WRITEFUNCTION, &Append);
    handle.Set(CURLOPT_WRITEDATA, &response);
    if (const long status = handle.Perform(); status != 200) {
        throw std::runtime_error(std::string(method) + " " + path + ": " + std::to_string(status) + " " + response);
    }
    return Json::parse(response);
}

Json SimulatorClient::Get(const std::string& path) const { return Call("GET", path, nullptr); }
Json SimulatorClient::Post(const std::string& path, const Json& content) const { return Call("POST", path, &content); }
Json SimulatorClient::Put(const std::string& path, const Json& content) const { return Call("PUT", path, &content); }
void SimulatorClient::Delete(const std::string& path) const { Call("DELETE", path, nullptr); }

Json SimulatorClient::Camera(const std::string& serial, int cameraNo) const {
    const Json device = Device(serial);
    for (const Json& camera : device.at("cameras")) {
        if (camera.at("cameraNo") == cameraNo) {
            return camera;
        }
    }
    throw std::runtime_error(serial + " has no such channel");
}

std::string SimulatorClient::ClosedPort() const {
    std::string address = Fault({{"then", "close"}});
    Delete("/faults");
    return address;
}

bool SimulatorClient::WaitUntilHeld(const std::string& hold, int count) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (std::chrono::steady_clock::now() < deadline) {
        if (Get("/holds").value(hold, 0) >= count) {
            return true;
        }
    }
    return false;
}

std::vector<ReceivedRequest> SimulatorClient::Requests() const { return AllFromJournal(Get("/journal")); }

std::vector<ReceivedRequest> SimulatorClient::TakeRequests(size_t most) const {
    return AllFromJournal(Post("/journal/take", {{"most", most}}));
}

std::vector<ReceivedRequest> SimulatorClient::Requests(const std::string& path) const {
    std::vector<ReceivedRequest> requests;
    for (ReceivedRequest& request : Requests()) {
        if (request.path == path) {
            requests.push_back(std::move(request));
        }
    }
    return requests;
}

}  // namespace vantix::test
