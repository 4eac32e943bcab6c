// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/DeleteCells.h"
#include "core/edit/Transaction.h"
#include "nodes/DeleteNodes.h"
#include "table/GridCells.h"
#include "table/TableState.h"
#include "table/WriteCells.h"

namespace table {

namespace {

using controls::FlexGrid;
using controls::TreeNode;

/// Calls `act` for each selected row of data, as the table numbers it.
template <typename Act>
void ForEachRow(DocumentWindow& window, FlexGrid& grid, const char* routine, Act act) {
    edit::Run(window, routine, [&] {
        const auto table = TableIn(window, grid);
        const controls::GridRange range = SelectedData(window, grid);
        if (!table || range.height() < 1)
            return;
        CellWriter writer(window, grid, range.height());
        for (int row = range.top; row <= range.bottom; ++row) {
            if (ElementAt(window, grid, row))
                act(writer, *table, grid.SourceRow(row), range);
        }
    });
}

} // namespace

void DeleteCellsAtTableView(DocumentWindow& window, FlexGrid& grid) {
    ForEachRow(window, grid, "DeleteCellsAtTableView",
               [](CellWriter& writer, const ElementTable& table, int row, const controls::GridRange& range) {
                   std::vector<NewCell> cells; // what isn't seen stays
                   for (const int column : table.filledColumns(row, range.left, range.right, true))
                       cells.push_back({table.header(column), {}});
                   SetCells(writer, table, row, cells);
               });
}

void DeleteColsAtTableView(DocumentWindow& window, FlexGrid& grid) {
    ForEachRow(window, grid, "DeleteColsAtTableView",
               [](CellWriter& writer, const ElementTable& table, int row, const controls::GridRange& range) {
                   DeleteCells(writer, table, row, table.filledColumns(row, range.left, range.right, false));
               });
}

void DeleteLinesAtTableView(DocumentWindow& window, FlexGrid& grid) {
    edit::Run(window, "DeleteLinesAtTableView", [&] {
        const controls::GridRange range = SelectedData(window, grid);
        std::vector<TreeNode> elements;
        for (int row = range.top; row <= range.bottom; ++row) {
            if (const TreeNode element = ElementAt(window, grid, row))
                elements.push_back(element);
        }
        const controls::TreeUpdate quiet(window.tvXML);
        for (const TreeNode element : elements)
            nodes::DeleteTreeNode(window, element);
    });
}

} // namespace table
