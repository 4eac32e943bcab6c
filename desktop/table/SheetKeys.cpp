// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetKeys.h"
#include "desktop/base/Twips.h"
#include "desktop/table/SheetBase.h"
#include <QKeyEvent>
#include <algorithm>

namespace desktop {

using controls::FlexGrid;

namespace {

struct Cell {
    int row, col;
};

/// Where a key leads from a cell; the same cell for a key that leads nowhere. The row may be outside.
Cell Target(const FlexGrid& grid, Cell from, int key, bool ctrl, int page) {
    const int firstRow = grid.FixedRows(), lastRow = grid.Rows() - 1;
    const int firstCol = std::min(grid.FrozenCols(), grid.Cols() - 1), lastCol = grid.Cols() - 1;
    switch (key) {
    case Qt::Key_Up:
        return {ctrl ? firstRow : from.row - 1, from.col};
    case Qt::Key_Down:
        return {ctrl ? lastRow : from.row + 1, from.col};
    case Qt::Key_Left:
        return {from.row, std::max(ctrl ? firstCol : from.col - 1, grid.FixedCols())};
    case Qt::Key_Right:
        return {from.row, std::min(ctrl ? lastCol : from.col + 1, lastCol)};
    case Qt::Key_PageUp:
        return {std::max(from.row - page, firstRow), from.col};
    case Qt::Key_PageDown:
        return {std::min(from.row + page, lastRow), from.col};
    case Qt::Key_Home:
        return {ctrl ? firstRow : from.row, firstCol};
    case Qt::Key_End:
        return {ctrl ? lastRow : from.row, lastCol};
    default:
        return from;
    }
}

bool Moves(int key) {
    return key >= Qt::Key_Home && key <= Qt::Key_PageDown;
}

/// The character that a key raises KeyPress with; 0 for none.
int CharacterOf(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return 0;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return '\r';
    return event.text().isEmpty() || !event.text().front().isPrint() ? 0 : event.text().front().unicode();
}

} // namespace

SheetKeys::SheetKeys(SheetBase& view) : view_(view), events_(view, this) {
    const auto raise = [this](controls::Event<FlexGrid&> controls::GridEvents::*event) {
        if (FlexGrid* grid = view_.Current())
            (grid->events().*event)(*grid);
    };
    events_.gotFocus = [raise] { raise(&controls::GridEvents::GotFocus); };
    events_.lostFocus = [raise] { raise(&controls::GridEvents::LostFocus); };
    events_.keyDown = [this](int& key, int modifiers) {
        if (FlexGrid* grid = view_.Current())
            grid->events().KeyDown(*grid, key, modifiers);
    };
    events_.keyUp = [this](int key, int modifiers) {
        if (FlexGrid* grid = view_.Current())
            grid->events().KeyUp(*grid, key, modifiers);
    };
}

int SheetKeys::PageRows(const FlexGrid& grid) const {
    return std::max(static_cast<int>(ToTwips(view_.height()) / grid.RowHeight(1)) - 2, 1);
}

// Grids lie one below the other, and so do their rows.
bool SheetKeys::StepOut(FlexGrid& grid, int row) {
    const int next = grid.Index + (row < grid.FixedRows() ? -1 : 1);
    const controls::FlexGridArray& grids = view_.Window()->hfgrdTableView;
    if (next < 0 || next > grids.UBound() || !grids(next).Visible())
        return false;
    FlexGrid& other = grids(next);
    const int target = next < grid.Index ? other.Rows() - 1 : other.FixedRows();
    const int col = std::min(grid.Col(), other.Cols() - 1);
    grid.Select(grid.Row(), grid.Col(), grid.Row(), grid.Col());
    other.Select(target, col, target, col);
    view_.SetCurrent(other);
    other.events().GotFocus(other);
    view_.ShowCell(other, target, col);
    return true;
}

bool SheetKeys::MoveBy(const QKeyEvent& event) {
    FlexGrid& grid = *view_.Current();
    const bool shift = event.modifiers() & Qt::ShiftModifier, ctrl = event.modifiers() & Qt::ControlModifier;
    const Cell from = shift ? Cell{grid.RowSel(), grid.ColSel()} : Cell{grid.Row(), grid.Col()};
    Cell to = Target(grid, from, event.key(), ctrl, PageRows(grid));
    const bool outside = to.row < grid.FixedRows() || to.row >= grid.Rows();
    if (outside && !shift && StepOut(grid, to.row))
        return true;
    to.row = std::clamp(to.row, std::min(grid.FixedRows(), grid.Rows() - 1), grid.Rows() - 1);
    if (shift)
        grid.Select(grid.Row(), grid.Col(), to.row, to.col);
    else
        grid.Select(to.row, to.col, to.row, to.col);
    view_.ShowCell(grid, to.row, to.col);
    return true;
}

bool SheetKeys::Press(const QKeyEvent& event) {
    FlexGrid* grid = view_.Current();
    if (!grid || (event.modifiers() & Qt::AltModifier))
        return false;
    if (Moves(event.key()))
        return MoveBy(event);
    const int character = CharacterOf(event);
    if (character != 0)
        grid->events().KeyPress(*grid, character);
    return character != 0;
}

} // namespace desktop
