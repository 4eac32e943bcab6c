// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Sheet.h"
#include "core/edit/Guard.h"
#include "table/TableState.h"
#include <algorithm>
#include <cmath>

namespace table {

namespace {

using controls::Bounds;
using controls::FlexGrid;

constexpr double kBelowGrid = 250, kBelowSheet = 150; // twips
constexpr double kBarInset = 90 - 15;                 // of the scroll bar into the sheet
constexpr double kBarWidth = 255;

double HeightOf(const FlexGrid& grid) {
    return grid.RowHeight(0) + grid.RowHeight(1) * grid.Rows() + kBelowGrid;
}

void MoveSheet(DocumentWindow& window, double top) {
    Bounds sheet = window.pctTV.Place();
    sheet.Top = top;
    window.pctTV.Move(sheet);
}

double PlaceGrids(DocumentWindow& window) {
    const double width = window.pctTV.Place().Width;
    double top = 0;
    for (int i = 0; i < window.hfgrdTableView.Count(); ++i) {
        FlexGrid& grid = window.hfgrdTableView(i);
        const double height = HeightOf(grid);
        grid.Move({0, top, width, height});
        top += height;
    }
    return top;
}

void ShowCellVertically(DocumentWindow& window, const FlexGrid& grid, int row) {
    const double header = grid.RowHeight(0), view = window.pctTableView.Place().Height;
    const double top = grid.Place().Top + grid.RowTop(row), at = -window.pctTV.Place().Top;
    if (row < grid.FixedRows() || top - header < at)
        ScrollSheet(window, row < grid.FixedRows() ? std::min(at, grid.Place().Top) : top - header);
    else if (top + grid.RowHeight(row) > at + view)
        ScrollSheet(window, std::min(top - header, top + grid.RowHeight(row) - view));
}

} // namespace

double SheetOverhang(const DocumentWindow& window) {
    return std::max(window.pctTV.Place().Height - window.pctTableView.Place().Height, 0.0);
}

void ScrollSheet(DocumentWindow& window, double top) {
    MoveSheet(window, -std::clamp(top, 0.0, SheetOverhang(window)));
}

void vsTableView_Change(DocumentWindow& window) {
    if (const double overhang = SheetOverhang(window); overhang > 0)
        MoveSheet(window, -overhang * window.vsTableView.Value() / window.vsTableView.Max);
}

void ResizeTableView(DocumentWindow& window, double width, double height) {
    window.pctTableView.Move({0, 0, width, height});
    Bounds sheet = window.pctTV.Place();
    const double top = -sheet.Top;
    sheet.Width = std::max(width - kBarWidth + kBarInset, 0.0);
    window.pctTV.Move(sheet);
    SetTableViewOutlook(window);
    ScrollSheet(window, top); // the user goes on where they looked
}

void SetTableRowHeight(DocumentWindow& window, double height) {
    if (std::exchange(TableOf(window).rowHeight, height) == height)
        return;
    for (int i = 0; i < window.hfgrdTableView.Count(); ++i)
        window.hfgrdTableView(i).SetRowHeight(height);
    SetTableViewOutlook(window);
}

void SetTableViewOutlook(DocumentWindow& window) {
    edit::Guarded(window, "SetTableViewOutlook", [&] {
        const double viewHeight = window.pctTableView.Place().Height;
        Bounds sheet = window.pctTV.Place();
        window.vsTableView.SetValue(1);
        window.vsTableView.Move({sheet.Left + sheet.Width - kBarInset, 0, kBarWidth, viewHeight});
        sheet.Top = 0;
        sheet.Height = PlaceGrids(window) + kBelowSheet;
        window.pctTV.Move(sheet);
        ShowFocusRow(window);
        window.vsTableView.SetVisible(sheet.Height - kBelowSheet >= viewHeight);
    });
}

// The bar's value leads to the grid; in a long one the row is still out of sight then (quirk 65).
void ShowFocusRow(DocumentWindow& window) {
    const TableState& state = TableOf(window);
    if (!state.mvFocusTableRow || state.miFocusTableIndex > window.hfgrdTableView.UBound())
        return;
    FlexGrid& grid = window.hfgrdTableView(state.miFocusTableIndex);
    controls::ScrollBar& bar = window.vsTableView;
    bar.SetValue(static_cast<int>(std::lround(grid.Place().Top / window.pctTV.Place().Height * bar.Max + 1)));
    const int row = grid.RowOfSource(*state.mvFocusTableRow);
    ShowTableCell(window, grid, std::min(row, grid.Rows() - 1), grid.Col());
}

double HeaderTop(const DocumentWindow& window, const FlexGrid& grid) {
    const double top = grid.Place().Top, lowest = top + grid.RowTop(grid.Rows() - 1);
    return std::clamp(-window.pctTV.Place().Top, top, std::max(top, lowest));
}

void ShowTableCell(DocumentWindow& window, FlexGrid& grid, int row, int col) {
    ShowCellVertically(window, grid, row);
    grid.ShowColumn(col);
}

} // namespace table
