// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/EditNode.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "nodes/ListRows.h"

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::NodeContent;

QString FixedName(int kind) {
    switch (kind) {
    case m_tvXML::kText:
        return QStringLiteral("Node Text");
    case m_tvXML::kCData:
        return QStringLiteral("CDATA");
    case m_tvXML::kNotation:
        return QStringLiteral("Notation");
    default:
        return {};
    }
}

// Nothing when it is no such node, or the element has no such attribute and is offered none.
std::optional<NodeContent> Read(DocumentWindow& window, const NodeInHand& hand, TreeNode node) {
    const bool attribute = hand.kind == m_tvXML::kAttribute;
    if (!node || m_tvXML::GetKeyType(node) != (attribute ? m_tvXML::kElement : hand.kind))
        return {};
    if (!attribute)
        return m_tvXML::ContentOf(node);
    if (m_tvXML::Attributes(node).contains(hand.attribute))
        return m_tvXML::ContentOf(node, hand.attribute);
    if (!AttributesOffered(window, node).contains(hand.attribute))
        return {};
    return NodeContent{hand.attribute, {}, {}};
}

} // namespace

NodeInHand GetNodeInHand(DocumentWindow& window, int context) {
    if (context != kContextList) {
        const TreeNode node = window.tvXML.SelectedItem();
        return node ? NodeInHand{m_tvXML::GetKeyType(node), node.Key(), {}} : NodeInHand();
    }
    const int row = window.ListView1.SelectedItem();
    if (row == 0)
        return {};
    const controls::ListItem& item = window.ListView1.Item(row);
    if (item.SmallIcon == m_tvXML::kAttribute)
        return {item.SmallIcon, item.Tag, item.Text};
    return {item.SmallIcon, item.Key, {}};
}

MemberVars SetMemberVars(DocumentWindow& window, int context) {
    const NodeInHand hand = GetNodeInHand(window, context);
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node)
        return {};
    MemberVars vars{hand.kind, m_tvXML::ContentOf(node)};
    if (context == kContextList) {
        const controls::ListItem& item = window.ListView1.Item(window.ListView1.SelectedItem());
        vars.node.name = item.Text;
        vars.node.value = item.Sub[0];
    } else if (const QString fixed = FixedName(hand.kind); !fixed.isEmpty()) {
        vars.node.name = fixed;
    }
    if (hand.kind != m_tvXML::kElement)
        vars.node.text.clear();
    return vars;
}

void SelectNodeInHand(DocumentWindow& window, const NodeInHand& hand, int context) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node)
        return;
    if (context != kContextList)
        return edit::SelectNode(window, node);
    edit::Run(window, "DoTree", [&] {
        if (window.ListView1.IndexOf(hand.rowKey()) == 0)
            window.tvXML.SetSelectedItem(hand.attribute.isEmpty() ? node.Parent() : node);
        edit::Then(window, [&window, key = hand.rowKey()] {
            const int row = window.ListView1.IndexOf(key);
            if (row != window.ListView1.SelectedItem())
                SelectOnlyRow(window, row);
        });
    });
}

std::optional<NodeContent> ReadNodeInHand(DocumentWindow& window, const NodeInHand& hand) {
    return Read(window, hand, window.tvXML.Nodes.Find(hand.key));
}

HeldNode HoldNode(DocumentWindow& window, const NodeInHand& hand) {
    return {hand, m_tvXML::NodeAddress(window.tvXML.Nodes.Find(hand.key)),
            ReadNodeInHand(window, hand).value_or(NodeContent())};
}

bool FindNodeAgain(DocumentWindow& window, HeldNode& held) {
    if (const TreeNode node = window.tvXML.Nodes.Find(held.hand.key))
        return Read(window, held.hand, node).has_value();
    const TreeNode node = held.address.findIn(window.tvXML);
    const auto now = Read(window, held.hand, node);
    // The name is part of the place.
    if (!now || now->value != held.content.value || now->text != held.content.text)
        return false;
    held.hand.key = node.Key();
    return true;
}

} // namespace nodes
