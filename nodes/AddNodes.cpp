// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/AddNodes.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/NodeNumbers.h"
#include "nodes/Adding.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include "nodes/NewNode.h"

namespace nodes {

namespace {

using controls::TreeNode;
using m_tvXML::IsTreeRoot;

// With the tree root selected, work goes on from the document's first node; without one it stays.
TreeNode BelowTheRoot(DocumentWindow& window, TreeNode selected) {
    if (!IsTreeRoot(selected) || !selected.Child())
        return selected;
    window.tvXML.SetSelectedItem(selected.Child());
    return selected.Child();
}

// The user names the new element at once. Where the window doesn't let its name be edited it gets one.
void EditNewName(DocumentWindow& window, const Origin& origin, const QString& key) {
    BeginAdding(window, origin, key);
    edit::Then(window, [&window, key] {
        TreeNode added = window.tvXML.Nodes.Find(key);
        if (!added || window.tvXML.StartLabelEdit())
            return;
        if (added.TextView().isEmpty())
            added.SetText(QStringLiteral("Unnamed"));
        EndAdding(window);
    });
}

// The list that shows the new node lets its value be typed at once.
void EditInList(DocumentWindow& window, const Origin& origin, const QString& key) {
    BeginAdding(window, origin, key);
    edit::Then(window, [&window, key] {
        const int row = edit::Shows(window, edit::kListTab) ? window.ListView1.IndexOf(key) : 0;
        if (row > 0) {
            SelectOnlyRow(window, row);
            EditListViewAttribute(window);
        }
        if (!window.txtListView.Visible())
            EndAdding(window);
    });
}

QString AddElement(DocumentWindow& window, const Origin& origin, TreeNode relative, int relationship,
                   bool noEdit, const QString& text = {}, const QString& tag = {}) {
    const TreeNode added = NewNode(window, relative, relationship, m_tvXML::kElement, text, tag);
    window.tvXML.SetSelectedItem(added);
    if (!noEdit)
        EditNewName(window, origin, added.Key());
    return added.Key();
}

// Also of the declaration (quirk 2).
bool WantsChildInstead(DocumentWindow& window) {
    return window.app.services.prompts.MsgBox(
               QStringLiteral("You already have one root node! Do you want to create a child node?"),
               services::Buttons::OkCancel) == services::Answer::Ok;
}

QString AddComment(DocumentWindow& window, TreeNode relative, int relationship, const QString& text) {
    return NewNode(window, relative, relationship, m_tvXML::kComment, QStringLiteral("#comment"), text).Key();
}

} // namespace

QString AddNewTreeNode(DocumentWindow& window, bool noEdit, bool before) {
    return edit::Run(window, "AddNewTreeNode", [&]() -> QString {
        const Origin origin = OriginOf(window);
        const TreeNode selected = BelowTheRoot(window, window.tvXML.SelectedItem());
        if (!selected)
            return {};
        if (IsTreeRoot(selected))
            return AddElement(window, origin, selected, controls::tvwChild, noEdit);
        if (!IsTreeRoot(selected.Parent()) || !m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML))
            return AddElement(window, origin, selected, before ? controls::tvwPrevious : controls::tvwNext,
                              noEdit);
        return WantsChildInstead(window) ? AddElement(window, origin, selected, controls::tvwChild, noEdit)
                                         : QString();
    });
}

QString AddNewTreeSubNode(DocumentWindow& window, bool noEdit, const QString& text, const QString& tag) {
    return edit::Run(window, "AddNewTreeSubNode", [&]() -> QString {
        const TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return {};
        if (IsTreeRoot(selected) && m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML)) {
            window.app.services.prompts.MsgBox(QStringLiteral("You already have one root node!"));
            return {};
        }
        return AddElement(window, OriginOf(window), selected, controls::tvwChild, noEdit, text, tag);
    });
}

QString AddNewTreeNodeText(DocumentWindow& window, bool noEdit, bool asChild, const QString& text) {
    return edit::Run(window, "AddNewTreeNodeText", [&]() -> QString {
        const Origin origin = OriginOf(window);
        const TreeNode selected = BelowTheRoot(window, window.tvXML.SelectedItem());
        if (!selected || IsTreeRoot(selected))
            return {};
        const bool atTop = IsTreeRoot(selected.Parent());
        if (atTop && !m_tvXML::IsElement(selected))
            return {};
        const bool below = asChild || atTop;
        const TreeNode added = NewNode(window, selected, below ? controls::tvwChild : controls::tvwNext,
                                       m_tvXML::kText, text, text);
        if (!below)
            window.tvXML.SetSelectedItem(selected.Parent());
        if (noEdit)
            return added.Key();
        if (edit::Shows(window, edit::kTextTab)) // an empty text can't be seen there (quirk 83)
            edit::ShowView(window, edit::kListTab);
        EditInList(window, origin, added.Key());
        return added.Key();
    });
}

QString AddNewTreeCommentNode(DocumentWindow& window, bool noEdit, const QString& text) {
    return edit::Run(window, "AddNewTreeCommentNode", [&]() -> QString {
        const Origin origin = OriginOf(window);
        const TreeNode selected = BelowTheRoot(window, window.tvXML.SelectedItem());
        if (!selected)
            return {};
        const int relationship = IsTreeRoot(selected) ? controls::tvwChild : controls::tvwNext;
        const QString key = AddComment(window, selected, relationship, text);
        if (!noEdit) {
            window.tvXML.SetSelectedItem(window.tvXML.Nodes(key));
            EditInList(window, origin, key);
        }
        return key;
    });
}

QString AddNewTreeCommentSubNode(DocumentWindow& window, const QString& text) {
    return edit::Run(window, "AddNewTreeCommentSubNode", [&]() -> QString {
        const TreeNode selected = window.tvXML.SelectedItem();
        return selected ? AddComment(window, selected, controls::tvwChild, text) : QString();
    });
}

} // namespace nodes
