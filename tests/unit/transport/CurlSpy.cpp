#include "unit/transport/CurlSpy.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>

#include "transport/CurlCallbacks.h"
#include "transport/ResponseBody.h"

namespace vantix::test {
namespace {

struct Fault {
    size_t countdown = 0;  // 0: none fails
    CURLcode code = CURLE_OK;

    bool FailsNow() { return countdown != 0 && --countdown == 0; }
};

/// What was set on the handle in use.
struct Handle {
    std::string url;
    std::string customMethod;
    const char* postFields = nullptr;
    long postFieldSize = -1;
    bool isPost = false;
    bool isForm = false;
    curl_slist* headers = nullptr;
    curl_write_callback write = nullptr;
    void* writeData = nullptr;
};

struct State {
    bool initFails = false;
    Fault option;
    Fault header;
    Fault form;
    CURLcode responseCode = CURLE_OK;
    std::vector<std::string> pieces;
    std::vector<std::string> calls;
    size_t options = 0;
    size_t formCalls = 0;
    int unreleased = 0;
    Handle handle;
    std::string sentUrl;
    std::string sentMethod;
    std::string sentBody;
    std::vector<std::string> sentHeaders;
    std::optional<std::string> conversion;
    std::vector<std::string> converted;
};

State* g_state = nullptr;
std::atomic<size_t> g_failingSize{0};

bool IsTooLarge(size_t size) { return g_failingSize != 0 && size >= g_failingSize; }

void Record(const std::string& call) { g_state->calls.push_back(call); }

std::string TextOrNull(const char* text) { return text == nullptr ? "null" : text; }

std::string HeaderText(const curl_slist* list) {
    if (list == nullptr) {
        return "null";
    }
    std::string text;
    for (; list != nullptr; list = list->next) {
        text.append("[").append(list->data).append("]");
    }
    return text;
}

bool IsText(CURLoption option) {
#if CURL_AT_LEAST_VERSION(7, 85, 0)
    if (option == CURLOPT_PROTOCOLS_STR || option == CURLOPT_REDIR_PROTOCOLS_STR) {
        return true;
    }
#endif
    return option == CURLOPT_URL || option == CURLOPT_CUSTOMREQUEST || option == CURLOPT_POSTFIELDS;
}

std::string PointerText(CURLoption option, void* value) {
    if (option == CURLOPT_HTTPHEADER) {
        return HeaderText(static_cast<curl_slist*>(value));
    }
    if (IsText(option)) {
        return TextOrNull(static_cast<const char*>(value));
    }
    return value == nullptr ? "null" : "given";
}

void KeepPointer(Handle& handle, CURLoption option, void* value) {
    switch (option) {
        case CURLOPT_URL: handle.url = TextOrNull(static_cast<const char*>(value)); break;
        case CURLOPT_CUSTOMREQUEST: handle.customMethod = TextOrNull(static_cast<const char*>(value)); break;
        case CURLOPT_POSTFIELDS: handle.postFields = static_cast<const char*>(value); break;
        case CURLOPT_HTTPHEADER: handle.headers = static_cast<curl_slist*>(value); break;
        case CURLOPT_MIMEPOST: handle.isForm = true; break;
        case CURLOPT_WRITEDATA: handle.writeData = value; break;
        default: break;
    }
}

void KeepNumber(Handle& handle, CURLoption option, long value) {
    if (option == CURLOPT_POST) {
        handle.isPost = value != 0;
    } else if (option == CURLOPT_POSTFIELDSIZE) {
        handle.postFieldSize = value;
    }
}

std::string FunctionText(curl_write_callback function) {
    if (function == nullptr) {
        return "null";
    }
    if (function == &AppendToBody) {
        return "AppendToBody";
    }
    const curl_debug_callback trace = &PrintTrace;
    return std::memcmp(&function, &trace, sizeof(trace)) == 0 ? "PrintTrace" : "another";
}

std::string Name(CURLoption option) {
    const curl_easyoption* known = curl_easy_option_by_id(option);
    return known == nullptr ? std::to_string(option) : known->name;
}

std::string MethodOf(const Handle& handle) {
    if (!handle.customMethod.empty()) {
        return handle.customMethod;
    }
    return handle.isPost || handle.isForm || handle.postFields != nullptr ? "POST" : "GET";
}

/// Reads what would be sent, through the pointers that libcurl would now follow, and delivers the response as it does.
CURLcode Perform() {
    const Handle& handle = g_state->handle;
    Record("perform");
    g_state->sentUrl = handle.url;
    g_state->sentMethod = MethodOf(handle);
    if (handle.postFields != nullptr) {
        g_state->sentBody = handle.postFieldSize < 0
                                ? std::string(handle.postFields)
                                : std::string(handle.postFields, static_cast<size_t>(handle.postFieldSize));
    }
    for (const curl_slist* line = handle.headers; line != nullptr; line = line->next) {
        g_state->sentHeaders.emplace_back(line->data);
    }
    for (std::string piece : g_state->pieces) {
        if (handle.write(piece.data(), 1, piece.size(), handle.writeData) != piece.size()) {
            return CURLE_WRITE_ERROR;
        }
    }
    return g_state->responseCode;
}

}  // namespace

CurlSpy::CurlSpy() { g_state = new State; }

CurlSpy::~CurlSpy() {
    delete g_state;
    g_state = nullptr;
    g_failingSize = 0;
}

void CurlSpy::Clear() {
    *g_state = State();
    g_failingSize = 0;
}

void CurlSpy::Respond(CURLcode code, const std::vector<std::string>& pieces) {
    g_state->responseCode = code;
    g_state->pieces = pieces;
}

void CurlSpy::FailInit() { g_state->initFails = true; }
void CurlSpy::FailOption(size_t n, CURLcode code) { g_state->option = {n, code}; }
void CurlSpy::FailHeader(size_t n) { g_state->header = {n, CURLE_OUT_OF_MEMORY}; }
void CurlSpy::FailFormCall(size_t n, CURLcode code) { g_state->form = {n, code}; }
void CurlSpy::FailBlocksFrom(size_t size) { g_failingSize = size; }
void CurlSpy::ConvertTo(const std::string& text) { g_state->conversion = text; }

std::vector<std::string> CurlSpy::Calls() const { return g_state->calls; }

size_t CurlSpy::Count(const std::string& start) const {
    size_t count = 0;
    for (const std::string& call : g_state->calls) {
        count += call.compare(0, start.size(), start) == 0 ? size_t{1} : size_t{0};
    }
    return count;
}

size_t CurlSpy::OptionCount() const { return g_state->options; }
size_t CurlSpy::FormCallCount() const { return g_state->formCalls; }
std::string CurlSpy::Url() const { return g_state->sentUrl; }
std::string CurlSpy::Method() const { return g_state->sentMethod; }
std::string CurlSpy::Body() const { return g_state->sentBody; }
std::vector<std::string> CurlSpy::Headers() const { return g_state->sentHeaders; }
int CurlSpy::Unreleased() const { return g_state->unreleased; }
std::vector<std::string> CurlSpy::Converted() const { return g_state->converted; }

}  // namespace vantix::test

