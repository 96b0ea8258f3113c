#include "json/Json11Reader.h"

#include <exception>
#include <iterator>
#include <json11.hpp>
#include <limits>

#include "json/DecimalPoint.h"

namespace vantix::json {
namespace {

/// json11 reads a string alone. What is copied into one leaves out the blanks that a server can send without end.
std::string WithoutBlanksAround(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return {text.data() + first, text.data() + text.find_last_not_of(kBlanks) + 1};
}

}  // namespace

bool Json11View::IsNull() const { return m_value == nullptr || m_value->is_null(); }

bool Json11View::IsObject() const { return m_value != nullptr && m_value->is_object(); }

bool Json11View::IsArray() const { return m_value != nullptr && m_value->is_array(); }

bool Json11View::IsString() const { return m_value != nullptr && m_value->is_string(); }

Json11View Json11View::Member(const char* key) const {
    if (!IsObject()) {
        return {};
    }
    const json11::Json::object& members = m_value->object_items();
    const auto found = members.find(key);
    return found == members.end() ? Json11View() : Json11View(&found->second);
}

void Json11View::VisitMembers(std::span<const std::string_view> keys,
                              FunctionRef<void(size_t position, const Json11View& member)> use) const {
    if (!IsObject()) {
        return;
    }
    const json11::Json::object& members = m_value->object_items();
    auto member = members.begin();
    for (size_t i = 0; i < keys.size() && member != members.end();) {
        const int order = keys[i].compare(member->first);
        if (order == 0) {
            use(i, Json11View(&member->second));
        }
        i += order <= 0 ? 1U : 0U;
        member = order >= 0 ? std::next(member) : member;
    }
}

size_t Json11View::Size() const { return IsArray() ? m_value->array_items().size() : 0; }

Json11View Json11View::Element(size_t index) const {
    return index < Size() ? Json11View(&m_value->array_items()[index]) : Json11View();
}

const std::string* Json11View::Text() const { return IsString() ? &m_value->string_value() : nullptr; }

bool Json11View::Read(std::string& text) const {
    if (!IsString()) {
        return false;
    }
    text = m_value->string_value();
    return true;
}

bool Json11View::Read(int32_t& number) const {
    if (m_value == nullptr || !m_value->is_number()) {
        return false;
    }
    const double value = m_value->number_value();
    constexpr double kBelow = std::numeric_limits<int32_t>::min() - 1.0;
    constexpr double kAbove = std::numeric_limits<int32_t>::max() + 1.0;
    if (!(value > kBelow && value < kAbove)) {
        return false;
    }
    number = static_cast<int32_t>(value);
    return true;
}

bool Json11View::Read(bool& flag) const {
    if (m_value == nullptr || !m_value->is_bool()) {
        return false;
    }
    flag = m_value->bool_value();
    return true;
}

Json11Document::Json11Document() = default;
Json11Document::~Json11Document() = default;

bool Json11Document::Parse(TextView text) { return Parse(WithoutBlanksAround(text)); }

bool Json11Document::Parse(const std::string& text) {
    m_root.reset();
    m_error.clear();
    const bool hasOtherPoint = CLocaleHasOtherPoint();
    const std::string otherText = hasOtherPoint ? WithoutDecimalPoints(text) : std::string();
    auto root = std::make_unique<json11::Json>(json11::Json::parse(hasOtherPoint ? otherText : text, m_error));
    if (!m_error.empty()) {
        return false;
    }
    m_root = std::move(root);
    return true;
}

Json11View Json11Document::Root() const { return Json11View(m_root.get()); }

}  // namespace vantix::json
