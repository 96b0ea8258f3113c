#include "OperationTable.h"

#include <algorithm>
#include <ostream>

#include "OperationOutput.h"
#include "support/PlainTable.h"
#include "support/TestData.h"

namespace vantix::test {
namespace {

constexpr size_t kColumns = 13;

OperationRow FromCells(const Cells& cells) {
    const size_t slash = cells[5].find(" / ");
    OperationRow row;
    row.slot = cells[0];
    row.name = cells[1];
    row.arguments = SplitCells(cells[3], ',');
    row.ownRequest = cells[5].substr(0, slash);
    row.sharedRequest = slash == std::string::npos ? cells[5] : cells[5].substr(slash + 3);
    row.cache = cells[6];
    std::copy(cells.begin() + 7, cells.begin() + 11, row.credentials);
    row.domain = cells[11];
    row.renewal = cells[12];
    return row;
}

struct RequestPath {
    const char* requestFunction;
    const char* path;
};
constexpr RequestPath kRequestPaths[] = {
    {"GetDevDetailInfoFromPlatformBySerial", "/api/device/detail"},
    {"GetDeviceDetailInfoFromPlatformBySerial", "/api/device/detail"},
    {"GetDeviceInfoBySerialFromPlatform", "/api/device/getDeviceInfo"},
    {"GetServerInfoFromPlatform", "/api/service/media/server/info"},
    {"GetRelayServerInfoFromPlatform", "/api/service/media/streaming/relay/server"},
    {"GetP2PUserInfoFromPlatform", "/api/sdk/p2p/user/info/get"},
    {"GetP2PDevInfoFromPlatform", "/api/sdk/p2p/dev/info/get"},
    {"GetTicketInfoBySerial", "/api/route/userdevicetob/v3/cameras/ticketInfo"},
    {"GetCloudTicketInfoBySerial", "/api/service/cloud/ticket"},
    {"GetRelayTicketInfoBySerial", "/api/service/media/streaming/relay/ticket"},
    {"GetAuthInfoFromPlatform", "/api/service/auth/device/user/permission"},
    {"GetStreamTokensFromPlatform", "/api/user/token"},
    {"RefreshTokenFromPlatform", "/oauth/token/refreshToken"},
    {"GetDevListFromPlatform", "/api/device/list"},
    {"GetDeviceListFromPlatform", "/api/lapp/device/list"},
    {"GetShareDevListFromPlatform", "/api/device/sharelist"},
    {"GetAlarmListFromPlatform", "/api/alarm/list"},
    {"GetDeviceFileBySerialFromPlatform", "/api/v3/device/sdk/device/local/video"},
    {"GetDeviceFileBySerialFromPlatform", "/api/sdk/device/local/video"},
    {"GetDeviceFileBySerialFromPlatformEx", "/api/v3/das/device/local/video/query"},
    {"GetCloudRecordFileFromPlatform", "/api/service/cloudrecord/video/info/list"},
    {"GetCloudFileBySerialFromPlatform", "/api/cloud/files/get"},
    {"GetCloudFileInfoBySerialEXFromPlatform", "/api/v3/open/cloud/v3/clouds/videoDetails"},
    {"GetCloudFileBySerialEXFromPlatform", "/api/v3/open/cloud/v3/clouds/videosIncrPerDay"},
    {"GetLocalFileBySerialFromPlatform", "/api/lapp/video/by/time"},
    {"GetRecordByAlarmIdFromPlatform", "/api/lapp/video/by/id"},
    {"GetClouduploadUrlPlatform", "/api/service/cloud/upload/url"},
    {"GetConfigInfoFromPlatform", "/api/config/info"},
    {"GetUsernameFromPlatform", "/api/user/getUserName"},
    {"GetUserIdFromPlatform", "/api/service/user/get"},
    {"getPushSessionIdFromPlatform", "/api/service/set/push"},
    {"getBWCheckInfoFromPlatform", "/api/service/media/bwc/address"},
    {"GetTransparentMsgDetailFromPlatform", "/api/common/transparent/getMsgDetail"},
    {"SetVideoDefinitionOnPlatform", "/api/device/setVideoLevel"},
    {"SetAlarmReadOnPlatform", "/api/alarm/sdk/setRead"},
    {"GetDevDetailInfoFromCServerBySerial", "/v3/userdevices/v1/devices/pagelist"},
    {"GetServerInfoFromCServer", "/v3/configurations/system/info"},
    {"GetStreamTokensFromCServer", "/api/user/token/get"},
    {"GetDeviceFileBySerialFromCServer", "/v3/streaming/records"},
    {"RefreshSessionFromCServer", "/v3/apigateway/login"},
    {"GetP2PUserInfoFromCServer", "/v3/users/info"},
    {"GetP2PUserInfoFromCServer", "/v3/p2pbusiness/configurations/p2p"},
    {"GetP2PDevInfoFromCServer", "/v3/userdevices/v1/devices/pagelist"},
    {"GetB2CSharedDevListFromPlatform", "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist"},
};

}  // namespace

bool OperationRow::Takes(const std::string& argument) const {
    return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
}

void PrintTo(const OperationRow& row, std::ostream* out) { *out << row.slot << ' ' << row.name; }

std::vector<OperationRow> ReadOperations() {
    std::vector<OperationRow> rows;
    for (const Cells& cells : ReadPlainTable(TestData("../../docs/operations.tsv"), '\t')) {
        if (cells.size() == kColumns && cells[0] != "slot" && cells[5] != "-") {
            rows.push_back(FromCells(cells));
        }
    }
    return rows;
}

std::vector<std::string> PathsOf(const std::string& requestFunction) {
    std::vector<std::string> paths;
    for (const RequestPath& row : kRequestPaths) {
        if (row.requestFunction == requestFunction) {
            paths.emplace_back(row.path);
        }
    }
    if (requestFunction == "UploadCloudPicFile") {
        paths.emplace_back(kUploadPath);
    }
    return paths;
}

}  // namespace vantix::test
