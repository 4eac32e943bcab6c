// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/EditorPlace.h"
#include "table/Sheet.h"
#include "table/TableState.h"
#include <cmath>

namespace table {

namespace {

using controls::Bounds;
using controls::FlexGrid;

constexpr double kBoxHeight = 315; // twips, of cmbSum

FlexGrid* EditedGrid(DocumentWindow& window) {
    const TableState& state = TableOf(window);
    if (state.miEditTableIndex > window.hfgrdTableView.UBound())
        return nullptr;
    FlexGrid& grid = window.hfgrdTableView(state.miEditTableIndex);
    return state.miEditRow < grid.Rows() && state.miEditCol < grid.Cols() ? &grid : nullptr;
}

Bounds CellIn(const TableState& state, const FlexGrid& grid) {
    return {grid.Place().Left + grid.ColLeft(state.miEditCol),
            grid.Place().Top + grid.RowTop(state.miEditRow), grid.ColWidth(state.miEditCol),
            grid.RowHeight(state.miEditRow)};
}

} // namespace

void LayCellEditor(DocumentWindow& window, controls::TextBox& editor) {
    if (const FlexGrid* grid = EditedGrid(window))
        editor.Move(CellIn(TableOf(window), *grid));
}

void LayHeaderEditor(DocumentWindow& window, controls::TextBox& editor) {
    const FlexGrid* grid = EditedGrid(window);
    if (!grid)
        return;
    Bounds place = CellIn(TableOf(window), *grid);
    place.Top = HeaderTop(window, *grid);
    editor.Move(place);
}

void LayCalcBox(DocumentWindow& window, controls::ComboBox& box) {
    const FlexGrid* grid = EditedGrid(window);
    if (!grid)
        return;
    Bounds place = CellIn(TableOf(window), *grid);
    place.Top -= std::fabs((place.Height - kBoxHeight) / 2);
    place.Height = kBoxHeight;
    box.Move(place);
}

void LayTableEditors(DocumentWindow& window) {
    if (window.txtTView.Visible())
        LayCellEditor(window, window.txtTView);
    if (window.txtTViewHeader.Visible())
        LayHeaderEditor(window, window.txtTViewHeader);
    if (window.cmbSum.Visible())
        LayCalcBox(window, window.cmbSum);
}

void CloseTableEditors(DocumentWindow& window) {
    for (controls::TextBox* editor : {&window.txtTView, &window.txtTViewHeader}) {
        editor->SetVisible(false);
        editor->SetText({});
    }
    window.cmbSum.SetVisible(false);
}

controls::TextBox* OpenTableCell(DocumentWindow& window) {
    if (window.txtTView.Visible())
        return &window.txtTView;
    return window.txtTViewHeader.Visible() ? &window.txtTViewHeader : nullptr;
}

} // namespace table
