#include "Uploads.h"

#include "../Bytes.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

struct Part {
    std::string name;
    std::string content;
};

/// The value of `name="…"` in the headers of a part.
std::string NameIn(std::string_view headers) {
    static constexpr std::string_view key = " name=\"";
    const auto start = headers.find(key);
    if (start == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = headers.substr(start + key.size());
    return std::string(rest.substr(0, rest.find('"')));
}

std::string BoundaryOf(const Request& request) {
    static constexpr std::string_view key = "boundary=";
    const std::string type = HeaderValue(request.headers, "Content-Type");
    const auto start = type.find(key);
    return start == std::string::npos ? std::string() : type.substr(start + key.size());
}

std::vector<Part> PartsOf(const Request& request) {
    std::vector<Part> parts;
    const std::string boundary = BoundaryOf(request);
    if (boundary.empty()) {
        return parts;
    }
    const std::string delimiter = "--" + boundary;
    const std::string_view body = request.body;
    auto at = body.find(delimiter);
    while (at != std::string_view::npos) {
        const auto start = at + delimiter.size();
        const auto next = body.find("\r\n" + delimiter, start);
        const auto headersEnd = body.find("\r\n\r\n", start);
        if (next == std::string_view::npos || headersEnd == std::string_view::npos || headersEnd > next) {
            break;
        }
        const auto from = std::min(headersEnd + 4, next);
        parts.push_back({NameIn(body.substr(start, headersEnd - start)), std::string(body.substr(from, next - from))});
        at = next + 2;
    }
    return parts;
}

Response UploadResponse(int status, std::string_view code) {
    Response response;
    response.status = status;
    response.body = Dump(Wrap(Envelope::meta, code, MessageOf(code), Json::object()));
    response.headers.emplace_back("Content-Type", "application/json;charset=UTF-8");
    return response;
}

}  // namespace

Response StoreUpload(const Call& call, const std::string& id) {
    auto& uploads = call.state.uploads;
    const auto upload = std::find_if(uploads.begin(), uploads.end(), [&](const Upload& one) { return one.id == id; });
    if (upload == uploads.end()) {
        return UploadResponse(404, code::nothingFound);
    }
    const auto parts = PartsOf(call.request);
    if (std::none_of(parts.begin(), parts.end(), [](const Part& part) { return part.name == "file"; })) {
        return UploadResponse(400, code::badParameter);
    }
    for (const Part& part : parts) {
        if (part.name == "file") {
            upload->content = part.content;
            upload->received = true;
        } else {
            upload->fields[part.name] = part.content;
        }
    }
    return UploadResponse(200, code::success);
}

Json ToJson(const Upload& upload) {
    return {{"id", upload.id},
            {"url", upload.url},
            {"fileName", upload.fileName},
            {"fileType", upload.fileType},
            {"received", upload.received},
            {"size", upload.content.size()},
            {"fields", upload.fields},
            {"contentHex", ToHex(upload.content)}};
}

}  // namespace vantix::simulator
