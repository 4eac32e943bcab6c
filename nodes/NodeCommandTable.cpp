// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/NodeCommandTable.h"
#include "nodes/AddNodes.h"
#include "nodes/DeleteNodes.h"
#include "nodes/ListAdd.h"
#include "nodes/ListClipboard.h"
#include "nodes/ListCommands.h"
#include "nodes/ListEditor.h"
#include "nodes/ListNames.h"
#include "nodes/ListRows.h"
#include "nodes/MoveNodes.h"
#include "nodes/MoveUpDown.h"
#include "nodes/RenameNodes.h"
#include "nodes/TreeClipboard.h"

namespace nodes {

namespace {

using edit::Target;

// --- what the kind of a node allows ------------------------------------------------------------------------

bool IsLeaf(const Target& target) {
    return target.kind == m_tvXML::kText || target.kind == m_tvXML::kComment ||
           target.kind == m_tvXML::kInstruction;
}
/// A document has one root element.
bool IsFull(const Target& target) {
    return target.atRootLevel && target.hasRootElement;
}
bool HasName(const Target& target) {
    return !IsLeaf(target) && !target.keepsLabel;
}
bool TakesChildren(const Target& target) {
    return !IsLeaf(target);
}
/// At the level of the root element the menu bar holds attributes and text back, which the context menu
/// offers.
bool TakesChildrenBelowRoot(const Target& target) {
    return !IsLeaf(target) && !IsFull(target);
}
bool TakesSiblings(const Target& target) {
    const bool never = target.kind == m_tvXML::kElement || target.kind == m_tvXML::kInstruction;
    return !IsFull(target) && !(never && target.atRootLevel);
}
// In the compact view the instance is edited: its elements, their attributes and texts.
bool HasInstanceName(const Target& target) {
    return target.instance == m_tvXML::kElement || target.instance == m_tvXML::kAttribute;
}
bool HasInstance(const Target& target) {
    return target.hasInstance;
}
bool HasInstanceNode(const Target& target) {
    return target.instance != m_tvXML::kTreeRoot;
}
/// Without a node the instance's root is what is added.
bool TakesInstanceChild(const Target& target) {
    return target.instance != m_tvXML::kText;
}
bool HasLevelAbove(const Target& target) {
    return target.hasLevelAbove;
}
bool ShowsList(const Target& target) {
    return target.view == edit::kViewTree || target.view == edit::kViewList;
}

// --- the routines without their options -------------------------------------------------------------------

void NewTreeNode(DocumentWindow& window) {
    AddNewTreeNode(window);
}
void NewTreeSubNode(DocumentWindow& window) {
    AddNewTreeSubNode(window);
}
// Into an element that is selected (quirk 57).
void NewTreeNodeText(DocumentWindow& window) {
    AddNewTreeNodeText(window, false, m_tvXML::IsElement(window.tvXML.SelectedItem()));
}
void NewTreeCommentNode(DocumentWindow& window) {
    AddNewTreeCommentNode(window);
}
void CopyNode(DocumentWindow& window) {
    CopyTreeNode(window);
}
void CopyRows(DocumentWindow& window) {
    CopyListViewItems(window);
}
void DeleteNode(DocumentWindow& window) {
    DeleteTreeNode(window);
}
template <int style> void ShowAs(DocumentWindow& window) {
    SetListViewStyle(window, style);
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
    if (list.SelectedItem() == 0 && edit::Shows(window, edit::kListTab)) {
        const bool leaf = !m_tvXML::IsElement(window.tvXML.SelectedItem());
        if (const int row = leaf ? 1 : FindAnyAttributeItem(window); row > 0 && row <= list.Count())
            list.SetSelectedItem(row);
    }
    EditListViewAttribute(window);
}

// --- in a cell --------------------------------------------------------------------------------------------

bool CopyInCell(DocumentWindow& window, controls::TextBox& cell) {
    if (cell.SelLength() > 0)
        window.app.services.clipboard.SetText(cell.Text().mid(cell.SelStart(), cell.SelLength()));
    return true;
}
/// Without marked letters the row is meant.
bool DeleteInCell(DocumentWindow&, controls::TextBox& cell) {
    const bool marked = cell.SelLength() > 0;
    if (marked)
        cell.SetSelText({});
    return marked;
}
bool CutInCell(DocumentWindow& window, controls::TextBox& cell) {
    CopyInCell(window, cell);
    DeleteInCell(window, cell);
    return true;
}
bool PasteInCell(DocumentWindow& window, controls::TextBox& cell) {
    const QString text = window.app.services.clipboard.GetText();
    if (!text.isEmpty())
        cell.SetSelText(text);
    return true;
}

// --- the commands ----------------------------------------------------------------------------------------

// Elements, texts and comments that are added from the table go beside the current node of the tree.
constexpr edit::Command kCommands[] = {
    // clang-format off
    //                               none tree   list   text   table  other
    //                                   root node sel none sel none sel none  (a schema's root)
    {.offer = {.entries = {{"mnuNewNode", TakesSiblings}, {"mnuNewNodeP", TakesSiblings}},
               .button = {"tbListEdit", "newelement"},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{kContextTree, NewTreeNode}, {kContextList, AddNewListViewNode},
               {kContextTable, NewTreeNode}}},
    {.offer = {.entries = {{.name = "mnuNewCNode", .allowed = TakesChildren, .inCompact = TakesInstanceChild},
                           {.name = "mnuNewCNodeP", .allowed = TakesChildren, .inCompact = TakesInstanceChild}},
               .button = {"tbListEdit", "newelement"}, // where it can't stand beside the current node
               .offered =           "D  h k  k k  D D  D D  D  D"},
     .forms = {{kContextTree, NewTreeSubNode}, {kContextList, AddNewListViewChildNode},
               {kContextTable, NewTreeSubNode}}},
    {.offer = {.entries = {{.name = "mnuNewNodeText", .allowed = TakesChildrenBelowRoot, .inCompact = HasInstance},
                           {.name = "mnuNewNodeTextP", .allowed = TakesChildren, .inCompact = HasInstance}},
               .button = {"tbListEdit", "newtext", nullptr, TakesChildren},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{kContextTree, NewTreeNodeText}, {kContextList, AddNewListViewNodeText},
               {kContextTable, NewTreeNodeText}}},
    {.offer = {.entries = {{"mnuNewComment"}, {"mnuNewCommentP"}},
               .button = {"tbListEdit", "newcomment"},
               .offered =           "D  E -  E E  D D  D D  D  D"},
     .forms = {{kContextTree, NewTreeCommentNode}, {kContextList, AddNewListViewCommentNode},
               {kContextTable, NewTreeCommentNode}}},
    {.offer = {.entries = {{.name = "mnuNewAttr", .allowed = TakesChildrenBelowRoot, .inCompact = HasInstance},
                           {.name = "mnuNewAttrP", .allowed = TakesChildren, .inCompact = HasInstance}},
               .button = {"tbListEdit", "newattribute", nullptr, TakesChildren},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{kContextTree, NewAttribute}, {kContextList, AddNewListViewAttribute}}},

    {.offer = {.entries = {{.name = "mnuEditName", .allowed = HasName, .inCompact = HasInstanceName}, {"mnuEditP", HasName}},
               .offered =           "D  E k  k D  D D  - -  D"},
     .forms = {{kContextTree, EditTreeNode}, {kContextList, EditListViewItemName}}},
    {.offer = {.entries = {{.name = "mnuEditValue", .inCompact = HasInstanceName},
                           {.name = "mnuEditAttrP", .inCompact = HasInstanceName}},
               .offered =           "D  D -  - -  D D  - -  D"},
     .forms = {{kContextTree, EditValueOfNode}, {kContextList, EditListViewAttribute}}},

    {.offer = {.entries = {{.name = "mnuEditCopy", .inCompact = HasInstanceNode},
                           {.name = "mnuCopyP", .inCompact = HasInstanceNode}},
               .button = {"tbCommonEdit", "copy"},
               .offered =           "D  D -  E D  E D  E D  D"},
     .forms = {{kContextTree, CopyNode}, {kContextList, CopyRows}},
     .inCell = CopyInCell},
    {.offer = {.entries = {{.name = "mnuEditCut", .inCompact = HasInstanceName},
                           {.name = "mnuCutP", .inCompact = HasInstanceName}},
               .button = {"tbCommonEdit", "cut"},
               .offered =           "D  D -  E D  E D  E D  D"},
     .forms = {{kContextTree, CutTreeNode}, {kContextList, CutListViewItems}},
     .inCell = CutInCell},
    {.offer = {.entries = {{"mnuEditPaste"}, {"mnuPasteP"}},
               .button = {"tbCommonEdit", "paste"},
               .offered =           "D  c c  c c  c c  c c  D  D"},
     .forms = {{kContextTree, PasteTreeNode}, {kContextList, PasteListViewItems}},
     .inCell = PasteInCell},
    {.offer = {.entries = {{.name = "mnuDelete", .inCompact = HasInstanceName},
                           {.name = "mnuDeleteP", .inCompact = HasInstanceName}},
               .button = {"tbCommonEdit", "delete"},
               .offered =           "D  D -  - -  - -  E D  D"},
     .forms = {{kContextTree, DeleteNode}, {kContextTreeNode, DeleteNode},
               {kContextList, DeleteListViewItems}},
     .inCell = DeleteInCell},
    // A tree that has the focus has nothing to select as a whole.
    {.offer = {.entries = {{"mnuSelectAll"}},
               .offered =           "D  D D  - -  - -  - -  D"},
     .forms = {{kContextList, SelectAllAtListView}},
     .before = edit::Before::Nothing},

    {.offer = {.entries = {{"mnuMoveUP"}},
               .button = {"tbListEdit", "moveup"},
               .offered =           "D  - -  - -  - -  - -  D"},
     .forms = {{0, MoveUp}}},
    {.offer = {.entries = {{"mnuMoveDown"}},
               .button = {"tbListEdit", "movedown"},
               .offered =           "D  - -  - -  - -  - -  D"},
     .forms = {{0, MoveDown}}},
    {.offer = {.button = {"tbListEdit", "moveuplevel", nullptr, HasLevelAbove},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{0, SetNodeAsParent}, {kContextList, SetRowAsParent}}},
    {.offer = {.button = {"tbListEdit", "movedownlevel", nullptr, HasLevelAbove},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{0, SetNodeAsChild}, {kContextList, SetRowAsChild}}},
    {.offer = {.button = {"tbListEdit", "uponelevel", nullptr, HasLevelAbove},
               .offered =           "D  D k  k k  D D  D D  D"},
     .forms = {{0, GoBackToTreeUpLevel}}},

    {.offer = {.button = {"tbFileEdit", "listview", "details", ShowsList},
               .offered =           "D  k k  k k  k k  k k  k"},
     .forms = {{0, ShowAs<controls::lvwReport>}},
     .before = edit::Before::Nothing},
    {.offer = {.button = {"tbFileEdit", "listview", "icons", ShowsList},
               .offered =           "D  k k  k k  k k  k k  k"},
     .forms = {{0, ShowAs<controls::lvwIcon>}},
     .before = edit::Before::Nothing},
    {.offer = {.button = {"tbFileEdit", "listview", "list", ShowsList},
               .offered =           "D  k k  k k  k k  k k  k"},
     .forms = {{0, ShowAs<controls::lvwList>}},
     .before = edit::Before::Nothing},
    // clang-format on
};
static_assert(edit::AreComplete(kCommands));

} // namespace

std::span<const edit::Command> NodeCommands() {
    return kCommands;
}

} // namespace nodes
