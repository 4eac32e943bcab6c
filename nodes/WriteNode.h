// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "nodes/EditNode.h"

// Writing the node that is being edited.
namespace nodes {

enum class NodeWrite {
    Unchanged, ///< or there is no such node any more
    Written,
    Refused ///< the user has been told why; the node is as it was
};

/// Writes what differs from the node, all or nothing, as one edit. The text counts for an element only, the
/// value for all but the tree root. An attribute that gets another name changes `hand`; what the user lets be
/// written escaped changes `content`. A fault is thrown on.
NodeWrite WriteNodeInHand(DocumentWindow& window, NodeInHand& hand, m_tvXML::NodeContent& content);

/// The tiny document that tells whether a value may stand in the node; empty where anything may.
QString NodeValueProbe(DocumentWindow& window, const NodeInHand& hand, const QString& value);

} // namespace nodes
