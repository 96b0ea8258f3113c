#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "text/Style.h"

namespace vantix::ctl {

enum class Align { Left, Right };

/// A column. A flexible one is narrowed, and its texts wrapped, when the table is wider than the screen.
struct Column {
    std::string title;
    Align align = Align::Left;
    bool flexible = false;
};

/// One paragraph of a cell.
struct Paragraph {
    std::string text;
    Style style = Style::Plain;
};

/// A cell of a table: paragraphs, one under the other.
struct Cell {
    Cell(std::string text, Style style = Style::Plain)  // NOLINT(google-explicit-constructor): cells are mostly text
        : paragraphs{{std::move(text), style}} {}
    Cell(const char* text) : Cell(std::string(text)) {}  // NOLINT(google-explicit-constructor)
    Cell(std::initializer_list<Paragraph> parts) : paragraphs(parts) {}

    std::vector<Paragraph> paragraphs;
};

/// A table with a frame. Texts are UTF-8 with any content; control characters are not printed.
class Table {
public:
    explicit Table(std::vector<Column> columns) : m_columns(std::move(columns)) {}

    void Add(std::vector<Cell> cells) { m_rows.push_back({std::move(cells), false}); }
    /// Adds a horizontal rule below the rows added so far.
    void AddRule() { m_rows.push_back({{}, true}); }
    bool Empty() const { return m_rows.empty(); }
    /// Whether the table, with its columns as narrow as they can be, fits a screen of this width.
    bool Fits(int width) const;

    /// The table as text; every line ends with a line break. `width` is that of the screen.
    std::string Drawn(const Painter& paint, int width) const;

private:
    struct Row {
        std::vector<Cell> cells;
        bool isRule;
    };

    std::vector<int> Widths(int screen) const;

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
};

}  // namespace vantix::ctl
