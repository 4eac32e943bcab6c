// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/NodePath.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "platform/controls/TreeCursor.h"
#include "platform/text/TextTools.h"

namespace edit {

namespace {

using controls::TreeCursor;
using controls::TreeNode;

// Of one kind, and of one name if they have names.
bool AreAlike(TreeCursor a, TreeCursor b) {
    const int kind = m_tvXML::GetKeyType(a);
    if (kind != m_tvXML::GetKeyType(b))
        return false;
    return kind == m_tvXML::kText || a.textId() == b.textId() || a.text() == b.text();
}

// Siblings like the node up to it and with it, as a path counts them.
int GetSameNodeOrder(TreeNode node) {
    const TreeCursor place(node);
    int order = 0;
    for (TreeCursor sibling = place; sibling; sibling = sibling.previous())
        order += AreAlike(sibling, place) ? 1 : 0;
    return order;
}

QString GetThisNodeXPath(TreeNode node) {
    const QString place = u'[' + QString::number(GetSameNodeOrder(node)) + u']';
    switch (m_tvXML::GetKeyType(node)) {
    case m_tvXML::kElement:
        return text::Trim(node.Text()) + place;
    case m_tvXML::kText:
        return QStringLiteral("text()") + place;
    case m_tvXML::kComment:
        return QStringLiteral("comment()") + place;
    default:
        return {};
    }
}

} // namespace

void ShowNodePath(DocumentWindow& window, controls::StatusBar& statusBar) {
    ++window.app.work.paths;
    const TreeNode node = window.tvXML.SelectedItem();
    window.txtXPath.SetText(GetXPath(node));
    if (Shows(window, kTextTab))
        ShowCursorPosition(window);
    else
        statusBar.SetPanel(2, {});
}

QString GetXPath(TreeNode node) {
    QStringList steps;
    const TreeNode root = node ? node.Root() : TreeNode();
    for (; node && node != root; node = node.Parent())
        steps.prepend(GetThisNodeXPath(node));
    return steps.isEmpty() ? QString() : u'/' + steps.join(u'/');
}

void ShowCursorPosition(const DocumentWindow& window) {
    ShowCursorPosition(window, window.TextInUse());
}

void ShowCursorPosition(const DocumentWindow& window, const controls::RichTextBox& textView) {
    const controls::TextPlace place = textView.CaretPlace();
    window.app.frame().StatusBar1().SetPanel(
        2, QStringLiteral("Ln %1 , Col %2").arg(place.line).arg(place.column));
}

} // namespace edit
