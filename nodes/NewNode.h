// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/NodeKind.h"
#include <QString>

namespace nodes {

/// Adds a node to the tree, with a new key and the pictures of its kind; to be used inside an edit.
/// `relationship` to `relative` as Nodes.Add takes it: tvwChild, tvwNext, tvwPrevious.
controls::TreeNode NewNode(DocumentWindow& window, controls::TreeNode relative, int relationship,
                           m_tvXML::NodeKind kind, const QString& text, const QString& tag = {});

} // namespace nodes
