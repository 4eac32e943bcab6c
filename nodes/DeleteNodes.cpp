// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DeleteNodes.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeNumbers.h"

namespace nodes {

namespace {

using controls::TreeNode;

// Without an element the selection stays where the control put it.
void SelectAfterDelete(DocumentWindow& window, TreeNode parent) {
    if (!parent.Child())
        window.tvXML.SetSelectedItem(parent);
    else if (const TreeNode element = m_tvXML::FirstElement(parent.Child()))
        window.tvXML.SetSelectedItem(element);
}

} // namespace

void DeleteTreeNode(DocumentWindow& window, TreeNode node) {
    const TreeNode gone = node ? node : window.tvXML.SelectedItem();
    if (!gone || m_tvXML::IsTreeRoot(gone))
        return;
    edit::Run(window, "DeleteTreeNode", [&] {
        const TreeNode parent = gone.Parent();
        window.tvXML.Nodes.Remove(gone);
        SelectAfterDelete(window, parent);
    });
}

} // namespace nodes
