// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Copies of nodes inside a tree. A copy has the same Text, pictures and Tag, and new keys throughout. The
// source may stand in the tree of another window.
namespace nodes {

/// As last child of `target`; nothing is done when source and target have the same key. The new node's key,
/// empty for none.
QString PasteNodetoNode(DocumentWindow& window, controls::TreeNode source, controls::TreeNode target);
/// Behind a node; the new node. To be used inside an edit.
controls::TreeNode PasteNodetoNodeBehind(DocumentWindow& window, controls::TreeNode source,
                                         controls::TreeNode target);
/// In front of the source's previous sibling, or behind its next one: nothing where there is none, or where
/// the previous one is an instruction. The new node.
controls::TreeNode PasteNodetoNodeBeforeOrAfter(DocumentWindow& window, controls::TreeNode source,
                                                bool before);

} // namespace nodes