using vantix::test::g_state;
using vantix::test::IsTooLarge;
using vantix::test::Record;

// NOLINTBEGIN(bugprone-reserved-identifier,cppcoreguidelines-no-malloc): the names are the linker's
extern "C" {
CURL* __real_curl_easy_init();
CURLcode __real_curl_easy_setopt(CURL* handle, CURLoption option, ...);
CURLcode __real_curl_easy_perform(CURL* handle);
void __real_curl_easy_cleanup(CURL* handle);
curl_slist* __real_curl_slist_append(curl_slist* list, const char* line);
void __real_curl_slist_free_all(curl_slist* list);
curl_mime* __real_curl_mime_init(CURL* handle);
curl_mimepart* __real_curl_mime_addpart(curl_mime* form);
CURLcode __real_curl_mime_name(curl_mimepart* part, const char* name);
CURLcode __real_curl_mime_data(curl_mimepart* part, const char* data, size_t size);
CURLcode __real_curl_mime_filedata(curl_mimepart* part, const char* path);
void __real_curl_mime_free(curl_mime* form);
void* __real_calloc(size_t count, size_t size);
void* __real_realloc(void* block, size_t size);

CURL* __wrap_curl_easy_init() {
    if (g_state == nullptr) {
        return __real_curl_easy_init();
    }
    Record("init");
    if (g_state->initFails) {
        return nullptr;
    }
    g_state->handle = {};
    ++g_state->unreleased;
    return __real_curl_easy_init();
}

/// Records an option; true when it is to fail.
static bool OptionFails(CURLoption option, const std::string& value) {
    if (g_state == nullptr) {
        return false;
    }
    ++g_state->options;
    Record(vantix::test::Name(option) + " " + value);
    return g_state->option.FailsNow();
}

static CURLcode SetNumber(CURL* handle, CURLoption option, long value) {
    if (OptionFails(option, std::to_string(value))) {
        return g_state->option.code;
    }
    if (g_state != nullptr) {
        KeepNumber(g_state->handle, option, value);
    }
    return __real_curl_easy_setopt(handle, option, value);
}

static CURLcode SetPointer(CURL* handle, CURLoption option, void* value) {
    if (OptionFails(option, vantix::test::PointerText(option, value))) {
        return g_state->option.code;
    }
    if (g_state != nullptr) {
        KeepPointer(g_state->handle, option, value);
    }
    return __real_curl_easy_setopt(handle, option, value);
}

static CURLcode SetFunction(CURL* handle, CURLoption option, curl_write_callback function) {
    if (OptionFails(option, vantix::test::FunctionText(function))) {
        return g_state->option.code;
    }
    if (g_state != nullptr && option == CURLOPT_WRITEFUNCTION) {
        g_state->handle.write = function;
    }
    return __real_curl_easy_setopt(handle, option, function);
}

// libcurl declares the option as an enumeration, which is no last argument before variable ones.
CURLcode __wrap_curl_easy_setopt(CURL* handle, int number, ...) {
    const auto option = static_cast<CURLoption>(number);
    va_list values;
    va_start(values, number);
    CURLcode result = CURLE_UNKNOWN_OPTION;
    if (option < CURLOPTTYPE_OBJECTPOINT) {
        result = SetNumber(handle, option, va_arg(values, long));
    } else if (option < CURLOPTTYPE_FUNCTIONPOINT) {
        result = SetPointer(handle, option, va_arg(values, void*));
    } else if (option < CURLOPTTYPE_OFF_T) {
        result = SetFunction(handle, option, va_arg(values, curl_write_callback));
    }
    va_end(values);
    return result;
}

CURLcode __wrap_curl_easy_perform(CURL* handle) {
    return g_state == nullptr ? __real_curl_easy_perform(handle) : vantix::test::Perform();
}

void __wrap_curl_easy_cleanup(CURL* handle) {
    if (g_state != nullptr && handle != nullptr) {
        Record("cleanup");
        --g_state->unreleased;
    }
    __real_curl_easy_cleanup(handle);
}

curl_slist* __wrap_curl_slist_append(curl_slist* list, const char* line) {
    if (g_state != nullptr) {
        Record(std::string("header ") + line);
        if (g_state->header.FailsNow()) {
            return nullptr;
        }
        g_state->unreleased += list == nullptr ? 1 : 0;
    }
    return __real_curl_slist_append(list, line);
}

void __wrap_curl_slist_free_all(curl_slist* list) {
    if (g_state != nullptr && list != nullptr) {
        Record("free headers");
        --g_state->unreleased;
    }
    __real_curl_slist_free_all(list);
}

/// Records a call that builds a form; true when it is to fail.
static bool FormCallFails(const std::string& call) {
    if (g_state == nullptr) {
        return false;
    }
    ++g_state->formCalls;
    Record(call);
    return g_state->form.FailsNow();
}

curl_mime* __wrap_curl_mime_init(CURL* handle) {
    if (FormCallFails("form")) {
        return nullptr;
    }
    if (g_state != nullptr) {
        ++g_state->unreleased;
    }
    return __real_curl_mime_init(handle);
}

curl_mimepart* __wrap_curl_mime_addpart(curl_mime* form) {
    return FormCallFails("part") ? nullptr : __real_curl_mime_addpart(form);
}

CURLcode __wrap_curl_mime_name(curl_mimepart* part, const char* name) {
    return FormCallFails(std::string("part name ") + name) ? g_state->form.code : __real_curl_mime_name(part, name);
}

CURLcode __wrap_curl_mime_data(curl_mimepart* part, const char* data, size_t size) {
    return FormCallFails("part data " + std::string(data, size)) ? g_state->form.code
                                                                 : __real_curl_mime_data(part, data, size);
}

CURLcode __wrap_curl_mime_filedata(curl_mimepart* part, const char* path) {
    return FormCallFails(std::string("part file ") + path) ? g_state->form.code : __real_curl_mime_filedata(part, path);
}

void __wrap_curl_mime_free(curl_mime* form) {
    if (g_state != nullptr && form != nullptr) {
        Record("free form");
        --g_state->unreleased;
    }
    __real_curl_mime_free(form);
}

void* __wrap_calloc(size_t count, size_t size) {
    return IsTooLarge(count * size) ? nullptr : __real_calloc(count, size);
}

void* __wrap_realloc(void* block, size_t size) { return IsTooLarge(size) ? nullptr : __real_realloc(block, size); }
}
// NOLINTEND(bugprone-reserved-identifier,cppcoreguidelines-no-malloc)

// vantix::Utf8ToAnsi as the linker leads its calls.
#define UTF8_TO_ANSI "_ZN6vantix10Utf8ToAnsiERNS_12ResponseBodyE"
void OriginalConversion(vantix::ResponseBody& body) __asm__("__real_" UTF8_TO_ANSI);
void WatchedConversion(vantix::ResponseBody& body) __asm__("__wrap_" UTF8_TO_ANSI);

void WatchedConversion(vantix::ResponseBody& body) {
    if (g_state != nullptr) {
        g_state->converted.emplace_back(body.Text());
        if (g_state->conversion) {
            return static_cast<void>(body.Assign(*g_state->conversion));
        }
    }
    OriginalConversion(body);
}
