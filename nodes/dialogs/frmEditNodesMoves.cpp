// SPDX-License-Identifier: GPL-3.0-or-later
// The one-by-one editor's walk: to another node, another context or another path.
#include "core/model/Frame.h"
#include "core/sync/Views.h"
#include "nodes/ListRows.h"
#include "nodes/dialogs/frmEditNodes.h"
#include <utility>

void frmEditNodes::EnableButtons() {
    if (InList()) {
        EnableListMoves();
        return;
    }
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    cmdUp.SetEnabled(node && node.Previous());
    cmdDown.SetEnabled(node && node.Next());
    cmdLeft.SetEnabled(node && node.Parent());
    cmdRight.SetEnabled(node && node.Child());
}

void frmEditNodes::EnableListMoves() {
    const controls::TreeNode shown = window_->tvXML.SelectedItem();
    const int row = window_->ListView1.SelectedItem();
    cmdUp.SetEnabled(row > 1);
    cmdDown.SetEnabled(row > 0 && row < window_->ListView1.Count());
    cmdLeft.SetEnabled(shown && shown.Parent());
    cmdRight.SetEnabled(SelectedRowKind(*window_) == kRowElement);
}

void frmEditNodes::SelectSibling(bool next) {
    if (!SaveCurrentNode())
        return;
    if (InList()) {
        controls::ListView& list = window_->ListView1;
        const int row = list.SelectedItem() + (next ? 1 : -1);
        if (row >= 1 && row <= list.Count()) {
            list.ClearSelected();
            list.SetSelectedItem(row);
            list.EnsureVisible(row);
        }
    } else if (const controls::TreeNode node = window_->tvXML.SelectedItem()) {
        if (const controls::TreeNode sibling = next ? node.Next() : node.Previous()) {
            window_->tvXML.SetSelectedItem(sibling);
            DoTree(*window_);
        }
    }
    FetchNode();
}

void frmEditNodes::cmdUp_Click() {
    SelectSibling(false);
}

void frmEditNodes::cmdDown_Click() {
    SelectSibling(true);
}

void frmEditNodes::cmdRight_Click() {
    if (!SaveCurrentNode())
        return;
    if (InList())
        ShowListTab(*window_);
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    controls::TreeNode below;
    if (!InList())
        below = node ? node.Child() : node;
    else if (SelectedRowKind(*window_) == kRowElement)
        below = CurrentListNode(*window_);
    if (below) {
        window_->tvXML.SetSelectedItem(below);
        DoTree(*window_);
        if (InList() && window_->ListView1.Count() > 0) {
            window_->ListView1.ClearSelected();
            window_->ListView1.SetSelectedItem(1);
        }
    }
    FetchNode();
}

// In the list the row of the node that was left becomes the current one.
void frmEditNodes::cmdLeft_Click() {
    if (!SaveCurrentNode())
        return;
    if (InList())
        ShowListTab(*window_);
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    if (const controls::TreeNode parent = node ? node.Parent() : node) {
        window_->tvXML.SetSelectedItem(parent);
        DoTree(*window_);
        controls::ListView& list = window_->ListView1;
        if (const int row = InList() ? list.IndexOf(node.Key()) : 0; row > 0) {
            list.ClearSelected();
            list.SetSelectedItem(row);
            list.EnsureVisible(row);
        }
    }
    FetchNode();
}

void frmEditNodes::ChangeContext(int context) {
    const bool list = context == kContextList;
    const bool saved = SaveCurrentNode();
    optList.SetValue(saved == list);
    optTree.SetValue(saved != list);
    if (!saved)
        return;
    cmdUp.SetEnabled(true);
    cmdDown.SetEnabled(true);
    if (list)
        ShowListTab(*window_);
    window_->miPopupContext = context;
    FetchNode();
}

void frmEditNodes::txtXPath_KeyDown(int& key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return;
    key = 0;
    const QString path = txtXPath.Text();
    if (!SaveCurrentNode())
        return;
    const controls::TreeNode before = window_->tvXML.SelectedItem();
    SelectTreeNodeByPath(*window_, path);
    if (window_->tvXML.SelectedItem() != before) // else a mistyped path stays, and what is said about it
        FetchNode();
}

void frmEditNodes::Form_KeyDown(int& key, int modifiers) {
    if ((modifiers & static_cast<int>(Qt::ControlModifier)) == 0)
        return;
    const std::pair<int, controls::CommandButton*> arrows[] = {
        {Qt::Key_Left, &cmdLeft}, {Qt::Key_Up, &cmdUp}, {Qt::Key_Right, &cmdRight}, {Qt::Key_Down, &cmdDown}};
    for (const auto& [code, button] : arrows) {
        if (code != key)
            continue;
        key = 0;
        if (button->Enabled())
            button->Click();
        return;
    }
}
