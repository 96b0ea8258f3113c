#include "requests/EndpointTable.h"

namespace vantix {
namespace {

/// Requests name their path by its index, so the order never changes and equal rows stay.
constexpr const char* kPaths[] = {
    "/base",                                                    // 0: a placeholder that no request reaches
    "/api/device/detail",                                       // 1
    "/api/service/media/server/info",                           // 2
    "/api/device/setVideoLevel",                                // 3
    "/api/user/getUserName",                                    // 4
    "/api/common/transparent/getMsgDetail",                     // 5
    "/api/config/info",                                         // 6
    "/api/user/token",                                          // 7
    "/api/lapp/video/by/id",                                    // 8
    "/api/device/list",                                         // 9
    "/api/alarm/list",                                          // 10
    "/api/cloud/files/get",                                     // 11
    "/api/alarm/sdk/setRead",                                   // 12
    "/api/device/getDeviceInfo",                                // 13
    "/api/device/sharelist",                                    // 14
    "/oauth/token/refreshToken",                                // 15
    "/api/lapp/device/list",                                    // 16
    "/api/lapp/video/by/time",                                  // 17
    "/api/sdk/p2p/user/info/get",                               // 18
    "/api/sdk/p2p/dev/info/get",                                // 19
    "/api/sdk/device/local/video",                              // 20
    "/api/route/userdevicetob/v3/cameras/ticketInfo",           // 21
    "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",            // 22
    "/api/v3/open/cloud/v3/clouds/videoDetails",                // 23
    "/api/v3/das/device/local/video/query",                     // 24
    "/api/service/auth/device/user/permission",                 // 25
    "/api/v3/device/sdk/device/local/video",                    // 26
    "/api/service/media/streaming/relay/ticket",                // 27
    "/api/service/media/streaming/relay/server",                // 28
    "/api/service/cloudrecord/video/info/list",                 // 29
    "/api/service/cloud/upload/url",                            // 30
    "/api/service/cloud/ticket",                                // 31
    "/api/service/user/get",                                    // 32
    "/api/service/set/push",                                    // 33
    "/api/service/media/bwc/address",                           // 34
    "/v3/userdevices/v1/devices/pagelist",                      // 35
    "/v3/configurations/system/info",                           // 36
    "/api/user/token/get",                                      // 37
    "/v3/configurations/system/info",                           // 38
    "/v3/users/info",                                           // 39
    "/v3/p2pbusiness/configurations/p2p",                       // 40
    "/api/camera/setVideoLevel",                                // 41
    "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",  // 42
    "/v3/streaming/records",                                    // 43
    "/v3/cameras/ticketInfo",                                   // 44
    "/v3/apigateway/login",                                     // 45
    "",                                                         // 46: a valid index without a path
};
constexpr uint32_t kIndexLimit = 47;
static_assert(sizeof(kPaths) / sizeof(kPaths[0]) == kIndexLimit);

}  // namespace

std::string EndpointPath(uint32_t index) { return std::string(EndpointPathView(index)); }

std::string_view EndpointPathView(uint32_t index) { return index < kIndexLimit ? kPaths[index] : ""; }

}  // namespace vantix
