// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Adding from the list: the new node's row is shown and its name or value opens for editing.
namespace nodes {

/// An element behind the current row's node; without such a row a child of the node on show.
void AddNewListViewNode(DocumentWindow& window);
/// An element as last child of the current row's element, and the list walks down to it; without such a row
/// a child of the node on show.
void AddNewListViewChildNode(DocumentWindow& window);
/// The same with a name, which is not opened for editing.
void AddNewListViewChildNode(DocumentWindow& window, const QString& name);
void AddNewListViewNodeText(DocumentWindow& window);    ///< a text, placed as a child node is
void AddNewListViewCommentNode(DocumentWindow& window); ///< a comment, placed as a node is
/// An attribute of the element on show, or of the root element in the list of the tree root.
void AddNewListViewAttribute(DocumentWindow& window);

} // namespace nodes
