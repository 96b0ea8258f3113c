#include "requests/ResponseReader.h"

#include "requests/Envelope.h"

namespace vantix::json {

bool ParseBody(const CallSite& site, const std::string& body, JsonCppDocument& document) {
    if (document.Parse(body)) {
        return true;
    }
    VANTIX_LOG_ERROR(site, level::kError, "platform response bad, szInfo = %s", body.c_str());
    return false;
}

int ReadAnswer(const CallSite& site, const std::string& body, EnvelopeRule rule, const PayloadReader& payload) {
    JsonCppDocument document;
    if (!ParseBody(site, body, document)) {
        return kNotJson;
    }
    if (const int code = rule(document.Root()); code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "Platform Response Error:%d, Resp:%s", code, body.c_str());
        return code;
    }
    return payload(document.Root());
}

int Malformed(const CallSite& site, const std::string& body) {
    VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s", body.c_str());
    return kBadFormat;
}

int Malformed(const CallSite& site, const std::string& body, const char* member) {
    VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s, %s not exist!", body.c_str(),
                     member);
    return kBadFormat;
}

}  // namespace vantix::json
