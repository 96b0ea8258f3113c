// The definitions of all arguments, one row each.

#include <algorithm>
#include <stdexcept>

#include "Command.h"

namespace vantix::ctl {
namespace {

constexpr std::array kParameters = {
    // Devices and channels
    Parameter{"serial", Kind::Text, "SERIAL", "serial of the device"},
    Parameter{"channel", Kind::Number, "CHANNEL", "number of the channel"},
    Parameter{"channel-text", Kind::Text, "CHANNEL", "number of the channel, as text"},
    Parameter{"biz-type", Kind::Text, "TYPE", "business type"},
    Parameter{"platform-id", Kind::Text, "ID", "id of the business platform"},
    Parameter{"force", Kind::Flag, "", "fetch even when it is cached"},
    Parameter{"value", Kind::Number, "N", "the value to set"},
    Parameter{"level", Kind::Number, "N", "level"},
    Parameter{"speed", Kind::Number, "N", "playback speed, 0 to 9"},
    // Pages
    Parameter{"page-start", Kind::Number, "N", "number of the page; the first is 0"},
    Parameter{"page-size", Kind::Number, "N", "entries of a page"},
    Parameter{"offset", Kind::Number, "N", "first entry"},
    Parameter{"limit", Kind::Number, "N", "most entries"},
    // Times and recordings
    Parameter{"start", Kind::Text, "TIME", "begin, as \"2024-01-02 03:04:05\""},
    Parameter{"end", Kind::Text, "TIME", "end, in the same form"},
    Parameter{"record-type", Kind::Number, "N", "kind of recording"},
    Parameter{"location", Kind::Number, "N", "where to look for recordings"},
    Parameter{"sdk-path", Kind::Flag, "", "use the path for programs"},
    Parameter{"with-location", Kind::Flag, "", "include the place of each recording"},
    Parameter{"file-type", Kind::Number, "N", "kind of file"},
    Parameter{"video-type", Kind::Number, "N", "kind of video"},
    Parameter{"date", Kind::Text, "DATE", "day to search, as \"2024-01-02\"; today when empty"},
    Parameter{"before", Kind::Text, "TIME", "only recordings made before"},
    Parameter{"detail-count", Kind::Number, "N", "number of recordings with details"},
    Parameter{"query", Kind::Text, "JSON", "a JSON object; all of the channel when empty"},
    Parameter{"local-index", Kind::Number, "N", "local index"},
    Parameter{"space-id", Kind::Number, "N", "storage space"},
    Parameter{"file-name", Kind::Text, "NAME", "name of the picture"},
    Parameter{"expire-days", Kind::Number, "DAYS", "how long the picture is kept"},
    Parameter{"url-expire", Kind::Number, "SECONDS", "how long the address is valid"},
    Parameter{"url", Kind::Text, "URL", "address to upload to"},
    Parameter{"file", Kind::Text, "FILE", "local picture"},
    // Alarms and messages
    Parameter{"alarm-id", Kind::Text, "ID", "id of the alarm"},
    Parameter{"alarm-type", Kind::Number, "N", "kind of alarm, -1 for all"},
    Parameter{"status", Kind::Number, "N", "0 unread, 1 read, 2 all"},
    Parameter{"msg-seq", Kind::Text, "ID", "sequence number of the message"},
    // Tokens
    Parameter{"token", Kind::Text, "TOKEN", "the token; the account's access token when empty"},
    Parameter{"count", Kind::Number, "N", "how many"},
    Parameter{"tk-type", Kind::Number, "1..6", "1 global, 2 device, 3 video, 4 preview, 5 playback, 6 talk"},
    Parameter{"tokens", Kind::Text, "JSON", "a JSON array of tokens"},
    Parameter{"refresh-session-id", Kind::Text, "ID",
              "renews the consumer session; the option of the same name when empty"},
    Parameter{"playback", Kind::Flag, "", "ask about recordings, not about live view"},
    // Settings
    Parameter{"text", Kind::Text, "TEXT", "the text to set"},
    Parameter{"number", Kind::Number, "N", "the number to set"},
    Parameter{"platform-url", Kind::Text, "URL", "base address of the platform; empty keeps the old one"},
    Parameter{"consumer-url", Kind::Text, "URL", "base address of the consumer servers; empty keeps the old one"},
    Parameter{"check-type", Kind::Number, "N", "kind of check"},
    Parameter{"check-time", Kind::Text, "TIME", "time of the check"},
    // Commands of the tool
    Parameter{"code", Kind::Number, "CODE", "a return code"},
    Parameter{"tasks", Kind::Number, "N", "requests under way at once, 1 to 32"},
    Parameter{"interval", Kind::Number, "SECONDS", "time between two fetches"},
    Parameter{"times", Kind::Number, "N", "fetches before it ends; 0 for no end"},
    Parameter{"shell", Kind::Text, "SHELL", "the shell: bash"},
    Parameter{"command", Kind::Text, "COMMAND", "a command"},
};

}  // namespace

const Parameter& FindParameter(std::string_view name) {
    const auto* found = std::find_if(kParameters.begin(), kParameters.end(),
                                     [&](const Parameter& parameter) { return parameter.name == name; });
    if (found == kParameters.end()) {
        throw std::logic_error("no parameter --" + std::string(name));
    }
    return *found;
}

}  // namespace vantix::ctl
