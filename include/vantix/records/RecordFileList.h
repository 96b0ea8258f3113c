#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantix {

/// One recording, on a device or in the cloud.
struct RecordFile {
    std::string startTime;  ///< As the server writes it.
    std::string endTime;
    int32_t type = 0;    ///< Kind of recording.
    int64_t size = 0;    ///< Bytes.
    std::string fileId;  ///< The server's name of the recording.
};

/// The recordings that a query found.
struct RecordFileList {
    std::vector<RecordFile> files;    ///< In the server's order.
    std::string strDeviceRecordList;  ///< The response's "data" as compact JSON, for members that have no field here.
};

}  // namespace vantix
