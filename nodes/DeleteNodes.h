// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Removes a node with all below it (nothing: the selected node); never the tree root. Asks nothing. Where it
/// was selected the selection goes to the next sibling, else to the one before, else to the parent.
void DeleteTreeNode(DocumentWindow& window, controls::TreeNode node = {});

} // namespace nodes
