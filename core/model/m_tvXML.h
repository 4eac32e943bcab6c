// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/TreeView.h"
#include <QString>
#include <QStringList>

struct DocumentWindow;

/// The node model: what a key says, how nodes are numbered, and what an attribute string holds.
/// Node arguments may be nothing.
namespace m_tvXML {

using controls::TreeNode;

/// A new key "<nodeType>serial". The serial is the process-wide counter after adding 1.
QString GetDistinctElementKey(Application& app, int nodeType);

/// The node type that a key names: the digits behind the first "<", if a ">" follows; 0 for any other text. A
/// "=" behind the first position cuts everything up to and including the last one first. A list row's key
/// works too.
int GetKeyType(const QString& key);
/// The same for a node's key, without making a text of it; 0 for a tree root, whose key is a document's name.
int GetKeyType(TreeNode node);

bool IsTreeRoot(TreeNode node);
/// 0 for nothing; 1 for the tree root and for a node directly below it; its child 2, and so on.
int GetNodeLevel(TreeNode node);
/// Walks the siblings of `node` from the first; true and `found` at the first element.
bool HaveElementNode(TreeNode node, TreeNode& found);
/// Whether the document has its root element.
bool HaveElementNodeAtXMLRootLevel(DocumentWindow& window);

// Node numbers count the nodes below the tree root in document order from 1, passing over text nodes.
// The n-th numbered node is the n-th start tag, comment or instruction of the serialised text.

/// Numbered descendants of a node.
long GetAllChildNodeNumber(TreeNode node);
/// The node's own number; 0 for nothing.
long GetBeforeNodeNumber(Application& app, TreeNode node);
/// The node with a number, searched below `node` (the tree root); nothing when the walk runs out.
/// The walk counts in the process-wide NodeWalkCounter: a hit sets it back to 0, a miss leaves it where it
/// stood, so the search after a miss starts from that stale value and stops earlier than a fresh one would.
/// Commands rely on it as it is.
TreeNode GetNodeByNumber(Application& app, long number, TreeNode node);

/// A text longer than `length` cut to it, with "..." behind.
QString Truncate(const QString& text, int length);
/// Shows a text node's Tag, cut to the length of the options, as its Text.
void SetTextNodeDisplay(Application& app, TreeNode node);

/// Local part of a qualified name: what stands behind the first ":"; the part before it goes to `prefix`,
/// which stays as it was for a name without ":". Empty for a blank name.
QString GetPureName(const QString& name, QString& prefix);

/// Takes an element's Tag apart at its quotes; the one reader of this format. Values stay escaped. Name and
/// value of the n-th pair stand at place n from 0; a pair without a name leaves its place empty, unless it is
/// the last one. The result is where the loop over every second piece ends: 0 for an empty Tag, 2n + 2 for n
/// pairs.
int GetAllAttributesNameAndValue(const QString& tag, QStringList& names, QStringList& values);

} // namespace m_tvXML
