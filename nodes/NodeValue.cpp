// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/NodeValue.h"
#include "core/edit/Report.h"
#include "core/edit/Validate.h"
#include "core/model/NodeContent.h"
#include "nodes/NewNode.h"

namespace nodes {

namespace {

using controls::TreeNode;

// The element that a text belongs to, as the checks name it.
QString OwnerName(TreeNode node) {
    const TreeNode owner = node.Parent();
    return owner && !m_tvXML::IsTreeRoot(owner) ? owner.Text() : QString();
}

// What is written anew leaves a section out, and its value with it (quirk 37).
void RefuseSection(Application& app) {
    const QString why =
        QStringLiteral("A CDATA section can only be changed in the text view: the text that is "
                       "written from the tree leaves it out.");
    edit::Message(app, why);
    app.services.prompts.MsgBox(why, services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace

QString ValueProbe(int kind, TreeNode node, const QString& value, const QString& attribute) {
    switch (kind) {
    case m_tvXML::kElement:
        return m_tvXML::NodeAttributesProbe(value, node.Text());
    case m_tvXML::kAttribute:
        return m_tvXML::NodeAttributeValueProbe(value, node.Text(), attribute);
    case m_tvXML::kText:
        return m_tvXML::NodeTextProbe(value, OwnerName(node));
    case m_tvXML::kCData:
        return m_tvXML::CDataProbe(value);
    case m_tvXML::kComment: // in the list, too (quirk 23)
        return m_tvXML::CommentProbe(value);
    case m_tvXML::kInstruction:
        return m_tvXML::InstructionProbe(node.Text(), value);
    default:
        return {};
    }
}

std::optional<QString> TakeValue(Application& app, int kind, TreeNode node, const QString& value,
                                 const QString& attribute) {
    switch (kind) {
    case m_tvXML::kElement:
        return edit::TakeNodeAttributes(app, value, node.Text());
    case m_tvXML::kAttribute:
        return edit::TakeNodeAttributeValue(app, value, node.Text(), attribute);
    case m_tvXML::kText:
        return edit::TakeNodeText(app, value, OwnerName(node));
    case m_tvXML::kCData:
        RefuseSection(app);
        return {};
    default: {
        const QString probe = ValueProbe(kind, node, value, attribute);
        return probe.isEmpty() || edit::PassesProbe(app, probe) ? std::optional(value) : std::nullopt;
    }
    }
}

void WriteElementText(DocumentWindow& window, TreeNode element, const QString& text) {
    controls::TreeView& tree = window.tvXML;
    const TreeNode current = tree.SelectedItem();
    const TreeNode child = m_tvXML::FirstTextChild(element);
    if (child && text.isEmpty())
        tree.Nodes.Remove(child);
    else if (child)
        m_tvXML::SetNodeText(window.app, child, text);
    else if (!text.isEmpty())
        NewNode(window, element, controls::tvwChild, m_tvXML::kText, text, text);
    tree.SetSelectedItem(current ? current : element); // the removed child may have been the current node
}

} // namespace nodes
