// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/CellEditor.h"
#include "core/edit/Transaction.h"
#include "core/model/Frame.h"
#include "table/CellCommit.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/Sheet.h"
#include "table/TableState.h"

namespace table {

namespace {

using controls::FlexGrid;
using controls::TextBox;

text::CompactView CurrentValue(DocumentWindow& window, const FlexGrid& grid) {
    return TableIn(window, grid)->value(grid.SourceRow(grid.Row()), grid.Col());
}

void NoteEdited(DocumentWindow& window, const FlexGrid& grid, int row) {
    TableState& state = TableOf(window);
    state.miEditTableIndex = grid.Index;
    state.miEditRow = row;
    state.miEditCol = grid.Col();
}

void Open(DocumentWindow& window, TextBox& txt, const EditedCell& cell, int key) {
    TableOf(window).edited = cell;
    txt.SetText(key > kNoKey ? cell.text + QChar(key) : cell.text);
    txt.Select(0, 0);
    txt.SetVisible(true);
    txt.SetFocus();
    window.app.frame().RefreshMenu(); // entities, and what is pasted, are for the text now
}

} // namespace

bool FitsLine(DocumentWindow& window, const FlexGrid& grid) {
    constexpr std::uint32_t kLongest = 100'000;
    return CurrentValue(window, grid).length <= kLongest;
}

void GridEdit(DocumentWindow& window, FlexGrid& grid, TextBox& txt, int key) {
    edit::Guarded(window.app, AtRoutine(window, "GridEdit"), [&] {
        if (!FinishTableEdits(window))
            return;
        NoteEdited(window, grid, grid.Row());
        const controls::TreeNode element = ElementAt(window, grid, grid.Row());
        if (grid.Col() < Columns::kFirst || !element)
            return;
        ShowTableCell(window, grid, grid.Row(), grid.Col());
        if (!FitsLine(window, grid)) {
            edit::SelectNode(window, element);
            window.app.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
            return;
        }
        LayCellEditor(window, txt);
        Open(window, txt,
             {element.Key(), element.Text(), grid.TextMatrix(0, grid.Col()),
              CurrentValue(window, grid).toString()},
             key);
    });
}

void GridEditHeader(DocumentWindow& window, FlexGrid& grid, TextBox& txt, int key) {
    edit::Guarded(window.app, AtRoutine(window, "GridEditHeader"), [&] {
        if (!FinishTableEdits(window) || grid.Col() < Columns::kFirst || grid.Col() >= grid.Cols() - 1)
            return;
        NoteEdited(window, grid, 0);
        grid.ShowColumn(grid.Col());
        LayHeaderEditor(window, txt);
        const QString name = grid.TextMatrix(0, grid.Col());
        Open(window, txt, {{}, TableIn(window, grid)->name(), name, name}, key);
    });
}

} // namespace table
