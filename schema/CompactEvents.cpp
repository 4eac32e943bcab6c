// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactEvents.h"
#include "core/edit/Transaction.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "schema/CompactCells.h"
#include "schema/CompactEdits.h"
#include "schema/CompactLabels.h"
#include "schema/CompactList.h"
#include "schema/CompactNavigation.h"
#include "schema/CompactState.h"
#include <Qt>

namespace schema {

namespace {

using controls::TreeNode;

// The menus depend on what is selected, too.
void Attend(DocumentWindow& window, bool list) {
    CompactState& state = CompactOf(window);
    if (!list && state.lvRes.SelectedItem() > 0)
        SelectResultRow(window, 0); // a marked row would look like what the next key is for
    state.listInUse = list;
    state.segmentInUse = false;
    state.miCVPopupContext = SelectedInInstance(window) == m_tvXML::kTreeRoot ? 0 : list ? 2 : 1;
    edit::Attend(window, kContextCompact);
    window.app.frame().RefreshMenu();
}

void tvRes_Selected(DocumentWindow& window) {
    edit::Run(window, "tvRes_MouseUp", [&] {
        Attend(window, false);
        NavToRelatedMainTreeNode(window);
    });
}

void lvRes_Selected(DocumentWindow& window) {
    edit::Run(window, "lvRes_MouseUp", [&] {
        Attend(window, true);
        NavToRelatedMainTreeAttrNode(window);
    });
}

// A child's row leads down to the child, any other one opens its value.
void lvRes_DblClick(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    const controls::ListItem row = CurrentRow(window);
    TreeNode child = state.tvRes.Nodes.Find(row.Key);
    if (row.SmallIcon != m_tvXML::kElement || !child)
        return EditValueAtCompactView(window);
    child.EnsureVisible();
    state.tvRes.SetSelectedItem(child);
    state.tvRes.SetFocus();
    tvRes_Selected(window);
}

/// The menu entry whose command a key stands for; null for none.
const char* EntryOf(int key, int modifiers) {
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    if (key == Qt::Key_Delete)
        return "mnuDeleteP";
    if (control && key == Qt::Key_C)
        return "mnuCopyP";
    return control && key == Qt::Key_X ? "mnuCutP" : nullptr;
}

bool RunsCommand(DocumentWindow& window, int key, int modifiers) {
    const char* const entry = EntryOf(key, modifiers);
    if (entry)
        window.app.frame().RunMenuCommand(QLatin1String(entry));
    return entry != nullptr;
}

void lvRes_KeyUp(DocumentWindow& window, int key, int modifiers) {
    edit::Attend(window, kContextCompact);
    if (RunsCommand(window, key, modifiers))
        return;
    if (key == Qt::Key_Tab || key == Qt::Key_Right)
        EditValueAtCompactView(window);
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        CompactOf(window).tvRes.SetFocus();
    else
        lvRes_Selected(window);
}

void ConnectTree(DocumentWindow& window) {
    controls::TreeView& tree = CompactOf(window).tvRes;
    tree.GotFocus.connect([&window] { Attend(window, false); });
    tree.NodeClick.connect([&window](TreeNode) { tvRes_Selected(window); });
    tree.Click.connect([&window] { Attend(window, false); });
    tree.KeyUp.connect([&window](int key, int modifiers) {
        edit::Attend(window, kContextCompact);
        RunsCommand(window, key, modifiers);
    });
}

void ConnectList(DocumentWindow& window) {
    controls::ListView& list = CompactOf(window).lvRes;
    list.GotFocus.connect([&window] { Attend(window, true); });
    list.Click.connect([&window] { lvRes_Selected(window); });
    list.DblClick.connect([&window] { lvRes_DblClick(window); });
    list.CellClick.connect(
        [&window](int row, int column) { OpenResultCell(window, row, column > 2 ? 2 : 1); });
    list.KeyDown.connect([&list](int& key, int modifiers) {
        if (key == Qt::Key_Tab && modifiers == 0 && list.SelectedItem() > 0)
            key = 0; // it opens the row's value, and doesn't leave the list
    });
    list.KeyUp.connect([&window](int key, int modifiers) { lvRes_KeyUp(window, key, modifiers); });
    controls::TextBox& cell = CompactOf(window).txtResLv;
    cell.KeyDown.connect([&window](int& key, int modifiers) { txtResLv_KeyDown(window, key, modifiers); });
    cell.GotFocus.connect([&window] { Attend(window, true); });
    cell.LostFocus.connect([&window] { txtResLv_LostFocus(window); });
}

} // namespace

void ConnectCompactView(DocumentWindow& window) {
    ConnectTree(window);
    ConnectList(window);
    ConnectCompactLabels(window);
    CompactOf(window).rtxtSeg.GotFocus.connect([&window] {
        Attend(window, CompactOf(window).listInUse);
        CompactOf(window).segmentInUse = true;
    });
}

} // namespace schema
