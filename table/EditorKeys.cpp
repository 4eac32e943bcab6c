// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/EditorKeys.h"
#include "core/edit/Transaction.h"
#include "core/model/Frame.h"
#include "table/CalcRow.h"
#include "table/CellCommit.h"
#include "table/CellEditor.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/Sheet.h"
#include "table/TableState.h"
#include <Qt>
#include <algorithm>

namespace table {

namespace {

using controls::FlexGrid;
using controls::TextBox;

enum class Way { None, Left, Right, Next, Previous, Up, Down, Close, GiveUp };

// Inside the text the arrows are the text's own.
Way WayOf(const TextBox& txt, int key, int modifiers) {
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    const bool shift = (modifiers & static_cast<int>(Qt::ShiftModifier)) != 0;
    const bool caret = txt.SelLength() == 0 && !shift;
    switch (key) {
    case Qt::Key_Left:
        return control || (caret && txt.SelStart() == 0) ? Way::Left : Way::None;
    case Qt::Key_Right:
        return control || (caret && txt.SelStart() == txt.Text().size()) ? Way::Right : Way::None;
    case Qt::Key_Tab:
        return shift ? Way::Previous : Way::Next;
    case Qt::Key_Backtab:
        return Way::Previous;
    case Qt::Key_Up:
        return Way::Up;
    case Qt::Key_Down:
        return Way::Down;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Way::Close;
    case Qt::Key_Escape:
        return Way::GiveUp;
    default:
        return Way::None;
    }
}

/// Ends the edit and makes a cell beside it the current one. A commit may have the grids made anew, and rows
/// in another order: the cell is found again by its element and its column's name. Null: its table is gone,
/// or what was typed was refused.
FlexGrid* Step(DocumentWindow& window, int rows, int columns) {
    const TableState& state = TableOf(window);
    const EditedCell cell = state.edited;
    const int index = state.miEditTableIndex;
    int column = state.miEditCol, row = state.miEditRow;
    if (row == 0) // a header: the row that was current below it
        row = window.hfgrdTableView(index).Row();
    if (!FinishTableEdits(window) || index > window.hfgrdTableView.UBound())
        return nullptr;
    FlexGrid& grid = window.hfgrdTableView(index);
    const auto table = TableIn(window, grid);
    if (!table)
        return nullptr;
    if (const int found = RowOfElement(window, grid, window.tvXML.Nodes.Find(cell.key)); found > 0)
        row = found;
    if (const int found = table->columnOf(cell.name); found > 0)
        column = found;
    row = std::clamp(row + rows, 1, grid.Rows() - 1);
    column = std::clamp(column + columns, 0, grid.Cols() - 1);
    grid.Select(row, column, row, column);
    ShowTableCell(window, grid, row, column);
    grid.SetFocus();
    return &grid;
}

void EditBeside(DocumentWindow& window, int rows, int columns) {
    FlexGrid* grid = Step(window, rows, columns);
    if (grid && FitsLine(window, *grid))
        GridEdit(window, *grid, window.txtTView);
}

void EditHeaderBeside(DocumentWindow& window, int columns) {
    if (FlexGrid* grid = Step(window, 0, columns))
        GridEditHeader(window, *grid, window.txtTViewHeader);
}

void CalcBelow(DocumentWindow& window) {
    if (FlexGrid* grid = Step(window, 1, 0))
        ShowCalc(window, *grid, window.cmbSum, kNoKey);
}

void GiveUp(DocumentWindow& window) {
    CloseTableEditors(window);
    window.hfgrdTableView(TableOf(window).miEditTableIndex).SetFocus();
    window.app.frame().RefreshMenu();
}

// Tab goes on in the row above or below; from the first and the last cell the focus goes to the grid, and
// not to whatever comes behind it (quirk 115).
void TabThroughCells(DocumentWindow& window, const FlexGrid& grid, int way) {
    const int row = TableOf(window).miEditRow, column = TableOf(window).miEditCol;
    const int last = grid.Cols() - 1;
    if (column + way >= Columns::kFirst && column + way <= last)
        EditBeside(window, 0, way);
    else if (IsDataRow(window, grid, row + way))
        EditBeside(window, way, way > 0 ? Columns::kFirst - last : last - Columns::kFirst);
    else
        Step(window, 0, 0);
}

// False where the key is the text's own.
bool WalkCells(DocumentWindow& window, Way way) {
    const FlexGrid& grid = window.hfgrdTableView(TableOf(window).miEditTableIndex);
    const int row = TableOf(window).miEditRow, column = TableOf(window).miEditCol;
    if (way == Way::Next || way == Way::Previous)
        TabThroughCells(window, grid, way == Way::Next ? 1 : -1);
    else if (way == Way::Left && column > Columns::kFirst)
        EditBeside(window, 0, -1);
    else if (way == Way::Right && column < grid.Cols() - 1)
        EditBeside(window, 0, 1);
    else if (way == Way::Up && row == 1)
        EditHeaderBeside(window, 0);
    else if (way == Way::Up)
        EditBeside(window, -1, 0);
    else if (way == Way::Down && IsDataRow(window, grid, row + 1))
        EditBeside(window, 1, 0);
    else if (way == Way::Down && IsCalcRow(window, grid, row + 1))
        CalcBelow(window);
    else
        return false;
    return true;
}

bool WalkHeaders(DocumentWindow& window, Way way) {
    const FlexGrid& grid = window.hfgrdTableView(TableOf(window).miEditTableIndex);
    const int column = TableOf(window).miEditCol;
    const bool first = column <= Columns::kFirst, last = column >= grid.Cols() - 2; // "Node Text" has none
    if ((way == Way::Left || way == Way::Previous) && !first)
        EditHeaderBeside(window, -1);
    else if ((way == Way::Right || way == Way::Next) && !last)
        EditHeaderBeside(window, 1);
    else if (way == Way::Next || way == Way::Previous)
        Step(window, 0, 0);
    else if (way == Way::Down)
        EditBeside(window, 0, 0);
    else
        return false;
    return true;
}

template <bool (*walk)(DocumentWindow&, Way)>
void KeyDown(DocumentWindow& window, const TextBox& txt, int& key, int modifiers) {
    edit::Attend(window, kContextTable);
    const Way way = WayOf(txt, key, modifiers);
    if (way == Way::Close)
        Step(window, 0, 0);
    else if (way == Way::GiveUp)
        GiveUp(window);
    else if (way == Way::None || !walk(window, way))
        return;
    key = 0;
}

} // namespace

void txtTView_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    KeyDown<WalkCells>(window, window.txtTView, key, modifiers);
}

void txtTViewHeader_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    KeyDown<WalkHeaders>(window, window.txtTViewHeader, key, modifiers);
}

void cmbSum_KeyDown(DocumentWindow& window, int& key, int) {
    const int pressed = std::exchange(key, 0);
    FlexGrid& grid = window.hfgrdTableView(TableOf(window).miEditTableIndex);
    if (pressed == Qt::Key_Up) {
        cmbSum_LostFocus(window);
        const int row = grid.Rows() - 2, column = TableOf(window).miEditCol;
        grid.Select(row, column, row, column);
        GridEdit(window, grid, window.txtTView);
    } else if (pressed == Qt::Key_Down) {
        const int next = window.cmbSum.ListIndex() + 1;
        FillCalcCombo(window.cmbSum, {});
        window.cmbSum.UserChose(std::min(next, static_cast<int>(window.cmbSum.Items().size()) - 1));
    } else if (pressed == Qt::Key_Escape || pressed == Qt::Key_Tab) {
        cmbSum_LostFocus(window);
        grid.SetFocus();
    }
}

} // namespace table
