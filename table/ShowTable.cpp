// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/ShowTable.h"
#include "core/edit/Guard.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "table/EditorPlace.h"
#include "table/GridCells.h"
#include "table/LoadTables.h"
#include "table/Sheet.h"
#include "table/TableChart.h"
#include "table/TableState.h"

namespace table {

namespace {

using controls::FlexGrid;
using controls::TreeNode;

bool ShowsLevelOf(DocumentWindow& window, TreeNode selected) {
    const TreeNode shown = window.tvXML.Nodes.Find(window.pctTV.Tag);
    return GridsAreCurrent(window) && shown && shown.Parent() == selected.Parent();
}

/// Cells that the user marked, by what finds them again in grids that are made anew.
struct Marked {
    int focusTable, focusRow; ///< of the current node
    int index;                ///< of the grid
    QString table;            ///< its name
    int row, rowSel;
    QString column, columnSel; ///< their names
};

/// Nothing where whole rows are marked, as they are for the current node, or where another level will show.
std::optional<Marked> MarkedIn(DocumentWindow& window, TreeNode level) {
    const TableState& state = TableOf(window);
    const FlexGrid* grid = CurrentGrid(window);
    const auto table = grid ? TableIn(window, *grid) : nullptr;
    if (!table || !state.mvFocusTableRow || std::min(grid->Col(), grid->ColSel()) < Columns::kFirst ||
        state.level.findIn(window.tvXML) != level)
        return {};
    const bool sorted = grid->IsSorted(); // which a grid that is made anew isn't
    return Marked{state.miFocusTableIndex,
                  *state.mvFocusTableRow,
                  grid->Index,
                  table->name(),
                  grid->SourceRow(grid->Row()),
                  grid->SourceRow(sorted ? grid->Row() : grid->RowSel()),
                  table->header(grid->Col()),
                  table->header(grid->ColSel())};
}

// The next key is meant for these cells, and not for the whole row of the current node (quirk 80).
bool MarkAgain(DocumentWindow& window, const Marked& marked) {
    TableState& state = TableOf(window);
    if (state.miFocusTableIndex != marked.focusTable || state.mvFocusTableRow != marked.focusRow ||
        marked.index > window.hfgrdTableView.UBound())
        return false;
    FlexGrid& grid = window.hfgrdTableView(marked.index);
    const auto table = TableIn(window, grid);
    const int column = table ? table->columnOf(marked.column) : -1;
    const int columnSel = table ? table->columnOf(marked.columnSel) : -1;
    if (column < 0 || columnSel < 0 || table->name() != marked.table ||
        std::max(marked.row, marked.rowSel) >= grid.Rows())
        return false;
    state.miTableViewIndex = grid.Index;
    grid.Select(marked.row, column, marked.rowSel, columnSel);
    ShowTableCell(window, grid, marked.row, column);
    return true;
}

// The cell that brings a column behind the first row can't be filled: told once for a table, it may have a
// million of them.
void ReportLateColumns(DocumentWindow& window) {
    for (const auto& table : Tables(TableOf(window).tables)) {
        if (table->hasLateColumns())
            ErrorReportBox(window.app,
                           text::Fault(text::kFaultOutOfBounds, QStringLiteral("Index out of bounds")),
                           edit::RoutineName(window, "ShowOtherNodeDataAtTableView error!"));
    }
}

void LoadLevel(DocumentWindow& window, TreeNode node) {
    const std::optional<Marked> marked = MarkedIn(window, node.Parent());
    const bool charted = TableOf(window).charted.has_value();
    window.pctTV.Tag = node.Key();
    LoadLevelAtTableView(window, node);
    SetTableViewOutlook(window);
    const bool found = FindTableAndSetFocus(window);
    if (found && marked && MarkAgain(window, *marked) && charted)
        ChartFromTableSelection(window, *CurrentGrid(window));
    LayTableEditors(window); // one that is typed in stays
    ReportLateColumns(window);
}

// The grids stay, but not with what is gone (quirk 75).
void KeepLevel(DocumentWindow& window) {
    TableState& state = TableOf(window);
    if (GridsAreCurrent(window) || state.tables.empty())
        return;
    const TreeNode parent = window.tvXML.Nodes.Find(state.levelKey);
    if (const TreeNode first = parent ? m_tvXML::FirstElement(parent.Child()) : TreeNode())
        LoadLevel(window, first);
    else
        UnloadAllTable(window);
}

void ShowLevelOf(DocumentWindow& window, TreeNode selected) {
    if (m_tvXML::GetKeyType(selected) == m_tvXML::kText)
        selected = selected.Parent();
    const TreeNode first = m_tvXML::FirstElement(selected);
    if (!first)
        return KeepLevel(window);
    if (!m_tvXML::IsElement(selected))
        selected = first;
    window.tvXML.SetSelectedItem(selected);
    if (!ShowsLevelOf(window, selected) || !FindTableAndSetFocus(window))
        LoadLevel(window, selected);
}

} // namespace

void ShowTableView(DocumentWindow& window) {
    edit::Guarded(window, "ShowTableView", [&] {
        const TreeNode selected = window.tvXML.SelectedItem();
        if (m_tvXML::IsTreeRoot(selected) && window.tvXML.Nodes.Count() < 2)
            UnloadAllTable(window);
        else if (!selected || m_tvXML::IsTreeRoot(selected))
            KeepLevel(window);
        else
            ShowLevelOf(window, selected);
    });
}

bool FindTableAndSetFocus(DocumentWindow& window) {
    return edit::Guarded(window, "FindTableAndSetFocus", [&] {
        TableState& state = TableOf(window);
        const TreeNode selected = window.tvXML.SelectedItem();
        bool found = false;
        for (int i = 0; i < window.hfgrdTableView.Count() && !found; ++i) {
            FlexGrid& grid = window.hfgrdTableView(i);
            const int row = RowOfElement(window, grid, selected);
            found = row > 0;
            if (!found) {
                grid.Select(0, 0, 0, 0);
                continue;
            }
            state.miFocusTableIndex = state.miTableViewIndex = i;
            state.mvFocusTableRow = grid.SourceRow(row);
            grid.Select(row, 1, row, grid.Cols() - 1);
        }
        ShowFocusRow(window);
        return found;
    });
}

void RefreshTables(DocumentWindow& window) {
    TableState& state = TableOf(window);
    const auto currentKey = [&window] {
        const TreeNode node = window.tvXML.SelectedItem();
        return node ? node.Key() : QString();
    };
    if (GridsAreCurrent(window) && state.shownKey == currentKey())
        return;
    ShowTableView(window);
    state.shownKey = currentKey();
    state.shownRevision = window.tvXML.Revision();
}

} // namespace table
