// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Renaming nodes by their labels.
namespace nodes {

void EditTreeNode(DocumentWindow& window); ///< starts the label edit of the selected node
/// Attribute, text and instruction captions can't be edited; nor, in a kind of window that doesn't rename
/// nodes, any but the tree root's.
void tvXML_BeforeLabelEdit(DocumentWindow& window, bool& cancel);
/// While the user types: what the end of the edit would complain about.
void tvXML_LabelTyped(DocumentWindow& window, const QString& text);
/// A wrong name is replaced by "Unnamed", not refused, and what was typed stays in the editor; the tree
/// root's new name renames the document.
void tvXMLAfterLabelEdit(DocumentWindow& window, controls::TreeNode node, bool& cancel, QString& newString);
void tvXML_LabelEdited(DocumentWindow& window);
/// A node that was to get a name first goes again.
void tvXML_LabelGivenUp(DocumentWindow& window, controls::TreeNode node);

} // namespace nodes
