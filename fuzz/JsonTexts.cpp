// The two JSON readers, the writer, and what stands around them.

#include "json/DecimalPoint.h"
#include "json/Json11Reader.h"
#include "json/JsonCppReader.h"
#include "json/JsonText.h"
#include "json/Utf8.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

/// What is written can be read, and is then written alike.
void ReadLeniently(const std::string& text) {
    json::JsonCppDocument document;
    if (!document.Parse(text)) {
        Require(document.Root().IsNull());
        return;
    }
    const std::string written = document.Root().Compact();
    Require(written.find('\n') == std::string::npos);
    Require(json::JsonBuilder::CopyOf(document.Root()).Compact() == written);
}

void ReadStrictly(const std::string& text) {
    json::JsonCppDocument document;
    const bool isObject = document.ParseObjectStrictly(text);
    Require(isObject == document.Root().IsObject());
    Require(!isObject || !json::JsonCppDocument().ParseObjectStrictly(text + "1"));
}

/// A JSON text without decimal points is the same value.
void ReadNumbers(const std::string& text) {
    json::Json11Document document;
    if (!document.Parse(text)) {
        Require(document.Root().IsNull() && !document.Error().empty());
        return;
    }
    json::Json11Document same;
    Require(same.Parse(json::WithoutDecimalPoints(text)));
    int32_t number = 0;
    int32_t sameNumber = 0;
    Require(document.Root().Element(0).Read(number) == same.Root().Element(0).Read(sameNumber));
    Require(number == sameNumber && document.Root().Size() == same.Root().Size());
}

/// Well-formed texts stay well-formed side by side; where one is malformed, the whole is or the cut was inside a
/// character.
void ReadUtf8(const std::string& text) {
    const bool isWhole = json::IsUtf8(text);
    const std::string_view all = text;
    const bool isFirst = json::IsUtf8(all.substr(0, all.size() / 2));
    const bool isSecond = json::IsUtf8(all.substr(all.size() / 2));
    Require(!(isFirst && isSecond) || isWhole);
    Require(!(isWhole && isFirst) || isSecond);
    Require(!json::IsUtf8(text + '\xFF'));
}

constexpr Reader kRows[] = {
    {"leniently", ReadLeniently},
    {"strictly", ReadStrictly},
    {"numbers", ReadNumbers},
    {"UTF-8", ReadUtf8},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
