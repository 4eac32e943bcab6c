// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace nodes {

/// Removes a node with all below it (nothing: the selected node); never the tree root. Asks nothing. The
/// parent is selected when it has become empty, else its first element.
void DeleteTreeNode(DocumentWindow& window, controls::TreeNode node = {});

} // namespace nodes
