// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeNumbers.h"
#include "core/model/Application.h"
#include "platform/controls/TreeCursor.h"

namespace m_tvXML {

namespace {

using controls::TreeCursor;

// What isn't written has no place in the text that a number could tell.
bool IsNumbered(TreeCursor node) {
    const int kind = node.kind();
    return kind == kElement || kind == kComment || kind == kInstruction;
}

// Numbered nodes below a place.
long NumberedBelow(TreeCursor top) {
    long number = 0;
    for (TreeCursor below = top.firstChild(); below; below = below.nextBelow(top))
        number += IsNumbered(below) ? 1 : 0;
    return number;
}

} // namespace

int GetNodeLevel(TreeNode node) {
    if (!node)
        return 0;
    int level = 1;
    const TreeNode root = node.Root();
    for (TreeNode above = node.Parent(); above && above != root; above = above.Parent())
        ++level;
    return level;
}

TreeNode FirstElement(TreeNode node) {
    TreeNode sibling = node ? node.FirstSibling() : node;
    while (sibling && GetKeyType(sibling) != kElement)
        sibling = sibling.Next();
    return sibling;
}

bool HaveElementNodeAtXMLRootLevel(const controls::TreeView& tree) {
    return tree.Nodes.Count() > 0 && FirstElement(tree.Nodes(1).Child());
}

bool IsNumbered(TreeNode node) {
    return node && (IsTreeRoot(node) || IsNumbered(TreeCursor(node)));
}

long GetAllChildNodeNumber(TreeNode node) {
    return node ? NumberedBelow(TreeCursor(node)) : 0;
}

long GetBeforeNodeNumber(Application& app, TreeNode node) {
    long number = 0;
    for (TreeCursor at = node ? TreeCursor(node) : TreeCursor(); at; at = at.parent()) {
        if (number > 0 && !at.parent() && at.node().Key() == app.CurrentFileName)
            break;
        ++number;
        for (TreeCursor before = at.previous(); before; before = before.previous())
            number += IsNumbered(before) ? 1 + NumberedBelow(before) : 0;
    }
    return number;
}

TreeNode GetNodeByNumber(Application& app, long number, TreeNode node) {
    if (!node)
        return {};
    const TreeCursor top(node);
    for (TreeCursor below = top.firstChild(); below; below = below.nextBelow(top)) {
        if (!IsNumbered(below))
            continue;
        if (++app.NodeWalkCounter >= number) {
            app.NodeWalkCounter = 0;
            return below.node();
        }
    }
    return {};
}

} // namespace m_tvXML
