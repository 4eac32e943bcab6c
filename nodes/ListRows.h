// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What the rows of the list say of the tree.

/// The kinds of rows (ListItem::SmallIcon); they are the node types.
enum ListRowKind {
    kRowElement = 1,
    kRowAttribute = 2,
    kRowText = 3,
    kRowCData = 4,
    kRowInstruction = 7,
    kRowComment = 8
};

int SelectedRowKind(DocumentWindow& window); ///< 0 without a current row
/// Key of the tree node that the current row stands for, an attribute's row for its element. Empty without a
/// row; a message for kinds that the list can't work on.
QString GetCurrentListViewKey(DocumentWindow& window);
/// The same as a node; nothing without one.
controls::TreeNode CurrentListNode(DocumentWindow& window);
/// The attribute string of all attribute rows, in their order.
QString GetAttrsFromListViewAllItems(DocumentWindow& window);
/// The same with two of the rows in each other's place.
QString GetChangedAttrsByIndexFromListViewAllItems(DocumentWindow& window, int row, int other);
bool HaveSameNameAttributeAtListView(DocumentWindow& window, const QString& name);
/// Row of an attribute by its name, 0 without one.
int FindAttributeAtListView(DocumentWindow& window, const QString& name);
int FindAnyAttributeItem(DocumentWindow& window); ///< the first attribute's row, 0 without one
/// The last row that is no attribute's, 0 without one: attributes stand behind all others.
int GetAnyNonAttibuteItemAtListView(DocumentWindow& window);
// Row of a node of one kind by its key, 0 without one.
int FindListNodeElementItemByKey(DocumentWindow& window, const QString& key);
int FindListNodeTextItemByKey(DocumentWindow& window, const QString& key);
int FindListNodeCommentItemByKey(DocumentWindow& window, const QString& key);
