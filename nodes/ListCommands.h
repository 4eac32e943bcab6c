// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The commands of the list. It shows the children and attributes of the current node of the tree, and each
// command works on the tree; the list is filled anew from it.

// --- adding: the new node's row is shown and its name or value opens for editing -------------------------

/// An element behind the current row's node; without such a row a child of the node on show.
void AddNewListViewNode(DocumentWindow& window);
/// An element as last child of the current row's element, and the list walks down to it; without such a row
/// a child of the node on show.
void AddNewListViewChildNode(DocumentWindow& window);
void AddNewListViewNodeText(DocumentWindow& window);    ///< a text, placed as a child node is
void AddNewListViewCommentNode(DocumentWindow& window); ///< a comment, placed as a node is
/// An attribute of the element on show, or of the root element in the list of the tree root.
void AddNewListViewAttribute(DocumentWindow& window);

// --- names -----------------------------------------------------------------------------------------------

void EditListViewItemName(DocumentWindow& window); ///< starts the label edit of the current row
/// Texts, comments and instructions have no name to edit.
void ListView1_BeforeLabelEdit(DocumentWindow& window, bool& cancel);
/// A wrong name, and that of an attribute that is there already, is refused; the user has been told.
void ListView1_AfterLabelEdit(DocumentWindow& window, int row, bool& cancel, QString& newString);

// --- deleting, moving, selecting ---------------------------------------------------------------------------

/// Deletes the selected rows with one step of the text; the list stays on its node.
void DeleteListViewItems(DocumentWindow& window);
/// Moves the current row among its like: a node in the tree, an attribute in its element.
void MoveUpDownOneItemAtListView(DocumentWindow& window, bool up);
void SelectAllAtListView(DocumentWindow& window);
/// 3: report, 0: icons, 2: list, 1: small icons.
void SetListViewStyle(DocumentWindow& window, int view);
