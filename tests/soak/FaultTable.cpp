#include "soak/FaultTable.h"

#include <string>

namespace vantix::test {
namespace {

/// No fault makes a success of a response that has no record: whatever succeeds was read from a good response.
constexpr char kFaults[] = R"([
    {"name": "reset", "response": {"path": "*", "reset": true}},
    {"name": "end without a response", "response": {"path": "*", "closeWithoutResponse": true}},
    {"name": "body that ends early", "response": {"path": "*", "truncated": true}},
    {"name": "not HTTP", "response": {"path": "*", "raw": "SSH-2.0-no-web-server\r\n"}},
    {"name": "half of the JSON", "response": {"path": "*", "malformed": true}},
    {"name": "status 502", "response": {"path": "*", "status": 502}},
    {"name": "status 503, late", "response": {"path": "*", "status": 503, "delayMs": 50}},
    {"name": "late", "response": {"path": "*", "delayMs": 100}},
    {"name": "in small pieces", "response": {"path": "*", "drip": {"bytes": 512, "ms": 1}}},
    {"name": "empty body", "response": {"path": "*", "body": ""}},
    {"name": "zero bytes", "response": {"path": "*", "bodyHex": "00007b7d00"}},
    {"name": "not UTF-8", "response": {"path": "*", "bodyHex": "7b22fffe2d"}},
    {"name": "another root", "response": {"path": "*", "body": "[]"}},
    {"name": "wrong types", "response": {"path": "*", "json": {"resultCode": 7, "result": [], "meta": "x", "data": 1}}},
    {"name": "huge codes", "response": {"path": "*", "json": {
        "resultCode": "99999999999999999999", "result": {"code": 1e300}, "meta": {"code": 1e300}}}},
    {"name": "token expired", "response": {"path": "/api/*", "code": "10002"}},
    {"name": "token expired, again", "response": {"path": "/api/*", "code": "10002"}},
    {"name": "permission refused", "response": {"path": "/api/*", "code": "20018"}},
    {"name": "busy 49999", "response": {"path": "/api/*", "code": "49999"}},
    {"name": "busy 50000", "response": {"path": "/api/*", "code": "50000"}},
    {"name": "session expired", "response": {"path": "/v3/*", "status": 401, "code": "401"}},
    {"name": "session expired, again", "response": {"path": "/v3/*", "status": 401, "code": "401"}}
])";

Json Fault(const char* name, const std::string& body) {
    return {{"name", name}, {"response", {{"path", "*"}, {"body", body}}}};
}

}  // namespace

Json FaultSetting(double percent, uint64_t seed) {
    constexpr size_t kLevels = 3000;
    constexpr size_t kBlanks = 300000;
    Json faults = Json::parse(kFaults);
    faults.push_back(Fault("deeply nested", std::string(kLevels, '[')));
    faults.push_back(Fault("long and blank", std::string(kBlanks, ' ')));
    return {{"percent", percent}, {"seed", seed}, {"faults", faults}};
}

}  // namespace vantix::test
