// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/NodeKind.h"
#include <QString>
#include <QStringList>

// What the rows of the list say of the tree. A row's kind (ListItem::SmallIcon) is that of its node.
namespace nodes {

int SelectedRowKind(DocumentWindow& window); ///< 0 without a current row
/// Key of the tree node that the current row stands for, an attribute's row for its element. Empty without a
/// row; a message for kinds that the list can't work on.
QString GetCurrentListViewKey(DocumentWindow& window);
/// The same as a node; nothing without one.
controls::TreeNode CurrentListNode(DocumentWindow& window);
/// The node that a row stands for, or that an attribute's row belongs to; nothing when it is gone.
controls::TreeNode NodeOfRow(DocumentWindow& window, const controls::ListItem& item);
int FindAnyAttributeItem(DocumentWindow& window); ///< the first attribute's row, 0 without one
/// The last row that is no attribute's, 0 without one: attributes stand behind all others.
int GetAnyNonAttibuteItemAtListView(DocumentWindow& window);
/// Names of the attributes for which the list has rows whether the element carries them or not, in the order
/// of the rows.
QStringList AttributesOffered(DocumentWindow& window, controls::TreeNode element);
/// The names from which an element's is chosen; empty for one with a name of its own.
QStringList NamesOffered(DocumentWindow& window, const QString& elementName);
/// Whether an attribute's row is about one that its element carries.
bool IsCarried(DocumentWindow& window, const controls::ListItem& item);
/// Makes a row the current one and the only one that is selected; 0: none is.
void SelectOnlyRow(DocumentWindow& window, int row);

} // namespace nodes
