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

/// A value as it is to be written, which is the old one where that was kept. Nothing: it was refused.
template <typename Take> std::optional<QString> Taken(const QString& typed, const QString& now, Take take) {
    return typed == now ? std::optional(now) : take();
}

NodeWrite WriteAttribute(DocumentWindow& window, NodeInHand& hand, TreeNode element, NodeContent& content) {
    m_tvXML::Attributes all(element);
    const qsizetype at = all.find(hand.attribute);
    const bool newName = at >= 0 && content.name != all.name(at);
    const bool newValue = at >= 0 && content.value != all.value(at);
    if (!newName && !newValue)
        return NodeWrite::Unchanged;
    if (newName && !IsFreeAttributeName(window, element, content.name))
        return NodeWrite::Refused;
    const auto value = Taken(content.value, all.value(at), [&] {
        return TakeValue(window.app, hand.kind, element, content.value, kProbedAttribute);
    });
    if (!value)
        return NodeWrite::Refused;
    content.value = *value;
    all.set(at, content.name, content.value);
    element.SetTag(all.tag());
    hand.attribute = content.name;
    return NodeWrite::Written;
}

// Everything is checked before anything is written. False: the user has been told why.
bool CheckElement(Application& app, const NodeContent& now, NodeContent& content) {
    if (content.name != now.name && !edit::ValidateNodeName(app, content.name))
        return false;
    const auto value = Taken(content.value, now.value,
                             [&] { return edit::TakeNodeAttributes(app, content.value, content.name); });
    if (!value)
        return false;
    const auto text =
        Taken(content.text, now.text, [&] { return edit::TakeNodeText(app, content.text, content.name); });
    if (text)
        content = {content.name, *value, *text};
    return text.has_value();
}

NodeWrite WriteElement(DocumentWindow& window, TreeNode element, NodeContent& content) {
    const NodeContent now = m_tvXML::ContentOf(element);
    if (content == now)
        return NodeWrite::Unchanged;
    if (!CheckElement(window.app, now, content))
        return NodeWrite::Refused;
    element.SetText(content.name);
    if (content.value != now.value)
        element.SetTag(m_tvXML::PlainAttributes(content.value));
    if (content.text != now.text)
        WriteElementText(window, element, content.text);
    return NodeWrite::Written;
}

// An emptied text keeps its node, so that the walk goes on from there.
NodeWrite WriteValue(DocumentWindow& window, const NodeInHand& hand, TreeNode node, QString& value) {
    if (value == node.Tag())
        return NodeWrite::Unchanged;
    const auto taken = TakeValue(window.app, hand.kind, node, value, kProbedAttribute);
    if (!taken)
        return NodeWrite::Refused;
    value = *taken;
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

NodeWrite WriteByKind(DocumentWindow& window, NodeInHand& hand, TreeNode node, NodeContent& content) {
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

NodeWrite WriteNodeInHand(DocumentWindow& window, NodeInHand& hand, NodeContent& content) {
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
