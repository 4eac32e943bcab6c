// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <memory>

// Nodes travel as XML text on the system's clipboard. What is pasted is wrapped in <temp>, parsed, and the
// children of that element are added to the tree: whole, or not at all.

/// Copy, Cut, Paste and Delete for the view that has the user's attention.
void Copy(DocumentWindow& window);
void Cut(DocumentWindow& window);
void Paste(DocumentWindow& window);

// --- tree --------------------------------------------------------------------------------------------------
void CopyTreeNode(DocumentWindow& window);
void CutTreeNode(DocumentWindow& window);
void PasteTreeNode(DocumentWindow& window); ///< under the selected node

/// Adds the clipboard's nodes under `node`; under the tree root with `asChild` alone. A leaf takes no
/// children: they go into the element around it. A text that doesn't parse has been told in a box.
void PasteXMLStringToTree(DocumentWindow& window, controls::TreeNode node, bool asChild = false);
/// The same with a text of its own; whether nodes were added.
bool PasteXMLText(DocumentWindow& window, const QString& text, controls::TreeNode node, bool asChild);
/// The root element of a text, reported in a box when it doesn't parse; `document` keeps it alive.
xml::Node ConvertStringToXMLNode(Application& app, const QString& text,
                                 std::shared_ptr<xml::ParsedDocument>& document);

// --- list
// ----------------------------------------------------------------------------------------------------
void CopyListViewItems(DocumentWindow& window);
void CutListViewItems(DocumentWindow& window);
/// Attributes go into the element of the current row, or the one on show; nodes go under the node on show.
/// What fits neither is told.
void PasteListViewItems(DocumentWindow& window);
/// Pastes under the current row's element; the list stays on its node.
void PasteTreeNodeToListView(DocumentWindow& window);
/// The selected rows as text: nodes as XML; attributes, joined by blanks, into `attributes`.
QString GetCopiedListViewItemsXML(DocumentWindow& window, QString& attributes);
/// Adds a list of attributes to an element; none where one of the names is taken already, which is told.
bool AddAttributes(DocumentWindow& window, controls::TreeNode element, const QString& attributes);

// --- text
// ----------------------------------------------------------------------------------------------------
void PasteTreeNodeToTextView(DocumentWindow& window);
void PasteListViewItemsToTextView(DocumentWindow& window);
