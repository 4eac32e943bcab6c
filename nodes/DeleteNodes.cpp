// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DeleteNodes.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"

namespace nodes {

// The selection goes to the neighbour (quirk 56).
void DeleteTreeNode(DocumentWindow& window, controls::TreeNode node) {
    const controls::TreeNode gone = node ? node : window.tvXML.SelectedItem();
    if (!gone || m_tvXML::IsTreeRoot(gone))
        return;
    edit::Run(window, "DeleteTreeNode", [&] { window.tvXML.Nodes.Remove(gone); });
}

} // namespace nodes
