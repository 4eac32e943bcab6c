// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListCommit.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/NodeContent.h"
#include "nodes/ListPlace.h"
#include "nodes/ListRows.h"
#include "nodes/ListState.h"
#include "nodes/NodeValue.h"
#include <QScopeGuard>

namespace nodes {

namespace {

using controls::TreeNode;

constexpr int kTextColumn = 2, kNameColumn = 0;

// Instructions and comments are taken as they are typed (quirk 23).
bool TakesAnything(int kind) {
    return kind == m_tvXML::kInstruction || kind == m_tvXML::kComment;
}

// What the row shows then: where a text went, the element's next one.
std::optional<QString> CommitElementText(DocumentWindow& window, TreeNode element, const QString& text) {
    const bool taken = text.isEmpty() && m_tvXML::FirstTextChild(element);
    if (!taken && !edit::ValidateNodeText(window.app, text, element.Text()))
        return {};
    WriteElementText(window, element, text);
    return m_tvXML::ContentOf(element).text;
}

// Likewise: a value may get another form in the tree.
std::optional<QString> CommitValue(DocumentWindow& window, const controls::ListItem& item, TreeNode node,
                                   const QString& text) {
    const int kind = item.SmallIcon;
    if (!TakesAnything(kind) && !ValidateValue(window.app, kind, node, text, item.Text))
        return {};
    switch (kind) {
    case m_tvXML::kElement:
        node.SetTag(m_tvXML::PlainAttributes(text));
        return node.Tag();
    case m_tvXML::kAttribute: {
        SetAttribute(window, node, item.Text, text);
        return m_tvXML::ContentOf(node, item.Text).value;
    }
    case m_tvXML::kText:
        m_tvXML::SetNodeText(window.app, node, text);
        return text;
    default:
        node.SetTag(text);
        return text;
    }
}

// Only a name that can stand for the old one goes in.
void CommitName(DocumentWindow& window, int row, TreeNode node, const QString& name) {
    const QStringList names = NamesOffered(window, node.Text());
    if (name == node.Text())
        return;
    if (!names.contains(name)) {
        edit::Message(window.app,
                      QStringLiteral("It can be one of these alone: ") + names.join(QStringLiteral(", ")));
        return;
    }
    const bool current = RowsAreCurrent(window);
    node.SetText(name);
    edit::WriteUnnamed(window);
    window.ListView1.SetText(row, name);
    if (current)
        RowsFollowed(window);
}

// The list has its new cell at once, so it needn't be filled anew: it may have a million rows.
void CommitCell(DocumentWindow& window) {
    const int column = EditedColumn(window);
    const int row = window.ListView1.IndexOf(ListOf(window).msListEditKey);
    if (row == 0)
        return;
    const controls::ListItem item = window.ListView1.Item(row);
    const TreeNode node = NodeOfRow(window, item);
    const QString text = window.txtListView.Text();
    if (node && column == kNameColumn)
        return CommitName(window, row, node, text);
    if (!node || item.Sub[static_cast<std::size_t>(column - 1)] == text)
        return;
    const bool current = RowsAreCurrent(window);
    const auto written =
        column == kTextColumn ? CommitElementText(window, node, text) : CommitValue(window, item, node, text);
    if (!written)
        return;
    edit::WriteUnnamed(window); // also a text that was emptied
    window.ListView1.SetSubItem(row, column, *written);
    if (current)
        RowsFollowed(window);
}

// Empty where anything may stand in the cell.
QString ListCellProbe(DocumentWindow& window, const controls::ListItem& item, const QString& text) {
    const TreeNode node = NodeOfRow(window, item);
    if (!node)
        return {};
    if (EditedColumn(window) == kNameColumn)
        return {};
    if (EditedColumn(window) == kTextColumn)
        return m_tvXML::NodeTextProbe(text, node.Text());
    return TakesAnything(item.SmallIcon) ? QString() : ValueProbe(item.SmallIcon, node, text, item.Text);
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

void txtListView_LostFocus(DocumentWindow& window) {
    if (!ListOf(window).mbIsEditValue)
        return;
    const bool done = edit::Run(window, QStringLiteral("frmXMLEdit.txtListView_LostFocus error."), [&] {
        ListOf(window).mbIsEditValue = false; // a message takes the focus away once more
        const auto closing = qScopeGuard([&window] { CancelListViewTextBox(window); });
        edit::Message(window.app, {});
        CommitCell(window);
        return true;
    });
    if (!done) // the cell shows what was taken back
        edit::DoTree(window);
}

} // namespace nodes
