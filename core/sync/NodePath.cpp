// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "platform/controls/TreeCursor.h"
#include "platform/text/TextTools.h"

// The path of a node, and the way back from a path to the node.

namespace {

using controls::TreeCursor;
using controls::TreeNode;

enum Kind { kElement = 1, kText = 3, kComment = 8 };

bool SameText(TreeCursor a, TreeCursor b) {
    return a.textId() == b.textId() || a.text() == b.text();
}

// Siblings of the same Text up to the node and with it. A text counts by its shown, perhaps shortened, form.
int GetSameNodeOrder(TreeNode node) {
    const TreeCursor place(node);
    int order = 0;
    for (TreeCursor sibling = place; sibling; sibling = sibling.previous())
        order += SameText(sibling, place) ? 1 : 0;
    return order;
}

QString GetThisNodeXPath(TreeNode node) {
    const QString place = u'[' + QString::number(GetSameNodeOrder(node)) + u']';
    switch (m_tvXML::GetKeyType(node)) {
    case kElement:
        return text::Trim(node.Text()) + place;
    case kText:
        return QStringLiteral("text()") + place;
    case kComment:
        return QStringLiteral("comment()") + place;
    default:
        return {};
    }
}

// One step on the way from a parsed document's root to a node: its kind and name, and its place among
// siblings that agree in both.
struct Step {
    int type;
    QString name;
    int place;
};

bool Agrees(xml::Node a, xml::Node b) {
    return a.nodeType() == b.nodeType() && (a.nodeType() == xml::TEXT || a.nameId() == b.nameId());
}

std::vector<Step> GetTreeNodePathByDomNode(xml::Node node) {
    std::vector<Step> steps;
    for (; node && node.nodeType() != xml::DOCUMENT; node = node.parentNode()) {
        int place = 0;
        for (xml::Node sibling = node.parentNode().firstChild(); sibling; sibling = sibling.nextSibling()) {
            place += Agrees(sibling, node) ? 1 : 0;
            if (sibling == node)
                break;
        }
        steps.push_back({node.nodeType(), node.nodeName(), place});
    }
    std::reverse(steps.begin(), steps.end());
    return steps;
}

TreeNode ChildByStep(TreeNode parent, const Step& step) {
    int place = 0;
    for (TreeNode child = parent.Child(); child; child = child.Next()) {
        const bool agrees = m_tvXML::GetKeyType(child) == step.type &&
                            (step.type == xml::TEXT || child.TextView() == QStringView(step.name));
        if (agrees && ++place == step.place)
            return child;
    }
    return {};
}

void SelectTreeNodeByDomNode(DocumentWindow& window, xml::Node found) {
    TreeNode node = window.tvXML.Nodes(1);
    for (const Step& step : GetTreeNodePathByDomNode(found)) {
        const TreeNode child = ChildByStep(node, step);
        if (!child)
            break; // the text lacks what the tree still shows: the nearest node above it is it
        node = child;
    }
    node.EnsureVisible();
    window.tvXML.SetSelectedItem(node);
    DoTree(window);
}

} // namespace

void ShowNodePath(DocumentWindow& window, controls::StatusBar& statusBar) {
    const TreeNode node = window.tvXML.SelectedItem();
    window.msShownPathKey = node ? node.Key() : QString();
    window.txtXPath.SetText(GetXPath(node));
    if (window.tbsXML.SelectedKey() == QStringLiteral("textview"))
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

void SelectTreeNodeByPath(DocumentWindow& window, const QString& path) try {
    if (window.tvXML.Nodes.Count() == 0)
        return;
    if (window.bTreeChanged)
        TreeChangeTextView(window);
    if (text::Trim(path).isEmpty()) { // the path of the tree root
        window.tvXML.SetSelectedItem(window.tvXML.Nodes(1));
        DoTree(window);
        return;
    }
    std::shared_ptr<xml::ParsedDocument> document;
    if (!mXMLEdit::LoadXMLDocFromString(window.app, window.TextInUse().Long(), document, false))
        return;
    QString complaint;
    const xml::Node found = document->selectSingleNode(path, &complaint);
    if (found) {
        SelectTreeNodeByDomNode(window, found);
        return;
    }
    if (window.app.frame) // what is wrong with the path itself, if anything is
        window.app.frame->StatusBar1().SetPanel(1, complaint);
    window.app.services.prompts.MsgBox(QStringLiteral("Can not find any node by path:"));
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".txtXPath_KeyUp"));
}

void SelectTreeNodeByXPath(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path) {
    if (const xml::Node found = document.selectSingleNode(path))
        SelectTreeNodeByDomNode(window, found);
}

void ShowCursorPosition(DocumentWindow& window) {
    ShowCursorPosition(window, window.TextInUse());
}

void ShowCursorPosition(DocumentWindow& window, const controls::RichTextBox& textView) {
    if (!window.app.frame)
        return;
    const controls::TextPlace place = textView.CaretPlace();
    window.app.frame->StatusBar1().SetPanel(
        2, QStringLiteral("Ln %1 , Col %2").arg(place.line).arg(place.column));
}
