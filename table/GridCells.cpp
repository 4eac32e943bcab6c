// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/GridCells.h"
#include "core/edit/Transaction.h"
#include "platform/text/TextTools.h"
#include "table/TableState.h"
#include <algorithm>

namespace table {

using controls::FlexGrid;
using controls::TreeNode;

std::shared_ptr<ElementTable> TableIn(DocumentWindow& window, const FlexGrid& grid) {
    const Tables& tables = TableOf(window).tables;
    const auto place = static_cast<std::size_t>(grid.Index);
    return place < tables.size() ? tables[place] : nullptr;
}

FlexGrid* CurrentGrid(DocumentWindow& window) {
    const int index = TableOf(window).miTableViewIndex;
    if (index > window.hfgrdTableView.UBound() || !window.hfgrdTableView(index).Visible())
        return nullptr;
    return &window.hfgrdTableView(index);
}

TreeNode ElementAt(DocumentWindow& window, const FlexGrid& grid, int row) {
    const auto table = TableIn(window, grid);
    return table && row >= 0 && row < grid.Rows() ? table->element(grid.SourceRow(row)) : TreeNode();
}

int RowOfElement(DocumentWindow& window, const FlexGrid& grid, TreeNode element) {
    const auto table = TableIn(window, grid);
    if (!table || !element || !(element.TextView() == QStringView(table->name())))
        return 0;
    const int row = table->rowOf(element);
    return row > 0 ? grid.RowOfSource(row) : 0;
}

bool IsDataRow(DocumentWindow& window, const FlexGrid& grid, int row) {
    const auto table = TableIn(window, grid);
    return table && row >= 1 && row <= table->lastRow();
}

bool IsCalcRow(DocumentWindow& window, const FlexGrid& grid, int row) {
    const auto table = TableIn(window, grid);
    return table && row > table->lastRow() && row < grid.Rows();
}

QString GetTableViewLineKey(const FlexGrid& grid) {
    return grid.Cols() < 3 || grid.Rows() < 2 ? QString() : grid.TextMatrix(grid.Row(), 0);
}

QString GetTableViewNodeName(DocumentWindow& window, const FlexGrid& grid) {
    if (grid.Cols() < 3 || grid.Rows() < 2)
        return {};
    QString name = text::Trim(grid.TextMatrix(0, 1));
    if (!name.startsWith(u'<') || !name.endsWith(u'>'))
        window.app.services.prompts.MsgBox(QStringLiteral("Internal error!") +
                                           edit::RoutineName(window, "GetTableViewNodeName"));
    if (name.startsWith(u'<'))
        name.remove(0, 1);
    if (name.endsWith(u'>'))
        name.chop(1);
    return name;
}

bool HaveCellSelected(const FlexGrid& grid) {
    return grid.ColSel() > 1 && grid.RowSel() > 0;
}

bool HaveLinesSelected(const FlexGrid& grid) {
    return grid.Col() < 2 && grid.ColSel() == grid.Cols() - 1 && grid.RowSel() >= 1;
}

bool HaveColsSelected(const FlexGrid& grid) {
    return grid.Row() < 2 && grid.RowSel() == grid.Rows() - 1 && grid.ColSel() != grid.Cols() - 1 &&
           grid.ColSel() > 1;
}

controls::GridRange SelectedData(DocumentWindow& window, const FlexGrid& grid) {
    controls::GridRange range = grid.Selection();
    const auto table = TableIn(window, grid);
    range.top = std::max(range.top, 1);
    range.left = std::max(range.left, Columns::kFirst);
    range.bottom = std::min(range.bottom, table ? table->lastRow() : 0);
    return range;
}

// The grid stays as it is: the row is shown already, and so is what the user marked in it.
void NavToRelatedTreeNode(DocumentWindow& window, const FlexGrid& grid) {
    const TreeNode node = window.tvXML.Nodes.Find(GetTableViewLineKey(grid));
    if (!node)
        return;
    TableState& state = TableOf(window);
    if (GridsAreCurrent(window)) {
        state.shownKey = node.Key();
        state.miFocusTableIndex = grid.Index;
        state.mvFocusTableRow = grid.SourceRow(grid.Row());
    }
    edit::SelectNode(window, node);
}

} // namespace table
