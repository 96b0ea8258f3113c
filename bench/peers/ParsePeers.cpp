// The texts of a device detail read by other JSON libraries, as a scale: a document is built, nothing is taken out.

#include <rapidjson/document.h>
#include <simdjson.h>

#include <nlohmann/json.hpp>
#include <string>

#include "../DetailResponse.h"
#include "PeerCases.h"

namespace vantix::bench {
namespace {

const std::string& Detail() {
    static const std::string text = DetailResponse("C10000000");
    return text;
}

const std::string& Nested() {
    static const std::string text = NestedText();
    return text;
}

template <void (*Parse)(const std::string& text)>
void Both() {
    Parse(Detail());
    Parse(Nested());
}

void ByNlohmann(const std::string& text) {
    const nlohmann::json document = nlohmann::json::parse(text, nullptr, false);
    Require(!document.is_discarded(), "nlohmann refuses the text");
}

void ByRapidJson(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.data(), text.size());
    Require(!document.HasParseError(), "RapidJSON refuses the text");
}

void BySimdjson(const std::string& text) {
    static simdjson::dom::parser parser;
    simdjson::dom::element root;
    Require(parser.parse(text.data(), text.size()).get(root) == simdjson::SUCCESS, "simdjson refuses the text");
    benchmark::DoNotOptimize(root);
}

}  // namespace

std::vector<Case> ParsePeers() {
    return {
        MakeCase<PrepareNothing, Both<ByNlohmann>>("peer/parse/detail/nlohmann", kSomeRounds),
        MakeCase<PrepareNothing, Both<ByRapidJson>>("peer/parse/detail/RapidJSON", kSomeRounds),
        MakeCase<PrepareNothing, Both<BySimdjson>>("peer/parse/detail/simdjson", kSomeRounds),
    };
}

}  // namespace vantix::bench
