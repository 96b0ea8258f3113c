#include "text/Style.h"

#include <array>
#include <cstdlib>

#if defined(_WIN32)
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace vantix::ctl {
namespace {

constexpr int kDefaultWidth = 100;
constexpr int kMinWidth = 60;
constexpr int kMaxWidth = 140;

/// In the order of `Style`.
constexpr std::array<std::string_view, 7> kSequences = {"",           "\033[1m",  "\033[2m", "\033[32m",
                                                        "\033[1;31m", "\033[33m", "\033[36m"};
constexpr std::string_view kReset = "\033[0m";

std::string_view Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

int WidthFromSystem() {
#if !defined(_WIN32)
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
#endif
    const int columns =
        std::atoi(std::string(Environment("COLUMNS")).c_str());  // NOLINT(cert-err34-c): 0 for no number
    return columns > 0 ? columns : kDefaultWidth;
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
#if defined(_WIN32)
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}

bool ColourSuits(std::FILE* stream, ColourChoice choice) {
    if (choice != ColourChoice::Auto) {
        return choice == ColourChoice::Always;
    }
    return IsTerminal(stream) && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
}

int ScreenWidth() {
    const int width = WidthFromSystem();
    if (width < kMinWidth) {
        return kMinWidth;
    }
    return width < kMaxWidth ? width : kMaxWidth;
}

std::string Painter::operator()(Style style, std::string_view text) const {
    const std::string_view sequence = kSequences.at(static_cast<size_t>(style));
    if (!m_on || sequence.empty() || text.empty()) {
        return std::string(text);
    }
    return std::string(sequence).append(text).append(kReset);
}

}  // namespace vantix::ctl
