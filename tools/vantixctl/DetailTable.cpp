#include "DetailTable.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "text/Table.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

/// One line of the table; `pattern` is that of FillPattern.
struct Line {
    std::string_view group;
    std::string_view label;
    std::string_view pattern;
};

constexpr std::array kLines = {
    Line{"Device", "serial", "{device.deviceSerial}"},
    Line{"Device", "state", "{device.deviceStatus:online}"},
    Line{"Device", "release", "{device.releaseVersion}"},
    Line{"Device", "channels", "{device.supportChannelNums}"},
    Line{"Device", "owned by the account", "{device.isOwner:yes}"},
    Line{"Device", "encrypted", "{device.isEncrypt:yes}  {device.encryptPwd:masked}"},
    Line{"Device", "public key", "{device.publicKey}  version {device.version}"},
    Line{"Device", "parent", "{device.belongSerial}, channel {device.belongNo}, in force {device.belongState:yes}"},
    Line{"Addresses", "in the internet",
         "{device.deviceIP}  device {device.devicePort}, command {device.cmdPort}, HTTP {device.httpPort}, stream "
         "{device.streamPort}"},
    Line{"Addresses", "in its own network",
         "{device.localIp}  device {device.localDevicePort}, command {device.localCmdPort}, HTTP "
         "{device.localHttpPort}, stream {device.localStreamPort}"},
    Line{"Addresses", "network", "kind {device.netType}, mask {device.maskIp}, UPnP {device.upnp:yes}"},
    Line{"Servers", "push", "{device.ppvsAddr}:{device.ppvsPort}"},
    Line{"Servers", "access", "{device.casIp}:{device.casPort}"},
    Line{"Servers", "video relay", "{device.vtmIp}:{device.vtmPort}"},
    Line{"Servers", "further relays", "{device.vtmBackups:relays}"},
    Line{"Servers", "talk", "{device.ttsIp}:{device.ttsPort}"},
    Line{"Servers", "talk (GB/JT)", "{device.gbJtTtsIP}:{device.gbJtTtsPort}"},
    Line{"Can do", "movement",
         "{device.support_ptz:mark}\u00A0pan/tilt/zoom   {device.ptz_left_right:mark}\u00A0left and right   "
         "{device.ptz_top_bottom:mark}\u00A0up and down   {device.ptz_preset:mark}\u00A0presets"},
    Line{"Can do", "playback",
         "{device.support_seek_playback:mark}\u00A0seek   {device.support_seek_v2:mark}\u00A0seek v2   "
         "{device.support_quickplay_way:mark}\u00A0fast   {device.support_device_playback_small_speed:mark}\u00A0small "
         "steps   {device.support_replay_download:mark}\u00A0download"},
    Line{"Can do", "besides",
         "{device.support_talk:mark}\u00A0talk   {device.support_device_video_cover:mark}\u00A0video cover   "
         "{device.support_ecdh_v2:mark}\u00A0ECDH v2   {device.iShareVerif:mark}\u00A0verifies shares"},
    Line{"Can do", "by number", "{device.supportExtShort:count}"},
    Line{"Channel", "number", "{channel.cameraNo}  {channel.cameraId}"},
    Line{"Channel", "state", "{channel.status:online}"},
    Line{"Channel", "kind", "{channel.type}, capability {channel.capability}, permission {channel.permission}"},
    Line{"Channel", "shared, trusted", "shared {channel.isShared:yes}, trusted {channel.iIsTrust:yes}"},
    Line{"Channel", "stream",
         "forced type {channel.forceStreamType}, business {channel.streamBiz}  {channel.streamBizUrl}"},
    Line{"Channel", "quality", "level {channel.videoLevel} of {channel.videoQualityInfos:qualities}"},
    Line{"Fetch", "took", "{device.iRequestCost} ms, {device.isFromCache:source}"},
    Line{"Fetch", "on", "{device.tCacheTime:time}"},
};

bool IsYes(const Json& value) { return value == true || (value.is_number() && value != 0) || value == "1"; }

/// Whether a capability, a number or a decimal text, is there: not empty, 0 or -1.
bool IsThere(const Json& value) {
    if (!value.is_string()) {
        return IsYes(value);
    }
    const auto& text = value.get_ref<const std::string&>();
    return !text.empty() && text != "0" && text != "-1";
}

std::string LocalTime(int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::array<char, 64> text{};
    const std::tm* local = std::localtime(&time);
    if (seconds == 0 || local == nullptr) {
        return {};
    }
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", local)};
}

std::string Joined(const Json& list, std::string (*show)(const Json&)) {
    std::string text;
    for (const Json& item : list) {
        text += (text.empty() ? "" : ", ") + show(item);
    }
    return text;
}

