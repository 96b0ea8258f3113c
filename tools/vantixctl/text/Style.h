#pragma once

/// @file
/// Colour, for terminals only.

#include <cstdio>
#include <string>
#include <string_view>

namespace vantix::ctl {

/// What a piece of text means; `Painter` decides how that looks.
enum class Style { Plain, Strong, Faint, Good, Bad, Notice, Accent };

/// When colour is used.
enum class ColourChoice { Auto, Always, Never };

/// Whether text that goes to `stream` may be coloured: a terminal, and nobody asked for none (NO_COLOR, TERM=dumb).
bool ColourSuits(std::FILE* stream, ColourChoice choice);

/// Width of the terminal behind standard output in columns; COLUMNS or 100 when there is none.
int ScreenWidth();

/// Whether a person looks at `stream`.
bool IsTerminal(std::FILE* stream);

/// Wraps text in the escape sequences of its style, or leaves it alone.
class Painter {
public:
    explicit Painter(bool on) : m_on(on) {}

    std::string operator()(Style style, std::string_view text) const;
    bool On() const { return m_on; }

private:
    bool m_on;
};

}  // namespace vantix::ctl
