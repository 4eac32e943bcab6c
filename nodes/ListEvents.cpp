// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListEvents.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "nodes/ListClipboard.h"
#include "nodes/ListCommands.h"
#include "nodes/ListCommit.h"
#include "nodes/ListEditor.h"
#include "nodes/ListNames.h"
#include "nodes/ListPlace.h"
#include "nodes/ListRows.h"
#include <Qt>

namespace nodes {

namespace {

void ListView1_Attention(DocumentWindow& window, const char* routine) {
    edit::Run(window, routine, [&] { edit::Attend(window, kContextList); });
}

// A double click on an element's row walks down to it, on any other it opens the value.
void ListView1_DblClick(DocumentWindow& window) {
    if (SelectedRowKind(window) == m_tvXML::kElement)
        edit::SelectNode(window, CurrentListNode(window));
    else
        EditListViewAttribute(window);
}

void ListView1_CellClick(DocumentWindow& window, int row, int column) {
    const controls::ListView& list = window.ListView1;
    ShowListViewTextBox(window, list.ColumnLeft(column) + 1, list.ItemTop(row) + 1);
}

// Tab opens the editor on the current row, so it doesn't leave the list then.
void ListView1_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    const bool report = window.ListView1.View() == controls::lvwReport;
    if (key == Qt::Key_Tab && modifiers == 0 && window.ListView1.SelectedItem() > 0 && report)
        key = 0;
}

struct ListKey {
    int key;
    bool control;
    void (*run)(DocumentWindow&);
};
template <int view> void ShowAs(DocumentWindow& window) {
    SetListViewStyle(window, view);
}
constexpr ListKey kListKeys[] = {
    {Qt::Key_Tab, false, EditListViewAttribute},
    {Qt::Key_Right, false, EditListViewAttribute},
    {Qt::Key_C, true, [](DocumentWindow& window) { CopyListViewItems(window); }},
    {Qt::Key_V, true, PasteListViewItems},
    {Qt::Key_X, true, CutListViewItems},
    {Qt::Key_Delete, false, DeleteListViewItems},
    {Qt::Key_A, true, SelectAllAtListView},
    {Qt::Key_Q, true, ShowAs<controls::lvwReport>},
    {Qt::Key_W, true, ShowAs<controls::lvwIcon>},
    {Qt::Key_E, true, ShowAs<controls::lvwList>},
    {Qt::Key_R, true, ShowAs<controls::lvwSmallIcon>},
};

void ListView1_KeyUp(DocumentWindow& window, int key, int modifiers) {
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    for (const ListKey& one : kListKeys) {
        if (one.key == key && one.control == control)
            one.run(window);
    }
    edit::TellPathAgain(window);
    ListView1_Attention(window, "ListView1_KeyUp"); // another row may be current now
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        window.tvXML.SetFocus(); // and with the focus the user's attention goes to the tree
}

void ConnectKeysAndMouse(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    list.GotFocus.connect([&window] { ListView1_Attention(window, "ListView1_GotFocus"); });
    list.Click.connect([&window] { ListView1_Attention(window, "ListView1_Click"); });
    list.DblClick.connect([&window] { ListView1_DblClick(window); });
    list.MouseDown.connect([&window] { edit::Attend(window, kContextList); });
    list.CellClick.connect([&window](int row, int column) { ListView1_CellClick(window, row, column); });
    list.KeyDown.connect([&window](int& key, int modifiers) { ListView1_KeyDown(window, key, modifiers); });
    list.KeyUp.connect([&window](int key, int modifiers) { ListView1_KeyUp(window, key, modifiers); });
}

void ConnectLabels(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    list.BeforeLabelEdit.connect([&window](bool& cancel) { ListView1_BeforeLabelEdit(window, cancel); });
    list.LabelTyped.connect([&window](const QString& text) { ListView1_LabelTyped(window, text); });
    list.LabelEdited.connect([&window] { ListView1_LabelEdited(window); });
    list.LabelGivenUp.connect([&window](int row) { ListView1_LabelGivenUp(window, row); });
    list.LabelTabbed.connect([&window](bool back) { ListView1_LabelTabbed(window, back); });
    list.labelEditEnded.connect([&window] { edit::Message(window.app, {}); });
    list.AfterLabelEdit.connect([&window](int row, bool& cancel, QString& newString) {
        ListView1_AfterLabelEdit(window, row, cancel, newString);
    });
}

void ConnectEditor(DocumentWindow& window) {
    controls::TextBox& editor = window.txtListView;
    editor.KeyDown.connect(
        [&window](int& key, int modifiers) { txtListView_KeyDown(window, key, modifiers); });
    editor.Change.connect([&window] { txtListView_Change(window); });
    editor.GotFocus.connect([&window] { txtListView_GotFocus(window); });
    editor.LostFocus.connect([&window] { txtListView_LostFocus(window); });
    window.tmList.Tick.connect([&window] { tmList_Timer(window); });
    window.cmdPop.Click.connect(
        [&window] { window.app.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode")); });
}

} // namespace

void ConnectList(DocumentWindow& window) {
    ConnectKeysAndMouse(window);
    ConnectLabels(window);
    ConnectEditor(window);
}

} // namespace nodes
