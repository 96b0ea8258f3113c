// The same texts read by the JSON libraries alone: a document is built, nothing is taken out of it.

#include <json/json.h>

#include <json11.hpp>
#include <string>

#include "Cases.h"
#include "DetailResponse.h"
#include "Responses.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif

namespace vantix::bench {
namespace {

void Json11(const std::string& text) {
    std::string error;
    benchmark::DoNotOptimize(json11::Json::parse(text, error));
    Require(error.empty(), "json11 refuses the text");
}

void JsonCpp(const std::string& text) {
    Json::Value root;
    Json::Reader reader;
    const char* begin = text.data();
    Require(reader.parse(begin, begin + text.size(), root, false), "JsonCpp refuses the text");
    benchmark::DoNotOptimize(root);
}

const std::string& Nested() {
    static const std::string text = NestedText();
    return text;
}

/// The detail and the text nested in it.
void Detail() {
    static const std::string text = DetailResponse("C10000000");
    Json11(text);
    Json11(Nested());
}

/// The page and the text nested in it.
void Page() {
    static const std::string text = ConsumerPage("R20000000");
    JsonCpp(text);
    JsonCpp(Nested());
}

template <std::string (*Make)()>
void Document() {
    static const std::string text = Make();
    JsonCpp(text);
}

/// The recordings' record holds their "data" as compact JSON besides, so their floor writes it as well.
void RecordingsWritten() {
    static const std::string text = RecordingsResponse();
    Json::Value root;
    Json::Reader reader;
    const char* begin = text.data();
    Require(reader.parse(begin, begin + text.size(), root, false), "JsonCpp refuses the text");
    Json::FastWriter writer;
    writer.omitEndingLineFeed();
    benchmark::DoNotOptimize(writer.write(root["data"]));
}

}  // namespace

std::vector<Case> ParseFloors() {
    return {
        MakeCase<PrepareNothing, Detail>("floor/parse/detail", kSomeRounds),
        MakeCase<PrepareNothing, Page>("floor/parse/consumer_page", kFewRounds),
        MakeCase<PrepareNothing, Document<DeviceListResponse>>("floor/parse/device_list", kFewRounds),
        MakeCase<PrepareNothing, Document<ServerInformationResponse>>("floor/parse/server_information", kSomeRounds),
        MakeCase<PrepareNothing, Document<RecordingsResponse>>("floor/parse/recordings", kFewRounds),
        MakeCase<PrepareNothing, RecordingsWritten>("floor/parse/recordings_written", kFewRounds),
    };
}

}  // namespace vantix::bench
