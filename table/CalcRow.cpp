// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/CalcRow.h"
#include "core/edit/Guard.h"
#include "platform/text/TextTools.h"
#include "table/CellEditor.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/Sheet.h"
#include "table/Statistics.h"
#include "table/TableState.h"

namespace table {

namespace {

using controls::FlexGrid;

FlexGrid& EditedGrid(DocumentWindow& window) {
    return window.hfgrdTableView(TableOf(window).miEditTableIndex);
}

QString EditedText(DocumentWindow& window) {
    return EditedGrid(window).TextMatrix(TableOf(window).miEditRow, TableOf(window).miEditCol);
}

} // namespace

void ShowCalc(DocumentWindow& window, FlexGrid& grid, controls::ComboBox& cmb, int key) {
    edit::Guarded(window.app, AtRoutine(window, "ShowCalc"), [&] {
        TableState& state = TableOf(window);
        state.miEditTableIndex = grid.Index;
        state.miEditRow = grid.Row();
        state.miEditCol = grid.Col();
        if (grid.Col() < Columns::kFirst || grid.Row() < 2)
            return;
        ShowTableCell(window, grid, grid.Row(), grid.Col());
        LayCalcBox(window, cmb);
        FillCalcCombo(cmb, key > kNoKey ? grid.Text() + QChar(key) : QString());
        cmb.SetVisible(true);
        cmb.SetFocus();
    });
}

void FillCalcCombo(controls::ComboBox& cmb, const QString& text) {
    cmb.Clear();
    cmb.AddItem({});
    for (const char* name : kFigureNames)
        cmb.AddItem(QLatin1String(name));
    cmb.SetText(text);
}

void cmbSum_Click(DocumentWindow& window) {
    edit::Guarded(window.app, AtRoutine(window, "cmbSum_Click"), [&] {
        const TableState& state = TableOf(window);
        FlexGrid& grid = EditedGrid(window);
        controls::ComboBox& box = window.cmbSum;
        const int index = box.ListIndex();
        const auto table = TableIn(window, grid);
        if (index < 0 || !table)
            return;
        const QString result =
            index == 0
                ? box.Text()
                : text::Str(FigureOf(static_cast<Figure>(index), ColumnValues(*table, state.miEditCol)));
        grid.SetTextMatrix(state.miEditRow, state.miEditCol, result);
        box.SetItem(index, result);
    });
}

void cmbSum_DropDown(DocumentWindow& window) {
    FillCalcCombo(window.cmbSum, EditedText(window));
}

void cmbSum_LostFocus(DocumentWindow& window) {
    window.cmbSum.SetVisible(false);
}

} // namespace table
