#include "cserver/Recordings.h"

#include "cserver/ConsumerEnvelope.h"
#include "cserver/RequestTable.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "requests/ResponseReader.h"
#include "requests/TimeText.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// The request's own look at the envelope, before the parser.
int CheckRecords(const CallSite& site, const std::string& body) {
    VANTIX_LOG_INFO(site, level::kInfo, "ZQR TEST GetDeviceFileBySerialFromCServer:%s", body.c_str());
    json::JsonCppDocument document;
    if (!json::ParseBody(site, body, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    return document.Root().Member("meta").IsObject() ? consumer::Code(document.Root()) : VANTIX_RESP_BAD_FORMAT;
}

/// A page of recordings. Whether it is the last one is read with it and goes no further: the caller's list has no place
/// for it.
struct Page {
    bool isFinished = false;
    json::JsonCppView records;
};

Page ReadPage(const json::JsonCppView& root) {
    Page page;
    root.Member("isFinished").Read(page.isFinished);
    page.records = root.Member("records");
    return page;
}

}  // namespace

int GetDeviceFileBySerialFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, int recordType, std::string& records) {
    const CallSite site = VANTIX_HERE;
    return RequestCall(site, cserver_requests::kDeviceFiles, route)
        .With(deviceSerial, channelNo, WithFirstBlankEscaped(span.startTime), WithFirstBlankEscaped(span.endTime),
              recordType)
        .Run([&](const std::string& body) { return CheckRecords(site, body); },
             [&](const std::string& body) { return ParseDeviceRecordFileFromCServer(body, records); });
}

int ParseDeviceRecordFileFromCServer(const std::string& body, std::string& records) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument document;
    if (!json::ParseBody(site, body, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    const json::JsonCppView root = document.Root();
    const Page page = ReadPage(root);
    if (const int code = consumer::Code(root); code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "ParseDeviceRecordFileFromCServer Response Error:%d, Resp:%s", code,
                        body.c_str());
        return code;
    }
    if (!page.records.IsArray()) {
        return json::Malformed(site, body);
    }
    records = json::JsonBuilder::Object().Set("data", json::JsonBuilder::CopyOf(page.records)).Compact();
    return VANTIX_NOERROR;
}

}  // namespace vantix
