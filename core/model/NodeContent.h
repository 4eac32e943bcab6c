// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>

struct Application;

/// What is in a node. Node arguments may be nothing.
namespace m_tvXML {

using controls::TreeNode;

/// All that can be edited of one node.
struct NodeContent {
    QString name;  ///< of an element, an attribute or a document; else what the program calls the node
    QString value; ///< an element's attributes as its Tag holds them; the value of any other node
    QString text;  ///< an element's first text, escaped; else empty
    bool operator==(const NodeContent&) const = default;
};

NodeContent ContentOf(TreeNode node); ///< as the tree holds it; all empty for nothing
/// Content of one attribute of an element; all empty where it has none of that name.
NodeContent ContentOf(TreeNode element, const QString& attribute);

TreeNode FirstTextChild(TreeNode node); ///< nothing without one
/// The Tag of a node's first text child; empty without one. `key` takes that child's key.
QString GetFirstNodeText(TreeNode node, QString& key);
/// The values of the direct text children of a parsed node, joined.
QString GetXmlNodeAllNodeText(xml::Node domNode);

/// A text longer than `length` cut to it, with "..." behind.
QString Truncate(const QString& text, int length);
/// Shows a text node's Tag, cut to the length of the options, as its Text.
void SetTextNodeDisplay(Application& app, TreeNode node);
/// Gives a text node its text, and shows it.
void SetNodeText(Application& app, TreeNode node, const QString& text);

/// Local part of a qualified name: what stands behind the first ":"; the part before it goes to `prefix`,
/// which stays as it was for a name without ":". Empty for a blank name.
QString GetPureName(const QString& name, QString& prefix);

} // namespace m_tvXML
