// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetPaint.h"
#include "desktop/base/Colours.h"
#include "desktop/base/OneLine.h"
#include "desktop/table/SheetPlaces.h"
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace desktop {

namespace {

using controls::FlexGrid;

constexpr int kPadding = 4;  ///< beside a text
constexpr int kRowSpace = 7; ///< above and below, together

constexpr double kPaleSelection = 0.3; ///< in a grid that keys don't go to

QFont FontOf(const controls::GridStyle& style, const QWidget& widget) {
    QFont font = widget.font();
    font.setBold(style.Bold);
    font.setItalic(style.Italic);
    font.setUnderline(style.Underline);
    return font;
}

class GridPainter {
public:
    GridPainter(QPainter& painter, const SheetPlaces& places, const FlexGrid& grid, const QWidget& widget,
                bool hasFocus)
        : painter_(painter), places_(places), grid_(grid), widget_(widget), selection_(grid.Selection()),
          hasFocus_(hasFocus) {}

    void Paint() {
        const auto [first, last] = places_.VisibleRows(grid_);
        const std::vector<int> cols = places_.VisibleCols(grid_);
        // Rows are cut by the header, and columns by the frozen ones.
        const int header = places_.BottomOfHeader(grid_), frozen = places_.RightOfFrozen(grid_);
        const QRect all = widget_.rect();
        PaintBlock(first, last, cols, false, {frozen, header, all.width(), all.height()});
        PaintBlock(first, last, cols, true, {0, header, all.width(), all.height()});
        PaintBlock(0, 0, cols, false, {frozen, 0, all.width(), all.height()});
        PaintBlock(0, 0, cols, true, all);
        painter_.setClipping(false);
    }

private:
    void PaintBlock(int first, int last, const std::vector<int>& cols, bool frozen, const QRect& clip) {
        painter_.setClipRect(clip & widget_.rect());
        for (int row = first; row <= last; ++row)
            for (const int col : cols)
                if ((col < grid_.FrozenCols()) == frozen)
                    PaintCell(row, col);
    }

    bool IsSelected(int row, int col) const {
        return row >= selection_.top && row <= selection_.bottom && col >= selection_.left &&
               col <= selection_.right && row > 0 && col > 0;
    }

    QColor Paper(int row, int col, bool selected) const {
        const QPalette& palette = widget_.palette();
        const QColor plain = palette.color(row == 0                   ? QPalette::Button
                                           : col < grid_.FrozenCols() ? QPalette::AlternateBase
                                                                      : QPalette::Base);
        if (!selected)
            return plain;
        const QColor full = palette.color(QPalette::Highlight);
        return hasFocus_ ? full : Mixed(plain, full, kPaleSelection);
    }

    void PaintCell(int row, int col) {
        const QPalette& palette = widget_.palette();
        const QRect cell = places_.RectOf(grid_, row, col);
        const bool current = row == grid_.Row() && col == grid_.Col() && row > 0;
        // The current cell of a block is told apart by its paper, as in any spreadsheet.
        const bool selected =
            IsSelected(row, col) && !(current && selection_.height() * selection_.width() > 1);
        const QColor paper = Paper(row, col, selected);
        painter_.fillRect(cell, paper);
        painter_.setPen(palette.color(QPalette::Mid));
        painter_.drawLine(cell.topRight(), cell.bottomRight());
        painter_.drawLine(cell.bottomLeft(), cell.bottomRight());
        PaintText(cell, row, col, selected, paper);
        if (current && hasFocus_) {
            painter_.setPen(palette.color(QPalette::Text));
            painter_.drawRect(cell.adjusted(0, 0, -2, -2));
        }
    }

    void PaintText(const QRect& cell, int row, int col, bool selected, const QColor& paper) {
        const QString text = OneLine(QStringView(grid_.TextMatrix(row, col)));
        if (text.isEmpty())
            return;
        const controls::GridStyle style = grid_.Style(row, col);
        const QFont font = FontOf(style, widget_);
        const QColor own = TextColour(style.ForeColor, paper);
        const QPalette::ColorRole role = row == 0 ? QPalette::ButtonText : QPalette::Text;
        painter_.setPen(selected && hasFocus_ ? widget_.palette().color(QPalette::HighlightedText)
                        : own.isValid()       ? own
                                              : widget_.palette().color(role));
        painter_.setFont(font);
        const QRect inside = cell.adjusted(kPadding, 0, -kPadding, 0);
        const Qt::Alignment side =
            style.Alignment == controls::flexAlignRightCenter ? Qt::AlignRight : Qt::AlignLeft;
        painter_.drawText(inside, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                          QFontMetrics(font).elidedText(text, Qt::ElideRight, inside.width()));
    }

    QPainter& painter_;
    const SheetPlaces& places_;
    const FlexGrid& grid_;
    const QWidget& widget_;
    controls::GridRange selection_;
    bool hasFocus_;
};

} // namespace

void PaintSheet(DocumentWindow& window, QWidget& widget, const FlexGrid* focus) {
    QPainter painter(&widget);
    painter.fillRect(widget.rect(), widget.palette().color(QPalette::Window));
    const SheetPlaces places(window, widget.size());
    for (const FlexGrid* grid : places.VisibleGrids())
        GridPainter(painter, places, *grid, widget, grid == focus).Paint();
}

int WidthWanted(const FlexGrid& grid, int row, int col, const QWidget& widget) {
    const QFontMetrics font(FontOf(grid.Style(row, col), widget));
    return font.horizontalAdvance(OneLine(QStringView(grid.TextMatrix(row, col)))) + 2 * kPadding + 2;
}

int RowPixels(const QWidget& widget) {
    return widget.fontMetrics().height() + kRowSpace;
}

} // namespace desktop
