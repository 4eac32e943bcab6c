// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/TreeClipboard.h"
#include "core/edit/CopySlot.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Delay.h"
#include "core/model/NodeKind.h"
#include "core/model/Serialise.h"
#include "nodes/DeleteNodes.h"
#include "nodes/KeepCopy.h"
#include "nodes/PasteNodes.h"

namespace nodes {

namespace {

using controls::TreeNode;

// Rows that were copied may have attributes, which go into an element; beside nodes the clipboard's text
// can't hold them.
void PasteIntoTree(DocumentWindow& window, TreeNode node, const QString& text) {
    const edit::CopySlot& copy = edit::LastCopy(window.app);
    const TreeNode target = Container(node);
    if (!target || copy.copiedAttributes.isEmpty() || !edit::IsLastCopy(window.app, text)) {
        PasteXMLStringToTree(window, node);
        return;
    }
    const bool nodesToo = copy.copiedText != copy.copiedAttributes;
    PasteNodesAndAttributes(window, target, nodesToo ? text : QString(), copy.copiedAttributes, false);
}

} // namespace

bool CopyTreeNode(DocumentWindow& window) {
    return edit::Run(window, "CopyTreeNode", [&] {
        const TreeNode node = window.tvXML.SelectedItem();
        if (!node)
            return false;
        const QString text = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
        if (text.isEmpty() || !m_tvXML::HasTextForm(node)) {
            SayNothingCopied(window.app);
            return false;
        }
        KeepCopy(window, edit::kViewTree, node.Key(), text, {});
        return true;
    });
}

void CutTreeNode(DocumentWindow& window) {
    if (CopyTreeNode(window))
        DeleteTreeNode(window);
}

void PasteTreeNode(DocumentWindow& window) {
    constexpr int kPause = 10; // milliseconds
    const QString text = window.app.services.clipboard.GetText();
    if (text.isEmpty())
        return;
    edit::Run(window, "PasteTreeNode", [&] { PasteIntoTree(window, window.tvXML.SelectedItem(), text); });
    mXMLEdit::Delay(window.app, kPause);
}

} // namespace nodes
