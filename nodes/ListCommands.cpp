// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListCommands.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "nodes/DeleteNodes.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListRows.h"
#include "nodes/MoveNodes.h"
#include <QSet>
#include <optional>

namespace nodes {

namespace {

using controls::TreeNode;

/// What is deleted: whole nodes by their keys, and attributes of one element by their names.
struct Doomed {
    QStringList keys;
    QString owner;
    QSet<QString> names;
};

Doomed SelectedRows(const controls::ListView& list) {
    Doomed doomed;
    for (const int row : list.SelectedRows()) {
        const controls::ListItem& item = list.Item(row);
        if (item.SmallIcon == m_tvXML::kAttribute) {
            doomed.owner = item.Tag;
            doomed.names.insert(item.Text);
        } else {
            doomed.keys << item.Key;
        }
    }
    return doomed;
}

void DeleteAttributes(DocumentWindow& window, const QString& owner, const QSet<QString>& names) {
    TreeNode element = window.tvXML.Nodes(owner);
    const m_tvXML::Attributes all(element);
    m_tvXML::Attributes kept;
    for (qsizetype i = 0; i < all.count(); ++i) {
        if (!names.contains(all.name(i)))
            kept.add(all.name(i), all.value(i));
    }
    element.SetTag(kept.tag());
}

// A node on show that is deleted itself gives way as it does in the tree.
void DeleteNodes(DocumentWindow& window, const QStringList& keys) {
    const TreeNode shown = window.tvXML.SelectedItem();
    if (keys.size() == 1 && shown && shown.Key() == keys.front()) {
        DeleteTreeNode(window, shown);
        return;
    }
    // So many that a widget shouldn't follow them one by one.
    constexpr qsizetype kMany = 2000;
    std::optional<controls::TreeUpdate> quiet;
    if (keys.size() > kMany)
        quiet.emplace(window.tvXML);
    for (const QString& key : keys) {
        if (const TreeNode node = window.tvXML.Nodes.Find(key))
            window.tvXML.Nodes.Remove(node);
    }
    if (shown)
        window.tvXML.SetSelectedItem(shown);
}

void ChooseRow(DocumentWindow& window, const QString& key) {
    edit::Then(window, [&window, key] { SelectOnlyRow(window, window.ListView1.IndexOf(key)); });
}

void MoveUpDownOneAttributeItemAtListView(DocumentWindow& window, int row, bool up) {
    const controls::ListView& list = window.ListView1;
    const int other = up ? row - 1 : row + 1;
    if (other < 1 || other > list.Count())
        return;
    const controls::ListItem item = list.Item(row), neighbour = list.Item(other);
    if (neighbour.SmallIcon != m_tvXML::kAttribute) {
        ErrorReportBox(window.app, {text::kFaultBadCall, QStringLiteral("Invalid procedure call")},
                       QStringLiteral("MoveUpDownOneAttributeItemAtListView. Never should be here! "));
        return;
    }
    edit::Run(window, "MoveUpDownOneItemAtListView", [&] {
        TreeNode element = window.tvXML.Nodes(item.Tag);
        m_tvXML::Attributes all(element);
        const qsizetype from = all.find(item.Text), to = all.find(neighbour.Text);
        if (from < 0 || to < 0)
            return;
        all.swap(from, to);
        element.SetTag(all.tag());
        edit::WriteUnnamed(window); // a text that stays empty holds nothing up
        ChooseRow(window, item.Key);
    });
}

// The node moves in the tree; the list stays where it is, with the moved row as the current one.
void MoveUpDownOneNodeItemAtListView(DocumentWindow& window, TreeNode node, bool up) {
    const TreeNode shown = window.tvXML.SelectedItem();
    if (!node || node == shown)
        return;
    edit::RunSeries(window, "MoveUpDownOneItemAtListView", [&] {
        window.tvXML.SetSelectedItem(node);
        MoveUpDownOneNodeAtTree(window, up);
        ChooseRow(window, window.tvXML.SelectedItem().Key());
        window.tvXML.SetSelectedItem(shown);
    });
}

// The row that a deletion leaves in the place of what goes: the next one, else the one before.
QString NeighbourOf(DocumentWindow& window, const std::vector<int>& doomed) {
    controls::ListView& list = window.ListView1;
    int row = doomed.empty() ? 0 : doomed.back() + 1;
    if (row > list.Count()) {
        row = list.Count();
        while (row > 0 && list.Selected(row))
            --row;
    }
    return row > 0 ? list.Item(row).Key : QString();
}

// A row's node changes its level by a command of the tree, and the list goes with it.
void ChangeLevelOfRow(DocumentWindow& window, const char* routine, void (*change)(DocumentWindow&)) {
    if (!FinishAllEdits(window))
        return;
    const TreeNode shown = window.tvXML.SelectedItem();
    const TreeNode node = window.ListView1.SelectedItem() > 0 ? CurrentListNode(window) : shown;
    if (!node || SelectedRowKind(window) == m_tvXML::kAttribute)
        return;
    if (node == shown)
        return change(window);
    edit::Run(window, routine, [&] {
        window.tvXML.SetSelectedItem(node);
        change(window);
        const TreeNode moved = window.tvXML.SelectedItem();
        window.tvXML.SetSelectedItem(moved == node ? shown : moved.Parent());
        ChooseRow(window, moved.Key());
    });
}

} // namespace

void SetRowAsParent(DocumentWindow& window) {
    ChangeLevelOfRow(window, "SetNodeAsParent", SetNodeAsParent);
}

void SetRowAsChild(DocumentWindow& window) {
    ChangeLevelOfRow(window, "SetNodeAsChild", SetNodeAsChild);
}

void DeleteListViewItems(DocumentWindow& window) {
    edit::Run(window, "DeleteListViewItems", [&] {
        const Doomed doomed = SelectedRows(window.ListView1);
        const QString neighbour = NeighbourOf(window, window.ListView1.SelectedRows());
        if (!doomed.owner.isEmpty())
            DeleteAttributes(window, doomed.owner, doomed.names);
        DeleteNodes(window, doomed.keys);
        edit::WriteUnnamed(window);
        if (!neighbour.isEmpty())
            ChooseRow(window, neighbour);
    });
}

void MoveUpDownOneItemAtListView(DocumentWindow& window, bool up) {
    const int row = window.ListView1.SelectedItem();
    if (row == 0)
        return;
    if (SelectedRowKind(window) == m_tvXML::kAttribute)
        MoveUpDownOneAttributeItemAtListView(window, row, up);
    else
        MoveUpDownOneNodeItemAtListView(window, CurrentListNode(window), up);
}

void SelectAllAtListView(DocumentWindow& window) {
    window.ListView1.SelectAll();
}

void SetListViewStyle(DocumentWindow& window, int view) {
    window.ListView1.SetView(view);
}

} // namespace nodes
