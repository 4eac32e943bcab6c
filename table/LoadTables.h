// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Which grids there are, and what they show.
namespace table {

/// Makes a grid for each element name among a node and its siblings, in the order in which the names come
/// first; other nodes are passed over. Widths that the user gave columns of the same names come back.
void LoadLevelAtTableView(DocumentWindow& window, controls::TreeNode node);
/// Back to one hidden, empty grid.
void UnloadAllTable(DocumentWindow& window);

} // namespace table
