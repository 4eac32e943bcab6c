// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Adding nodes at the selected node of the tree. The result is the key of the new node, empty when none was
// made. Unless `noEdit` is set, the user names or fills the new node at once; the text waits meanwhile. A
// routine that can't act ends without a message where none is named.
namespace nodes {

/// An element behind the selected node, or in front of it with `before`. With the tree root selected it
/// stands behind the document's first node. Where the document would get a second root element the user is
/// asked whether the new one shall be a child instead.
QString AddNewTreeNode(DocumentWindow& window, bool noEdit = false, bool before = false);
/// An element as last child of the selected node; a second root element is refused with a message.
QString AddNewTreeSubNode(DocumentWindow& window, bool noEdit = false, const QString& text = {},
                          const QString& tag = {});
/// A text behind the selected node, whose parent is selected then, or as its last child with `asChild`. At
/// the top of the document it can only go into the root element.
QString AddNewTreeNodeText(DocumentWindow& window, bool noEdit = false, bool asChild = false,
                           const QString& text = {});
/// A comment behind the selected node; it may stand beside the root element.
QString AddNewTreeCommentNode(DocumentWindow& window, bool noEdit = false, const QString& text = {});
/// A comment as last child of the selected node.
QString AddNewTreeCommentSubNode(DocumentWindow& window, const QString& text = {});

} // namespace nodes
