#include "Prefetch.h"

#include <algorithm>

#include "Explain.h"
#include "Report.h"
#include "commands/Commands.h"
#include "session/StandardError.h"
#include "text/Table.h"

namespace vantix::ctl {
namespace {

constexpr int kMaxTasks = 32;

/// A progress bar on standard error, shown only on a terminal.
class ProgressBar {
public:
    explicit ProgressBar(size_t total) : m_total(total), m_shown(IsTerminal(StandardError::Stream())) {}

    void Show(size_t done) const {
        constexpr size_t kWidth = 32;
        if (!m_shown || m_total == 0) {
            return;
        }
        const size_t filled = kWidth * done / m_total;
        std::string line = "\r  ";
        for (size_t index = 0; index < kWidth; ++index) {
            line += index < filled ? "█" : "░";
        }
        line += "  " + std::to_string(done) + " of " + std::to_string(m_total);
        std::fputs(line.c_str(), StandardError::Stream());
        std::fflush(StandardError::Stream());
    }

    void Clear() const {
        if (m_shown) {
            std::fputs("\r\033[K", StandardError::Stream());
            std::fflush(StandardError::Stream());
        }
    }

private:
    size_t m_total;
    bool m_shown;
};

bool IsGood(const FetchedChannel& fetched) { return fetched.code == VANTIX_NOERROR; }

Cell StateCell(const FetchedChannel& fetched) {
    if (!IsGood(fetched)) {
        return {std::to_string(fetched.code) + ": " + Explain(fetched.code).meaning, Style::Bad};
    }
    return fetched.isOnline ? Cell("● online", Style::Good) : Cell("○ offline", Style::Faint);
}

std::string AsTable(const Context& context, const std::vector<FetchedChannel>& channels) {
    Table table({{"serial"},
                 {"channel", Align::Right},
                 {"name", Align::Left, true},
                 {"state", Align::Left, true},
                 {"release"},
                 {"cost", Align::Right}});
    for (const FetchedChannel& fetched : channels) {
        table.Add({Cell(fetched.serial), std::to_string(fetched.channel), Cell(fetched.name), StateCell(fetched),
                   Cell(fetched.release), std::to_string(fetched.cost) + " ms"});
    }
    return table.Drawn(context.paint, context.width);
}

Json AsJson(const std::vector<FetchedChannel>& channels) {
    Json list = Json::array();
    for (const FetchedChannel& fetched : channels) {
        list.push_back({{"serial", fetched.serial},
                        {"channel", fetched.channel},
                        {"name", fetched.name},
                        {"code", fetched.code},
                        {"meaning", Explain(fetched.code).meaning},
                        {"online", fetched.isOnline},
                        {"release", fetched.release},
                        {"cost", fetched.cost}});
    }
    return list;
}

int NumberWithin(const ArgumentValues& arguments, std::string_view name, int least, int most) {
    const int number = arguments.Number(name);
    if (number < least || number > most) {
        throw UsageError("--" + std::string(name) + " takes a number from " + std::to_string(least) + " to " +
                         std::to_string(most));
    }
    return number;
}

}  // namespace

int RunPrefetch(Context& context, const ArgumentValues& arguments) {
    constexpr int kLargestPage = 1000;
    const int tasks = NumberWithin(arguments, "tasks", 1, kMaxTasks);
    const int pageSize = NumberWithin(arguments, "page-size", 1, kLargestPage);
    const Session session(context.session);
    std::vector<FetchedChannel> channels;
    const int32_t listed = ListChannels(session.Center(), pageSize, channels);
    if (listed != VANTIX_NOERROR) {
        PrintFailure("prefetch: getDevList", listed);
        return kFailure;
    }
    const ProgressBar bar(channels.size());
    bar.Show(0);
    FetchAll(session.Center(), tasks, channels, [&](size_t done) { bar.Show(done); });
    bar.Clear();
    const auto good = static_cast<size_t>(std::count_if(channels.begin(), channels.end(), IsGood));
    Print(context.json ? Dumped(AsJson(channels)) + "\n"
                       : AsTable(context, channels) + "  " + std::to_string(good) + " of " +
                             std::to_string(channels.size()) + " details fetched\n");
    return good == channels.size() ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
