// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeAddress.h"
#include "core/model/NodeKind.h"
#include <algorithm>

namespace m_tvXML {

namespace {

bool Agree(xml::Node a, xml::Node b) {
    return a.nodeType() == b.nodeType() && (a.nodeType() == xml::TEXT || a.nameId() == b.nameId());
}

} // namespace

bool NodeAddress::agrees(TreeNode node, const Step& step) {
    return GetKeyType(node) == step.kind && (step.kind == kText || node.TextView() == QStringView(step.name));
}

NodeAddress::NodeAddress(TreeNode node) {
    for (; node && !IsTreeRoot(node); node = node.Parent()) {
        const int kind = GetKeyType(node);
        Step step{kind, kind == kText ? QString() : node.Text(), 0};
        for (TreeNode sibling = node; sibling; sibling = sibling.Previous())
            step.place += agrees(sibling, step) ? 1 : 0;
        steps_.push_back(std::move(step));
    }
    std::reverse(steps_.begin(), steps_.end());
}

NodeAddress::NodeAddress(xml::Node node) {
    for (; node && node.nodeType() != xml::DOCUMENT; node = node.parentNode()) {
        int place = 0;
        for (xml::Node sibling = node.parentNode().firstChild(); sibling; sibling = sibling.nextSibling()) {
            place += Agree(sibling, node) ? 1 : 0;
            if (sibling == node)
                break;
        }
        steps_.push_back({node.nodeType(), node.nodeName(), place});
    }
    std::reverse(steps_.begin(), steps_.end());
}

TreeNode NodeAddress::childAt(TreeNode parent, const Step& step) {
    int place = 0;
    for (TreeNode child = parent.Child(); child; child = child.Next()) {
        if (agrees(child, step) && ++place == step.place)
            return child;
    }
    return {};
}

TreeNode NodeAddress::findIn(const controls::TreeView& tree) const {
    TreeNode node = tree.Nodes.Count() > 0 ? tree.Nodes(1) : TreeNode();
    for (const Step& step : steps_) {
        if (!node)
            break;
        node = childAt(node, step);
    }
    return node;
}

TreeNode NodeAddress::nearestIn(const controls::TreeView& tree) const {
    TreeNode node = tree.Nodes.Count() > 0 ? tree.Nodes(1) : TreeNode();
    for (const Step& step : steps_) {
        const TreeNode child = node ? childAt(node, step) : TreeNode();
        if (!child)
            break;
        node = child;
    }
    return node;
}

} // namespace m_tvXML
