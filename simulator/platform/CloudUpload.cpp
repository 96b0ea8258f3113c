#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

Outcome UploadAddress(Call& call) {
    Upload upload;
    upload.id = call.state.IssueUnique("up-");
    upload.url = call.state.bDomain + "/upload/" + upload.id;
    upload.fileName = call.parameters.Text("fileName");
    upload.fileType = call.parameters.Text("fileType");
    call.state.uploads.push_back(upload);
    return Data({{"fileId", upload.id},
                 {"url", upload.url},
                 {"expireDays", call.parameters.Number("expireDays", 0)},
                 {"urlExpireTime", call.parameters.Number("urlExpireTime", 0)}});
}

constexpr std::array cloudUploadEndpoints = {
    Endpoint{"/api/service/cloud/upload/url",
             Method::get,
             Envelope::meta,
             Authentication::accessToken,
             {"fileName"},
             UploadAddress},
};

}  // namespace

std::span<const Endpoint> CloudUploadEndpoints() { return cloudUploadEndpoints; }

}  // namespace vantix::simulator
