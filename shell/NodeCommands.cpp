// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/NodeCommands.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/ListCommands.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"

namespace {

using Routine = void (*)(DocumentWindow&);

/// One command's routines by view; null where it does nothing.
struct Forms {
    Routine tree = nullptr;
    Routine list = nullptr;
    Routine table = nullptr;
    Routine text = nullptr;
    Routine compact = nullptr;
    Routine treeNode = nullptr;
};

template <const Forms& forms> void ByContext(DocumentWindow& window) {
    Routine routine = nullptr;
    switch (window.miPopupContext) {
    case kContextTree:
        routine = forms.tree;
        break;
    case kContextTreeNode:
        routine = forms.treeNode;
        break;
    case kContextList:
        routine = forms.list;
        break;
    case kContextTable:
        routine = forms.table;
        break;
    case kContextText:
        routine = forms.text;
        break;
    case kContextCompact:
        routine = forms.compact;
        break;
    default:
        break;
    }
    if (routine)
        routine(window);
}

// --- the routines without their options -------------------------------------------------------------------

void NewTreeNode(DocumentWindow& window) {
    AddNewTreeNode(window);
}
void NewTreeSubNode(DocumentWindow& window) {
    AddNewTreeSubNode(window);
}
void NewTreeNodeText(DocumentWindow& window) {
    AddNewTreeNodeText(window);
}
void NewTreeCommentNode(DocumentWindow& window) {
    AddNewTreeCommentNode(window);
}
void DeleteSelection(DocumentWindow& window) {
    if (window.TextInUse().SelLength() > 0)
        window.TextInUse().SetSelText({});
}
// The list takes the attribute, and the keys.
void NewAttribute(DocumentWindow& window) {
    window.ListView1.SetFocus();
    AddNewListViewAttribute(window);
}
// The list shows what belongs to the node: the value of a leaf in its only row, the attributes of an element
// behind its children. A row that the user chose goes before.
void EditValueOfNode(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    if (list.SelectedItem() == 0 && window.tbsXML.SelectedKey() == QStringLiteral("listview")) {
        const bool leaf = m_tvXML::GetKeyType(window.tvXML.SelectedItem()) != kRowElement;
        if (const int row = leaf ? 1 : FindAnyAttributeItem(window); row > 0 && row <= list.Count())
            list.SetSelectedItem(row);
    }
    EditListViewAttribute(window);
}
void DeleteInTree(DocumentWindow& window) {
    DeleteTreeNode(window);
    DoTree(window);
}

// --- in a cell --------------------------------------------------------------------------------------------

bool CopyInCell(DocumentWindow& window) {
    const controls::TextBox& cell = window.txtListView;
    if (cell.SelLength() > 0)
        window.app.services.clipboard.SetText(cell.Text().mid(cell.SelStart(), cell.SelLength()));
    return true;
}
/// Without marked letters the row is meant.
bool DeleteInCell(DocumentWindow& window) {
    const bool marked = window.txtListView.SelLength() > 0;
    if (marked)
        window.txtListView.SetSelText({});
    return marked;
}
bool CutInCell(DocumentWindow& window) {
    CopyInCell(window);
    DeleteInCell(window);
    return true;
}
bool PasteInCell(DocumentWindow& window) {
    const QString text = window.app.services.clipboard.GetText();
    if (!text.isEmpty())
        window.txtListView.SetSelText(text);
    return true;
}

// --- the commands ----------------------------------------------------------------------------------------

// Elements, texts and comments that are added from the table go beside the current node of the tree.
constexpr Forms kNewNode{.tree = NewTreeNode, .list = AddNewListViewNode, .table = NewTreeNode};
constexpr Forms kNewChild{.tree = NewTreeSubNode, .list = AddNewListViewChildNode, .table = NewTreeSubNode};
constexpr Forms kNewText{.tree = NewTreeNodeText, .list = AddNewListViewNodeText, .table = NewTreeNodeText};
constexpr Forms kNewComment{
    .tree = NewTreeCommentNode, .list = AddNewListViewCommentNode, .table = NewTreeCommentNode};
constexpr Forms kNewAttribute{.tree = NewAttribute, .list = AddNewListViewAttribute};
constexpr Forms kDelete{
    .tree = DeleteInTree, .list = DeleteListViewItems, .text = DeleteSelection, .treeNode = DeleteInTree};
constexpr Forms kRename{.tree = EditTreeNode, .list = EditListViewItemName};
constexpr Forms kEditValue{.tree = EditValueOfNode, .list = EditListViewAttribute};

constexpr NodeCommand kCommands[] = {
    {{"mnuNewNode", "mnuNewNodeP"}, nullptr, nullptr, ByContext<kNewNode>},
    {{"mnuNewCNode", "mnuNewCNodeP"}, nullptr, nullptr, ByContext<kNewChild>},
    {{"mnuNewNodeText", "mnuNewNodeTextP"}, "tbListEdit", "newtext", ByContext<kNewText>},
    {{"mnuNewComment", "mnuNewCommentP"}, "tbListEdit", "newcomment", ByContext<kNewComment>},
    {{"mnuNewAttr", "mnuNewAttrP"}, "tbListEdit", "newattribute", ByContext<kNewAttribute>},
    {{"mnuEditValue", "mnuEditAttrP"}, nullptr, nullptr, ByContext<kEditValue>},
    {{"mnuEditCopy", "mnuCopyP"}, "tbCommonEdit", "copy", Copy, CopyInCell},
    {{"mnuEditCut", "mnuCutP"}, "tbCommonEdit", "cut", Cut, CutInCell},
    {{"mnuEditPaste", "mnuPasteP"}, "tbCommonEdit", "paste", Paste, PasteInCell},
    {{"mnuDelete", "mnuDeleteP"}, "tbCommonEdit", "delete", ByContext<kDelete>, DeleteInCell},
    {{"mnuEditName", "mnuEditP"}, nullptr, nullptr, ByContext<kRename>},
    {{"mnuMoveUP"}, "tbListEdit", "moveup", MoveUp},
    {{"mnuMoveDown"}, "tbListEdit", "movedown", MoveDown},
    {{}, "tbListEdit", "moveuplevel", SetNodeAsParent},
    {{}, "tbListEdit", "movedownlevel", SetNodeAsChild},
    {{}, "tbListEdit", "uponelevel", GoBackToTreeUpLevel},
};

} // namespace

std::span<const NodeCommand> NodeCommands() {
    return kCommands;
}
