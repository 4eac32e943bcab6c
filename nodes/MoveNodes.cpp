// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/MoveNodes.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "nodes/CopyNodes.h"
#include "nodes/DeleteNodes.h"
#include "nodes/FinishEdits.h"

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::GetKeyType;
using m_tvXML::IsTreeRoot;

bool MayMove(TreeNode node, bool up) {
    const TreeNode neighbour = up ? node.Previous() : node.Next();
    return neighbour && GetKeyType(up ? neighbour : node) != m_tvXML::kInstruction;
}

// The copy takes the original's place as the selected node.
void Replace(DocumentWindow& window, TreeNode original, TreeNode copy) {
    if (!copy || !original)
        return;
    DeleteTreeNode(window, original);
    window.tvXML.SetSelectedItem(copy);
}

// Beside the root element there is room for comments and instructions alone.
bool FitsBehind(TreeNode parent, TreeNode node) {
    const int kind = GetKeyType(node);
    return !IsTreeRoot(parent.Parent()) || kind == m_tvXML::kComment || kind == m_tvXML::kInstruction;
}

} // namespace

void MoveUpDownOneNodeAtTree(DocumentWindow& window, bool up) {
    const TreeNode original = window.tvXML.SelectedItem();
    if (!original || IsTreeRoot(original) || !MayMove(original, up))
        return;
    edit::RunSeries(window, "MoveUpDownOneNodeAtTree", [&] {
        const TreeNode copy = PasteNodetoNodeBeforeOrAfter(window, original, up);
        edit::Run(window, "MoveUpDownOneNodeAtTree", [&] { Replace(window, original, copy); });
    });
}

void SetNodeAsParent(DocumentWindow& window) {
    if (!FinishAllEdits(window))
        return;
    edit::Run(window, "SetNodeAsParent", [&] {
        const TreeNode original = window.tvXML.SelectedItem();
        const TreeNode parent = original ? original.Parent() : TreeNode();
        if (parent && !IsTreeRoot(parent) && FitsBehind(parent, original))
            Replace(window, original, PasteNodetoNodeBehind(window, original, parent));
    });
}

void SetNodeAsChild(DocumentWindow& window) {
    if (!FinishAllEdits(window))
        return;
    edit::Run(window, "SetNodeAsChild", [&] {
        const TreeNode original = window.tvXML.SelectedItem();
        const TreeNode target = original ? original.Previous() : TreeNode();
        if (m_tvXML::IsElement(target))
            Replace(window, original, window.tvXML.Nodes.Find(PasteNodetoNode(window, original, target)));
    });
}

void GoBackToTreeUpLevel(DocumentWindow& window) {
    edit::Run(window, "GoBackToTreeUpLevel", [&] {
        const TreeNode node = window.tvXML.SelectedItem();
        if (node && !IsTreeRoot(node))
            window.tvXML.SetSelectedItem(node.Parent());
    });
}

} // namespace nodes
