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
    for (size_t i = 0; i < array.Size(); ++i) {
        const JsonCppView element = array.Element(i);
        if (!element.IsObject()) {
            continue;
        }
        RecordFile file;
        json::ReadFields(element, kFileFields, file);
        element.Member("type").ReadIntOrText(file.type);
        element.Member("size").ReadNumber(file.size);
        list.files.push_back(std::move(file));
    }
}

/// The list that an answer's "data" describes.
RecordFileList ListOf(const JsonCppView& data) {
    RecordFileList list;
    AppendFiles(data, list);
    list.strDeviceRecordList = data.Compact();
    return list;
}

}  // namespace

int ParseLocalDeviceRecordFile(const std::string& body, RecordFileList& list) {
    const CallSite site = VANTIX_HERE;
    const int result = json::ReadAnswer(site, body, json::MetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView data = root.Member("data");
        if (data.IsNull()) {
            return json::Malformed(site, body);
        }
        list = ListOf(data);
        return VANTIX_NOERROR;
    });
    VANTIX_LOG_INFO(site, level::kInfo, "strDeviceRecordList iResult:%d, Resp:%s", result, body.c_str());
    return result;
}

int ParseDeviceRecordFile(const std::string& body, RecordFileList& list) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView data = root.Member("result").Member("data");
        if (!data.IsArray()) {
            return json::Malformed(site, body);
        }
        list = ListOf(data);
        return VANTIX_NOERROR;
    });
}

int ReadRecordFiles(const std::string& text, RecordFileList& list) {
    json::JsonCppDocument document;
    if (!document.Parse(text) || !document.Root().Member("data").IsArray()) {
        return VANTIX_RESP_BAD_FORMAT;
    }
    list = ListOf(document.Root().Member("data"));
    return VANTIX_NOERROR;
}

}  // namespace vantix
