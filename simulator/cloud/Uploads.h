#pragma once

#include "Endpoint.h"

namespace vantix::simulator {

/// Stores a form that was sent to the upload address with this id: the "file" part as content, the others as fields.
Response StoreUpload(const Call& call, const std::string& id);

/// An upload as the control interface shows it.
Json ToJson(const Upload& upload);

}  // namespace vantix::simulator
