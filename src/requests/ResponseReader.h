#pragma once

/// @file
/// The skeleton of every parser of a server's answer that is read with JsonCpp.

#include <functional>
#include <string>

#include "json/JsonCppReader.h"
#include "log/Logger.h"

namespace vantix::json {

/// Reads the envelope's code from an answer: 0 when it is a success.
using EnvelopeRule = int (*)(const JsonCppView& root);
/// Reads the payload: 0, or a response code.
using PayloadReader = std::function<int(const JsonCppView& root)>;

/// Parses the body (1 and a line when it is not JSON), asks the rule (its code and a line when it is not 0), then reads
/// the payload. Lines bear the call site's name.
int ReadAnswer(const CallSite& site, const std::string& body, EnvelopeRule rule, const PayloadReader& payload);

/// Parses a body; false, and the line, when it is not JSON.
bool ParseBody(const CallSite& site, const std::string& body, JsonCppDocument& document);

/// Writes the line of an answer that lacks something, and returns 2.
int Malformed(const CallSite& site, const std::string& body);
/// The same, naming the member.
int Malformed(const CallSite& site, const std::string& body, const char* member);

}  // namespace vantix::json
