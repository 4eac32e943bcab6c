// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

// Where grids and cells stand in the widget, in its pixels.
namespace desktop {

/// A cell of a grid. Row 0 is the header.
struct GridPlace {
    controls::FlexGrid* grid = nullptr; ///< null beside the grids
    int row = -1, col = -1;             ///< -1 beside the cells of the grid
    bool IsCell() const { return grid && row >= 0 && col >= 0; }
    bool operator==(const GridPlace&) const = default;
};

class SheetPlaces {
public:
    SheetPlaces(DocumentWindow& window, QSize view) : window_(window), view_(view) {}

    /// The grids of which something can be seen, from top to bottom.
    std::vector<controls::FlexGrid*> VisibleGrids() const;
    QRect RectOf(const controls::FlexGrid& grid) const; ///< as wide as its columns, at most as the widget
    /// A cell as it stands, whether it is covered by the header or not; row 0 is where the header is painted.
    QRect RectOf(const controls::FlexGrid& grid, int row, int col) const;
    QRect RectOf(const controls::Bounds& onSheet) const;
    int RightOfFrozen(const controls::FlexGrid& grid) const; ///< where the columns that scroll begin
    int BottomOfHeader(const controls::FlexGrid& grid) const;
    /// First and last row that can be seen below the header; the last is before the first where there is
    /// none.
    std::pair<int, int> VisibleRows(const controls::FlexGrid& grid) const;
    std::vector<int> VisibleCols(const controls::FlexGrid& grid) const; ///< those with a width

    GridPlace At(QPoint place) const;
    /// The cell of a grid that is nearest to a place, for a selection that is drawn out beyond the grid.
    GridPlace Nearest(controls::FlexGrid& grid, QPoint place) const;
    /// The column whose right edge in a header is under a place; -1 for none.
    GridPlace BorderAt(QPoint place) const;

private:
    double SheetTop() const { return window_.pctTV.Place().Top; }
    int RowAt(const controls::FlexGrid& grid, int y) const; ///< not looking at the header; may be outside
    DocumentWindow& window_;
    QSize view_;
};

} // namespace desktop
