// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Attributes.h"
#include "core/model/DocumentWindow.h"
#include "core/model/Parse.h"
#include <QString>
#include <optional>

// What is pasted into nodes, wherever it comes from and whichever view it is meant for. It is wrapped in
// <temp>, parsed, and the children of that element are added to the tree: whole, or not at all (quirk 6).
namespace nodes {

/// Tells that what was copied can't stand where it was to go.
void SayNothingFits(DocumentWindow& window);
/// What takes nodes that are meant for `node`: a leaf takes none, and the element around it stands for it, or
/// the tree root beside the root element. Nothing for nothing.
controls::TreeNode Container(controls::TreeNode node);

/// Adds the clipboard's nodes under `node`; under the tree root with `asChild` alone, and as far as a
/// document has room for them there. A leaf takes no children: they go into the element around it. A text
/// that doesn't parse has been told in a box.
void PasteXMLStringToTree(DocumentWindow& window, controls::TreeNode node, bool asChild = false);
/// What became of a text that was to be nodes.
enum class Pasted {
    Nothing, ///< it brings no node, or there is no room for what it brings
    Refused, ///< it doesn't parse, which has been told
    Nodes
};
/// The same with a text of its own.
Pasted PasteXMLText(DocumentWindow& window, const QString& text, controls::TreeNode node, bool asChild);
/// A text taken apart; reported in a box when it doesn't parse.
mXMLEdit::Parsed ConvertStringToXMLNode(Application& app, const QString& text);

/// A list of attributes as typed; nothing for a text that is none.
std::optional<m_tvXML::Attributes> AttributesOf(const QString& text);
/// Adds a list of attributes to an element; none where one of the names is taken already, which is told.
bool AddAttributes(DocumentWindow& window, controls::TreeNode element, const QString& attributes);

/// Adds nodes, given as XML, and attributes to an element or, with `asChild`, nodes to the tree root: both
/// or, with false, neither.
bool PasteNodesAndAttributes(DocumentWindow& window, controls::TreeNode target, const QString& nodes,
                             const QString& attributes, bool asChild);

} // namespace nodes
