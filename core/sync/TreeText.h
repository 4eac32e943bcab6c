// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <memory>

// Text to tree and tree to text.

/// What XMLToTree hands back: the root element, nothing when the text was empty or bad, and the document it
/// lives in.
struct ParsedRoot {
    std::shared_ptr<xml::ParsedDocument> document;
    xml::Node element;
};

/// Empties the tree and makes its root under the current file name; with defaults a declaration and a comment
/// below it.
void AddTreeRoot(DocumentWindow& window, bool withDefaults);

/// Copies a text into the tree, whole: new nodes, new keys. A text that doesn't parse leaves the tree as it
/// is (a tree without a document gets the default one), shows the text view and selects the character at the
/// error. `selectNumber` is the number of the node to select (0: the first one).
ParsedRoot XMLToTree(DocumentWindow& window, const FetchedText& text, long selectNumber);

namespace m_tvXML {
/// Adds the children of `domNode` below the node with `parentKey` (empty: as top nodes). Below the tree root,
/// a second root element or root-level text ends the walk; this is looked at only once a call, from the
/// moment a root element stands.
void XMLChildNodesToTree(Application& app, DocumentWindow* active, xml::Node domNode,
                         const QString& parentKey, controls::TreeView& tree);
/// name="value" pairs joined by one blank, values escaped; empty for nothing.
QString GenerateAttributeString(xml::Node domNode);
/// The values of the direct text children, joined.
QString GetXmlNodeAllNodeText(xml::Node domNode);
} // namespace m_tvXML

/// Fills the text view from the tree for the first time: no undo step.
void TreeToTextView(DocumentWindow& window);
/// Brings the text up to date after a change in the tree, with one undo step if it differs. As long as a new
/// node waits for its name or text nothing is done, unless `withNewNode` is set.
void TreeChangeTextView(DocumentWindow& window, bool withNewNode = false);
/// A new node is under way: the selected node, or a child of it, has no name or text yet.
bool IsAddingNewNode(DocumentWindow& window);

/// Leaving the text view in use: an edited text is parsed and the tree built anew from it.
void LeaveTextView(DocumentWindow& window);
/// Leaves the text view in use if its text is ahead of the tree, as it also is when a command changed it
/// while the focus was elsewhere. False when it doesn't parse and the user has just been told.
bool ReadEditedText(DocumentWindow& window);
/// Puts the caret of the text view in use on the current node and selects its first character.
void NavToNodeRelatedText(DocumentWindow& window);
/// Selects the tree node that the caret stands in, without a parse.
void SelectNodeAtCaret(DocumentWindow& window);
