// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListCommands.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/CopyNodes.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"
#include "nodes/fill/ShowListView.h"
#include <optional>

// Names, deleting and moving in the list.

namespace {

using controls::TreeNode;

bool RenameElement(DocumentWindow& window, const QString& key, const QString& name) {
    if (!m_tvXML::ValidateNodeName(window.app, name))
        return false;
    window.tvXML.Nodes(key).SetText(name);
    return true;
}

bool RenameAttribute(DocumentWindow& window, int row, const QString& name) {
    const QString owner = window.ListView1.Item(row).Tag;
    TreeNode element = window.tvXML.Nodes(owner);
    if (!m_tvXML::ValidateNodeAttributeName(window.app, name, element.Text()))
        return false;
    if (HaveSameNameAttributeAtListView(window, name)) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
        return false;
    }
    window.ListView1.SetText(row, name);
    element.SetTag(GetAttrsFromListViewAllItems(window));
    return true;
}

// The rows' keys hold the names, so the list is made anew.
void ShowChanged(DocumentWindow& window, const QString& rowKey) {
    window.bTreeChanged = true;
    TreeChangeTextView(window, true); // a text that stays empty holds nothing up
    ShowListView(window);
    DoTree(window);
    if (const int row = window.ListView1.IndexOf(rowKey); row > 0)
        window.ListView1.SetSelectedItem(row);
}

// Deletes the attribute rows among `rows` and gives the keys of the other ones.
QStringList DeleteAttributeRows(DocumentWindow& window, const std::vector<int>& rows) {
    controls::ListView& list = window.ListView1;
    QStringList keys;
    QString owner;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const controls::ListItem& item = list.Item(*row);
        if (item.SmallIcon != kRowAttribute) {
            keys << item.Key;
            continue;
        }
        owner = item.Tag;
        list.Remove(*row);
    }
    if (!owner.isEmpty())
        window.tvXML.Nodes(owner).SetTag(GetAttrsFromListViewAllItems(window));
    return keys;
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

void MoveUpDownOneAttributeItemAtListView(DocumentWindow& window, int row, bool up) {
    const controls::ListView& list = window.ListView1;
    const int other = up ? row - 1 : row + 1;
    if (other < 1 || other > list.Count())
        return;
    const controls::ListItem item = list.Item(row);
    if (list.Item(other).SmallIcon != kRowAttribute) {
        ErrorReportBox(window.app, {text::kFaultBadCall, QStringLiteral("Invalid procedure call")},
                       QStringLiteral("MoveUpDownOneAttributeItemAtListView. Never should be here! "));
        return;
    }
    TreeNode element = window.tvXML.Nodes(item.Tag);
    element.SetTag(GetChangedAttrsByIndexFromListViewAllItems(window, row, other));
    ShowChanged(window, item.Key);
}

// The node moves in the tree; the list stays where it is, with the moved row as the current one.
void MoveUpDownOneNodeItemAtListView(DocumentWindow& window, TreeNode node, bool up) {
    const TreeNode shown = window.tvXML.SelectedItem();
    if (!node || node == shown)
        return;
    window.tvXML.SetSelectedItem(node);
    MoveUpDownOneNodeAtTree(window, up);
    const QString moved = window.tvXML.SelectedItem().Key();
    window.tvXML.SetSelectedItem(shown);
    ShowListView(window);
    DoTree(window);
    window.ListView1.ClearSelected();
    if (const int row = window.ListView1.IndexOf(moved); row > 0)
        window.ListView1.SetSelectedItem(row);
}

} // namespace

void EditListViewItemName(DocumentWindow& window) {
    if (window.ListView1.SelectedItem() > 0)
        window.ListView1.StartLabelEdit();
}

void ListView1_BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    const int kind = SelectedRowKind(window);
    // The caption of a CDATA section is the list's own word and not a name.
    cancel =
        cancel || kind == kRowText || kind == kRowComment || kind == kRowInstruction || kind == kRowCData;
}

void ListView1_AfterLabelEdit(DocumentWindow& window, int row, bool& cancel, QString& newString) try {
    const controls::ListItem item = window.ListView1.Item(row);
    const bool attribute = item.SmallIcon == kRowAttribute;
    cancel =
        attribute ? !RenameAttribute(window, row, newString) : !RenameElement(window, item.Key, newString);
    if (cancel && item.Text.isEmpty()) { // a new element can't go without a name
        newString = QStringLiteral("Unnamed");
        cancel = !RenameElement(window, item.Key, newString);
    }
    if (cancel)
        return;
    ShowChanged(window, attribute ? item.Tag + u'/' + newString : item.Key);
} catch (const text::Fault& fault) {
    cancel = true;
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".ListView1_AfterLabelEdit"));
}

void DeleteListViewItems(DocumentWindow& window) try {
    const std::vector<int> rows = window.ListView1.SelectedRows();
    if (rows.empty())
        return;
    const QStringList keys = DeleteAttributeRows(window, rows);
    DeleteNodes(window, keys);
    ShowChanged(window, {});
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".DeleteListViewItems"));
}

void MoveUpDownOneItemAtListView(DocumentWindow& window, bool up) try {
    const int row = window.ListView1.SelectedItem();
    if (row == 0)
        return;
    if (window.ListView1.Item(row).SmallIcon == kRowAttribute)
        MoveUpDownOneAttributeItemAtListView(window, row, up);
    else
        MoveUpDownOneNodeItemAtListView(window, CurrentListNode(window), up);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".MoveUpDownOneItemAtListView"));
}

void SelectAllAtListView(DocumentWindow& window) {
    window.ListView1.SelectAll();
}

void SetListViewStyle(DocumentWindow& window, int view) {
    window.ListView1.SetView(view);
}
