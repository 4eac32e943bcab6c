// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DragDrop.h"
#include "core/edit/CopySlot.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "core/model/Serialise.h"
#include "nodes/ListClipboard.h"
#include "nodes/PasteNodes.h"
#include "nodes/TreeClipboard.h"

namespace nodes {

DragSlot::DragSlot(Application& app) {
    app.windowClosed.connect([this](DocumentWindow& window) {
        if (dragSource == &window)
            dragSource = nullptr;
    });
}

DragSlot& LastDrag(Application& app) {
    return app.rooms.of<DragSlot>(app);
}

namespace {

using controls::Dragged;
using controls::TreeNode;

TreeNode NodeOnShow(DocumentWindow& window) {
    return window.tvXML.Nodes.Find(window.ListView1.Tag);
}

// Attributes stand behind all other rows.
bool IsAnyAttributeDragged(DocumentWindow& source) {
    const controls::ListView& list = source.ListView1;
    for (int row = list.Count(); row > 0 && list.Item(row).SmallIcon == m_tvXML::kAttribute; --row) {
        if (list.Selected(row))
            return true;
    }
    return false;
}

// A row of a node stands for the node, that of an attribute for its element.
bool IsDragged(DocumentWindow& source, TreeNode target) {
    if (LastDrag(source.app).dragSourceView == edit::kViewTree)
        return source.tvXML.SelectedItem() == target;
    const int row = source.ListView1.IndexOf(target.Key());
    return (row > 0 && source.ListView1.Selected(row)) ||
           (NodeOnShow(source) == target && IsAnyAttributeDragged(source));
}

// Nodes of a list may go under the tree root when they are dropped on the root's list.
bool Takes(DocumentWindow& window, TreeNode target, bool onList) {
    DocumentWindow* source = LastDrag(window.app).dragSource;
    if (!target || !source || IsDragged(*source, target))
        return false;
    const bool fromList = LastDrag(window.app).dragSourceView == edit::kViewList;
    return !m_tvXML::IsTreeRoot(target) || (onList && !(fromList && IsAnyAttributeDragged(*source)));
}

// What is dropped goes through the clipboard, as if it had been copied and pasted. Whether it was added.
bool DropNodes(DocumentWindow& window, DocumentWindow& source, TreeNode target, bool onList) {
    const bool fromTree = LastDrag(window.app).dragSourceView == edit::kViewTree;
    if (!(fromTree ? CopyTreeNode(source) : CopyListViewItems(source)))
        return false;
    const edit::CopySlot& copy = edit::LastCopy(window.app);
    const bool rowsOfAttributes = copy.copiedText == copy.copiedAttributes;
    return PasteNodesAndAttributes(window, target, rowsOfAttributes ? QString() : copy.copiedText,
                                   copy.copiedAttributes, onList);
}

bool DropOn(DocumentWindow& window, TreeNode node, bool onList) {
    DocumentWindow* source = LastDrag(window.app).dragSource;
    const TreeNode target = Container(node);
    if (!source || !target || IsDragged(*source, target))
        return false;
    const bool fromTree = LastDrag(window.app).dragSourceView == edit::kViewTree;
    // A document doesn't go into a part of itself, and beside the root element there is no room for nodes.
    if (fromTree &&
        (m_tvXML::IsTreeRoot(source->tvXML.SelectedItem()) || (m_tvXML::IsTreeRoot(target) && !onList)))
        return false;
    return DropNodes(window, *source, target, onList);
}

void StartDrag(DocumentWindow& window, int view) {
    DragSlot& drag = LastDrag(window.app);
    drag.dragSource = &window;
    drag.dragSourceView = view;
}

} // namespace

// --- a drag begins -----------------------------------------------------------------------------------------

// Only a leaf may have no text form, so this makes no text of a large part of the document.
void tvXML_StartDrag(DocumentWindow& window, bool& cancel) {
    const TreeNode node = window.tvXML.SelectedItem();
    cancel =
        !node || m_tvXML::IsTreeRoot(node) ||
        (m_tvXML::GetKeyType(node) != m_tvXML::kElement && DraggedText(window, edit::kViewTree).isEmpty());
    if (!cancel)
        StartDrag(window, edit::kViewTree);
}

void ListView1_StartDrag(DocumentWindow& window, bool& cancel) {
    cancel = window.ListView1.SelectedRows().empty();
    if (!cancel)
        StartDrag(window, edit::kViewList);
}

QString DraggedText(DocumentWindow& window, int view) {
    if (view == edit::kViewTree) {
        const TreeNode node = window.tvXML.SelectedItem();
        const QString text = m_tvXML::GetTreeNodesXML(node, QStringLiteral("\t"));
        return m_tvXML::GetKeyType(node) == m_tvXML::kText ? text : text.trimmed();
    }
    return GetCopiedListViewItemsXML(window).text();
}

// --- over a control ----------------------------------------------------------------------------------------

// Reading a text that doesn't parse would open a box in the middle of a drag.
void tvXML_DragEnter(DocumentWindow& window, bool& refuse) {
    if (!window.bond.bTextChanged())
        return;
    edit::Run(window, "tvXML_DragEnter", [&] {
        const mXMLEdit::Parsed parsed = mXMLEdit::Parse(window.app, window.TextInUse().Long());
        const std::optional<xml::ParseError> error = parsed.error();
        refuse = error || window.app.frame().ActiveForm() != &window;
        if (!refuse)
            window.way->read(window);
        else
            edit::Message(window.app, error ? error->reason.trimmed() : QString());
    });
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
    const bool element = row > 0 && row <= window.ListView1.Count() &&
                         window.ListView1.Item(row).SmallIcon == m_tvXML::kElement;
    const TreeNode target =
        element ? window.tvXML.Nodes.Find(window.ListView1.Item(row).Key) : Container(NodeOnShow(window));
    return Takes(window, target, true) ? target : TreeNode();
}

// --- the drop ----------------------------------------------------------------------------------------------

void tvXML_DragDrop(DocumentWindow& window, TreeNode target) {
    edit::Run(window, "tvXML_DragDrop", [&] { DropOn(window, target, false); });
}

// A node that is dragged is the current one of its tree; in the list the user goes on where the drop was.
void ListView1_DragDrop(DocumentWindow& window, TreeNode target) {
    edit::Run(window, "ListView1_DragDrop", [&] {
        const TreeNode shown = NodeOnShow(window);
        DropOn(window, target, true);
        if (shown)
            window.tvXML.SetSelectedItem(shown);
    });
}

void tvXML_OLEDragDrop(DocumentWindow& window, const QString& text, TreeNode target) {
    if (!target || text.isEmpty())
        return;
    edit::Run(window, "tvXML_OLEDragDrop", [&] {
        switch (edit::GetSelTextType(window.app, text)) {
        case edit::kSelTextDocument:
        case edit::kSelTextFragment:
            PasteXMLText(window, text, target, false);
            break;
        case edit::kSelTextAttributes:
            if (m_tvXML::IsElement(target))
                AddAttributes(window, target, text);
            else
                SayNothingFits(window);
            break;
        default:
            break;
        }
    });
}

} // namespace nodes
