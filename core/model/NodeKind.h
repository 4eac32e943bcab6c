// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeCursor.h"
#include "platform/controls/TreeView.h"
#include <QString>

struct Application;

/// What a node is, and the key that says so. Node arguments may be nothing.
namespace m_tvXML {

using controls::TreeNode;

/// The kinds, numbered as the W3C DOM numbers them. The tree root stands for the document and has 0. Rows of
/// the list and their pictures bear the same numbers.
enum NodeKind {
    kTreeRoot = 0,
    kElement = 1,
    kAttribute = 2, ///< a row of the list alone: attributes are no nodes of the tree
    kText = 3,
    kCData = 4,
    kInstruction = 7,
    kComment = 8,
    kDocumentType = 10,
    kNotation = 12
};

/// A new key "<nodeType>serial". The serial is the process-wide counter after adding 1.
QString GetDistinctElementKey(Application& app, int nodeType);

/// The kind that a key names: the digits behind the first "<", if a ">" follows; 0 for any other text. A
/// "=" behind the first position cuts everything up to and including the last one first. A list row's key
/// works too.
int GetKeyType(const QString& key);
/// The same for a node's key, without making a text of it; 0 for nothing, and for a tree root, whose key is a
/// document's name.
int GetKeyType(TreeNode node);
int GetKeyType(controls::TreeCursor node);

bool IsTreeRoot(TreeNode node);
bool IsElement(TreeNode node);
/// Whether the node's kind is written at all: CDATA sections and document types are left out of a text.
bool HasTextForm(TreeNode node);
/// The picture of a kind that is made here: "element", "text", "comment", "processinginstruction". The
/// picture of an open node has "open" in front.
QString PictureOf(int kind);

} // namespace m_tvXML
