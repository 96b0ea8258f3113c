#include "Readable.h"

#include <algorithm>
#include <array>
#include <vector>

#include "text/Table.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

constexpr size_t kLongestText = 160;

/// Members with the same content, as text, as another member.
constexpr std::array<std::string_view, 1> kDuplicates = {"strDeviceRecordList"};

constexpr std::array<std::string_view, 3> kEnvelopeMembers = {"resultCode", "resultDesc", "meta"};
constexpr std::array<std::string_view, 2> kResultEnvelopeMembers = {"code", "msg"};

template <size_t Count>
bool Contains(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The text, cut to a few lines of a table when it is longer.
std::string Cut(const std::string& text) {
    constexpr unsigned kContinuation = 0x80;
    constexpr unsigned kLeadingBits = 0xC0;
    if (text.size() <= kLongestText) {
        return text;
    }
    size_t end = kLongestText / 2;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & kLeadingBits) == kContinuation) {
        --end;
    }
    return text.substr(0, end).append("… (").append(std::to_string(text.size())).append(" characters)");
}

bool IsListOf(const Json& value, bool (*test)(const Json&)) {
    return value.is_array() && !value.empty() && std::all_of(value.begin(), value.end(), test);
}

bool IsListOfObjects(const Json& value) {
    return IsListOf(value, [](const Json& item) { return item.is_object(); });
}

std::string Joined(const Json& texts) {
    std::string joined;
    for (const Json& text : texts) {
        joined.append(joined.empty() ? "" : ", ").append(text.get<std::string>());
    }
    return joined;
}

/// The cell for one value: text, yes or no, a list of texts joined, the number of entries of another list.
Cell ScalarCell(const Json& value, bool isSecret) {
    if (value.is_string()) {
        const auto& text = value.get_ref<const std::string&>();
        return text.empty() ? Cell("–", Style::Faint) : Cell(isSecret ? Masked(text) : Cut(text));
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? Cell("yes", Style::Good) : Cell("no", Style::Faint);
    }
    if (value.is_null()) {
        return {"–", Style::Faint};
    }
    if (value.is_array() && value.empty()) {
        return {"none", Style::Faint};
    }
    if (IsListOf(value, [](const Json& item) { return item.is_string(); })) {
        return {Joined(value)};
    }
    if (IsListOfObjects(value)) {
        return {std::to_string(value.size()).append(value.size() == 1 ? " entry" : " entries"), Style::Faint};
    }
    return {Cut(Dumped(value, -1))};
}

/// The names of all members of the objects in a list, in order of appearance.
std::vector<std::string> Keys(const Json& list) {
    std::vector<std::string> keys;
    for (const Json& item : list) {
        for (const auto& [key, value] : item.items()) {
            if (std::find(keys.begin(), keys.end(), key) == keys.end()) {
                keys.push_back(key);
            }
        }
    }
    return keys;
}

/// One table for each object, for lists with too many columns for the screen.
std::string Records(const Context& context, const Json& list, std::string_view secret) {
    std::string text;
    for (const Json& item : list) {
        text += Readable(context, item, secret);
    }
    return text;
}

/// The column for a member. Texts with blanks may be wrapped, names and addresses are not.
Column ColumnOf(const Json& list, const std::string& key) {
    const bool isNumber = list.front().contains(key) && list.front()[key].is_number();
    const bool mayWrap = std::any_of(list.begin(), list.end(), [&](const Json& item) {
        const auto value = item.find(key);
        return value != item.end() && value->is_string() &&
               value->get_ref<const std::string&>().find(' ') != std::string::npos;
    });
    return {key, isNumber ? Align::Right : Align::Left, mayWrap};
}

std::string ListTable(const Context& context, const Json& list, std::string_view secret) {
    const std::vector<std::string> keys = Keys(list);
    std::vector<Column> columns;
    columns.reserve(keys.size());
    for (const std::string& key : keys) {
        columns.push_back(ColumnOf(list, key));
    }
    Table table(columns);
    for (const Json& item : list) {
        std::vector<Cell> cells;
        cells.reserve(keys.size());
        for (const std::string& key : keys) {
            cells.push_back(ScalarCell(item.contains(key) ? item[key] : Json(nullptr), key == secret));
        }
        table.Add(std::move(cells));
    }
    return table.Fits(context.width) ? table.Drawn(context.paint, context.width) : Records(context, list, secret);
}

std::string ObjectTable(const Context& context, const Json& object, std::string_view secret) {
    Table table({{"", Align::Left, false}, {"", Align::Left, true}});
    std::string below;
    for (const auto& [key, value] : object.items()) {
        if ((value.is_object() && !value.empty()) || IsListOfObjects(value)) {
            below += context.paint(Style::Strong, Printable(key)) + "\n" + Readable(context, value, secret);
        } else if (!Contains(kDuplicates, key)) {
            table.Add({Cell(key, Style::Accent), ScalarCell(value, key == secret)});
        }
    }
    return (table.Empty() ? "" : table.Drawn(context.paint, context.width)) + below;
}

}  // namespace

std::string Readable(const Context& context, const Json& value, std::string_view secret) {
    if (value.is_object() && !value.empty()) {
        return ObjectTable(context, value, secret);
    }
    if (IsListOfObjects(value)) {
        return ListTable(context, value, secret);
    }
    if (value.is_array() && value.empty()) {
        return "none\n";
    }
    if (value.is_string()) {
        return Printable(value.get<std::string>()) + "\n";
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? "yes\n" : "no\n";
    }
    return Dumped(value, -1) + "\n";
}

Json WithoutEnvelope(const Json& response) {
    if (!response.is_object()) {
        return response;
    }
    Json rest = Json::object();
    for (const auto& [key, value] : response.items()) {
        if (key == "result" && value.is_object()) {
            for (const auto& [inner, content] : value.items()) {
                if (!Contains(kResultEnvelopeMembers, inner)) {
                    rest[inner] = content;
                }
            }
        } else if (!Contains(kEnvelopeMembers, key)) {
            rest[key] = value;
        }
    }
    if (rest.size() == 1 && rest.contains("data")) {
        return rest["data"];
    }
    return rest.empty() ? Json(nullptr) : rest;
}

}  // namespace vantix::ctl
