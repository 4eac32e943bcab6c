// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListRows.h"
#include "core/model/m_tvXML.h"

namespace {

int FindRow(DocumentWindow& window, const QString& key, ListRowKind kind) {
    const int row = window.ListView1.IndexOf(key);
    return row > 0 && window.ListView1.Item(row).SmallIcon == kind ? row : 0;
}

QString Pair(const controls::ListItem& item) {
    return item.Text + QStringLiteral("=\"") + item.Sub[0] + u'"';
}

} // namespace

int SelectedRowKind(DocumentWindow& window) {
    const int row = window.ListView1.SelectedItem();
    return row > 0 ? window.ListView1.Item(row).SmallIcon : 0;
}

QString GetCurrentListViewKey(DocumentWindow& window) {
    const int row = window.ListView1.SelectedItem();
    if (row == 0)
        return {};
    const controls::ListItem& item = window.ListView1.Item(row);
    switch (item.SmallIcon) {
    case kRowAttribute:
        return item.Tag;
    case kRowElement:
    case kRowText:
    case kRowCData:
    case kRowInstruction:
    case kRowComment:
        return item.Key;
    default:
        window.app.services.prompts.MsgBox(QStringLiteral(
            "frmXMLEdit.GetCurrentListViewKey. This version not support this type of xml node!"));
        return {};
    }
}

controls::TreeNode CurrentListNode(DocumentWindow& window) {
    return window.tvXML.Nodes.Find(GetCurrentListViewKey(window));
}

QString GetAttrsFromListViewAllItems(DocumentWindow& window) {
    return GetChangedAttrsByIndexFromListViewAllItems(window, 0, 0);
}

QString GetChangedAttrsByIndexFromListViewAllItems(DocumentWindow& window, int row, int other) {
    const controls::ListView& list = window.ListView1;
    QStringList pairs;
    for (int i = GetAnyNonAttibuteItemAtListView(window) + 1; i <= list.Count(); ++i)
        pairs << Pair(list.Item(i == row ? other : i == other ? row : i));
    return pairs.join(u' ');
}

bool HaveSameNameAttributeAtListView(DocumentWindow& window, const QString& name) {
    return FindAttributeAtListView(window, name) > 0;
}

int FindAttributeAtListView(DocumentWindow& window, const QString& name) {
    for (int row = FindAnyAttributeItem(window); row > 0 && row <= window.ListView1.Count(); ++row) {
        if (window.ListView1.Item(row).Text == name)
            return row;
    }
    return 0;
}

int FindAnyAttributeItem(DocumentWindow& window) {
    const int row = GetAnyNonAttibuteItemAtListView(window) + 1;
    return row <= window.ListView1.Count() ? row : 0;
}

int GetAnyNonAttibuteItemAtListView(DocumentWindow& window) {
    int row = window.ListView1.Count();
    while (row > 0 && window.ListView1.Item(row).SmallIcon == kRowAttribute)
        --row;
    return row;
}

int FindListNodeElementItemByKey(DocumentWindow& window, const QString& key) {
    return FindRow(window, key, kRowElement);
}

int FindListNodeTextItemByKey(DocumentWindow& window, const QString& key) {
    return FindRow(window, key, kRowText);
}

int FindListNodeCommentItemByKey(DocumentWindow& window, const QString& key) {
    return FindRow(window, key, kRowComment);
}
