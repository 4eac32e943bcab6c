// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextLink.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "textview/FillText.h"
#include "textview/TreeText.h"
#include "textview/Undo.h"

namespace textview {

namespace {

using controls::TreeNode;

// The caret jumps this far beyond a node before it goes there, so that the node comes to stand high in the
// view.
constexpr qsizetype kJumpBeyond = 800;

void BuildTreeFromText(DocumentWindow& window) {
    const controls::RichTextBox& pane = window.TextInUse();
    const text::LongText text = pane.Plain();
    XMLToTree(window, text, m_tvXML::GetNodeNumByTextPosition(pane.Long(), pane.SelStart()));
    // Whether it parsed or not: leaving the same bad text again is quiet.
    if (pane.Plain() == text)
        window.bond.msLastParsedText = text;
}

} // namespace

void LeaveTextView(DocumentWindow& window) try {
    // Only a text that the user emptied clears the tree; an empty view may also be one that was never filled
    // (quirk 18).
    if (!window.bond.bTextChanged())
        return;
    if (window.tmText.Enabled())
        return FollowSteps(window);
    BringPanesTogether(window);
    if (window.TextInUse().Plain() == window.bond.msLastParsedText)
        window.bond.move(BondMove::TextTakenBack);
    else
        BuildTreeFromText(window);
} catch (const text::Fault& fault) {
    // A position that the text no longer has isn't worth a word.
    if (fault.Number != text::kFaultBadCall)
        ErrorReportBox(window.app, fault, edit::RoutineName(window, "rtxtXML_LostFocus"));
}

bool ReadEditedText(DocumentWindow& window) {
    if (!window.bond.bTextChanged())
        return true;
    const bool told = window.TextInUse().Plain() == window.bond.msLastParsedText; // of this very text, before
    LeaveTextView(window);
    return told || !window.bond.refused();
}

void BringTextUpToDate(DocumentWindow& window) {
    if (!edit::IsNaming(window))
        edit::WriteUnnamed(window);
}

void NavToNodeRelatedText(DocumentWindow& window) {
    edit::Guarded(window, "NavToNodeRelatedText", [&] {
        controls::RichTextBox& target = window.TextInUse();
        const TreeNode node = window.tvXML.SelectedItem();
        if (!node) {
            target.SetSelStart(target.Long().size());
            return;
        }
        target.Tag = node.Key();
        const qsizetype place =
            m_tvXML::GetTextPositionByNodeNum(target.Long(), m_tvXML::GetBeforeNodeNumber(window.app, node));
        target.SetSelStart(place + kJumpBeyond);
        target.Mark(std::abs(place - 1), 1);
        edit::ShowCursorPosition(window);
    });
}

void SelectNodeAtCaret(DocumentWindow& window) {
    edit::Run(window, "rtxtXML_Click", [&] {
        if (window.tvXML.Nodes.Count() == 0)
            return;
        const controls::RichTextBox& target = window.TextInUse();
        const long number = m_tvXML::GetNodeNumByTextPosition(target.Long(), target.SelStart());
        if (const TreeNode node = m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(1)))
            window.tvXML.SetSelectedItem(node);
    });
}

} // namespace textview
