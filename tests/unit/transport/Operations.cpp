#include "unit/transport/Operations.h"

#include <cstdlib>

#include "support/LocalFile.h"

namespace vantix::test {
namespace {

Operation Mode(const char* name, RequestMode mode) {
    return {name, "CRequest::SyncRequest",
            [mode](const CRequest& request, const char* address, const char* second, char** response,
                   uint32_t* length) { return request.SyncRequest(address, second, mode, response, length); }};
}

Operation Put(const char* name, const ParamMap& entries, const std::string& body) {
    return {name, "CRequest::SyncPutRequestHeader",
            [=](const CRequest& request, const char* address, const char* second, char** response, uint32_t* length) {
                return request.SyncPutRequestHeader(address, second, entries, body, response, length);
            }};
}

}  // namespace

std::vector<Operation> Operations(const ParamMap& entries) {
    return {
        Mode("get", RequestMode::Get),
        Mode("form post", RequestMode::FormPost),
        Mode("JSON post", RequestMode::JsonPost),
        {"get with headers", "CRequest::SyncRequestHeader",
         [=](const CRequest& request, const char* address, const char* second, char** response, uint32_t* length) {
             return request.SyncRequestHeader(address, second, entries, response, length);
         }},
        {"body-less post", "CRequest::SyncRequesPostHeader",
         [=](const CRequest& request, const char* address, const char* second, char** response, uint32_t* length) {
             return request.SyncRequesPostHeader(address, second, entries, response, length);
         }},
        Put("body-less put", entries, ""),
        Put("put with a body", entries, "the body"),
        {"upload", "CRequest::SyncRequestUpload",
         [=](const CRequest& request, const char* address, const char* second, char** response, uint32_t* length) {
             return request.SyncRequestUpload(address, second, entries, response, length);
         },
         true},
    };
}

std::string ExistingFile() {
    static const LocalFile file(u8"picture.txt");
    return file.Path();
}

Outcome::Outcome(const Operation& operation, const CRequest& request, const std::string& address) {
    const std::string second = operation.takesFile ? ExistingFile() : kParameters;
    result = operation.run(request, address.c_str(), second.c_str(), &response, &length);
}

Outcome::~Outcome() { std::free(response); }  // NOLINT(cppcoreguidelines-no-malloc): blocks come from malloc

}  // namespace vantix::test
