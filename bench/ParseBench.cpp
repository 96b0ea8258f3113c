// A device detail response read into records, and the same texts read by the JSON libraries alone.

#include <json/json.h>

#include <json11.hpp>
#include <optional>
#include <string>

#include "Cases.h"
#include "DetailResponse.h"
#include "log/Logger.h"
#include "platform/DeviceDetailParser.h"
#include "requests/CapabilityByNumber.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif

namespace vantix::bench {
namespace {

const std::string& Response() {
    static const std::string response = DetailResponse("C10000001");
    return response;
}

const std::string& Nested() {
    static const std::string nested = NestedText();
    return nested;
}

template <int LogLevel>
void Prepare() {
    Response();
    Nested();
    iLogLevel = LogLevel;
}

void Json11(const std::string& text) {
    std::string error;
    benchmark::DoNotOptimize(json11::Json::parse(text, error));
}

void Json11Dom() { Json11(Response()); }

void Json11Doms() {
    Json11(Response());
    Json11(Nested());
}

void JsonCpp(const std::string& text) {
    Json::Value root;
    Json::Reader reader;
    benchmark::DoNotOptimize(reader.parse(text, root, false));
}

void JsonCppDom() { JsonCpp(Response()); }

void JsonCppDoms() {
    JsonCpp(Response());
    JsonCpp(Nested());
}

const std::string& ShortList() {
    static const std::string list = [] {
        std::string error;
        return json11::Json::parse(Response(), error)["result"]["data"]["device"]["supportExtShort"].string_value();
    }();
    return list;
}

/// As many look-ups as one response needs.
void ShortCapabilities() {
    for (const unsigned number : {257U, 836U, 149U, 585U}) {
        benchmark::DoNotOptimize(CapabilityByNumber(ShortList(), number));
    }
}

void DetailIntoRecords() {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    benchmark::DoNotOptimize(ParseDevDetailInfoFromPlatform(Response(), channel, device, parent));
}

constexpr int kQuiet = 6;
constexpr int kUsual = 3;

}  // namespace

std::vector<Case> ParseCases() {
    return {
        MakeCase<Prepare<kQuiet>, Json11Dom>("Parse/dom/json11/response"),
        MakeCase<Prepare<kQuiet>, Json11Doms>("Parse/dom/json11/response_and_nested"),
        MakeCase<Prepare<kQuiet>, JsonCppDom>("Parse/dom/JsonCpp/response"),
        MakeCase<Prepare<kQuiet>, JsonCppDoms>("Parse/dom/JsonCpp/response_and_nested"),
        MakeCase<Prepare<kQuiet>, ShortCapabilities>("Parse/short_capabilities"),
        MakeCase<Prepare<kQuiet>, DetailIntoRecords>("Parse/detail/quiet"),
        MakeCase<Prepare<kUsual>, DetailIntoRecords>("Parse/detail/logged"),
    };
}

}  // namespace vantix::bench