std::string Relay(const Json& relay) {
    return relay["strVtmAddr"].get<std::string>() + ":" + Dumped(relay["iVtmPort"]);
}

/// "2 Full HD (main)", with no-break spaces.
std::string Quality(const Json& quality) {
    std::string text = Dumped(quality["videoLevel"]) + " " + quality["videoQualityName"].get<std::string>() +
                       (quality["streamType"] == 1 ? " (main)" : " (sub)");
    constexpr std::string_view kNoBreak = "\u00A0";
    for (size_t at = text.find(' '); at != std::string::npos; at = text.find(' ', at)) {
        text.replace(at, 1, kNoBreak);
    }
    return text;
}

std::string Count(const Json& value) {
    const auto text = value.get<std::string>();
    return text.empty() ? "" : std::to_string(1 + std::count(text.begin(), text.end(), '|')) + " values";
}

/// One form of a member and the function that shows a value in it.
struct Form {
    std::string_view name;
    std::string (*show)(const Json&);
};

constexpr std::array kForms = {
    Form{"mark", [](const Json& value) -> std::string { return IsThere(value) ? "✓" : "✗"; }},
    Form{"yes", [](const Json& value) -> std::string { return IsYes(value) ? "yes" : "no"; }},
    Form{"online", [](const Json& value) -> std::string { return value == 1 ? "● online" : "○ offline"; }},
    Form{"source",
         [](const Json& value) -> std::string { return value == true ? "from the cache" : "from the cloud"; }},
    Form{"time", [](const Json& value) { return LocalTime(value.get<int64_t>()); }},
    Form{"masked", [](const Json& value) { return Masked(value.get<std::string>()); }},
    Form{"count", &Count},
    Form{"relays", [](const Json& value) { return Joined(value, &Relay); }},
    Form{"qualities", [](const Json& value) { return Joined(value, &Quality); }},
};

std::string Shown(const Json& value, std::string_view form) {
    const auto* found = std::find_if(kForms.begin(), kForms.end(), [&](const Form& one) { return one.name == form; });
    if (found != kForms.end()) {
        return found->show(value);
    }
    return value.is_string() ? value.get<std::string>() : Dumped(value, -1);
}

/// The member with this name, such as "device.deviceIP".
const Json& Member(const Json& detail, std::string_view name) {
    const size_t dot = name.find('.');
    return detail.at(std::string(name.substr(0, dot))).at(std::string(name.substr(dot + 1)));
}

Style StyleOf(const Line& line, const std::string& text) {
    if (line.pattern.find(":online}") == std::string_view::npos) {
        return Style::Plain;
    }
    return text.starts_with("●") ? Style::Good : Style::Bad;
}

}  // namespace

std::string FillPattern(std::string_view pattern, const Json& detail, bool showSecrets, bool& filled) {
    std::string text;
    bool isFirst = true;
    filled = false;
    for (size_t at = 0; at < pattern.size();) {
        const size_t open = std::min(pattern.find('{', at), pattern.size());
        const size_t close = pattern.find('}', open);
        text += pattern.substr(at, open - at);
        if (close == std::string_view::npos) {
            break;
        }
        const std::string_view inside = pattern.substr(open + 1, close - open - 1);
        const size_t colon = std::min(inside.find(':'), inside.size());
        std::string_view form = colon < inside.size() ? inside.substr(colon + 1) : std::string_view();
        form = showSecrets && form == "masked" ? std::string_view() : form;
        const Json& value = Member(detail, inside.substr(0, colon));
        const bool isNothing =
            (value.is_string() && value.get_ref<const std::string&>().empty()) || (value.is_array() && value.empty());
        filled = filled || (isFirst && !isNothing);
        isFirst = false;
        text += Shown(value, form);
        at = close + 1;
    }
    return text;
}

std::string DetailTable(const Context& context, const Json& detail) {
    Table table({{""}, {""}, {"", Align::Left, true}});
    std::string_view group;
    for (const Line& line : kLines) {
        const bool isNewGroup = line.group != group;
        if (isNewGroup && !group.empty()) {
            table.AddRule();
        }
        group = line.group;
        bool filled = false;
        const std::string text = FillPattern(line.pattern, detail, context.showSecrets, filled);
        table.Add({Cell(isNewGroup ? std::string(group) : "", Style::Strong),
                   Cell(std::string(line.label), Style::Accent),
                   filled && !text.empty() ? Cell(text, StyleOf(line, text)) : Cell("–", Style::Faint)});
    }
    return table.Drawn(context.paint, context.width);
}

}  // namespace vantix::ctl
