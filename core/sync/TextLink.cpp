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

struct PaneSelections {
    explicit PaneSelections(DocumentWindow& w)
        : window(w), start1(w.rtxtXML.SelStart()), length1(w.rtxtXML.SelLength()),
          start2(w.rtxtXML2.SelStart()), length2(w.rtxtXML2.SelLength()) {}
    void restore() const {
        window.rtxtXML.SetSelStart(start1);
        window.rtxtXML.SetSelLength(length1);
        window.rtxtXML2.SetSelStart(start2);
        window.rtxtXML2.SetSelLength(length2);
    }
    DocumentWindow& window;
    qsizetype start1, length1, start2, length2;
};

// What was typed in one pane stands in the other one too.
void BringPanesTogether(DocumentWindow& window) {
    controls::RichTextBox& inUse = window.TextInUse();
    controls::RichTextBox& other = window.brtxtXML2Focus ? window.rtxtXML : window.rtxtXML2;
    if (other.Text() == inUse.Text())
        return;
    window.bControlChange = true;
    other.SetTextRTF(inUse.TextRTF());
    window.bControlChange = false;
}

void BuildTreeFromText(DocumentWindow& window, TreeNode selected) {
    const PaneSelections selections(window);
    const QString text = window.TextInUse().Text();
    if (window.bTextChanged)
        BringPanesTogether(window);
    // The text stands for the last parsed one after this whether it parsed or not: leaving the same bad text
    // again is quiet.
    if (window.bTextChanged && text != window.msLastParsedText) {
        const long number = m_tvXML::GetNodeNumByTextPosition(text, window.TextInUse().SelStart());
        window.bTextChanged =
            false; // before the parse: a failed one shows the text view, which looks at the flag again
        window.msLastParsedText = text;
        const ParsedRoot root = XMLToTree(window, text, number);
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
    if (window.TextInUse().Text().isEmpty()) {
        // Only a text that the user emptied clears the tree; an empty view may also be one that was never
        // filled.
        if (window.bTextChanged) {
            BringPanesTogether(window);
            window.bTextChanged = false;
            window.msLastParsedText.clear();
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

void NavToNodeRelatedText(DocumentWindow& window) try {
    controls::RichTextBox& target = window.TextInUse();
    const TreeNode node = window.tvXML.SelectedItem();
    if (!node) {
        target.SetSelStart(target.Text().size());
        return;
    }
    target.Tag = node.Key();
    const qsizetype place =
        m_tvXML::GetTextPositionByNodeNum(target.Text(), m_tvXML::GetBeforeNodeNumber(window.app, node));
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
    const long number = m_tvXML::GetNodeNumByTextPosition(target.Text(), target.SelStart());
    const TreeNode node = m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(1));
    if (node)
        window.tvXML.SetSelectedItem(node);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".rtxtXML_Click"));
}
