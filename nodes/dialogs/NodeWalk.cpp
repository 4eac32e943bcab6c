// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/NodeWalk.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "nodes/ListRows.h"

namespace nodes {

namespace {

using controls::TreeNode;

bool InList(int context) {
    return context == kContextList;
}

// A row that is walked to is seen.
void GoToRow(DocumentWindow& window, int row) {
    if (row < 1 || row > window.ListView1.Count())
        return;
    edit::Run(window, "GoToRow", [&] {
        SelectOnlyRow(window, row);
        window.ListView1.EnsureVisible(row);
    });
}

TreeNode NodeBelow(DocumentWindow& window, int context) {
    if (InList(context))
        return SelectedRowKind(window) == m_tvXML::kElement ? CurrentListNode(window) : TreeNode();
    const TreeNode node = window.tvXML.SelectedItem();
    return node ? node.Child() : TreeNode();
}

} // namespace

Ways WaysOn(DocumentWindow& window, int context) {
    const TreeNode node = window.tvXML.SelectedItem();
    const bool parent = node && node.Parent();
    if (!InList(context))
        return {node && node.Previous(), node && node.Next(), parent, node && node.Child()};
    const int row = window.ListView1.SelectedItem();
    return {row > 1, row > 0 && row < window.ListView1.Count(), parent,
            SelectedRowKind(window) == m_tvXML::kElement};
}

void WalkToSibling(DocumentWindow& window, int context, bool next) {
    if (InList(context))
        return GoToRow(window, window.ListView1.SelectedItem() + (next ? 1 : -1));
    const TreeNode node = window.tvXML.SelectedItem();
    const TreeNode sibling = node ? (next ? node.Next() : node.Previous()) : TreeNode();
    if (sibling)
        edit::SelectNode(window, sibling);
}

void WalkDown(DocumentWindow& window, int context) {
    if (InList(context))
        ShowListTab(window);
    const TreeNode below = NodeBelow(window, context);
    if (!below)
        return;
    edit::Run(window, "WalkDown", [&] {
        window.tvXML.SetSelectedItem(below);
        if (InList(context))
            edit::Then(window, [&window] { GoToRow(window, 1); });
    });
}

void WalkUp(DocumentWindow& window, int context) {
    if (InList(context))
        ShowListTab(window);
    const TreeNode node = window.tvXML.SelectedItem();
    const TreeNode parent = node ? node.Parent() : TreeNode();
    if (!parent)
        return;
    edit::Run(window, "WalkUp", [&] {
        window.tvXML.SetSelectedItem(parent);
        if (InList(context))
            edit::Then(window, [&window, node] { GoToRow(window, window.ListView1.IndexOf(node.Key())); });
    });
}

void SelectAny(DocumentWindow& window, int context) {
    if (InList(context) && window.ListView1.SelectedItem() == 0)
        GoToRow(window, 1);
    else if (!InList(context) && !window.tvXML.SelectedItem() && window.tvXML.Nodes.Count() > 0)
        edit::SelectNode(window, window.tvXML.Nodes(1));
}

void ShowListTab(DocumentWindow& window) {
    edit::Run(window, "ShowListTab", [&] { edit::ShowView(window, edit::kListTab); });
}

void BringToFront(DocumentWindow& window) {
    Frame& frame = window.app.frame();
    if (frame.ActiveForm() == &window)
        return;
    controls::ListView& list = window.ListView1;
    const TreeNode current = window.tvXML.SelectedItem();
    const QString row = list.SelectedItem() > 0 ? list.Item(list.SelectedItem()).Key : QString();
    frame.ActivateForm(&window);
    if (!current) // nothing was, or the tree has been built anew
        return;
    edit::SelectNode(window, current);
    list.SetSelectedItem(row.isEmpty() ? 0 : list.IndexOf(row));
}

} // namespace nodes
