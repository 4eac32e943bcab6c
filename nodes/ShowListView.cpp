// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ShowListView.h"
#include "core/edit/Report.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeKind.h"
#include "nodes/ListState.h"
#include <memory>

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::FirstTextChild;
using m_tvXML::GetKeyType;

// Rows of children are made when they are looked at: a node may have a million of them.
controls::ListItem RowOf(TreeNode child) {
    if (!child) // removed meanwhile: the list is about to be filled anew
        return {};
    const int kind = GetKeyType(child);
    const TreeNode firstText = FirstTextChild(child);
    return {child.Key(),
            kind == m_tvXML::kText ? QStringLiteral("Node Text") : child.Text(),
            kind,
            kind,
            {child.Tag(), firstText ? firstText.Tag() : QString()},
            {}};
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
    if (column == 1 && GetKeyType(child) == m_tvXML::kText)
        return {reinterpret_cast<const unsigned char*>(kTextName), sizeof kTextName - 1, false};
    return column == 1 ? child.TextView() : child.TagView();
}

using Children = std::vector<TreeNode>;

// The place of a child, -1 without one. A node that came or went since may have moved it by a row or more.
qint64 PlaceOf(const Children& children, TreeNode child) {
    const qint64 row = child ? child.Row() : -1;
    const auto size = static_cast<qint64>(children.size());
    for (qint64 i = row; i >= 0 && i < size; ++i) {
        if (children[static_cast<std::size_t>(i)] == child)
            return i;
    }
    for (qint64 i = std::min(row, size) - 1; i >= 0; --i) {
        if (children[static_cast<std::size_t>(i)] == child)
            return i;
    }
    return -1;
}

void AddAllSubNodesToListView(DocumentWindow& window, TreeNode node) {
    if (!m_tvXML::IsElement(node) && !m_tvXML::IsTreeRoot(node))
        return;
    auto children = std::make_shared<Children>();
    children->reserve(static_cast<std::size_t>(node.Children()));
    for (TreeNode child = node.Child(); child; child = child.Next())
        children->push_back(child);
    window.ListView1.Fill(
        static_cast<std::uint32_t>(children->size()),
        [children](std::uint32_t i) { return RowOf((*children)[i]); },
        [&tree = window.tvXML, children](const QString& key) {
            return PlaceOf(*children, tree.Nodes.Find(key));
        },
        [children](std::uint32_t i, int column) { return CellOf((*children)[i], column); });
}

void AddOneItemToListView(DocumentWindow& window, const QString& key, const QString& text, int kind,
                          const QString& value, const QString& tag = {}) {
    const int row = window.ListView1.Add(key, text, kind, value);
    window.ListView1.SetItemTag(row, tag);
}

void AddAttributeRows(DocumentWindow& window, TreeNode node) {
    const m_tvXML::Attributes all(node);
    const QString key = node.Key();
    for (qsizetype i = 0; i < all.count(); ++i) {
        const QString rowKey = key + u'/' + all.name(i);
        // A Tag that a probe let through may name an attribute twice.
        if (window.ListView1.IndexOf(rowKey) == 0)
            AddOneItemToListView(window, rowKey, all.name(i), m_tvXML::kAttribute, all.value(i), key);
    }
}

void AddAllPropertiesToListView(DocumentWindow& window, TreeNode node) {
    if (m_tvXML::IsTreeRoot(node))
        return;
    const int kind = GetKeyType(node);
    const auto own = [&](const QString& name) {
        AddOneItemToListView(window, node.Key(), name, kind, node.Tag());
    };
    switch (kind) {
    case m_tvXML::kElement:
        AddAttributeRows(window, node);
        break;
    case m_tvXML::kText:
        own(QStringLiteral("Node Text"));
        break;
    case m_tvXML::kCData:
        own(QStringLiteral("CDATA"));
        break;
    case m_tvXML::kInstruction:
        own(QStringLiteral("xml version"));
        break;
    case m_tvXML::kComment:
        own(QStringLiteral("comment"));
        break;
    default: // no box: the user walks on (quirk 61)
        edit::Message(window.app, QStringLiteral("This version can not support this xml node type"));
    }
}

} // namespace

void ShowListView(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    const TreeNode node = window.tvXML.SelectedItem();
    const QString selectedKey = list.SelectedItem() > 0 ? list.Item(list.SelectedItem()).Key : QString();
    list.BeginUpdate();
    list.Clear();
    list.Tag = node ? node.Key() : QString();
    if (node) {
        ++window.app.work.listFills;
        AddAllSubNodesToListView(window, node);
        AddAllPropertiesToListView(window, node);
    }
    list.ClearSelected();
    list.SetSelectedItem(selectedKey.isEmpty() ? 0 : list.IndexOf(selectedKey));
    list.EndUpdate();
    RowsFollowed(window);
}

} // namespace nodes
