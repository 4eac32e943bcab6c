// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetPlaces.h"
#include "desktop/base/Twips.h"
#include "table/Sheet.h"
#include <algorithm>
#include <cmath>

namespace desktop {

using controls::FlexGrid;

namespace {

constexpr int kGrip = 4; ///< pixels around a border that the mouse takes for it

} // namespace

// Grids lie one below the other, so the first visible one is found by halving: there may be thousands.
std::vector<FlexGrid*> SheetPlaces::VisibleGrids() const {
    const controls::FlexGridArray& grids = window_.hfgrdTableView;
    int low = 0, high = grids.Count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const controls::Bounds& place = grids(middle).Place();
        if (SheetTop() + place.Top + place.Height <= 0)
            low = middle + 1;
        else
            high = middle;
    }
    std::vector<FlexGrid*> visible;
    const double bottom = ToTwips(view_.height());
    for (int i = low; i < grids.Count() && SheetTop() + grids(i).Place().Top < bottom; ++i)
        if (grids(i).Visible() && grids(i).Cols() > 0 && grids(i).Rows() > 0)
            visible.push_back(&grids(i));
    return visible;
}

QRect SheetPlaces::RectOf(const controls::Bounds& onSheet) const {
    const int left = ToPixels(onSheet.Left), top = ToPixels(onSheet.Top + SheetTop());
    return {left, top, ToPixels(onSheet.Left + onSheet.Width) - left,
            ToPixels(onSheet.Top + onSheet.Height + SheetTop()) - top};
}

QRect SheetPlaces::RectOf(const FlexGrid& grid) const {
    const controls::Bounds& place = grid.Place();
    const double width = std::min(grid.ColumnsWidth(), ToTwips(view_.width()) - place.Left);
    return RectOf({place.Left, place.Top, width, grid.RowTop(grid.Rows())});
}

QRect SheetPlaces::RectOf(const FlexGrid& grid, int row, int col) const {
    const controls::Bounds& place = grid.Place();
    const double top = row == 0 ? table::HeaderTop(window_, grid) : place.Top + grid.RowTop(row);
    return RectOf({place.Left + grid.ColLeft(col), top, grid.ColWidth(col), grid.RowHeight(row)});
}

int SheetPlaces::RightOfFrozen(const FlexGrid& grid) const {
    const int last = std::min(grid.FrozenCols(), grid.Cols()) - 1;
    return last < 0 ? ToPixels(grid.Place().Left) : RectOf(grid, 0, last).right() + 1;
}

int SheetPlaces::BottomOfHeader(const FlexGrid& grid) const {
    return RectOf(grid, 0, 0).bottom() + 1;
}

int SheetPlaces::RowAt(const FlexGrid& grid, int y) const {
    const double within = ToTwips(y) - SheetTop() - grid.Place().Top;
    return static_cast<int>(std::floor(within / grid.RowHeight(1)));
}

std::pair<int, int> SheetPlaces::VisibleRows(const FlexGrid& grid) const {
    const int first = std::max(RowAt(grid, std::max(BottomOfHeader(grid), 0)), grid.FixedRows());
    return {first, std::min(RowAt(grid, view_.height()), grid.Rows() - 1)};
}

std::vector<int> SheetPlaces::VisibleCols(const FlexGrid& grid) const {
    std::vector<int> cols;
    const int frozen = std::min(grid.FrozenCols(), grid.Cols());
    for (int col = 0; col < frozen; ++col)
        if (grid.ColWidth(col) > 0)
            cols.push_back(col);
    const double edge = ToTwips(RightOfFrozen(grid)) - grid.Place().Left;
    const double right = std::min(ToTwips(view_.width()), grid.ColumnsWidth());
    for (int col = std::max(grid.ColAt(edge), frozen); col < grid.Cols(); ++col) {
        if (grid.ColLeft(col) >= right)
            break;
        if (grid.ColWidth(col) > 0)
            cols.push_back(col);
    }
    return cols;
}

GridPlace SheetPlaces::At(QPoint place) const {
    for (FlexGrid* grid : VisibleGrids()) {
        if (!RectOf(*grid).contains(place))
            continue;
        const bool header = place.y() < BottomOfHeader(*grid);
        return {grid, header ? 0 : std::clamp(RowAt(*grid, place.y()), 0, grid->Rows() - 1),
                grid->ColAt(ToTwips(place.x()) - grid->Place().Left)};
    }
    return {};
}

GridPlace SheetPlaces::Nearest(FlexGrid& grid, QPoint place) const {
    const double x = ToTwips(place.x()) - grid.Place().Left;
    const int beside = x < 0 ? 0 : grid.Cols() - 1, col = grid.ColAt(x);
    return {&grid, std::clamp(RowAt(grid, place.y()), std::min(1, grid.Rows() - 1), grid.Rows() - 1),
            std::max(col < 0 ? beside : col, std::min(1, grid.Cols() - 1))};
}

GridPlace SheetPlaces::BorderAt(QPoint place) const {
    for (FlexGrid* grid : VisibleGrids()) {
        const QRect header = RectOf(*grid, 0, 0);
        if (place.y() < header.top() || place.y() > header.bottom())
            continue;
        for (const int col : VisibleCols(*grid)) {
            const int right = RectOf(*grid, 0, col).right();
            const bool covered = col >= grid->FrozenCols() && right < RightOfFrozen(*grid);
            if (!covered && std::abs(place.x() - right) <= kGrip)
                return {grid, 0, col};
        }
    }
    return {};
}

} // namespace desktop
