// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// Deleting, moving and selecting in the list. It shows the children and attributes of the current node of the
// tree, and each command works on the tree.
namespace nodes {

/// Deletes the selected rows with one step of the text; the list stays on its node, and the row behind what
/// goes is current, else the one before.
void DeleteListViewItems(DocumentWindow& window);
/// Moves the current row among its like: a node in the tree, an attribute in its element.
void MoveUpDownOneItemAtListView(DocumentWindow& window, bool up);
/// Makes the current row's node a sibling of its parent, or a child of its sibling before; the list goes
/// along with it. An attribute has its place in its element.
void SetRowAsParent(DocumentWindow& window);
void SetRowAsChild(DocumentWindow& window);
void SelectAllAtListView(DocumentWindow& window);
/// 3: report, 0: icons, 2: list, 1: small icons.
void SetListViewStyle(DocumentWindow& window, int view);

} // namespace nodes
