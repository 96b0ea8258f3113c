// Reading lists of recordings.

#include "json/Fields.h"
#include "log/Logger.h"
#include "platform/Recordings.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

constexpr json::Field<RecordFile> kFileFields[] = {
    {"startTime", &RecordFile::startTime},
    {"endTime", &RecordFile::endTime},
    {"fileId", &RecordFile::fileId},
};

void AppendFiles(const JsonCppView& array, RecordFileList& list) {
    json::ReserveFor(array, list.files);
    json::ForEachObject(array, [&](const JsonCppView& element) {
        RecordFile& file = list.files.emplace_back();
        json::ReadFields<kFileFields>(element, file);
        element.Member("type").ReadIntOrText(file.type);
        element.Member("size").ReadNumber(file.size);
    });
}

/// The list that a response's "data" describes.
RecordFileList ListOf(const JsonCppView& data) {
    RecordFileList list;
    AppendFiles(data, list);
    list.strDeviceRecordList = data.Compact();
    return list;
}

}  // namespace

int ParseLocalDeviceRecordFile(TextView body, RecordFileList& list) {
    const CallSite site = VANTIX_HERE;
    const int result = ReadResponse(site, body, MetaCode, [&](const JsonCppView& root) -> int {
        const JsonCppView data = RootData(root);
        if (data.IsNull()) {
            return LogMalformed(site, body);
        }
        list = ListOf(data);
        return VANTIX_NOERROR;
    });
    VANTIX_LOG_INFO(site, level::kInfo, "strDeviceRecordList iResult:%d, Resp:%s", result, body.c_str());
    return result;
}

int ParseDeviceRecordFile(TextView body, RecordFileList& list) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView data = ResultData(root);
        if (!data.IsArray()) {
            return LogMalformed(site, body);
        }
        list = ListOf(data);
        return VANTIX_NOERROR;
    });
}

int ReadRecordFiles(const std::string& text, RecordFileList& list) {
    json::JsonCppDocument document;
    if (!document.Parse(text) || !RootData(document.Root()).IsArray()) {
        return VANTIX_RESP_BAD_FORMAT;
    }
    list = ListOf(RootData(document.Root()));
    return VANTIX_NOERROR;
}

}  // namespace vantix
