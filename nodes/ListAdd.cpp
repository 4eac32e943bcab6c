// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListAdd.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeNumbers.h"
#include "nodes/AddNodes.h"
#include "nodes/Adding.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"

namespace nodes {

namespace {

using controls::TreeNode;

// The current row's own node; nothing for an attribute's row, or where the list shows a leaf itself.
TreeNode RowNode(DocumentWindow& window) {
    if (SelectedRowKind(window) == m_tvXML::kAttribute)
        return {};
    const TreeNode node = CurrentListNode(window);
    return node == window.tvXML.SelectedItem() ? TreeNode() : node;
}

// Makes a row the current one; false where the list doesn't show it. A leaf shows no children, though it may
// have got one.
bool ChooseRow(DocumentWindow& window, const QString& key) {
    const int row = edit::Shows(window, edit::kListTab) ? window.ListView1.IndexOf(key) : 0;
    if (row > 0)
        SelectOnlyRow(window, row);
    return row > 0;
}

// The list goes to where a new node is.
void GoTo(DocumentWindow& window, const QString& key) {
    if (const TreeNode added = window.tvXML.Nodes.Find(key))
        window.tvXML.SetSelectedItem(added.Parent());
}

bool EditLabel(DocumentWindow& window, const QString& key) {
    if (!ChooseRow(window, key))
        return false;
    window.ListView1.SetFocus();
    return window.ListView1.StartLabelEdit();
}

// Beside another view a new element gets a name at once.
void EditName(DocumentWindow& window, const Origin& origin, const QString& key) {
    if (key.isEmpty())
        return;
    GoTo(window, key);
    BeginAdding(window, origin, key);
    edit::Then(window, [&window, key] {
        if (EditLabel(window, key))
            return;
        TreeNode node = window.tvXML.Nodes.Find(key);
        if (node && node.TextView().isEmpty())
            node.SetText(QStringLiteral("Unnamed"));
        EndAdding(window);
    });
}

// `missing`: the routine that reports a row that isn't there.
void EditValue(DocumentWindow& window, const Origin& origin, const QString& key,
               const char* missing = nullptr) {
    if (key.isEmpty())
        return;
    GoTo(window, key);
    BeginAdding(window, origin, key);
    edit::Then(window, [&window, key, missing] {
        if (ChooseRow(window, key))
            EditListViewAttribute(window);
        else if (missing && edit::Shows(window, edit::kListTab))
            ErrorReportBox(window.app, {text::kFaultNotFound, QStringLiteral("Element not found")},
                           QLatin1String(missing));
        if (!window.txtListView.Visible())
            EndAdding(window);
    });
}

// Where a child goes: the current row's element, else the node on show.
TreeNode ParentForChild(DocumentWindow& window) {
    const TreeNode row = RowNode(window);
    return m_tvXML::IsElement(row) ? row : window.tvXML.SelectedItem();
}

bool IsLeaf(TreeNode node) {
    return !m_tvXML::IsTreeRoot(node) && !m_tvXML::IsElement(node);
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

QString FreeAttributeName(const m_tvXML::Attributes& taken) {
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("attr") + QString::number(number);
        if (!taken.contains(name))
            return name;
    }
}

// The element whose attributes the list shows; from the tree root the list walks down to the root element.
TreeNode ElementForAttribute(DocumentWindow& window) {
    const TreeNode shown = window.tvXML.SelectedItem();
    const TreeNode node = m_tvXML::IsTreeRoot(shown) ? m_tvXML::FirstElement(shown.Child()) : shown;
    return m_tvXML::IsElement(node) ? node : TreeNode();
}

} // namespace

void AddNewListViewNode(DocumentWindow& window) {
    edit::Run(window, QStringLiteral("frmXMLEdit.AddNewListViewNode error."), [&] {
        const Origin origin = OriginOf(window);
        const TreeNode row = RowNode(window), shown = window.tvXML.SelectedItem();
        if (!shown)
            return;
        const bool beside = row || IsLeaf(shown);
        const QString key = AddOn(window, row ? row : shown, [&] {
            return beside ? AddNewTreeNode(window, true) : AddNewTreeSubNode(window, true);
        });
        EditName(window, origin, key);
    });
}

void AddNewListViewChildNode(DocumentWindow& window) {
    edit::Run(window, QStringLiteral("frmXMLEdit.AddNewListViewChildNode error."), [&] {
        const Origin origin = OriginOf(window);
        const TreeNode parent = ParentForChild(window);
        if (!parent || IsLeaf(parent))
            return;
        const QString key = AddOn(window, parent, [&] { return AddNewTreeSubNode(window, true); });
        EditName(window, origin, key);
    });
}

void AddNewListViewNodeText(DocumentWindow& window) {
    edit::Run(window, QStringLiteral("frmXMLEdit.AddNewListViewNodeText error."), [&] {
        const Origin origin = OriginOf(window);
        const TreeNode parent = ParentForChild(window);
        if (!parent)
            return;
        const QString key =
            AddOn(window, parent, [&] { return AddNewTreeNodeText(window, true, !IsLeaf(parent)); });
        EditValue(window, origin, key);
    });
}

void AddNewListViewCommentNode(DocumentWindow& window) {
    edit::Run(window, QStringLiteral("frmXMLEdit.AddNewListViewCommentNode error."), [&] {
        const TreeNode row = RowNode(window), shown = window.tvXML.SelectedItem();
        if (!shown)
            return;
        const bool beside = row || IsLeaf(shown) || m_tvXML::IsTreeRoot(shown);
        const Origin origin = OriginOf(window);
        const QString key = AddOn(window, row ? row : shown, [&] {
            return beside ? AddNewTreeCommentNode(window, true) : AddNewTreeCommentSubNode(window);
        });
        EditValue(window, origin, key, "frmXMLEdit.AddNewListViewCommentNode error 1!");
    });
}

void AddNewListViewAttribute(DocumentWindow& window) {
    edit::Run(window, QStringLiteral("frmXMLEdit.AddNewListViewAttribute error."), [&] {
        TreeNode element = ElementForAttribute(window);
        if (!element)
            return;
        const Origin origin = OriginOf(window);
        window.tvXML.SetSelectedItem(element);
        m_tvXML::Attributes all(element);
        const QString name = FreeAttributeName(all);
        all.add(name, {});
        element.SetTag(all.tag());
        edit::WriteUnnamed(window);
        BeginAdding(window, origin, element.Key(), name);
        // Beside another view it keeps the name it got.
        edit::Then(window, [&window, key = element.Key() + u'/' + name] {
            if (!EditLabel(window, key))
                EndAdding(window);
        });
    });
}

} // namespace nodes
