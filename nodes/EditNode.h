// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/NodeAddress.h"
#include "core/model/NodeContent.h"
#include <QString>
#include <optional>

// The node that is being edited with all that is in it: what the one-by-one editor shows. `context` tells
// where: the selected row of the list (2) or the selected node of the tree (any other).
namespace nodes {

/// The kind where there is no node: nothing is selected, or the list is empty.
inline constexpr int kNoNodeInHand = -1;

/// What is to be edited, and the kind of node it is in. Texts, CDATA sections and notations have a fixed
/// name.
struct MemberVars {
    int kind = kNoNodeInHand;
    m_tvXML::NodeContent node;
};
MemberVars SetMemberVars(DocumentWindow& window, int context);

/// Which node that was. It stays the same when another one is selected.
struct NodeInHand {
    int kind = kNoNodeInHand;
    QString key;       ///< of the tree node; an attribute's element
    QString attribute; ///< the attribute's name
    QString rowKey() const { return attribute.isEmpty() ? key : key + u'/' + attribute; } ///< of its row
    bool operator==(const NodeInHand&) const = default;
};
NodeInHand GetNodeInHand(DocumentWindow& window, int context);
/// Makes it the current one again: of the tree, or of the list, which then shows what it is a row of. Nothing
/// happens when it is gone.
void SelectNodeInHand(DocumentWindow& window, const NodeInHand& hand, int context);
/// What is in a node now, as the tree has it; nothing where it is gone.
std::optional<m_tvXML::NodeContent> ReadNodeInHand(DocumentWindow& window, const NodeInHand& hand);

/// A node, and what it is known by after its tree was built anew: where it stood, and what was in it.
struct HeldNode {
    NodeInHand hand;
    m_tvXML::NodeAddress address;
    m_tvXML::NodeContent content;
};
HeldNode HoldNode(DocumentWindow& window, const NodeInHand& hand);
/// Whether the node is there. In a tree that was built anew it is the one at the same place that says the
/// same, and `held.hand` is that one from then on.
bool FindNodeAgain(DocumentWindow& window, HeldNode& held);

} // namespace nodes
