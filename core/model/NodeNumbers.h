// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeKind.h"
#include "platform/controls/TreeView.h"

struct Application;

// Node numbers count the elements, comments and instructions below the tree root in document order from 1.
// The n-th numbered node is the n-th start tag, comment or instruction of the text (quirk 32). Node arguments
// may be nothing.
namespace m_tvXML {

/// 0 for nothing; 1 for the tree root and for a node directly below it; its child 2, and so on.
int GetNodeLevel(TreeNode node);
/// Walks the siblings of `node` from the first: the first element; nothing without one.
TreeNode FirstElement(TreeNode node);
/// Whether the document has its root element.
bool HaveElementNodeAtXMLRootLevel(const controls::TreeView& tree);

/// Numbered descendants of a node.
long GetAllChildNodeNumber(TreeNode node);
/// The node's own number; 0 for nothing.
long GetBeforeNodeNumber(Application& app, TreeNode node);
/// The node with a number, searched below `node` (the tree root); nothing when the walk runs out.
/// The walk counts in the process-wide NodeWalkCounter: a hit sets it back to 0, a miss leaves it where it
/// stood, so the search after a miss starts from that stale value and stops earlier than a fresh one would.
/// Commands rely on it as it is.
TreeNode GetNodeByNumber(Application& app, long number, TreeNode node);

} // namespace m_tvXML
