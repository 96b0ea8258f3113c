#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <ctime>
#include <thread>

#include "DetailTable.h"
#include "Explain.h"
#include "Report.h"
#include "commands/Commands.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

std::atomic<bool> g_interrupted{false};

void Interrupt(int /*signal*/) { g_interrupted = true; }

/// One difference between two fetches.
struct Change {
    std::string member;
    Json before;
    Json after;
};

/// Members that change with every fetch.
constexpr std::array<std::string_view, 4> kVolatile = {"iRequestCost", "tCacheTime", "isFromCache", "isUpdate"};

std::vector<Change> Changes(const Json& before, const Json& after) {
    std::vector<Change> changes;
    for (const auto& [part, record] : after.items()) {
        for (const auto& [key, value] : record.items()) {
            const bool isVolatile = std::find(kVolatile.begin(), kVolatile.end(), key) != kVolatile.end();
            if (!isVolatile && before[part][key] != value) {
                changes.push_back({std::string(part).append(".").append(key), before[part][key], value});
            }
        }
    }
    return changes;
}

std::string Clock() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> text{};
    const std::tm* local = std::localtime(&now);
    return local == nullptr ? "" : std::string(text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", local));
}

class Watcher {
public:
    Watcher(const Context& context, std::string_view secret) : m_context(context), m_secret(secret) {}

    /// Prints what has changed since the last outcome.
    void Report(const Outcome& outcome) {
        if (outcome.code != m_code) {
            PrintCode(outcome.code);
        }
        m_code = outcome.code;
        if (outcome.code != VANTIX_NOERROR) {
            return;
        }
        if (m_last.is_null()) {
            PrintStart(outcome.value);
        } else {
            for (const Change& change : Changes(m_last, outcome.value)) {
                PrintChange(change);
            }
        }
        m_last = outcome.value;
    }

    bool LastWasGood() const { return m_code == VANTIX_NOERROR; }

private:
    std::string Stamp() const { return m_context.paint(Style::Faint, Clock()) + "  "; }

    void PrintLine(const Json& document) const { Print(Dumped(document, -1) + "\n"); }

    void PrintCode(int32_t code) const {
        if (m_context.json) {
            PrintLine({{"time", Clock()}, {"code", code}, {"meaning", Explain(code).meaning}});
        } else if (code != VANTIX_NOERROR) {
            Print(Stamp() + m_context.paint(Style::Bad, std::to_string(code)) + "  " + Explain(code).meaning + "\n");
        } else {
            Print(Stamp() + m_context.paint(Style::Good, "it can be fetched again") + "\n");
        }
    }

    void PrintStart(const Json& detail) const {
        if (m_context.json) {
            PrintLine({{"time", Clock()}, {"code", 0}, {"result", detail}});
            return;
        }
        bool filled = false;
        Print(Stamp() +
              FillPattern("{device.deviceSerial}, channel {channel.cameraNo}: {device.deviceStatus:online}, level "
                          "{channel.videoLevel}, {device.deviceIP}",
                          detail, false, filled) +
              "\n");
    }

    void PrintChange(const Change& change) const {
        if (m_context.json) {
            PrintLine(
                {{"time", Clock()}, {"member", change.member}, {"before", change.before}, {"after", change.after}});
            return;
        }
        Print(Stamp() + m_context.paint(Style::Accent, change.member) + "  " + Shown(change, change.before) + " → " +
              m_context.paint(Style::Strong, Shown(change, change.after)) + "\n");
    }

    std::string Shown(const Change& change, const Json& value) const {
        const bool isSecret = !m_context.showSecrets && change.member.ends_with(m_secret);
        if (value.is_string()) {
            const auto& text = value.get_ref<const std::string&>();
            return text.empty() ? "nothing" : Printable(isSecret ? Masked(text) : text);
        }
        return Printable(Dumped(value, -1));
    }

    const Context& m_context;
    std::string m_secret;
    Json m_last = nullptr;
    int32_t m_code = VANTIX_NOERROR;
};

/// Sleeps until the time is over or the program is interrupted.
void Sleep(int seconds) {
    constexpr std::chrono::milliseconds kSlice{50};
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!g_interrupted && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kSlice);
    }
}

void PrintControlHint(const Context& context, const Session& session, const std::string& serial) {
    if (session.Loopback() == nullptr || context.json) {
        return;
    }
    Print(context.paint(Style::Faint,
                        "Change something in the loopback cloud from another shell, such as\n  curl -X PUT " +
                            session.Loopback()->ControlAddress() + "/devices/" + serial +
                            " -d '{\"device\": {\"deviceStatus\": 2}}'") +
          "\n");
}

}  // namespace

int RunWatch(Context& context, const ArgumentValues& arguments) {
    const int interval = arguments.Number("interval");
    const int times = arguments.Number("times");
    if (interval < 0 || times < 0) {
        throw UsageError("--interval and --times take no negative numbers");
    }
    const Session session(context.session);
    ArgumentValues fresh = arguments;
    fresh.Set("force", "1");
    std::signal(SIGINT, &Interrupt);
    PrintControlHint(context, session, arguments.Text("serial"));
    Watcher watcher(context, FindCommand("watch")->secret);
    for (int count = 0; !g_interrupted && (times == 0 || count < times); ++count) {
        if (count > 0) {
            Sleep(interval);
        }
        watcher.Report(FindCommand("getDevDetailInfoSync")->operation({session.Center(), fresh}));
    }
    return watcher.LastWasGood() ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
