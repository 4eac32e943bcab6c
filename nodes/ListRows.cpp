// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListRows.h"
#include "core/model/m_tvXML.h"

namespace {

// Attribute rows stand behind all others, so they are looked for from the end.
template <typename Found> int FindAttributeRow(DocumentWindow& window, Found found) {
    const controls::ListView& list = window.ListView1;
    int hit = 0;
    for (int row = list.Count(); row > 0 && list.Item(row).SmallIcon == kRowAttribute; --row) {
        if (found(list.Item(row)))
            hit = row;
    }
    return hit;
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
    const controls::ListView& list = window.ListView1;
    QStringList pairs;
    int first = list.Count() + 1;
    while (first > 1 && list.Item(first - 1).SmallIcon == kRowAttribute)
        --first;
    for (int row = first; row <= list.Count(); ++row) {
        const controls::ListItem& item = list.Item(row);
        pairs << item.Text + QStringLiteral("=\"") + item.Sub[0] + u'"';
    }
    return pairs.join(u' ');
}

bool HaveSameNameAttributeAtListView(DocumentWindow& window, const QString& name) {
    return FindAttributeAtListView(window, name) > 0;
}

int FindAttributeAtListView(DocumentWindow& window, const QString& name) {
    return FindAttributeRow(window, [&](const controls::ListItem& item) { return item.Text == name; });
}

int FindAnyAttributeItem(DocumentWindow& window) {
    return FindAttributeRow(window, [](const controls::ListItem&) { return true; });
}
