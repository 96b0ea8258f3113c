#pragma once

/// @file
/// Colour, for terminals only.

#include <cstdio>
#include <string>
#include <string_view>

namespace vantix::ctl {

/// The meaning of a text; `Painter` maps it to a colour.
enum class Style { Plain, Strong, Faint, Good, Bad, Notice, Accent };

/// When colour is used.
enum class ColourChoice { Auto, Always, Never };

/// Whether text on `stream` may be coloured: it is a terminal, and neither NO_COLOR nor TERM=dumb is set.
bool ColourSuits(std::FILE* stream, ColourChoice choice);

/// Width of the terminal behind standard output in columns; COLUMNS or 100 when there is none.
int ScreenWidth();

/// Whether `stream` is a terminal.
bool IsTerminal(std::FILE* stream);

/// Puts the escape sequences of a style around text, or returns the text unchanged.
class Painter {
public:
    explicit Painter(bool on) : m_on(on) {}

    std::string operator()(Style style, std::string_view text) const;
    bool On() const { return m_on; }

private:
    bool m_on;
};

}  // namespace vantix::ctl
