// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/ListCommands.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"
#include "nodes/fill/ShowListView.h"
#include <QSet>

// Adding nodes and attributes from the list.

namespace {

using controls::TreeNode;

// The current row's own node; nothing for an attribute's row, or where the list shows a leaf itself.
TreeNode RowNode(DocumentWindow& window) {
    if (SelectedRowKind(window) == kRowAttribute)
        return {};
    const TreeNode node = CurrentListNode(window);
    return node == window.tvXML.SelectedItem() ? TreeNode() : node;
}

using FindByKey = int (*)(DocumentWindow&, const QString&);

// The list goes to where the new node is, and its row is the current one.
bool ShowRowOf(DocumentWindow& window, const QString& key, FindByKey find) {
    const TreeNode added = window.tvXML.Nodes.Find(key);
    if (!added)
        return false;
    window.tvXML.SetSelectedItem(added.Parent());
    ShowListView(window);
    DoTree(window);
    const int row = find(window, key);
    if (row == 0)
        return false;
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(row);
    return true;
}

// A new element without a name gets one when the user gives none.
void EditName(DocumentWindow& window, const QString& key) {
    // A leaf shows no children, though it may have got one.
    const bool shown = ShowRowOf(window, key, FindListNodeElementItemByKey);
    if (shown)
        window.ListView1.SetFocus();
    TreeNode node = window.tvXML.Nodes.Find(key);
    if (!(shown && window.ListView1.StartLabelEdit()) && node && node.TextView().isEmpty()) {
        node.SetText(QStringLiteral("Unnamed"));
        DoTree(window);
    }
}

void EditValue(DocumentWindow& window, const QString& key) {
    if (ShowRowOf(window, key, FindListNodeTextItemByKey))
        EditListViewAttribute(window);
}

// Where a child goes: the current row's element, else the node on show.
TreeNode ParentForChild(DocumentWindow& window) {
    const TreeNode row = RowNode(window);
    return row && m_tvXML::GetKeyType(row) == kRowElement ? row : window.tvXML.SelectedItem();
}

bool IsLeaf(TreeNode node) {
    return !m_tvXML::IsTreeRoot(node) && m_tvXML::GetKeyType(node) != kRowElement;
}

// Runs an adding command of the tree on a node; where it added nothing, the former node is current again.
template <typename Add> QString AddOn(DocumentWindow& window, TreeNode node, Add add) {
    const TreeNode shown = window.tvXML.SelectedItem();
    window.tvXML.SetSelectedItem(node);
    const QString key = add();
    if (key.isEmpty())
        window.tvXML.SetSelectedItem(shown);
    return key;
}

QString FreeAttributeName(DocumentWindow& window) {
    QSet<QString> taken;
    for (int row = FindAnyAttributeItem(window); row > 0 && row <= window.ListView1.Count(); ++row)
        taken.insert(window.ListView1.Item(row).Text);
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("attr") + QString::number(number);
        if (!taken.contains(name))
            return name;
    }
}

// The element whose attributes the list shows; from the tree root the list walks down to the root element.
TreeNode ElementForAttribute(DocumentWindow& window) {
    TreeNode node = window.tvXML.SelectedItem();
    if (node && m_tvXML::IsTreeRoot(node)) {
        TreeNode root;
        if (!m_tvXML::HaveElementNode(node.Child(), root))
            return {};
        node = root;
    }
    return node && m_tvXML::GetKeyType(node) == kRowElement ? node : TreeNode();
}

void Report(DocumentWindow& window, const text::Fault& fault, const char* what) {
    ErrorReportBox(window.app, fault, QLatin1String(what));
}

} // namespace

void AddNewListViewNode(DocumentWindow& window) try {
    const TreeNode row = RowNode(window), shown = window.tvXML.SelectedItem();
    if (!shown)
        return;
    const bool beside = row || IsLeaf(shown);
    const QString key = AddOn(window, row ? row : shown, [&] {
        return beside ? AddNewTreeNode(window, true) : AddNewTreeSubNode(window, true);
    });
    EditName(window, key);
} catch (const text::Fault& fault) {
    Report(window, fault, "frmXMLEdit.AddNewListViewNode error.");
}

void AddNewListViewChildNode(DocumentWindow& window) try {
    const TreeNode parent = ParentForChild(window);
    if (!parent || IsLeaf(parent))
        return;
    EditName(window, AddOn(window, parent, [&] { return AddNewTreeSubNode(window, true); }));
} catch (const text::Fault& fault) {
    Report(window, fault, "frmXMLEdit.AddNewListViewChildNode error.");
}

void AddNewListViewNodeText(DocumentWindow& window) try {
    const TreeNode parent = ParentForChild(window);
    if (!parent)
        return;
    EditValue(window,
              AddOn(window, parent, [&] { return AddNewTreeNodeText(window, true, !IsLeaf(parent)); }));
} catch (const text::Fault& fault) {
    Report(window, fault, "frmXMLEdit.AddNewListViewNodeText error.");
}

void AddNewListViewCommentNode(DocumentWindow& window) try {
    const TreeNode row = RowNode(window), shown = window.tvXML.SelectedItem();
    if (!shown)
        return;
    const bool beside = row || IsLeaf(shown);
    const QString key = AddOn(window, row ? row : shown, [&] {
        return beside || m_tvXML::IsTreeRoot(shown) ? AddNewTreeCommentNode(window, true)
                                                    : AddNewTreeCommentSubNode(window);
    });
    if (ShowRowOf(window, key, FindListNodeCommentItemByKey))
        EditListViewAttribute(window);
    else if (!key.isEmpty())
        Report(window, {text::kFaultNotFound, QStringLiteral("Element not found")},
               "frmXMLEdit.AddNewListViewCommentNode error 1!");
} catch (const text::Fault& fault) {
    Report(window, fault, "frmXMLEdit.AddNewListViewCommentNode error.");
}

void AddNewListViewAttribute(DocumentWindow& window) try {
    TreeNode element = ElementForAttribute(window);
    if (!element)
        return;
    if (element != window.tvXML.SelectedItem()) {
        window.tvXML.SetSelectedItem(element);
        DoTree(window);
    }
    const bool seen = window.tbsXML.SelectedKey() == QStringLiteral("listview");
    // The rows are what the attributes are written from, and a list that isn't looked at may be behind.
    if (window.ListView1.Tag != element.Key() || !seen)
        ShowListView(window);
    const QString name = FreeAttributeName(window);
    const QString key = element.Key() + u'/' + name;
    const int row = AddOneItemToListView(window, key, name, kRowAttribute);
    window.ListView1.SetItemTag(row, element.Key());
    element.SetTag(GetAttrsFromListViewAllItems(window));
    window.bTreeChanged = true;
    TreeChangeTextView(window, true);
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(window.ListView1.IndexOf(key));
    if (!seen) // beside another view it keeps the name it got
        return;
    window.ListView1.SetFocus();
    window.ListView1.StartLabelEdit();
} catch (const text::Fault& fault) {
    Report(window, fault, "frmXMLEdit.AddNewListViewAttribute error.");
}
