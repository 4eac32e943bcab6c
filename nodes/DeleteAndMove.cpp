// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/CopyNodes.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListCommands.h"
#include "nodes/ListEditor.h"
#include "nodes/TreeCommands.h"

// Deleting nodes, and moving them among their siblings.

namespace {

using controls::TreeNode;

constexpr int kElement = 1;
constexpr int kInstruction = 7;
constexpr int kComment = 8;

// The parent when it has become empty, else its first element. Without one the selection stays where the
// control put it.
void SelectAfterDelete(DocumentWindow& window, TreeNode parent) {
    TreeNode element;
    if (!parent.Child())
        window.tvXML.SetSelectedItem(parent);
    else if (m_tvXML::HaveElementNode(parent.Child(), element))
        window.tvXML.SetSelectedItem(element);
}

bool MayMove(TreeNode node, bool up) {
    const TreeNode neighbour = up ? node.Previous() : node.Next();
    return neighbour && m_tvXML::GetKeyType(up ? neighbour : node) != kInstruction;
}

// The copy takes the original's place as the current node.
void Replace(DocumentWindow& window, TreeNode original, TreeNode copy) {
    if (!copy)
        return;
    DeleteTreeNode(window, original);
    window.tvXML.SetSelectedItem(copy);
    DoTree(window);
}

} // namespace

void DeleteTreeNode(DocumentWindow& window, TreeNode node) try {
    if (!node)
        node = window.tvXML.SelectedItem();
    if (!node || m_tvXML::IsTreeRoot(node))
        return; // and nothing counts as changed: a text that doesn't parse would give way to an old tree
    window.bTreeChanged = true;
    const TreeNode parent = node.Parent();
    window.tvXML.Nodes.Remove(node);
    SelectAfterDelete(window, parent);
    TreeChangeTextView(window);
    const TreeNode selected = window.tvXML.SelectedItem();
    if (window.tbsXML.SelectedKey() == QStringLiteral("browserview") && selected &&
        !selected.TextView().isEmpty())
        tbsXML_Click(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".DeleteTreeNode"));
}

void MoveUpDownOneNodeAtTree(DocumentWindow& window, bool up) try {
    const TreeNode original = window.tvXML.SelectedItem();
    if (!original || m_tvXML::IsTreeRoot(original) || !MayMove(original, up))
        return;
    Replace(window, original, PasteNodetoNodeBeforeOrAfter(window, original, up));
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".MoveUpDownOneNodeAtTree"));
}

void SetNodeAsParent(DocumentWindow& window) try {
    if (!FinishAllEdits(window))
        return;
    const TreeNode original = window.tvXML.SelectedItem();
    const TreeNode parent = original ? original.Parent() : TreeNode();
    if (!parent || m_tvXML::IsTreeRoot(parent))
        return;
    // Beside the root element there is room for comments and instructions alone.
    const int kind = m_tvXML::GetKeyType(original);
    if (m_tvXML::IsTreeRoot(parent.Parent()) && kind != kComment && kind != kInstruction)
        return;
    Replace(window, original, PasteNodetoNodeBehind(window, original, parent));
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".SetNodeAsParent"));
}

void SetNodeAsChild(DocumentWindow& window) try {
    if (!FinishAllEdits(window))
        return;
    const TreeNode original = window.tvXML.SelectedItem();
    if (!original || m_tvXML::IsTreeRoot(original))
        return;
    const TreeNode target = original.Previous();
    // The declaration stays at the head of its document.
    if (!target || m_tvXML::GetKeyType(target) != kElement)
        return;
    const QString key = PasteNodetoNode(window, original, target);
    Replace(window, original, window.tvXML.Nodes.Find(key));
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".SetNodeAsChild"));
}

namespace {

void MoveUpOrDown(DocumentWindow& window, bool up) {
    if (!FinishAllEdits(window))
        return;
    if (window.miPopupContext == kContextList) {
        MoveUpDownOneItemAtListView(window, up);
        return;
    }
    MoveUpDownOneNodeAtTree(window, up);
    window.miPopupContext = kContextTree;
}

} // namespace

void MoveUp(DocumentWindow& window) {
    MoveUpOrDown(window, true);
}

void MoveDown(DocumentWindow& window) {
    MoveUpOrDown(window, false);
}

void GoBackToTreeUpLevel(DocumentWindow& window) try {
    const TreeNode node = window.tvXML.SelectedItem();
    if (!node || m_tvXML::IsTreeRoot(node))
        return;
    window.tvXML.SetSelectedItem(node.Parent());
    DoTree(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".GoBackToTreeUpLevel"));
}
