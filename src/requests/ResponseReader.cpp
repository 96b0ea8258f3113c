#include "requests/ResponseReader.h"

#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

template <class Document>
int Parsed(const CallSite& site, TextView body, Document& document) {
    return document.Parse(body) ? static_cast<int>(VANTIX_NOERROR) : LogNotJson(site, body);
}

template <class Document, class View>
int Read(const CallSite& site, TextView body, EnvelopeRule<View> rule, FunctionRef<int(const View& root)> read) {
    Document document;
    if (const int code = Parsed(site, body, document); code != 0) {
        return code;
    }
    const View root = document.Root();
    if (const int code = rule(root); code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "Platform Response Error:%d, Resp:%s", code, body.c_str());
        return code;
    }
    return read(root);
}

template <class Document, class View>
int ReadObject(const CallSite& site, TextView body, EnvelopeRule<View> rule, PayloadPlace<View> place,
               FunctionRef<void(const View& payload)> read) {
    return Read<Document, View>(site, body, rule, [&](const View& root) -> int {
        const View payload = place(root);
        if (!payload.IsObject()) {
            return LogMalformed(site, body);
        }
        read(payload);
        return VANTIX_NOERROR;
    });
}

}  // namespace

int ParseBody(const CallSite& site, TextView body, json::JsonCppDocument& document) {
    return Parsed(site, body, document);
}

int CheckResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule) {
    json::JsonCppDocument document;
    const int code = ParseBody(site, body, document);
    return code != 0 ? code : rule(document.Root());
}

int ReadResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule,
                 FunctionRef<int(const json::JsonCppView& root)> read) {
    return Read<json::JsonCppDocument>(site, body, rule, read);
}

int ReadObjectResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule,
                       PayloadPlace<json::JsonCppView> place,
                       FunctionRef<void(const json::JsonCppView& payload)> read) {
    return ReadObject<json::JsonCppDocument>(site, body, rule, place, read);
}

int ReadObjectResponse(const CallSite& site, TextView body, EnvelopeRule<json::Json11View> rule,
                       PayloadPlace<json::Json11View> place, FunctionRef<void(const json::Json11View& payload)> read) {
    return ReadObject<json::Json11Document>(site, body, rule, place, read);
}

int LogNotJson(const CallSite& site, TextView body) {
    VANTIX_LOG_ERROR(site, level::kError, "platform response bad, szInfo = %s", body.c_str());
    return VANTIX_RESP_NOT_JSON;
}

int LogMalformed(const CallSite& site, TextView body) {
    VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s", body.c_str());
    return VANTIX_RESP_BAD_FORMAT;
}

int LogMalformed(const CallSite& site, TextView body, const char* member) {
    VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s, %s not exist!", body.c_str(),
                     member);
    return VANTIX_RESP_BAD_FORMAT;
}

int LogMissingText(const CallSite& site, TextView body, BodyText text) {
    LogError(site, text, body);
    return VANTIX_RESP_BAD_FORMAT;
}

int LogNoObject(const CallSite& site, TextView body, BodyText text) {
    LogInfo(site, text, body);
    return VANTIX_RESP_BAD_FORMAT;
}

}  // namespace vantix
