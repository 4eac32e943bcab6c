// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableEvents.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/model/Frame.h"
#include "core/model/NodeNumbers.h"
#include "nodes/MoveNodes.h"
#include "table/CalcRow.h"
#include "table/CellCommit.h"
#include "table/CellEditor.h"
#include "table/EditorKeys.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/Sheet.h"
#include "table/TableChart.h"
#include "table/TableClipboard.h"
#include "table/TableState.h"
#include <Qt>

namespace table {

namespace {

constexpr int kFirstLetter = 33; // behind control characters and the blank

using controls::FlexGrid;
using controls::TreeNode;

void Touch(DocumentWindow& window, FlexGrid& grid) {
    TableOf(window).miTableViewIndex = grid.Index;
}

void Attention(DocumentWindow& window, FlexGrid& grid) {
    Touch(window, grid);
    edit::Attend(window, kContextTable);
}

void hfgrdTableView_Click(DocumentWindow& window, FlexGrid& grid) {
    Attention(window, grid);
    if (!std::exchange(TableOf(window).mbSkipTableClick, false))
        NavToRelatedTreeNode(window, grid);
}

// Down to the first element in the row's, else back up.
void WalkFromLabel(DocumentWindow& window, const FlexGrid& grid) {
    const TreeNode node = ElementAt(window, grid, grid.Row());
    if (const TreeNode first = node ? m_tvXML::FirstElement(node.Child()) : TreeNode()) {
        edit::SelectNode(window, first);
        return;
    }
    nodes::GoBackToTreeUpLevel(window);
    TableOf(window).mbSkipTableClick = true;
}

// The command that edits a value leads to a cell with one, wherever the pointer is.
void LeaveLabelAndHeader(FlexGrid& grid) {
    const int row = std::max(grid.Row(), 1), column = std::max(grid.Col(), Columns::kFirst);
    grid.Select(row, column, row, column);
}

// A large text that was taken a step back is ahead of the tree for a moment. Read while an editor is open it
// would close that. The grid of the same number, then; null where there is none any more.
FlexGrid* WithTextRead(DocumentWindow& window, FlexGrid& grid) {
    if (!window.bond.bTextChanged() || !window.way)
        return &grid;
    const int index = grid.Index;
    const bool read = edit::Run(window, "ReadEditedText", [&] { return window.way->read(window); });
    FlexGrid* current = read ? CurrentGrid(window) : nullptr;
    return current && current->Index == index ? current : nullptr;
}

void EditCurrentCell(DocumentWindow& window, FlexGrid& grid) {
    if (IsDataRow(window, grid, grid.Row()))
        GridEdit(window, grid, window.txtTView, kNoKey);
    else if (grid.Col() >= Columns::kFirst && IsCalcRow(window, grid, grid.Row()))
        ShowCalc(window, grid, window.cmbSum, kNoKey);
}

// The key that opened the editor is the first letter of what is typed (quirk 127).
void TakeFirstKey(DocumentWindow& window, int key) {
    controls::TextBox& editor = window.txtTView;
    if (key < kFirstLetter || !editor.Visible())
        return;
    editor.Select(0, editor.Text().size());
    editor.SetSelText(QString(QChar(key)));
}

void hfgrdTableView_KeyPress(DocumentWindow& window, FlexGrid& touched, int key) {
    Touch(window, touched);
    FlexGrid* grid = WithTextRead(window, touched);
    if (!grid)
        return;
    EditCurrentCell(window, *grid);
    TakeFirstKey(window, key);
}

struct GridKey {
    int key;
    bool control;
    void (*run)(DocumentWindow&);
};
constexpr GridKey kGridKeys[] = {
    {Qt::Key_C, true, [](DocumentWindow& window) { CopyAtTableView(window); }},
    {Qt::Key_V, true, PasteAtTableView},
    {Qt::Key_X, true, CutAtTableView},
    {Qt::Key_Delete, false, DeleteAtTableView},
    {Qt::Key_A, true, SelectAllAtTableView},
};

bool MovesInGrid(int key) {
    return key >= Qt::Key_Home && key <= Qt::Key_PageDown;
}

// The current node goes along: path, dialogs and commands are for the row that is looked at (quirk 114).
void hfgrdTableView_KeyUp(DocumentWindow& window, FlexGrid& grid, int key, int modifiers) {
    Touch(window, grid);
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    for (const GridKey& one : kGridKeys) {
        if (one.key != key || one.control != control)
            continue;
        if (WithTextRead(window, grid))
            one.run(window);
        return window.app.frame().RefreshMenu();
    }
    if (MovesInGrid(key))
        NavToRelatedTreeNode(window, grid);
    window.app.frame().RefreshMenu();
}

// A double click that led to another level may have been without its second click.
void hfgrdTableView_MouseDown(DocumentWindow& window, FlexGrid& grid) {
    Touch(window, grid);
    TableOf(window).mbSkipTableClick = false;
}

void hfgrdTableView_MouseUp(DocumentWindow& window, FlexGrid& grid) {
    Attention(window, grid);
    if (HaveCellSelected(grid) && !window.kind.schema)
        ChartFromTableSelection(window, grid);
}

void hfgrdTableView_SelChange(DocumentWindow& window, FlexGrid& grid) {
    if (grid.Index == TableOf(window).miTableViewIndex)
        window.app.frame().RefreshMenu();
}

void hfgrdTableView_ColumnResized(DocumentWindow& window, FlexGrid& grid, int column) {
    if (const auto table = TableIn(window, grid))
        TableOf(window).widths[{table->name(), table->header(column)}] = grid.ColWidth(column);
}

void ConnectGrids(DocumentWindow& window) {
    controls::GridEvents& grids = window.hfgrdTableView.events();
    grids.Click.connect([&window](FlexGrid& grid) { hfgrdTableView_Click(window, grid); });
    grids.DblClick.connect([&window](FlexGrid& grid) { hfgrdTableView_DblClick(window, grid); });
    grids.GotFocus.connect([&window](FlexGrid& grid) { Attention(window, grid); });
    grids.MouseDown.connect([&window](FlexGrid& grid, int) { hfgrdTableView_MouseDown(window, grid); });
    grids.MouseUp.connect([&window](FlexGrid& grid, int) { hfgrdTableView_MouseUp(window, grid); });
    grids.KeyPress.connect(
        [&window](FlexGrid& grid, int key) { hfgrdTableView_KeyPress(window, grid, key); });
    grids.KeyUp.connect([&window](FlexGrid& grid, int key, int modifiers) {
        hfgrdTableView_KeyUp(window, grid, key, modifiers);
    });
    grids.SelChange.connect([&window](FlexGrid& grid) { hfgrdTableView_SelChange(window, grid); });
    grids.ColumnResized.connect(
        [&window](FlexGrid& grid, int column) { hfgrdTableView_ColumnResized(window, grid, column); });
    grids.columnsChanged.connect([&window](FlexGrid&) { LayTableEditors(window); });
}

void ConnectEditors(DocumentWindow& window) {
    const auto attend = [&window] { edit::Attend(window, kContextTable); };
    window.txtTView.GotFocus.connect(attend);
    window.txtTViewHeader.GotFocus.connect(attend);
    window.txtTView.LostFocus.connect([&window] { txtTView_LostFocus(window); });
    window.txtTViewHeader.LostFocus.connect([&window] { txtTViewHeader_LostFocus(window); });
    window.txtTView.KeyDown.connect(
        [&window](int& key, int modifiers) { txtTView_KeyDown(window, key, modifiers); });
    window.txtTViewHeader.KeyDown.connect(
        [&window](int& key, int modifiers) { txtTViewHeader_KeyDown(window, key, modifiers); });
    window.cmbSum.Click.connect([&window] { cmbSum_Click(window); });
    window.cmbSum.DropDown.connect([&window] { cmbSum_DropDown(window); });
    window.cmbSum.LostFocus.connect([&window] { cmbSum_LostFocus(window); });
    window.cmbSum.KeyDown.connect(
        [&window](int& key, int modifiers) { cmbSum_KeyDown(window, key, modifiers); });
}

} // namespace

void hfgrdTableView_DblClick(DocumentWindow& window, FlexGrid& touched) {
    edit::Guarded(window.app, AtRoutine(window, "hfgrdTableView_DblClick"), [&] {
        Touch(window, touched);
        touched.SetFocus();
        if (!FinishTableEdits(window))
            return;
        FlexGrid* grid = WithTextRead(window, touched);
        if (!grid)
            return;
        const bool editsValue = std::exchange(TableOf(window).mbIsEditValue, false);
        if (editsValue)
            LeaveLabelAndHeader(*grid);
        const bool data = IsDataRow(window, *grid, grid->Row());
        const bool header = !editsValue && grid->MouseRow == 0;
        if (data && header && grid->Col() >= Columns::kFirst)
            GridEditHeader(window, *grid, window.txtTViewHeader, kNoKey);
        else if (data && grid->Col() < Columns::kFirst && !header)
            WalkFromLabel(window, *grid);
        else if (!data || !header)
            EditCurrentCell(window, *grid);
    });
}

void ConnectTables(DocumentWindow& window) {
    ConnectGrids(window);
    ConnectEditors(window);
    window.vsTableView.Change.connect([&window] { vsTableView_Change(window); });
}

} // namespace table
