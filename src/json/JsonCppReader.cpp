#include "json/JsonCppReader.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <string_view>
#include <vector>

#include "base/NumberText.h"
#include "base/ProcessSwitches.h"
#include "json/DecimalPoint.h"
#include "json/JsonCppInclude.h"
#include "json/StringEnd.h"
#include "json/Utf8.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif

namespace vantix::json {

bool JsonCppView::IsNull() const { return m_value == nullptr || m_value->isNull(); }

bool JsonCppView::IsObject() const { return m_value != nullptr && m_value->type() == Json::objectValue; }

bool JsonCppView::IsArray() const { return m_value != nullptr && m_value->type() == Json::arrayValue; }

bool JsonCppView::IsString() const { return m_value != nullptr && m_value->type() == Json::stringValue; }

JsonCppView JsonCppView::Member(const char* key) const {
    return IsObject() ? JsonCppView(m_value->find(key, key + std::strlen(key))) : JsonCppView();
}

void JsonCppView::VisitMembers(std::span<const std::string_view> keys,
                               FunctionRef<void(size_t position, const JsonCppView& member)> use) const {
    if (!IsObject()) {
        return;
    }
    auto member = m_value->begin();
    const auto end = m_value->end();
    for (size_t i = 0; i < keys.size() && member != end;) {
        const char* nameEnd = nullptr;
        const char* const name = member.memberName(&nameEnd);
        const int order = keys[i].compare(std::string_view(name, static_cast<size_t>(nameEnd - name)));
        if (order == 0) {
            use(i, JsonCppView(&*member));
        }
        i += order <= 0 ? 1U : 0U;
        if (order >= 0) {
            ++member;
        }
    }
}

size_t JsonCppView::Size() const { return IsArray() ? m_value->size() : 0; }

JsonCppView JsonCppView::Element(size_t index) const {
    return index < Size() ? JsonCppView(&(*m_value)[static_cast<Json::ArrayIndex>(index)]) : JsonCppView();
}

std::optional<TextView> JsonCppView::Text() const {
    if (!IsString()) {
        return std::nullopt;
    }
    const char* begin = nullptr;
    const char* end = nullptr;
    m_value->getString(&begin, &end);
    return TextView(begin, static_cast<size_t>(end - begin));
}

bool JsonCppView::Read(std::string& text) const {
    const std::optional<TextView> own = Text();
    if (own) {
        text.assign(own->begin(), own->end());
    }
    return own.has_value();
}

bool JsonCppView::Read(int32_t& number) const {
    if (m_value == nullptr || !m_value->isInt()) {
        return false;
    }
    number = m_value->asInt();
    return true;
}

bool JsonCppView::Read(bool& flag) const {
    if (m_value == nullptr || !m_value->isBool()) {
        return false;
    }
    flag = m_value->asBool();
    return true;
}

bool JsonCppView::ReadNumber(int64_t& number) const {
    if (m_value == nullptr || !m_value->isNumeric()) {
        return false;
    }
    if (m_value->type() == Json::realValue) {
        constexpr double kLimit = 9223372036854775808.0;  // 2^63
        const double real = m_value->asDouble();
        if (!(real >= -kLimit && real < kLimit)) {
            return false;
        }
        number = static_cast<int64_t>(real);
        return true;
    }
    if (!m_value->isInt64()) {
        return false;
    }
    number = m_value->asInt64();
    return true;
}

bool JsonCppView::ReadText(std::string& text) const {
    if (Read(text)) {
        return true;
    }
    if (m_value == nullptr || !m_value->isInt64()) {
        return false;
    }
    text = std::to_string(m_value->asInt64());
    return true;
}

bool JsonCppView::ReadIntOrText(int32_t& number) const {
    std::string text;
    if (Read(text)) {
        number = DecimalPrefix(text);
        return true;
    }
    return Read(number);
}

namespace {

/// The fast writer takes all texts for UTF-8, and would lose those of a code page.
std::string WriteBytesAsTheyAre(const Json::Value& value) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    std::ostringstream text;
    text.exceptions(std::ios::badbit);  // else a text for which memory runs out is cut
    const std::unique_ptr<Json::StreamWriter> writer(builder.newStreamWriter());
    writer->write(value, &text);
    return text.str();
}

}  // namespace

std::string JsonCppView::Compact() const {
    if (m_value == nullptr) {
        return {};
    }
    if (TextsAreInCodePage()) {
        return WriteBytesAsTheyAre(*m_value);
    }
    Json::FastWriter writer;
    writer.omitEndingLineFeed();
    std::string text = writer.write(*m_value);
    if (!bUtf8 && text.find("\\u") != std::string::npos) {
        std::string bytes = WriteBytesAsTheyAre(*m_value);
        return IsUtf8(bytes) ? text : bytes;
    }
    return text;
}

JsonCppDocument::JsonCppDocument() = default;
JsonCppDocument::~JsonCppDocument() = default;

namespace {

/// JsonCpp reads reals with a stream, which does not report memory that runs out: it then says that the text is no
/// number.
bool IsANumberRefused(const Json::Reader& reader) {
    const std::vector<Json::Reader::StructuredError> errors = reader.getStructuredErrors();
    return std::any_of(errors.begin(), errors.end(),
                       [](const auto& error) { return error.message.find("is not a number") != std::string::npos; });
}

bool ParseInto(TextView text, Json::Value& root) {
    const auto parse = [&](Json::Reader& reader) {
        if (CppLocaleHasOtherPoint()) {
            return reader.parse(WithoutDecimalPoints(std::string(text)), root, false);
        }
        return reader.parse(text.begin(), text.end(), root, false);  // a string would be copied
    };
    Json::Reader first;
    if (parse(first)) {
        return true;
    }
    Json::Reader second;
    return IsANumberRefused(first) && parse(second);
}

}  // namespace

bool JsonCppDocument::Parse(TextView text) {
    m_root.reset();
    try {
        auto root = std::make_unique<Json::Value>();
        if (!ParseInto(text, *root)) {
            return false;
        }
        m_root = std::move(root);
        return true;
    } catch (const Json::Exception&) {
        return false;
    }
}

namespace {

/// Whether nothing stands behind the object that a text begins with, and no comment anywhere.
bool IsBareObject(std::string_view text) {
    size_t depth = 0;
    bool isClosed = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (std::string_view(" \t\r\n").find(c) != std::string_view::npos) {
            continue;
        }
        if (isClosed || c == '/') {
            return false;
        }
        if (c == '"') {
            i = AfterString(text, i) - 1;
        } else if (c == '{' || c == '[') {
            ++depth;
        } else if (c == '}' || c == ']') {
            isClosed = --depth == 0;
        }
    }
    return isClosed;
}

}  // namespace

bool JsonCppDocument::ParseObjectStrictly(TextView text) {
    if (Parse(text) && Root().IsObject() && IsBareObject(text)) {
        return true;
    }
    m_root.reset();
    return false;
}

JsonCppView JsonCppDocument::Root() const { return JsonCppView(m_root.get()); }

}  // namespace vantix::json
