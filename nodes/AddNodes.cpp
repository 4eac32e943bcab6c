// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/ListEditor.h"
#include "nodes/TreeCommands.h"

// Adding nodes to the tree.

namespace {

using controls::TreeNode;
using services::Answer;
using services::Buttons;

constexpr int kElement = 1;
constexpr int kText = 3;
constexpr int kComment = 8;

const char* PictureOf(int kind) {
    return kind == kElement ? "element" : kind == kText ? "text" : "comment";
}

TreeNode AddNode(DocumentWindow& window, TreeNode relative, int relationship, int kind, const QString& text) {
    const QString picture = QLatin1String(PictureOf(kind));
    return window.tvXML.Nodes.Add(relative, relationship, m_tvXML::GetDistinctElementKey(window.app, kind),
                                  text, picture, QStringLiteral("open") + picture);
}

// With the tree root selected, work goes on from the document's first node; without one it stays.
TreeNode BelowTheRoot(DocumentWindow& window, TreeNode selected) {
    if (!m_tvXML::IsTreeRoot(selected) || !selected.Child())
        return selected;
    window.tvXML.SetSelectedItem(selected.Child());
    return selected.Child();
}

// Nothing was added, though the selection may have moved down from the root: the views follow it.
QString NothingAdded(DocumentWindow& window, bool noEdit) {
    if (!noEdit)
        DoTree(window);
    return {};
}

// The user names the new element at once. Where the window doesn't let its name be edited it gets one.
void EditNewName(DocumentWindow& window, TreeNode node) {
    if (window.tvXML.StartLabelEdit())
        return; // the views follow when the edit ends
    if (node.TextView().isEmpty())
        node.SetText(QStringLiteral("Unnamed"));
    DoTree(window);
}

// The list that shows the new node lets its value be typed at once.
void EditInList(DocumentWindow& window, int row) {
    if (window.tbsXML.SelectedKey() != QStringLiteral("listview") || row < 1 ||
        row > window.ListView1.Count())
        return;
    window.ListView1.ClearSelected();
    window.ListView1.SetSelectedItem(row);
    EditListViewAttribute(window);
}

void Report(DocumentWindow& window, const text::Fault& fault, const char* routine) {
    ErrorReportBox(window.app, fault, window.kind.Name + u'.' + QLatin1String(routine));
}

} // namespace

QString AddNewTreeNode(DocumentWindow& window, bool noEdit, bool before) {
    QString key;
    try {
        TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return key;
        selected = BelowTheRoot(window, selected);
        int relationship = before ? controls::tvwPrevious : controls::tvwNext;
        if (m_tvXML::IsTreeRoot(selected)) {
            relationship = controls::tvwChild;
        } else if (m_tvXML::IsTreeRoot(selected.Parent()) && m_tvXML::HaveElementNodeAtXMLRootLevel(window)) {
            const Answer answer = window.app.services.prompts.MsgBox(
                QStringLiteral("You already have one root node! Do you want to create a child node?"),
                Buttons::OkCancel);
            if (answer != Answer::Ok)
                return NothingAdded(window, noEdit);
            relationship = controls::tvwChild;
        }
        const TreeNode added = AddNode(window, selected, relationship, kElement, {});
        key = added.Key();
        window.bTreeChanged = true;
        window.tvXML.SetSelectedItem(added);
        if (!noEdit)
            EditNewName(window, added);
    } catch (const text::Fault& fault) {
        Report(window, fault, "AddNewTreeNode");
    }
    return key;
}

QString AddNewTreeSubNode(DocumentWindow& window, bool noEdit, const QString& text, const QString& tag) {
    QString key;
    try {
        const TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return key;
        TreeNode found;
        if (m_tvXML::IsTreeRoot(selected) && m_tvXML::HaveElementNode(selected.Child(), found)) {
            window.app.services.prompts.MsgBox(QStringLiteral("You already have one root node!"));
            return key;
        }
        TreeNode added = AddNode(window, selected, controls::tvwChild, kElement, text);
        key = added.Key();
        window.bTreeChanged = true;
        window.tvXML.SetSelectedItem(added);
        added.SetTag(tag);
        if (!noEdit)
            EditNewName(window, added);
        if (!text.isEmpty())
            TreeChangeTextView(window);
    } catch (const text::Fault& fault) {
        Report(window, fault, "AddNewTreeSubNode");
    }
    return key;
}

QString AddNewTreeNodeText(DocumentWindow& window, bool noEdit, bool asChild, const QString& text) {
    QString key;
    try {
        TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return key;
        selected = BelowTheRoot(window, selected);
        if (m_tvXML::IsTreeRoot(selected))
            return key;
        if (m_tvXML::IsTreeRoot(selected.Parent())) {
            if (m_tvXML::GetKeyType(selected) != kElement)
                return NothingAdded(window, noEdit);
            asChild = true;
        }
        TreeNode added =
            AddNode(window, selected, asChild ? controls::tvwChild : controls::tvwNext, kText, text);
        key = added.Key();
        added.SetTag(text);
        if (!asChild)
            window.tvXML.SetSelectedItem(selected.Parent());
        window.bTreeChanged = true;
        TreeChangeTextView(window);
        if (!noEdit) {
            DoTree(window);
            EditInList(window, window.ListView1.IndexOf(key));
        }
    } catch (const text::Fault& fault) {
        Report(window, fault, "AddNewTreeNodeText");
    }
    return key;
}

QString AddNewTreeCommentNode(DocumentWindow& window, bool noEdit, const QString& text) {
    QString key;
    try {
        TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return key;
        selected = BelowTheRoot(window, selected);
        const int relationship = m_tvXML::IsTreeRoot(selected) ? controls::tvwChild : controls::tvwNext;
        TreeNode added = AddNode(window, selected, relationship, kComment, QStringLiteral("#comment"));
        key = added.Key();
        added.SetTag(text);
        window.bTreeChanged = true;
        if (!noEdit) {
            window.tvXML.SetSelectedItem(added);
            DoTree(window);
            EditInList(window, 1);
        }
    } catch (const text::Fault& fault) {
        Report(window, fault, "AddNewTreeCommentNode");
    }
    return key;
}

QString AddNewTreeCommentSubNode(DocumentWindow& window, const QString& text) {
    QString key;
    try {
        const TreeNode selected = window.tvXML.SelectedItem();
        if (!selected)
            return key;
        TreeNode added = AddNode(window, selected, controls::tvwChild, kComment, QStringLiteral("#comment"));
        key = added.Key();
        added.SetTag(text);
        window.bTreeChanged = true;
        TreeChangeTextView(window);
    } catch (const text::Fault& fault) {
        Report(window, fault, "AddNewTreeCommentSubNode");
    }
    return key;
}
