// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The table view follows the current node of the tree.
namespace table {

/// Shows the level of the current node. On a text its parent becomes the current node, on another node that
/// is no element the level's first element. A level without an element, and a tree root with children, leave
/// the grids as they are. While one level of an unchanged tree is walked along, only the selection moves.
void ShowTableView(DocumentWindow& window);

/// Selects the row of the current node and brings it into sight. False when no grid has one.
bool FindTableAndSetFocus(DocumentWindow& window);

/// The same at the end of an edit; costs next to nothing where nothing has changed.
void RefreshTables(DocumentWindow& window);

} // namespace table
