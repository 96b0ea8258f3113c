#pragma once

/// @file
/// The calling layer of all requests: a base address and a path by index, parameters as text, secrets masked in the
/// log, one `CRequest` operation.
///
/// Results and bodies are those of `CRequest`. A null length pointer gives 7 at once, without a log line. `base` is a
/// scheme and host; every path begins with "/".

#include <cstdint>

#include "transport/ParamMap.h"

namespace vantix {

/// Form POST.
int SyncRequest(uint32_t endpoint, const ParamMap& params, const char* base, char** response, uint32_t* length);

/// POST of a JSON text to the path of the cloud recordings' details.
int SyncRequestjson(const char* json, const char* base, char** response, uint32_t* length);

/// GET of the ticket path.
int SyncRequest_v2(const ParamMap& params, const char* base, char** response, uint32_t* length);

/// GET with headers.
int SyncRequestHeader(uint32_t endpoint, const ParamMap& params, const ParamMap& headers, const char* base,
                      char** response, uint32_t* length);

/// POST with headers and without a body.
int SyncRequestHeaderPost(uint32_t endpoint, const ParamMap& params, const ParamMap& headers, const char* base,
                          char** response, uint32_t* length);

/// PUT with headers and without a body, always to the login path: `endpoint` is ignored.
int SyncPutRequestHeader(uint32_t endpoint, const ParamMap& params, const ParamMap& headers, const char* base,
                         char** response, uint32_t* length);

}  // namespace vantix
