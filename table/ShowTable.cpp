// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/ShowTable.h"
#include "core/edit/Guard.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "table/GridCells.h"
#include "table/LoadTables.h"
#include "table/Sheet.h"
#include "table/TableState.h"

namespace table {

namespace {

using controls::FlexGrid;
using controls::TreeNode;

bool ShowsLevelOf(DocumentWindow& window, TreeNode selected) {
    const TreeNode shown = window.tvXML.Nodes.Find(window.pctTV.Tag);
    return GridsAreCurrent(window) && shown && shown.Parent() == selected.Parent();
}

void LoadLevel(DocumentWindow& window, TreeNode node) {
    window.pctTV.Tag = node.Key();
    LoadLevelAtTableView(window, node);
    SetTableViewOutlook(window);
    FindTableAndSetFocus(window);
    TableOf(window).miTableViewIndex = TableOf(window).miFocusTableIndex;
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
            state.miFocusTableIndex = i;
            state.mvFocusTableRow = row;
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
