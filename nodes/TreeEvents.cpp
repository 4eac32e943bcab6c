// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/TreeEvents.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Delay.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "nodes/RenameNodes.h"
#include <Qt>

namespace nodes {

namespace {

using controls::TreeNode;

// The commands are for the tree, and the views follow its current node.
void tvXML_Attention(DocumentWindow& window) {
    edit::Run(window, "DoMenu", [&] { edit::Attend(window, kContextTree); });
}

// The editor of a label is part of the tree: the views follow when the node has its new name.
void tvXML_LostFocus(DocumentWindow& window) {
    if (!window.tvXML.LabelEditNode())
        edit::Run(window, "tvXML_LostFocus", [] {});
}

void tvXML_Click(DocumentWindow& window) {
    edit::Message(window.app, {});
    tvXML_Attention(window);
    const TreeNode node = window.tvXML.SelectedItem();
    if (node && !node.TextView().isEmpty() && edit::Shows(window, edit::kBrowserTab))
        window.tbsXML.Click(); // the page is shown anew
}

// The root stays open.
void tvXML_Collapse(TreeNode node) {
    if (m_tvXML::IsTreeRoot(node))
        node.SetExpanded(true);
}

bool IsArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_Right || key == Qt::Key_Down;
}

/// The menu entry whose command a key stands for; null for none.
const char* EntryOf(int key, bool control) {
    if (key == Qt::Key_Delete)
        return "mnuDeleteP";
    if (control && key == Qt::Key_C)
        return "mnuCopyP";
    if (control && key == Qt::Key_X)
        return "mnuCutP";
    if (control && key == Qt::Key_V)
        return "mnuPasteP";
    return nullptr;
}

void tvXML_KeyUp(DocumentWindow& window, int key, int modifiers) {
    constexpr int kPause = 10; // milliseconds
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    edit::Attend(window, kContextTree);
    if (const char* entry = EntryOf(key, control))
        window.app.frame().RunMenuCommand(QLatin1String(entry));
    else if (IsArrow(key) || (enter && window.bond.bTreeChanged()))
        edit::Run(window, "tvXML_KeyUp", [] {});
    mXMLEdit::Delay(window.app, kPause);
}

void ConnectLabels(DocumentWindow& window) {
    controls::TreeView& tree = window.tvXML;
    tree.BeforeLabelEdit.connect([&window](bool& cancel) { tvXML_BeforeLabelEdit(window, cancel); });
    tree.LabelTyped.connect([&window](const QString& text) { tvXML_LabelTyped(window, text); });
    tree.AfterLabelEdit.connect([&window](TreeNode node, bool& cancel, QString& newString) {
        tvXMLAfterLabelEdit(window, node, cancel, newString);
    });
    tree.LabelEdited.connect([&window] { tvXML_LabelEdited(window); });
    tree.LabelGivenUp.connect([&window](TreeNode node) { tvXML_LabelGivenUp(window, node); });
    tree.labelEditEnded.connect([&window] { edit::Message(window.app, {}); });
}

} // namespace

void ConnectTree(DocumentWindow& window) {
    controls::TreeView& tree = window.tvXML;
    // No edits: with the focus alone no other node is current, and the caret stays where it is in the text.
    tree.GotFocus.connect([&window] { edit::Attend(window, kContextTree); });
    tree.LostFocus.connect([&window] { tvXML_LostFocus(window); });
    tree.Click.connect([&window] { tvXML_Click(window); });
    tree.NodeClick.connect([&window](TreeNode) { tvXML_Attention(window); });
    tree.Expand.connect([&window](TreeNode) { edit::Attend(window, kContextTree); });
    tree.Collapse.connect([](TreeNode node) { tvXML_Collapse(node); });
    tree.KeyDown.connect([&window](int, int) { edit::Attend(window, kContextTree); });
    tree.KeyUp.connect([&window](int key, int modifiers) { tvXML_KeyUp(window, key, modifiers); });
    ConnectLabels(window);
}

} // namespace nodes
