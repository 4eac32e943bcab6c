// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "table/TableState.h"

// Which grids there are, and what they show.
namespace table {

/// The tables of a level, from a node of it on: one for each element name, in the order in which the names
/// come first. With `calculates` each has a row for calculations.
Tables TablesOfLevel(controls::TreeNode node, bool calculates);

/// The same without that row, of all elements that stand `below` levels below a node and its siblings.
Tables TablesOfDepth(controls::TreeNode node, int below);

/// Makes a grid for each element name among a node and its siblings, in the order in which the names come
/// first; other nodes are passed over. Widths that the user gave columns of the same names come back.
void LoadLevelAtTableView(DocumentWindow& window, controls::TreeNode node);
/// Back to one hidden, empty grid.
void UnloadAllTable(DocumentWindow& window);

} // namespace table
