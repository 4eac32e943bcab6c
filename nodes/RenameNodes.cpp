// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/RenameNodes.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "nodes/Adding.h"
#include "nodes/DocumentName.h"
#include "platform/text/TextTools.h"

namespace nodes {

using controls::TreeNode;

void EditTreeNode(DocumentWindow& window) {
    edit::Guarded(window, "EditTreeNode", [&] {
        const TreeNode node = window.tvXML.SelectedItem();
        if (!node)
            return;
        const int kind = m_tvXML::GetKeyType(node);
        if (kind != m_tvXML::kAttribute && kind != m_tvXML::kInstruction)
            window.tvXML.StartLabelEdit();
    });
}

void tvXML_BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    const TreeNode node = window.tvXML.SelectedItem();
    const int kind = m_tvXML::GetKeyType(node);
    cancel = cancel || kind == m_tvXML::kAttribute || kind == m_tvXML::kText ||
             kind == m_tvXML::kInstruction || (!window.kind.renamesNodes && !m_tvXML::IsTreeRoot(node));
}

// A name that is still empty needs no complaint, and the root's isn't one of XML.
void tvXML_LabelTyped(DocumentWindow& window, const QString& text) {
    const TreeNode node = window.tvXML.LabelEditNode();
    const bool asked = node && !m_tvXML::IsTreeRoot(node) && !text.isEmpty();
    edit::ComplainWhileTyping(window.app, asked ? m_tvXML::NodeNameProbe(text) : QString(), 0);
}

void tvXMLAfterLabelEdit(DocumentWindow& window, TreeNode node, bool& cancel, QString& newString) {
    edit::Guarded(window, "tvXML_AfterLabelEdit", [&] {
        if (m_tvXML::IsTreeRoot(node)) {
            cancel = !ChangeTreeRootText(window, newString);
            if (cancel && text::Trim(newString).size() > 1) // it was worth a word
                window.tvXML.KeepLabelEdit();
            newString = node.Text();
            return;
        }
        if (!edit::ValidateNodeName(window.app, newString)) {
            if (!newString.isEmpty())
                window.tvXML.KeepLabelEdit();      // quirk 59
            newString = QStringLiteral("Unnamed"); // quirk 1
        }
        // The control writes the name itself, before the edit that follows it.
        cancel = newString != node.Text() && !edit::MayChangeNodes(window);
    });
}

// The text with the name in place of a wrong one parses, and the complaint would be gone.
void tvXML_LabelEdited(DocumentWindow& window) {
    const QString complaint = window.app.frame().StatusBar1().Panel(1);
    const bool kept = window.tvXML.LabelKept();
    edit::Run(window, "tvXML_LabelEdited", [&] {
        if (!kept)
            EndAdding(window);
    });
    if (kept)
        edit::Message(window.app, complaint);
}

void tvXML_LabelGivenUp(DocumentWindow& window, TreeNode node) {
    edit::Run(window, "tvXML_LabelGivenUp", [&] {
        if (node && IsAdding(window, node.Key()))
            TakeBackAdding(window);
        else
            EndAdding(window);
    });
}

} // namespace nodes
