// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/TreeView.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>

// A parsed document into nodes of a tree.
namespace m_tvXML {

/// Empties the tree and makes its root under the current file name; with defaults a declaration and a comment
/// below it, and the root selected.
void AddTreeRoot(Application& app, controls::TreeView& tree, bool withDefaults);

/// Adds the children of `domNode` below the node with `parentKey` (empty: as top nodes). Below the tree root,
/// a second root element or root-level text ends the walk; this is looked at only once a call, from the
/// moment a root element stands in `active`, the tree of the window in front, which `tree` may be.
void XMLChildNodesToTree(Application& app, const controls::TreeView* active, xml::Node domNode,
                         const QString& parentKey, controls::TreeView& tree);

/// The whole document in place of what the tree holds, with new keys. What was open is open again. Where
/// memory runs out the tree is as it was.
void FillTree(Application& app, controls::TreeView& tree, const xml::ParsedDocument& document);

} // namespace m_tvXML
