// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "textview/fill/FillText.h"

// The text view and the tree find each other: leaving an edited text, the caret on a node, the node at a
// caret.

namespace {

using controls::TreeNode;

// The caret jumps this far beyond a node before it goes there, so that the node comes to stand high in the
// view.
constexpr qsizetype kJumpBeyond = 800;

void BuildTreeFromText(DocumentWindow& window, TreeNode selected) {
    const PaneSelections selections(window);
    const controls::RichTextBox& inUse = window.TextInUse();
    if (window.bTextChanged)
        BringPanesTogether(window);
    // The text stands for the last parsed one after this whether it parsed or not: leaving the same bad text
    // again is quiet.
    if (window.bTextChanged && !(inUse.Long() == window.msLastParsedText)) {
        const long number = m_tvXML::GetNodeNumByTextPosition(inUse.Long(), inUse.SelStart());
        window.bTextChanged =
            false; // before the parse: a failed one shows the text view, which looks at the flag again
        window.msLastParsedText = inUse.Long();
        const ParsedRoot root = XMLToTree(window, inUse.Long(), number);
        if (root.document)
            selections.restore();
    } else {
        window.bTextChanged = false; // edited, and back at what the tree shows
        if (selected)
            window.tvXML.SetSelectedItem(selected);
    }
}

} // namespace

void LeaveTextView(DocumentWindow& window) try {
    const TreeNode selected = window.tvXML.SelectedItem();
    if (window.TextInUse().Long().isEmpty()) {
        // Only a text that the user emptied clears the tree; an empty view may also be one that was never
        // filled.
        if (window.bTextChanged) {
            BringPanesTogether(window);
            window.bTextChanged = false;
            window.msLastParsedText = {};
            XMLToTree(window, {}, 0);
        }
    } else {
        BuildTreeFromText(window, selected);
    }
    ClearPos(window);
} catch (const text::Fault& fault) {
    // A position that the text no longer has isn't worth a word.
    if (fault.Number != text::kFaultBadCall)
        ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".rtxtXML_LostFocus"));
}

bool ReadEditedText(DocumentWindow& window) {
    if (!window.bTextChanged)
        return true;
    const bool told = window.TextInUse().Long() == window.msLastParsedText; // of this very text, before
    LeaveTextView(window);
    return told || !window.bTextUnread;
}

void NavToNodeRelatedText(DocumentWindow& window) try {
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
    target.SetSelStart(std::abs(place - 1));
    target.SetSelLength(1);
    ShowCursorPosition(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".NavToNodeRelatedText"));
}

void SelectNodeAtCaret(DocumentWindow& window) try {
    if (window.tvXML.Nodes.Count() == 0)
        return;
    const controls::RichTextBox& target = window.TextInUse();
    const long number = m_tvXML::GetNodeNumByTextPosition(target.Long(), target.SelStart());
    const TreeNode node = m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(1));
    if (node)
        window.tvXML.SetSelectedItem(node);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".rtxtXML_Click"));
}
