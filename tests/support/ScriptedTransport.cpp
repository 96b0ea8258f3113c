// Takes the place of libcurl by the linker's --wrap=curl_easy_setopt --wrap=curl_easy_perform --wrap=curl_easy_cleanup

#include "support/ScriptedTransport.h"

#include <curl/curl.h>

#include <atomic>
#include <cstdarg>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

#include "support/FailingNew.h"

namespace vantix::test {
namespace {

/// What was set on a handle.
struct Pending {
    SentRequest request;
    bool hasBody = false;
    std::string customMethod;
    curl_write_callback write = nullptr;
    void* writeData = nullptr;
};

/// A handle is made, set and used by one thread, so nothing here puts threads in an order that the library would not.
/// A pointer, as MinGW frees what a thread has before it destroys it.
thread_local std::map<CURL*, Pending>* t_pending = nullptr;
std::atomic<bool> g_active{false};
std::atomic<bool> g_isUnrecorded{false};

std::mutex g_mutex;
std::deque<ScriptedTransport::Maker> g_script;
ScriptedTransport::Maker g_always;
std::vector<SentRequest> g_sent;

Pending& PendingOf(CURL* handle) {
    if (t_pending == nullptr) {
        t_pending = new std::map<CURL*, Pending>;
    }
    return (*t_pending)[handle];
}

void Forget(CURL* handle) {
    if (t_pending != nullptr && t_pending->erase(handle) == 1 && t_pending->empty()) {
        delete std::exchange(t_pending, nullptr);
    }
}

std::string TextOrNone(const void* text) { return text == nullptr ? "" : static_cast<const char*>(text); }

void NotePointer(Pending& pending, CURLoption option, void* value) {
    switch (option) {
        case CURLOPT_URL: pending.request.url = TextOrNone(value); break;
        case CURLOPT_CUSTOMREQUEST: pending.customMethod = TextOrNone(value); break;
        case CURLOPT_POSTFIELDS:
            pending.request.body = TextOrNone(value);
            pending.hasBody = true;
            break;
        case CURLOPT_HTTPHEADER:
            for (auto* line = static_cast<curl_slist*>(value); line != nullptr; line = line->next) {
                pending.request.headers.emplace_back(line->data);
            }
            break;
        case CURLOPT_WRITEDATA: pending.writeData = value; break;
        default: break;
    }
}

void NoteFunction(Pending& pending, CURLoption option, curl_write_callback function) {
    if (option == CURLOPT_WRITEFUNCTION) {
        pending.write = function;
    }
}

/// The next response's maker, and the request noted as sent.
ScriptedTransport::Maker TakeMaker(const SentRequest& request) {
    if (g_isUnrecorded) {
        return g_always;
    }
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_sent.push_back(request);
    if (g_script.empty()) {
        return g_always;
    }
    ScriptedTransport::Maker maker = g_script.front();
    g_script.pop_front();
    return maker;
}

ScriptedResponse NextResponse(Pending& pending) {
    const FailingNew::Suspended suspended;
    pending.request.method = pending.hasBody ? "POST" : "GET";
    if (!pending.customMethod.empty()) {
        pending.request.method = pending.customMethod;
    }
    const ScriptedTransport::Maker maker = TakeMaker(pending.request);
    return maker ? maker(pending.request) : ScriptedResponse{CURLE_COULDNT_CONNECT, ""};
}

/// Delivers the next response through the library's own callback.
CURLcode Play(Pending& pending) {
    ScriptedResponse response = NextResponse(pending);
    const size_t size = response.body.size();
    if (pending.write != nullptr && size != 0 &&
        pending.write(response.body.data(), 1, size, pending.writeData) != size) {
        return CURLE_WRITE_ERROR;
    }
    return static_cast<CURLcode>(response.code);
}

/// Copies what was set on a handle so far; false when transfers are not scripted.
bool TakePending(CURL* handle, Pending& pending) {
    const FailingNew::Suspended suspended;
    pending = PendingOf(handle);
    return g_active;
}

void NotePointer(CURL* handle, CURLoption option, void* value) {
    const FailingNew::Suspended suspended;
    NotePointer(PendingOf(handle), option, value);
}

void NoteFunction(CURL* handle, CURLoption option, curl_write_callback function) {
    const FailingNew::Suspended suspended;
    NoteFunction(PendingOf(handle), option, function);
}

/// The parameters, as pairs of key and value.
std::vector<std::pair<std::string, std::string>> Pairs(const SentRequest& request) {
    const size_t mark = request.url.find('?');
    std::string text = mark == std::string::npos ? request.body : request.url.substr(mark + 1);
    std::vector<std::pair<std::string, std::string>> pairs;
    while (!text.empty()) {
        const std::string pair = text.substr(0, text.find('&'));
        const size_t sign = pair.find('=');
        pairs.emplace_back(pair.substr(0, sign), sign == std::string::npos ? "" : pair.substr(sign + 1));
        text.erase(0, pair.size() + 1);
    }
    return pairs;
}

}  // namespace

std::string SentRequest::Param(const std::string& key) const {
    for (const auto& [name, value] : Pairs(*this)) {
        if (name == key) {
            return value;
        }
    }
    return "<none>";
}

std::vector<std::string> SentRequest::Keys() const {
    std::vector<std::string> keys;
    for (const auto& [name, value] : Pairs(*this)) {
        keys.push_back(name);
    }
    return keys;
}

std::string SentRequest::Header(const std::string& key) const {
    for (const std::string& header : headers) {
        if (header == key + ";") {  // without a value
            return "";
        }
        if (header.rfind(key + ": ", 0) == 0) {
            return header.substr(key.size() + 2);
        }
    }
    return "<none>";
}

std::string SentRequest::Path() const {
    const size_t domain = url.find("://");
    const size_t path = url.find('/', domain == std::string::npos ? 0 : domain + 3);
    return path == std::string::npos ? "" : url.substr(path, url.find('?', path) - path);
}

ScriptedTransport::ScriptedTransport() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_active = true;
    g_isUnrecorded = false;
    g_script.clear();
    g_always = nullptr;
    g_sent.clear();
}

