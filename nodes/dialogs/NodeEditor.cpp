// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/NodeEditor.h"
#include "core/edit/Report.h"
#include "core/edit/Validate.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "nodes/WriteNode.h"

namespace nodes {

using m_tvXML::NodeContent;

QString NodeEditor::GoneNotice() {
    return QStringLiteral(
        "The node that was edited is no longer in the document. What was typed stays in the "
        "dialog; Cancel gives it up.");
}

controls::StatusBar& NodeEditor::Messages() const {
    return app_.frame().StatusBar1();
}

bool NodeEditor::IsChanged() const {
    return Kind() != kNoNodeInHand && Typed() != node_;
}

void NodeEditor::TakeInHand(int context) {
    const MemberVars vars = SetMemberVars(*window_, context);
    node_ = vars.node;
    held_ = vars.kind == kNoNodeInHand ? HeldNode() : HoldNode(*window_, GetNodeInHand(*window_, context));
}

bool NodeEditor::HasCurrentNode(int context) {
    return GetNodeInHand(*window_, context) == held_.hand && SetMemberVars(*window_, context).node == node_;
}

void NodeEditor::FollowUntouched() {
    auto now = ReadNodeInHand(*window_, held_.hand);
    if (!now)
        return;
    if (!txtNodeName.Enabled()) // the name is the program's own word for the node
        now->name = node_.name;
    Follow(node_, *now);
    node_ = *now;
    held_ = HoldNode(*window_, held_.hand);
}

bool NodeEditor::WriteTyped() {
    if (!FindAgain()) {
        app_.services.prompts.MsgBox(GoneNotice(), services::Buttons::Ok, services::Icon::Exclamation);
        return false;
    }
    FollowUntouched();
    // A node can't go without a name, and there is nothing to say about an empty one: it keeps its own.
    if (txtNodeName.Text().isEmpty())
        txtNodeName.SetText(node_.name);
    NodeContent content = Typed();
    if (WriteNodeInHand(*window_, held_.hand, content) == NodeWrite::Refused) {
        RefusedBox().SetFocus();
        return false;
    }
    Fill(content);
    node_ = content;
    held_ = HoldNode(*window_, held_.hand);
    return true;
}

// The first of those that were changed in which something is wrong; a name may also be taken already.
controls::TextBox& NodeEditor::RefusedBox() {
    const NodeContent typed = Typed();
    const auto wrong = [this](const QString& probe) { return !m_tvXML::Probe(app_, probe).good(); };
    const bool element = Kind() == m_tvXML::kElement;
    const bool name = typed.name != node_.name && (!element || wrong(m_tvXML::NodeNameProbe(typed.name)));
    const bool value = typed.value != node_.value && wrong(NodeValueProbe(*window_, held_.hand, typed.value));
    if (name && (element || !value))
        return txtNodeName;
    return value || !element ? txtNodeAttrs : txtNodeText;
}

// --- while the user types ---------------------------------------------------------------------------------

void NodeEditor::Complain(const QString& probe, int attributes) {
    edit::ComplainWhileTyping(app_, IsChanged() ? probe : QString(), attributes);
}

void NodeEditor::ComplainAboutName() {
    if (Kind() == m_tvXML::kElement || Kind() == m_tvXML::kAttribute)
        Complain(m_tvXML::NodeNameProbe(txtNodeName.Text()), 0);
}

// About a list of attributes there is a beep, and the place of the error is told too.
void NodeEditor::ComplainAboutValue() {
    if (Kind() != m_tvXML::kElement || !IsChanged())
        return Complain(NodeValueProbe(*window_, held_.hand, txtNodeAttrs.Text()),
                        Kind() == m_tvXML::kAttribute ? 1 : m_tvXML::kAnyNumber);
    const auto error =
        m_tvXML::Probe(app_, m_tvXML::NodeAttributesProbe(txtNodeAttrs.Text(), node_.name)).error;
    if (error)
        app_.services.prompts.Beep();
    edit::Message(app_, error ? mXMLEdit::ErrorLines(*error) : QString());
}

void NodeEditor::ComplainAboutText() {
    Complain(m_tvXML::NodeTextProbe(txtNodeText.Text(), node_.name), m_tvXML::kAnyNumber);
}

} // namespace nodes
