// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Deleting what is selected in a grid, as one edit.
namespace table {

/// Empties the selected cells: attributes stay with an empty value, texts go.
void DeleteCellsAtTableView(DocumentWindow& window, controls::FlexGrid& grid);
/// Takes the attributes of the selected columns out of the selected rows.
void DeleteColsAtTableView(DocumentWindow& window, controls::FlexGrid& grid);
/// Takes the nodes of the selected rows out of the tree.
void DeleteLinesAtTableView(DocumentWindow& window, controls::FlexGrid& grid);

} // namespace table