ScriptedTransport::~ScriptedTransport() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_active = false;
}

void ScriptedTransport::Respond(const std::string& body, int times) {
    for (int i = 0; i < times; ++i) {
        Make([body](const SentRequest&) { return ScriptedResponse{CURLE_OK, body}; });
    }
}

void ScriptedTransport::Fail(int code) {
    Make([code](const SentRequest&) { return ScriptedResponse{code, ""}; });
}

void ScriptedTransport::Make(const Maker& maker) {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_script.push_back(maker);
}

void ScriptedTransport::DropScript() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_script.clear();
}

void ScriptedTransport::Always(const Maker& maker) {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_always = maker;
}

void ScriptedTransport::AlwaysUnrecorded(const Maker& maker) {
    Always(maker);
    g_isUnrecorded = true;
}

std::vector<SentRequest> ScriptedTransport::Sent() const {
    const std::lock_guard<std::mutex> guard(g_mutex);
    return g_sent;
}

}  // namespace vantix::test

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {
CURLcode __real_curl_easy_setopt(CURL* handle, CURLoption option, ...);
CURLcode __real_curl_easy_perform(CURL* handle);
void __real_curl_easy_cleanup(CURL* handle);

CURLcode __wrap_curl_easy_setopt(CURL* handle, unsigned number, ...) {  // an enumeration cannot precede the values
    using namespace vantix::test;
    const auto option = static_cast<CURLoption>(number);
    va_list values;
    va_start(values, number);
    CURLcode result = CURLE_UNKNOWN_OPTION;
    if (number < CURLOPTTYPE_OBJECTPOINT) {
        const long value = va_arg(values, long);
        result = __real_curl_easy_setopt(handle, option, value);
    } else if (number < CURLOPTTYPE_FUNCTIONPOINT) {
        void* value = va_arg(values, void*);
        NotePointer(handle, option, value);
        result = __real_curl_easy_setopt(handle, option, value);
    } else if (number < CURLOPTTYPE_OFF_T) {
        auto* value = va_arg(values, curl_write_callback);
        NoteFunction(handle, option, value);
        result = __real_curl_easy_setopt(handle, option, value);
    } else {
        result = __real_curl_easy_setopt(handle, option, va_arg(values, curl_off_t));
    }
    va_end(values);
    return result;
}

CURLcode __wrap_curl_easy_perform(CURL* handle) {
    using namespace vantix::test;
    Pending pending;
    return TakePending(handle, pending) ? Play(pending) : __real_curl_easy_perform(handle);
}

void __wrap_curl_easy_cleanup(CURL* handle) {
    vantix::test::Forget(handle);
    __real_curl_easy_cleanup(handle);
}
}
// NOLINTEND(bugprone-reserved-identifier)
