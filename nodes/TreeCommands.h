// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The commands that change the document through its tree. They work on the selected node; text and list
// follow through TreeChangeTextView and DoTree. A command that can't act ends without a message where none is
// named. Failures are reported under the routine's own name, and the routine returns what it has.

// --- adding: the result is the key of the new node, empty when none was made ------------------------------

/// An element behind the selected node, or in front of it with `before`. With the tree root selected it
/// stands behind the document's first node. Where the document would get a second root element the user is
/// asked whether the new one shall be a child instead. Unless `noEdit` is set, its name is edited at once.
QString AddNewTreeNode(DocumentWindow& window, bool noEdit = false, bool before = false);
/// An element as last child of the selected node; a second root element is refused with a message.
QString AddNewTreeSubNode(DocumentWindow& window, bool noEdit = false, const QString& text = {},
                          const QString& tag = {});
/// A text behind the selected node, or as its last child with `asChild`. At the top of the document it can
/// only go into the root element.
QString AddNewTreeNodeText(DocumentWindow& window, bool noEdit = false, bool asChild = false,
                           const QString& text = {});
/// A comment behind the selected node; it may stand beside the root element.
QString AddNewTreeCommentNode(DocumentWindow& window, bool noEdit = false, const QString& text = {});
/// A comment as last child of the selected node.
QString AddNewTreeCommentSubNode(DocumentWindow& window, const QString& text = {});

// --- renaming ----------------------------------------------------------------------------------------------

void EditTreeNode(DocumentWindow& window); ///< starts the label edit of the selected node
/// Attribute, text and instruction captions can't be edited.
void tvXML_BeforeLabelEdit(DocumentWindow& window, bool& cancel);
/// A wrong name is replaced by "Unnamed", not refused; the tree root's new name renames the document.
void tvXMLAfterLabelEdit(DocumentWindow& window, controls::TreeNode node, bool& cancel, QString& newString);
/// Renames the document. A local name copies its file first; when that can't be done the user is told and
/// the old name stays. False when nothing was renamed.
bool ChangeTreeRootText(DocumentWindow& window, const QString& name);

// --- deleting and moving ---------------------------------------------------------------------------------

/// Removes a node with all below it (nothing: the selected node); never the tree root. Asks nothing.
void DeleteTreeNode(DocumentWindow& window, controls::TreeNode node = {});
void MoveUp(DocumentWindow& window);
void MoveDown(DocumentWindow& window);
/// Changes places with the neighbour above or below, as a copy and a delete: the keys of what is moved
/// change, and the text gets two undo steps. Nothing passes the instruction at the head of a document.
void MoveUpDownOneNodeAtTree(DocumentWindow& window, bool up);
/// One level up: behind its parent. Nothing happens where only the root element may stand.
void SetNodeAsParent(DocumentWindow& window);
/// One level down: last child of the sibling before it, where that is an element.
void SetNodeAsChild(DocumentWindow& window);
/// Selects the parent, unless the tree root is selected.
void GoBackToTreeUpLevel(DocumentWindow& window);
