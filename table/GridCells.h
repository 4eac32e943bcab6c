// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "table/ElementTable.h"

// From a place in a grid to what stands there in the document.
namespace table {

/// The table that a grid shows; null for a grid without one.
std::shared_ptr<ElementTable> TableIn(DocumentWindow& window, const controls::FlexGrid& grid);
/// The grid that the user last touched, for commands; null while no table is shown.
controls::FlexGrid* CurrentGrid(DocumentWindow& window);

/// The element of a row as the grid shows it; nothing for the header, the row for calculations, and a row
/// whose element is gone.
controls::TreeNode ElementAt(DocumentWindow& window, const controls::FlexGrid& grid, int row);
int RowOfElement(DocumentWindow& window, const controls::FlexGrid& grid,
                 controls::TreeNode element); ///< or 0
/// Whether a row is neither header nor the one for calculations.
bool IsDataRow(DocumentWindow& window, const controls::FlexGrid& grid, int row);
bool IsCalcRow(DocumentWindow& window, const controls::FlexGrid& grid, int row);

/// The hidden key of the grid's current row; empty where a table has no rows or columns.
QString GetTableViewLineKey(const controls::FlexGrid& grid);
/// The name of the table's elements, out of its header. A header of another form is told in a box.
QString GetTableViewNodeName(DocumentWindow& window, const controls::FlexGrid& grid);

bool HaveCellSelected(const controls::FlexGrid& grid);
bool HaveLinesSelected(const controls::FlexGrid& grid);
bool HaveColsSelected(const controls::FlexGrid& grid); ///< the last column doesn't count as one

/// What of the selection are cells of data; empty (bottom above top, or right left of left) without one.
controls::GridRange SelectedData(DocumentWindow& window, const controls::FlexGrid& grid);

/// Selects the node of the current row in the tree.
void NavToRelatedTreeNode(DocumentWindow& window, const controls::FlexGrid& grid);

} // namespace table
