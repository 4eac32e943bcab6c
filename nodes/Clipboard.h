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

/// Whether a node's kind is written at all: CDATA sections and document types are left out of a text.
bool HasTextForm(controls::TreeNode node);
/// Whether the clipboard's text is still what was copied here last. It may have come back with other line
/// ends.
bool IsLastCopy(const Application& app, const QString& text);
/// Tells that what is selected has no text form: a CDATA section, a document type, a text that is empty.
void SayNothingCopied(Application& app);
/// Tells that what was copied can't stand where it was to go.
void SayNothingFits(DocumentWindow& window);

// --- tree --------------------------------------------------------------------------------------------------
/// False when nothing was copied: no node is selected, or it has no text form, which is told. The clipboard
/// is as it was then.
bool CopyTreeNode(DocumentWindow& window);
void CutTreeNode(DocumentWindow& window);   ///< only what was copied is deleted
void PasteTreeNode(DocumentWindow& window); ///< under the selected node

/// What takes nodes that are meant for `node`: a leaf takes none, and the element around it stands for it, or
/// the tree root beside the root element.
controls::TreeNode Container(controls::TreeNode node);
/// Adds the clipboard's nodes under `node`; under the tree root with `asChild` alone, and as far as a
/// document has room for them there. A leaf takes no children: they go into the element around it. A text
/// that doesn't parse has been told in a box.
void PasteXMLStringToTree(DocumentWindow& window, controls::TreeNode node, bool asChild = false);
/// The same with a text of its own; whether nodes were added.
bool PasteXMLText(DocumentWindow& window, const QString& text, controls::TreeNode node, bool asChild);
/// The root element of a text, reported in a box when it doesn't parse; `document` keeps it alive.
xml::Node ConvertStringToXMLNode(Application& app, const QString& text,
                                 std::shared_ptr<xml::ParsedDocument>& document);

// --- list ------------------------------------------------------------------------------------------------
/// All selected rows or, with false, none, as in the tree.
bool CopyListViewItems(DocumentWindow& window);
void CutListViewItems(DocumentWindow& window);
/// Attributes go into the element of the current row, or the one on show; nodes go under the node on show.
/// All of it or nothing: what doesn't fit is told.
void PasteListViewItems(DocumentWindow& window);
/// Pastes under the current row's element; the list stays on its node.
void PasteTreeNodeToListView(DocumentWindow& window);
/// The selected rows as text: nodes as XML; attributes, joined by blanks, into `attributes`.
QString GetCopiedListViewItemsXML(DocumentWindow& window, QString& attributes);
/// Adds nodes, given as XML, and attributes to an element or, with `asChild`, nodes to the tree root: both
/// or, with false, neither. The views don't follow yet.
bool PasteNodesAndAttributes(DocumentWindow& window, controls::TreeNode target, const QString& nodes,
                             const QString& attributes, bool asChild);
/// Adds a list of attributes to an element; none where one of the names is taken already, which is told.
bool AddAttributes(DocumentWindow& window, controls::TreeNode element, const QString& attributes);

// --- text ------------------------------------------------------------------------------------------------
void PasteTreeNodeToTextView(DocumentWindow& window);
/// The rows that were copied last, also where the clipboard holds them no longer.
void PasteListViewItemsToTextView(DocumentWindow& window);
