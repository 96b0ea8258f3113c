#pragma once

/// @file
/// The skeleton of every parser and check of a response, for both JSON libraries: parse the body, read the envelope's
/// code, read the payload. Log lines bear the tag of the call site; functions whose name begins with "Log" return the
/// response code that belongs to their line.

#include <string>

#include "base/FunctionRef.h"
#include "base/TextView.h"
#include "json/Json11Reader.h"
#include "json/JsonCppReader.h"
#include "log/CallSite.h"
#include "requests/MessageText.h"

namespace vantix {

/// Reads the envelope's code from a response: 0 when it is a success.
template <class View>
using EnvelopeRule = int (*)(const View& root);

/// Where the payload of a response stands.
template <class View>
using PayloadPlace = View (*)(const View& root);

/// Parses a body: 0, or 1 and a line when it is not JSON.
int ParseBody(const CallSite& site, TextView body, json::JsonCppDocument& document);

/// Parses the body and applies the rule. Reads no payload and logs no refusal.
int CheckResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule);

/// Parses the body, applies the rule (its code and a line when it is not 0), then reads the payload: 0, or a response
/// code.
int ReadResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule,
                 FunctionRef<int(const json::JsonCppView& root)> read);

/// The same for a payload that must be an object, else the response is malformed.
int ReadObjectResponse(const CallSite& site, TextView body, EnvelopeRule<json::JsonCppView> rule,
                       PayloadPlace<json::JsonCppView> place, FunctionRef<void(const json::JsonCppView& payload)> read);
int ReadObjectResponse(const CallSite& site, TextView body, EnvelopeRule<json::Json11View> rule,
                       PayloadPlace<json::Json11View> place, FunctionRef<void(const json::Json11View& payload)> read);

/// A response that is not JSON: 1.
int LogNotJson(const CallSite& site, TextView body);
/// A response that lacks something: 2.
int LogMalformed(const CallSite& site, TextView body);
/// One that lacks this member: 2.
int LogMalformed(const CallSite& site, TextView body, const char* member);
/// One that lacks this text, in the words of the parsers of single texts: 2.
int LogMissingText(const CallSite& site, TextView body, BodyText text);
/// One in which this member is no object, as information: 2.
int LogNoObject(const CallSite& site, TextView body, BodyText text);

}  // namespace vantix
