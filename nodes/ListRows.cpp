// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListRows.h"
#include "core/model/Attributes.h"

namespace nodes {

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
    case m_tvXML::kAttribute:
        return item.Tag;
    case m_tvXML::kElement:
    case m_tvXML::kText:
    case m_tvXML::kCData:
    case m_tvXML::kInstruction:
    case m_tvXML::kComment:
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

controls::TreeNode NodeOfRow(DocumentWindow& window, const controls::ListItem& item) {
    return window.tvXML.Nodes.Find(item.SmallIcon == m_tvXML::kAttribute ? item.Tag : item.Key);
}

int FindAnyAttributeItem(DocumentWindow& window) {
    const int row = GetAnyNonAttibuteItemAtListView(window) + 1;
    return row <= window.ListView1.Count() ? row : 0;
}

int GetAnyNonAttibuteItemAtListView(DocumentWindow& window) {
    int row = window.ListView1.Count();
    while (row > 0 && window.ListView1.Item(row).SmallIcon == m_tvXML::kAttribute)
        --row;
    return row;
}

QStringList AttributesOffered(DocumentWindow& window, controls::TreeNode element) {
    return window.kind.attributesOffered ? window.kind.attributesOffered(window, element.Text())
                                         : QStringList();
}

QStringList NamesOffered(DocumentWindow& window, const QString& elementName) {
    return window.kind.namesOffered ? window.kind.namesOffered(window, elementName) : QStringList();
}

bool IsCarried(DocumentWindow& window, const controls::ListItem& item) {
    const controls::TreeNode element = NodeOfRow(window, item);
    return element && m_tvXML::Attributes(element).contains(item.Text);
}

void SelectOnlyRow(DocumentWindow& window, int row) {
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(row);
}

} // namespace nodes
