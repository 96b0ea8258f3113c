#include "unit/boundary/ForwardRows.h"

namespace vantix::test {

Arguments DistinctArguments() {
    return {.serial = "S1",
            .ch = 2,
            .token = "token3",
            .force = true,
            .pageStart = 4,
            .pageSize = 5,
            .bizType = "biz6",
            .platFormId = "platform7",
            .span = {"time8", "time9"},
            .alarmId = "alarm10",
            .alarmType = 11,
            .alarmStatus = 12,
            .msgSeq = "message13",
            .videoLevel = 14,
            .spaceId = 15,
            .streamTokens = 16,
            .bandwidthType = 17,
            .checkTime = "time18",
            .recordType = 19,
            .location = 20,
            .videoType = 21,
            .cloudQuery = {"date22", "time23", 24},
            .jsonQuery = R"({"a":"b25"})",
            .fileName = "file26",
            .fileType = 27,
            .expireDays = 28,
            .urlExpireTime = 29,
            .uploadBizType = "biz30"};
}

const std::vector<ForwardRow>& DetailForwards() {
    static const std::vector<ForwardRow> rows = {
        {"getTicketInfo", "GET /api/route/userdevicetob/v3/cameras/ticketInfo", {"deviceSerial=S1", "channelNo=2"}},
        {"getCloudTicketInfo", "GET /api/service/cloud/ticket", {"deviceSerial=S1", "localIndex=2", "spaceId=15"}},
        {"getRelayTicket", "GET /api/service/media/streaming/relay/ticket", {"deviceSerial=S1", "channelNo=2"}},
        {"getDevDetailInfo", "POST /api/device/detail", {"deviceSerial=S1", "cameraNo=2"}, true},
        {"getDevDetailInfoSync", "POST /api/device/detail", {"deviceSerial=S1", "cameraNo=2"}, true},
        {"getDeviceDetailInfo",
         "POST /api/device/detail",
         {"deviceSerial=S1", "cameraNo=2", "bizType=biz6", "platFormId=platform7"},
         true},
        {"getDevDetailInfoByRelation", "POST /api/device/detail", {"deviceSerial=S1", "cameraNo=2"}, true},
        {"getServerInfoAsync", "POST /api/service/media/server/info", {}, true},
        {"getServerInfoEx", "POST /api/service/media/server/info", {"deviceSerial=S1", "localIndex=2"}, true, -1, -1},
        {"getServerInfoSync", "POST /api/service/media/server/info", {}, true},
        {"getVideoVtmAddr", "POST /api/service/media/server/info", {"deviceSerial=S1", "localIndex=2"}, true, -1, -1},
        {"getRelayServerInfo", "GET /api/service/media/streaming/relay/server", {"deviceSerial=S1", "channelNo=2"}},
        {"getDeviceInfoBySerial", "POST /api/device/getDeviceInfo", {"deviceSerial=S1"}, true},
    };
    return rows;
}

const std::vector<ForwardRow>& ListForwards() {
    static const std::vector<ForwardRow> rows = {
        {"getDevList", "POST /api/device/list", {"pageStart=4", "pageSize=5"}, true},
        {"getDeviceList", "POST /api/lapp/device/list", {"pageStart=4", "pageSize=5", "bizType=biz6"}, true},
        {"getShareDevList", "POST /api/device/sharelist", {"pageStart=4", "pageSize=5"}, true},
        {"getAlarmList",
         "POST /api/alarm/list",
         {"deviceSerial=S1", "cameraNo=2", "pageStart=4", "pageSize=5", "startTime=time8", "endTime=time9",
          "alarmType=11", "status=12"},
         true},
        {"getUsername", "POST /api/user/getUserName", {}},
        {"getConfigInfo", "POST /api/config/info", {}},
        {"getTransparentMsgDetail", "POST /api/common/transparent/getMsgDetail", {"msgSeq=message13"}, true},
        {"getP2PUserInfoAsync", "POST /api/sdk/p2p/user/info/get", {}, true},
        {"getP2PUserInfoByToken", "POST /api/sdk/p2p/user/info/get", {}, true},
        {"getP2PUserInfoByDevice", "POST /api/sdk/p2p/user/info/get", {}, true},
        {"getP2PDevInfoAsync", "POST /api/sdk/p2p/dev/info/get", {"deviceSerial=S1"}},
        {"getP2PDevInfoCached", "POST /api/sdk/p2p/dev/info/get", {"deviceSerial=S1"}},
        {"getP2PDevInfoBySerial", "POST /api/sdk/p2p/dev/info/get", {"deviceSerial=S1"}, true},
        {"getP2PDevInfoByChannel", "POST /api/sdk/p2p/dev/info/get", {"deviceSerial=S1"}, true},
        {"setVideoDefinition",
         "POST /api/device/setVideoLevel",
         {"deviceSerial=S1", "cameraNo=2", "videoLevel=14"},
         true},
        {"setAlarmRead", "POST /api/alarm/sdk/setRead", {"alarmId=alarm10"}},
        {"getUserId", "POST /api/service/user/get", {}},
        {"getPushSessionId", "POST /api/service/set/push", {}},
        {"getBWCheckInfo", "GET /api/service/media/bwc/address", {"type=17", "checkTime=time18", "localIndex=2"}},
    };
    return rows;
}

const std::vector<ForwardRow>& RecordingForwards() {
    static const std::vector<ForwardRow> rows = {
        {"getStreamTokens", "POST /api/user/token", {"count=16"}, true},
        {"getAuthInfo",
         "POST /api/service/auth/device/user/permission",
         {"deviceSerial=S1", "cameraNo=2", "permission=Real"}},
        {.operation = "getAuthInfo",
         .path = "POST /api/service/auth/device/user/permission",
         .parameters = {"deviceSerial=S1", "cameraNo=2", "permission=Replay"},
         .flag = true},
        {"getRecordByAlarmID", "POST /api/lapp/video/by/id", {"deviceSerial=S1", "channelNo=2", "alarmId=alarm10"}},
        {"getDeviceFileBySerial",
         "POST /api/v3/device/sdk/device/local/video",
         {"deviceSerial=S1", "cameraNo=2", "startTime=time8", "endTime=time9", "recordType=19", "location=20"},
         true},
        {.operation = "getDeviceFileBySerial",
         .path = "POST /api/sdk/device/local/video",
         .parameters = {"deviceSerial=S1", "cameraNo=2", "startTime=time8", "endTime=time9", "recordType=19",
                        "location=20"},
         .takesRetried = true,
         .flag = true},
        {"getDeviceFileBySerialEx",
         "GET /api/v3/das/device/local/video/query",
         {"deviceSerial=S1", "channelNo=2", "startTime=time8", "endTime=time9"}},
        {"getCloudFileBySerial",
         "POST /api/cloud/files/get",
         {"deviceSerial=S1", "cameraNo=2", "startTime=time8", "endTime=time9", "fileType=27"},
         true},
        {"getLocalFileBySerial",
         "POST /api/lapp/video/by/time",
         {"deviceSerial=S1", "channelNo=2", "startTime=time8", "endTime=time9", "bizType=biz6", "platFormId=platform7"},
         true},
        {"getCloudFileBySerialEX",
         "POST /api/v3/open/cloud/v3/clouds/videosIncrPerDay",
         {"deviceSerial=S1", "channelNo=2", "videoType=21", "searchDate=date22", "maxCreateTime=time23",
          "detailFileCount=24"},
         true},
        {"getCloudFileInfoBySerialEX", "POST /api/v3/open/cloud/v3/clouds/videoDetails", {}},
        {"GetCloudRecordFile",
         "GET /api/service/cloudrecord/video/info/list",
         {"deviceSerial=S1", "localIndex=2", "spaceId=15", "startTime=time8", "endTime=time9"}},
        {"GetClouduploadUrl",
         "GET /api/service/cloud/upload/url",
         {"fileName=file26", "fileType=27", "expireDays=28", "urlExpireTime=29", "bizType=biz30"}},
    };
    return rows;
}

}  // namespace vantix::test
