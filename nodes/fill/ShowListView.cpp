// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/fill/ShowListView.h"
#include "core/model/m_tvXML.h"
#include <memory>

namespace {

using controls::TreeNode;

// Kinds of rows; they are the node types.
enum Kind { kRoot = 0, kElement = 1, kAttribute = 2, kText = 3, kCData = 4, kInstruction = 7, kComment = 8 };

TreeNode FirstTextChild(TreeNode node) {
    TreeNode child = node.Child();
    while (child && m_tvXML::GetKeyType(child) != kText)
        child = child.Next();
    return child;
}

// Rows of children are made when they are looked at: a node may have a million of them.
controls::ListItem RowOf(TreeNode child) {
    if (!child) // removed meanwhile: the list is about to be filled anew
        return {};
    const int kind = m_tvXML::GetKeyType(child);
    const TreeNode firstText = FirstTextChild(child);
    return {child.Key(), kind == kText ? QStringLiteral("Node Text") : child.Text(), kind,
            kind,        {child.Tag(), firstText ? firstText.Tag() : QString()},     {}};
}

// The same text as in the row, without a copy of it.
text::CompactView CellOf(TreeNode child, int column) {
    static constexpr char kTextName[] = "Node Text";
    if (!child)
        return {};
    if (column == 3) {
        const TreeNode firstText = FirstTextChild(child);
        return firstText ? firstText.TagView() : text::CompactView();
    }
    if (column == 1 && m_tvXML::GetKeyType(child) == kText)
        return {reinterpret_cast<const unsigned char*>(kTextName), sizeof kTextName - 1, false};
    return column == 1 ? child.TextView() : child.TagView();
}

void AddAllSubNodesToListView(DocumentWindow& window, TreeNode node) {
    const int type = m_tvXML::GetKeyType(node);
    if (type != kElement && !m_tvXML::IsTreeRoot(node))
        return;
    auto children = std::make_shared<std::vector<TreeNode>>();
    children->reserve(static_cast<std::size_t>(node.Children()));
    for (TreeNode child = node.Child(); child; child = child.Next())
        children->push_back(child);
    const auto find = [&tree = window.tvXML, children](const QString& key) -> qint64 {
        const TreeNode child = tree.Nodes.Find(key);
        const int row = child ? child.Row() : -1;
        const auto size = static_cast<qint64>(children->size());
        // A node that came or went since may have moved it by a row or more.
        for (qint64 i = row; i >= 0 && i < size; ++i) {
            if ((*children)[static_cast<std::size_t>(i)] == child)
                return i;
        }
        for (qint64 i = std::min<qint64>(row, size) - 1; i >= 0; --i) {
            if ((*children)[static_cast<std::size_t>(i)] == child)
                return i;
        }
        return -1;
    };
    window.ListView1.Fill(
        static_cast<std::uint32_t>(children->size()),
        [children](std::uint32_t i) { return RowOf((*children)[i]); }, find,
        [children](std::uint32_t i, int column) { return CellOf((*children)[i], column); });
}

void AddAttributeRows(DocumentWindow& window, TreeNode node) {
    QStringList names;
    QStringList values;
    m_tvXML::GetAllAttributesNameAndValue(node.Tag(), names, values);
    const QString key = node.Key();
    for (int i = 0; i < names.size(); ++i) {
        const QString rowKey = key + u'/' + names[i];
        if (HaveItemByKey(window, rowKey))
            continue; // a Tag that a probe let through may name an attribute twice
        const int row = AddOneItemToListView(window, rowKey, names[i], kAttribute, values[i]);
        window.ListView1.SetItemTag(row, key);
    }
}

void AddAllPropertiesToListView(DocumentWindow& window, TreeNode node) {
    if (m_tvXML::IsTreeRoot(node))
        return;
    const auto own = [&](const QString& name, int kind) {
        AddOneItemToListView(window, node.Key(), name, kind, node.Tag());
    };
    switch (m_tvXML::GetKeyType(node)) {
    case kElement:
        AddAttributeRows(window, node);
        break;
    case kText:
        own(QStringLiteral("Node Text"), kText);
        break;
    case kCData:
        own(QStringLiteral("CDATA"), kCData);
        break;
    case kInstruction:
        own(QStringLiteral("xml version"), kInstruction);
        break;
    case kComment:
        own(QStringLiteral("comment"), kComment);
        break;
    default:
        window.app.services.prompts.MsgBox(QStringLiteral("This version can not support this xml node type"));
    }
}

} // namespace

int AddOneItemToListView(DocumentWindow& window, const QString& key, const QString& text, int icon,
                         const QString& sub1, const QString& sub2) {
    return window.ListView1.Add(key, text, icon, sub1, sub2);
}

bool HaveItemByKey(DocumentWindow& window, const QString& key) {
    return window.ListView1.IndexOf(key) > 0;
}

void ShowListView(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    const QString selectedKey = list.SelectedItem() > 0 ? list.Item(list.SelectedItem()).Key : QString();
    const TreeNode node = window.tvXML.SelectedItem();
    list.BeginUpdate();
    list.Clear();
    list.Tag = node ? node.Key() : QString();
    if (node) {
        AddAllSubNodesToListView(window, node);
        AddAllPropertiesToListView(window, node);
    }
    list.ClearSelected();
    list.SetSelectedItem(selectedKey.isEmpty() ? 0 : list.IndexOf(selectedKey));
    list.EndUpdate();
}

QString GetFirstNodeText(TreeNode node, QString& key) {
    const TreeNode child = node ? FirstTextChild(node) : TreeNode();
    key = child ? child.Key() : QString();
    return child ? child.Tag() : QString();
}
