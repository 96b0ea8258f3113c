#include "cserver/Recordings.h"

#include "cserver/RequestTable.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "requests/TimeText.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// Checks the envelope before the parser does.
int LogAndCheck(const CallSite& site, TextView body) {
    VANTIX_LOG_INFO(site, level::kInfo, "ZQR TEST GetDeviceFileBySerialFromCServer:%s", body.c_str());
    return CheckResponse(site, body, MetaCode);
}

}  // namespace

int GetDeviceFileBySerialFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, int recordType, std::string& records) {
    const CallSite site = VANTIX_HERE;
    return RequestCall<cserver_requests::kDeviceFiles>(
               site, route, "deviceSerial"_key = deviceSerial, "channelNo"_key = channelNo,
               "startTime"_key = WithFirstBlankEscaped(span.startTime),
               "stopTime"_key = WithFirstBlankEscaped(span.endTime), "recordType"_key = recordType)
        .Run([&](TextView body) { return LogAndCheck(site, body); },
             [&](TextView body) { return ParseDeviceRecordFileFromCServer(body, records); });
}

int ParseDeviceRecordFileFromCServer(TextView body, std::string& records) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument document;
    if (const int code = ParseBody(site, body, document); code != 0) {
        return code;
    }
    const json::JsonCppView root = document.Root();
    if (const int code = OptionalMetaCode(root); code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "ParseDeviceRecordFileFromCServer Response Error:%d, Resp:%s", code,
                        body.c_str());
        return code;
    }
    const json::JsonCppView list = root.Member("records");
    if (!list.IsArray()) {
        return LogMalformed(site, body);
    }
    // The platform's shape has no "isFinished", so it is dropped.
    records = json::JsonBuilder::Object().Set("data", json::JsonBuilder::CopyOf(list)).Compact();
    return VANTIX_NOERROR;
}

}  // namespace vantix
