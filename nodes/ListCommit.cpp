// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListCommit.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/Frame.h"
#include "core/model/NodeContent.h"
#include "nodes/ListPlace.h"
#include "nodes/ListRows.h"
#include "nodes/ListState.h"
#include "nodes/NodeValue.h"
#include <QScopeGuard>
#include <algorithm>

namespace nodes {

namespace {

using controls::TreeNode;

constexpr int kTextColumn = 2, kNameColumn = 0;

// What the row shows then: where a text went, the element's next one. Nothing where it was refused.
std::optional<QString> CommitElementText(DocumentWindow& window, TreeNode element, const QString& typed) {
    const bool goes = typed.isEmpty() && m_tvXML::FirstTextChild(element);
    const auto text = goes ? typed : edit::TakeNodeText(window.app, typed, element.Text());
    if (text)
        WriteElementText(window, element, *text);
    return text ? std::optional(m_tvXML::ContentOf(element).text) : text;
}

// Likewise: a value may get another form in the tree.
std::optional<QString> CommitValue(DocumentWindow& window, const controls::ListItem& item, TreeNode node,
                                   const QString& typed) {
    const int kind = item.SmallIcon;
    const std::optional<QString> value = TakeValue(window.app, kind, node, typed, item.Text);
    if (!value)
        return {};
    switch (kind) {
    case m_tvXML::kElement:
        node.SetTag(m_tvXML::PlainAttributes(*value));
        return node.Tag();
    case m_tvXML::kAttribute:
        SetAttribute(window, node, item.Text, *value);
        return m_tvXML::ContentOf(node, item.Text).value;
    case m_tvXML::kText:
        m_tvXML::SetNodeText(window.app, node, *value);
        return value;
    default:
        node.SetTag(*value);
        return value;
    }
}

// One that is offered, or the same with the prefix that the element has already: what is offered has the
// document's.
bool CanStandFor(const QString& old, const QString& name, const QStringList& offered) {
    QString prefix, oldPrefix;
    const QString local = m_tvXML::GetPureName(name, prefix);
    m_tvXML::GetPureName(old, oldPrefix);
    return offered.contains(name) ||
           (prefix == oldPrefix && std::any_of(offered.begin(), offered.end(), [&](const QString& one) {
                QString ofOne;
                return m_tvXML::GetPureName(one, ofOne) == local;
            }));
}

// Only a name that can stand for the old one goes in. False where the name was refused.
bool CommitName(DocumentWindow& window, int row, TreeNode node, const QString& name) {
    if (name == node.Text())
        return true;
    const QStringList names = NamesOffered(window, node.Text());
    if (!CanStandFor(node.Text(), name, names)) {
        edit::Message(window.app,
                      QStringLiteral("It can be one of these alone: ") + names.join(QStringLiteral(", ")));
        return false;
    }
    const bool current = RowsAreCurrent(window);
    node.SetText(name);
    edit::WriteUnnamed(window);
    window.ListView1.SetText(row, name);
    if (current)
        RowsFollowed(window);
    return true;
}

// The list has its new cell at once, so it needn't be filled anew: it may have a million rows. False where
// the text was refused.
bool CommitCell(DocumentWindow& window) {
    const int column = EditedColumn(window);
    const int row = window.ListView1.IndexOf(ListOf(window).msListEditKey);
    if (row == 0)
        return true;
    const controls::ListItem item = window.ListView1.Item(row);
    const TreeNode node = NodeOfRow(window, item);
    const QString text = window.txtListView.Text();
    if (node && column == kNameColumn)
        return CommitName(window, row, node, text);
    if (!node || item.Sub[static_cast<std::size_t>(column - 1)] == text)
        return true;
    const bool current = RowsAreCurrent(window);
    const auto written =
        column == kTextColumn ? CommitElementText(window, node, text) : CommitValue(window, item, node, text);
    if (!written)
        return false;
    edit::WriteUnnamed(window); // also a text that was emptied
    window.ListView1.SetSubItem(row, column, *written);
    if (current)
        RowsFollowed(window);
    return true;
}

// Empty where anything may stand in the cell.
QString ListCellProbe(DocumentWindow& window, const controls::ListItem& item, const QString& text) {
    const TreeNode node = NodeOfRow(window, item);
    if (!node || EditedColumn(window) == kNameColumn)
        return {};
    if (EditedColumn(window) == kTextColumn)
        return m_tvXML::NodeTextProbe(text, node.Text());
    return ValueProbe(item.SmallIcon, node, text, item.Text);
}

} // namespace

void txtListView_Change(DocumentWindow& window) {
    if (!ListOf(window).mbIsEditValue)
        return;
    const int row = window.ListView1.IndexOf(ListOf(window).msListEditKey);
    const controls::ListItem item = row > 0 ? window.ListView1.Item(row) : controls::ListItem();
    edit::ComplainWhileTyping(window.app, ListCellProbe(window, item, window.txtListView.Text()),
                              item.SmallIcon == m_tvXML::kAttribute ? 1 : m_tvXML::kAnyNumber);
}

// What was refused stays as it was typed, and the box has the keys again (quirk 59).
void txtListView_LostFocus(DocumentWindow& window) {
    ListState& state = ListOf(window);
    if (!state.mbIsEditValue)
        return;
    const QString routine = QStringLiteral("frmXMLEdit.txtListView_LostFocus error.");
    const bool done = edit::Run(window, routine, [&] {
        auto closing = qScopeGuard([&window] { CancelListViewTextBox(window); });
        state.mbIsEditValue = false; // a message takes the focus away once more
        edit::Message(window.app, {});
        state.bRefused = !CommitCell(window);
        state.mbIsEditValue = state.bRefused;
        if (!state.bRefused)
            return true;
        closing.dismiss();
        if (window.app.frame().StatusBar1().Panel(1).isEmpty()) // a box alone has told it
            txtListView_Change(window);
        return true;
    });
    if (!done)
        edit::Run(window, routine, [] {}); // the cell shows what was taken back
    if (state.mbIsEditValue)
        window.txtListView.SetFocus();
}

} // namespace nodes
