#include "faults/Subject.h"

namespace vantix::test {
namespace {

std::string PlatformBody(const std::string& serial, const std::string& cameraId, const std::string& more) {
    return R"({"result":{"code":"200","data":{"camera":{"cameraNo":1,"deviceSerial":")" + serial + R"(","cameraId":")" +
           cameraId + R"("},"device":{"deviceSerial":")" + serial + R"(")" + more + "}}}}";
}

std::string ConsumerBody(const std::string& cameraId, const std::string& more) {
    return R"({"meta":{"code":200},"deviceInfos":[{"deviceSerial":"S60000006"}],)"
           R"("cameraInfos":[{"channelNo":1,"deviceSerial":"S60000006","cameraId":")" +
           cameraId + "\"}" + more + "]}";
}

Subject OnPlatform(const std::string& name, const std::string& operation, const std::string& serial) {
    return {.name = name,
            .family = Family::kPlatform,
            .operation = operation,
            .serial = serial,
            .path = "/api/device/detail",
            .body = PlatformBody(serial, "small", ""),
            .longBody = PlatformBody(serial, "$filler", ""),
            .listBody = PlatformBody(serial, "small", R"(,"vtmBackups":[{"ip":"203.0.113.1","port":1}$filler])"),
            .refreshPath = "/oauth/token/refreshToken",
            .expiredCode = "10002"};
}

Subject Platform() { return OnPlatform("Platform", "getDevDetailInfoSync", kCamera); }

/// Of a device that no other call is about.
Subject Task() {
    Subject subject = OnPlatform("Task", "getDevDetailInfo", kOtherRelease);
    subject.isTask = true;
    return subject;
}

Subject Consumer() {
    return {.name = "Consumer",
            .family = Family::kConsumer,
            .operation = "getDevDetailInfoSync",
            .mode = 2,
            .serial = kShared,
            .path = "/v3/userdevices/v1/devices/pagelist",
            .body = ConsumerBody("small", ""),
            .longBody = ConsumerBody("$filler", ""),
            .listBody = ConsumerBody("small", "$filler"),
            .refreshPath = "/v3/apigateway/login",
            .expiredCode = "401"};
}

}  // namespace

const std::vector<Subject>& Subjects() {
    static const std::vector<Subject> subjects = {Platform(), Task(), Consumer()};
    return subjects;
}

}  // namespace vantix::test
