#include "json/JsonText.h"

#include "json/JsonCppInclude.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif

namespace vantix::json {

JsonBuilder::JsonBuilder(std::unique_ptr<Json::Value> value) : m_value(std::move(value)) {}
JsonBuilder::JsonBuilder(const JsonBuilder& other) : m_value(std::make_unique<Json::Value>(*other.m_value)) {}
JsonBuilder::~JsonBuilder() = default;

JsonBuilder& JsonBuilder::operator=(const JsonBuilder& other) {
    if (this != &other) {
        *m_value = *other.m_value;
    }
    return *this;
}

JsonBuilder JsonBuilder::Object() { return JsonBuilder(std::make_unique<Json::Value>(Json::objectValue)); }

JsonBuilder JsonBuilder::Array() { return JsonBuilder(std::make_unique<Json::Value>(Json::arrayValue)); }

JsonBuilder JsonBuilder::CopyOf(const JsonCppView& view) {
    return JsonBuilder(view.m_value == nullptr ? std::make_unique<Json::Value>()
                                               : std::make_unique<Json::Value>(*view.m_value));
}

JsonBuilder& JsonBuilder::Set(const char* key, const std::string& text) {
    (*m_value)[key] = text;
    return *this;
}

JsonBuilder& JsonBuilder::Set(const char* key, const char* text) {
    (*m_value)[key] = text;
    return *this;
}

JsonBuilder& JsonBuilder::Set(const char* key, int32_t number) {
    (*m_value)[key] = number;
    return *this;
}

JsonBuilder& JsonBuilder::Set(const char* key, const JsonBuilder& value) {
    (*m_value)[key] = *value.m_value;
    return *this;
}

JsonBuilder& JsonBuilder::SetIfThere(const char* key, const JsonCppView& view) {
    if (view.m_value != nullptr) {
        (*m_value)[key] = *view.m_value;
    }
    return *this;
}

JsonBuilder& JsonBuilder::Append(const JsonBuilder& value) {
    m_value->append(*value.m_value);
    return *this;
}

std::string JsonBuilder::Compact() const { return JsonCppView(m_value.get()).Compact(); }

}  // namespace vantix::json
