#pragma once

#include <string>

namespace vantix {

/// A message that the platform passed through from a device without reading it. Numbers stand as decimal text.
struct TransparentMsgDetail {
    std::string msgSeq;
    std::string msgType;
    std::string data;
    std::string destination;
    std::string sn;
    std::string createDate;
};

}  // namespace vantix
