#include "text/Table.h"

#include <algorithm>
#include <numeric>

#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

constexpr int kColumnFrameWidth = 3;  // "│ " before and " " after the text
constexpr int kMinFlexible = 12;

struct Joints {
    std::string_view left;
    std::string_view middle;
    std::string_view right;
};

constexpr Joints kTop = {"╭", "┬", "╮"};
constexpr Joints kMiddle = {"├", "┼", "┤"};
constexpr Joints kBottom = {"╰", "┴", "╯"};

std::string Repeated(std::string_view piece, int count) {
    std::string text;
    for (int index = 0; index < count; ++index) {
        text += piece;
    }
    return text;
}

std::string Rule(const Painter& paint, const std::vector<int>& widths, const Joints& joints) {
    std::string line(joints.left);
    for (size_t index = 0; index < widths.size(); ++index) {
        line += Repeated("─", widths[index] + 2);
        line += index + 1 < widths.size() ? joints.middle : joints.right;
    }
    return paint(Style::Faint, line) + "\n";
}

/// The cell's lines, wrapped at this width.
std::vector<Paragraph> Lines(const Cell& cell, int width) {
    std::vector<Paragraph> lines;
    for (const Paragraph& paragraph : cell.paragraphs) {
        for (std::string& line : Wrapped(Printable(paragraph.text), width)) {
            lines.push_back({std::move(line), paragraph.style});
        }
    }
    return lines;
}

int WidestLine(const Cell& cell) {
    int width = 0;
    for (const Paragraph& paragraph : cell.paragraphs) {
        width = std::max(width, DisplayWidth(Printable(paragraph.text)));
    }
    return width;
}

std::string Padded(const Painter& paint, const Paragraph& line, int width, Align align) {
    const std::string blanks(static_cast<size_t>(std::max(0, width - DisplayWidth(line.text))), ' ');
    const std::string text = paint(line.style, line.text);
    return align == Align::Left ? text + blanks : blanks + text;
}

std::string DrawnRow(const Painter& paint, const std::vector<Column>& columns, const std::vector<int>& widths,
                     const std::vector<Cell>& cells) {
    std::vector<std::vector<Paragraph>> lines;
    size_t height = 0;
    for (size_t index = 0; index < columns.size(); ++index) {
        lines.push_back(index < cells.size() ? Lines(cells[index], widths[index]) : std::vector<Paragraph>());
        height = std::max(height, lines.back().size());
    }
    const std::string bar = paint(Style::Faint, "│");
    std::string text;
    for (size_t line = 0; line < height; ++line) {
        text += bar;
        for (size_t index = 0; index < columns.size(); ++index) {
            const Paragraph& shown = line < lines[index].size() ? lines[index][line] : Paragraph{};
            text += " " + Padded(paint, shown, widths[index], columns[index].align) + " " + bar;
        }
        text += "\n";
    }
    return text;
}

}  // namespace

std::vector<int> Table::Widths(int screen) const {
    std::vector<int> widths;
    for (size_t index = 0; index < m_columns.size(); ++index) {
        int width = DisplayWidth(m_columns[index].title);
        for (const Row& row : m_rows) {
            width = std::max(width, index < row.cells.size() ? WidestLine(row.cells[index]) : 0);
        }
        widths.push_back(width);
    }
    const int count = static_cast<int>(widths.size());
    int tooMuch = std::accumulate(widths.begin(), widths.end(), count * kColumnFrameWidth + 1) - screen;
    while (tooMuch > 0) {
        // Narrows the widest flexible column by one, again and again, so that equal columns stay equal.
        int* widest = nullptr;
        for (size_t index = 0; index < widths.size(); ++index) {
            const bool mayShrink = m_columns[index].flexible && widths[index] > kMinFlexible;
            if (mayShrink && (widest == nullptr || widths[index] > *widest)) {
                widest = &widths[index];
            }
        }
        if (widest == nullptr) {
            break;
        }
        --*widest;
        --tooMuch;
    }
    return widths;
}

bool Table::Fits(int width) const {
    const std::vector<int> widths = Widths(width);
    const int count = static_cast<int>(widths.size());
    return std::accumulate(widths.begin(), widths.end(), count * kColumnFrameWidth + 1) <= width;
}

std::string Table::Drawn(const Painter& paint, int width) const {
    const std::vector<int> widths = Widths(width);
    std::string text = Rule(paint, widths, kTop);
    const bool hasTitles =
        std::any_of(m_columns.begin(), m_columns.end(), [](const Column& column) { return !column.title.empty(); });
    if (hasTitles) {
        std::vector<Cell> titles;
        for (const Column& column : m_columns) {
            titles.emplace_back(column.title, Style::Strong);
        }
        text += DrawnRow(paint, m_columns, widths, titles) + Rule(paint, widths, kMiddle);
    }
    for (const Row& row : m_rows) {
        text += row.isRule ? Rule(paint, widths, kMiddle) : DrawnRow(paint, m_columns, widths, row.cells);
    }
    return text + Rule(paint, widths, kBottom);
}

}  // namespace vantix::ctl
