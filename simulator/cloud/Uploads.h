#pragma once

#include "Endpoint.h"

namespace vantix::simulator {

/// A form that arrives at an upload address: its "file" part becomes the upload's content, its other parts fields.
Answer TakeUpload(const Call& call, const std::string& id);

/// An upload as the control interface shows it.
Json ToJson(const Upload& upload);

}  // namespace vantix::simulator
