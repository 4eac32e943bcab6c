// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactList.h"
#include "core/model/Attributes.h"
#include "core/model/NodeKind.h"
#include "platform/text/TextTools.h"
#include "schema/CompactState.h"
#include "schema/SampleWalk.h"
#include <algorithm>

namespace schema {

namespace {

using controls::TreeNode;

void Add(controls::ListView& list, TreeNode node) {
    const bool element = KindInInstance(node) == m_tvXML::kElement;
    const bool text = node.Child() && KindInInstance(node.Child()) == m_tvXML::kText;
    list.Add(node.Key(), element ? node.Text() : QStringLiteral("Node Text"), KindInInstance(node),
             text::Trim(node.Tag()), text ? node.Child().Tag() : QString());
}

void AddRows(controls::ListView& list, TreeNode node) {
    if (KindInInstance(node) == m_tvXML::kText)
        return Add(list, node);
    for (TreeNode child = node.Child(); child; child = child.Next())
        Add(list, child);
    const m_tvXML::Attributes all(node);
    for (qsizetype i = 0; i < all.count(); ++i) {
        const QString key = node.Key() + u'/' + all.name(i);
        if (list.IndexOf(key) == 0)
            list.SetItemTag(list.Add(key, all.name(i), m_tvXML::kAttribute, all.value(i)), node.Key());
    }
}

int RowLike(const controls::ListView& list, const controls::ListItem& wanted) {
    if (const int row = list.IndexOf(wanted.Key))
        return row;
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.Item(row).SmallIcon == wanted.SmallIcon && list.Item(row).Text == wanted.Text)
            return row;
    }
    return 0;
}

} // namespace

controls::ListItem CurrentRow(DocumentWindow& window) {
    const controls::ListView& list = CompactOf(window).lvRes;
    return list.SelectedItem() > 0 ? list.Item(list.SelectedItem()) : controls::ListItem();
}

void FillResultList(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const TreeNode node = state.tvRes.SelectedItem();
    const QString shown = std::exchange(state.lvRes.Tag, node ? node.Key() : QString());
    const controls::ListItem current = CurrentRow(window);
    const int at = state.lvRes.SelectedItem();
    state.lvRes.BeginUpdate();
    state.lvRes.Clear();
    if (node)
        AddRows(state.lvRes, node);
    state.lvRes.ClearSelected();
    const bool same = shown == state.lvRes.Tag || state.listInUse;
    const int row = current.SmallIcon > 0 && same ? RowLike(state.lvRes, current) : 0;
    state.lvRes.SetSelectedItem(row == 0 && state.listInUse ? std::min(at, state.lvRes.Count()) : row);
    state.lvRes.EndUpdate();
}

int SelectedInInstance(DocumentWindow& window) {
    const CompactState& state = CompactOf(window);
    if (state.listInUse)
        return CurrentRow(window).SmallIcon;
    const TreeNode node = state.tvRes.SelectedItem();
    return node ? KindInInstance(node) : m_tvXML::kTreeRoot;
}

void SelectResultRow(DocumentWindow& window, int row) {
    controls::ListView& list = CompactOf(window).lvRes;
    list.ClearSelected();
    list.SetSelectedItem(row);
}

int FindAttributeAtListView(DocumentWindow& window, const QString& name) {
    const controls::ListView& list = CompactOf(window).lvRes;
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.Item(row).SmallIcon == m_tvXML::kAttribute && list.Item(row).Text == name)
            return row;
    }
    return 0;
}

void SelectAttributeRow(DocumentWindow& window, const QString& name) {
    if (const int row = name.isEmpty() ? 0 : FindAttributeAtListView(window, name))
        SelectResultRow(window, row);
}

} // namespace schema
