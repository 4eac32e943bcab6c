// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/WriteNode.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "nodes/DocumentName.h"
#include "nodes/NodeValue.h"

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::NodeContent;

// What the attribute is called while its value is checked: the name may be under edit as well.
const QString kProbedAttribute = QStringLiteral("attr");

bool IsFreeAttributeName(DocumentWindow& window, TreeNode element, const QString& name) {
    if (!edit::ValidateNodeAttributeName(window.app, name, element.Text()))
        return false;
    const bool taken = m_tvXML::Attributes(element).contains(name);
    if (taken)
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
    return !taken;
}

NodeWrite WriteAttribute(DocumentWindow& window, NodeInHand& hand, TreeNode element,
                         const NodeContent& content) {
    const auto now = ReadNodeInHand(window, hand);
    const bool newName = now && content.name != now->name;
    const bool newValue = now && content.value != now->value;
    if (!newName && !newValue)
        return NodeWrite::Unchanged;
    if ((newName && !IsFreeAttributeName(window, element, content.name)) ||
        (newValue && !ValidateValue(window.app, hand.kind, element, content.value, kProbedAttribute)))
        return NodeWrite::Refused;
    m_tvXML::Attributes all(element);
    if (const qsizetype at = all.find(hand.attribute); newName && at >= 0)
        all.set(at, content.name, all.value(at));
    element.SetTag(all.tag());
    SetAttribute(window, element, content.name, content.value);
    hand.attribute = content.name;
    return NodeWrite::Written;
}

NodeWrite WriteElement(DocumentWindow& window, TreeNode element, const NodeContent& content) {
    Application& app = window.app;
    const NodeContent now = m_tvXML::ContentOf(element);
    if (content == now)
        return NodeWrite::Unchanged;
    const bool newText = content.text != now.text;
    // Everything is checked before anything is written.
    if ((content.name != now.name && !edit::ValidateNodeName(app, content.name)) ||
        (content.value != now.value &&
         !edit::ValidateNodeAttributes(app, content.value, content.name, true)) ||
        (newText && !edit::ValidateNodeText(app, content.text, content.name)))
        return NodeWrite::Refused;
    element.SetText(content.name);
    if (content.value != now.value)
        element.SetTag(m_tvXML::PlainAttributes(content.value));
    if (newText)
        WriteElementText(window, element, content.text);
    return NodeWrite::Written;
}

// An emptied text keeps its node, so that the walk goes on from there.
NodeWrite WriteValue(DocumentWindow& window, const NodeInHand& hand, TreeNode node, const QString& value) {
    if (value == node.Tag())
        return NodeWrite::Unchanged;
    if (!ValidateValue(window.app, hand.kind, node, value, kProbedAttribute))
        return NodeWrite::Refused;
    if (hand.kind == m_tvXML::kText)
        m_tvXML::SetNodeText(window.app, node, value);
    else
        node.SetTag(value);
    return NodeWrite::Written;
}

NodeWrite WriteRoot(DocumentWindow& window, NodeInHand& hand, TreeNode root, const QString& name) {
    if (name == root.Text())
        return NodeWrite::Unchanged;
    if (!ChangeTreeRootText(window, name))
        return NodeWrite::Refused;
    hand.key = root.Key();
    return NodeWrite::Written;
}

NodeWrite WriteByKind(DocumentWindow& window, NodeInHand& hand, TreeNode node, const NodeContent& content) {
    switch (hand.kind) {
    case m_tvXML::kTreeRoot:
        return WriteRoot(window, hand, node, content.name);
    case m_tvXML::kElement:
        return WriteElement(window, node, content);
    case m_tvXML::kAttribute:
        return WriteAttribute(window, hand, node, content);
    default:
        return WriteValue(window, hand, node, content.value);
    }
}

} // namespace

NodeWrite WriteNodeInHand(DocumentWindow& window, NodeInHand& hand, const NodeContent& content) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    if (!node || hand.kind == kNoNodeInHand)
        return NodeWrite::Unchanged;
    NodeInHand written = hand; // an edit that is taken back leaves the old one
    const NodeWrite result = edit::RunEdit(window, [&] {
        const NodeWrite outcome = WriteByKind(window, written, node, content);
        if (outcome == NodeWrite::Written && hand.kind != m_tvXML::kTreeRoot)
            edit::WriteUnnamed(window);
        return outcome;
    });
    hand = written;
    return result;
}

QString NodeValueProbe(DocumentWindow& window, const NodeInHand& hand, const QString& value) {
    const TreeNode node = window.tvXML.Nodes.Find(hand.key);
    return node ? ValueProbe(hand.kind, node, value, kProbedAttribute) : QString();
}

} // namespace nodes
