// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/NodeCommands.h"
#include "core/sync/Views.h"
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
};

template <const Forms& forms> void ByContext(DocumentWindow& window) {
    Routine routine = nullptr;
    switch (window.miPopupContext) {
    case kContextTree:
    case kContextTreeNode:
        routine = forms.tree;
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
void DeleteInTree(DocumentWindow& window) {
    DeleteTreeNode(window);
    DoTree(window);
}

// --- the commands
// -------------------------------------------------------------------------------------------

// Elements, texts and comments that are added from the table go beside the current node of the tree.
constexpr Forms kNewNode{.tree = NewTreeNode, .table = NewTreeNode};
constexpr Forms kNewChild{.tree = NewTreeSubNode, .table = NewTreeSubNode};
constexpr Forms kNewText{.tree = NewTreeNodeText, .table = NewTreeNodeText};
constexpr Forms kNewComment{.tree = NewTreeCommentNode, .table = NewTreeCommentNode};
constexpr Forms kDelete{.tree = DeleteInTree};
constexpr Forms kRename{.tree = EditTreeNode};

constexpr NodeCommand kCommands[] = {
    {{"mnuNewNode", "mnuNewNodeP"}, nullptr, nullptr, ByContext<kNewNode>},
    {{"mnuNewCNode", "mnuNewCNodeP"}, nullptr, nullptr, ByContext<kNewChild>},
    {{"mnuNewNodeText", "mnuNewNodeTextP"}, "tbListEdit", "newtext", ByContext<kNewText>},
    {{"mnuNewComment", "mnuNewCommentP"}, "tbListEdit", "newcomment", ByContext<kNewComment>},
    {{"mnuDelete", "mnuDeleteP"}, "tbCommonEdit", "delete", ByContext<kDelete>},
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
