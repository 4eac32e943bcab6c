// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DragDrop.h"
#include "core/model/Frame.h"
#include "core/model/Serialise.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/ListRows.h"
#include "nodes/fill/ShowListView.h"

namespace {

using controls::Dragged;
using controls::TreeNode;

TreeNode NodeOnShow(DocumentWindow& window) {
    return window.tvXML.Nodes.Find(window.ListView1.Tag);
}

// Attributes stand behind all other rows.
bool IsAnyAttributeDragged(DocumentWindow& source) {
    const controls::ListView& list = source.ListView1;
    for (int row = list.Count(); row > 0 && list.Item(row).SmallIcon == kRowAttribute; --row) {
        if (list.Selected(row))
            return true;
    }
    return false;
}

// A row of a node stands for the node, that of an attribute for its element.
bool IsDragged(DocumentWindow& source, TreeNode target) {
    if (source.app.dragSourceView == kViewTree)
        return source.tvXML.SelectedItem() == target;
    const int row = source.ListView1.IndexOf(target.Key());
    return (row > 0 && source.ListView1.Selected(row)) ||
           (NodeOnShow(source) == target && IsAnyAttributeDragged(source));
}

// Nodes of a list may go under the tree root when they are dropped on the root's list.
bool Takes(DocumentWindow& window, TreeNode target, bool onList) {
    DocumentWindow* source = window.app.dragSource;
    if (!target || !source || IsDragged(*source, target))
        return false;
    const bool root = m_tvXML::IsTreeRoot(target);
    return !root || (onList && !(source->app.dragSourceView == kViewList && IsAnyAttributeDragged(*source)));
}

void Refresh(DocumentWindow& window) {
    window.bTreeChanged = true;
    TreeChangeTextView(window);
    ShowListView(window);
    DoTree(window);
}

// What is dropped goes through the clipboard, as if it had been copied and pasted. Whether it was added.
bool DropNodes(DocumentWindow& window, DocumentWindow& source, TreeNode target, bool onList) {
    Application& app = window.app;
    const bool copied = app.dragSourceView == kViewTree ? CopyTreeNode(source) : CopyListViewItems(source);
    if (!copied)
        return false;
    const bool rowsOfAttributes = app.copiedText == app.copiedAttributes;
    return PasteNodesAndAttributes(window, target, rowsOfAttributes ? QString() : app.copiedText,
                                   app.copiedAttributes, onList);
}

bool DropOn(DocumentWindow& window, TreeNode node, bool onList) {
    DocumentWindow* source = window.app.dragSource;
    const TreeNode target = Container(node);
    if (!source || !target || IsDragged(*source, target))
        return false;
    const bool fromTree = window.app.dragSourceView == kViewTree;
    // A document doesn't go into a part of itself, and beside the root element there is no room for nodes.
    if (fromTree &&
        (m_tvXML::IsTreeRoot(source->tvXML.SelectedItem()) || (m_tvXML::IsTreeRoot(target) && !onList)))
        return false;
    return DropNodes(window, *source, target, onList);
}

void StartDrag(DocumentWindow& window, int view) {
    window.app.dragSource = &window;
    window.app.dragSourceView = view;
}

} // namespace

// --- a drag begins -----------------------------------------------------------------------------------------

// Only a leaf may have no text form, so this makes no text of a large part of the document.
void tvXML_StartDrag(DocumentWindow& window, bool& cancel) {
    const TreeNode node = window.tvXML.SelectedItem();
    cancel = !node || m_tvXML::IsTreeRoot(node) ||
             (m_tvXML::GetKeyType(node) != kRowElement && DraggedText(window, kViewTree).isEmpty());
    if (!cancel)
        StartDrag(window, kViewTree);
}

void ListView1_StartDrag(DocumentWindow& window, bool& cancel) {
    cancel = window.ListView1.SelectedRows().empty();
    if (!cancel)
        StartDrag(window, kViewList);
}

QString DraggedText(DocumentWindow& window, int view) {
    if (view == kViewTree) {
        const TreeNode node = window.tvXML.SelectedItem();
        const QString text = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
        return m_tvXML::GetKeyType(node) == kRowText ? text : text.trimmed();
    }
    QString attributes;
    const QString nodes = GetCopiedListViewItemsXML(window, attributes);
    return nodes.isEmpty() ? attributes : nodes;
}

// --- over a control ----------------------------------------------------------------------------------------

void tvXML_DragEnter(DocumentWindow& window, bool& refuse) try {
    if (!window.bTextChanged)
        return;
    Frame* frame = window.app.frame;
    const text::LongText& text = window.TextInUse().Long();
    xml::ParsedDocument probe; // leaving a text that doesn't parse would open a box in the middle of a drag
    refuse = !frame || frame->ActiveForm() != &window || (!text.isEmpty() && !probe.loadXML(text));
    if (!refuse)
        LeaveTextView(window);
    else if (frame)
        frame->StatusBar1().SetPanel(1, probe.parseError().reason.trimmed());
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_DragEnter"));
}

TreeNode tvXML_DragOver(DocumentWindow& window, Dragged what, TreeNode node) {
    const TreeNode target = Container(node);
    const bool takes =
        what == Dragged::Text ? target && !m_tvXML::IsTreeRoot(target) : Takes(window, target, false);
    return takes ? target : TreeNode();
}

TreeNode ListView1_DragOver(DocumentWindow& window, Dragged what, int row) {
    if (what == Dragged::Text)
        return {};
    const bool element =
        row > 0 && row <= window.ListView1.Count() && window.ListView1.Item(row).SmallIcon == kRowElement;
    const TreeNode target =
        element ? window.tvXML.Nodes.Find(window.ListView1.Item(row).Key) : Container(NodeOnShow(window));
    return Takes(window, target, true) ? target : TreeNode();
}

// --- the drop ----------------------------------------------------------------------------------------------

void tvXML_DragDrop(DocumentWindow& window, TreeNode target) try {
    if (DropOn(window, target, false))
        Refresh(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_DragDrop"));
}

// A node that is dragged is the current one of its tree; in the list the user goes on where the drop was.
void ListView1_DragDrop(DocumentWindow& window, TreeNode target) try {
    const TreeNode shown = NodeOnShow(window);
    if (!DropOn(window, target, true))
        return;
    if (shown)
        window.tvXML.SetSelectedItem(shown);
    Refresh(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".ListView1_DragDrop"));
}

void tvXML_OLEDragDrop(DocumentWindow& window, const QString& text, TreeNode target) try {
    if (!target || text.isEmpty())
        return;
    switch (m_tvXML::GetSelTextType(window.app, text)) {
    case m_tvXML::kSelTextDocument:
    case m_tvXML::kSelTextFragment:
        PasteXMLText(window, text, target, false);
        break;
    case m_tvXML::kSelTextAttributes:
        if (m_tvXML::GetKeyType(target) == kRowElement)
            AddAttributes(window, target, text);
        else
            SayNothingFits(window);
        break;
    default:
        break;
    }
    DoTree(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_OLEDragDrop"));
}
