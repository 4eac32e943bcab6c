// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/commands/WindowEvents.h"
#include "core/commands/DragEvents.h"
#include "core/model/Frame.h"
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Files.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/Clipboard.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListCommands.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include "nodes/TreeCommands.h"
#include "textview/TextEvents.h"
#include <QScopeGuard>

namespace {

using controls::TreeNode;

// Qt key codes that the handlers look at.
constexpr int kKeyReturn = Qt::Key_Return;
constexpr int kKeyEnter = Qt::Key_Enter;

bool IsArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_Right || key == Qt::Key_Down;
}

void ClearMessage(DocumentWindow& window) {
    if (window.app.frame)
        window.app.frame->StatusBar1().SetPanel(1, {});
}

void SetMenuSituation(DocumentWindow& window, MenuSituation situation) {
    if (window.app.frame)
        window.app.frame->SetMenuSituation(situation);
}

void tvXML_GotFocus(DocumentWindow& window) {
    window.miPopupContext = kContextTree;
    const bool root = m_tvXML::IsTreeRoot(window.tvXML.SelectedItem());
    SetMenuSituation(window, root ? MenuSituation::TreeRoot : MenuSituation::TreeNode);
}

// The editor of a label is part of the tree: the views follow when the node has its new name.
void tvXML_LostFocus(DocumentWindow& window) {
    if (!window.tvXML.LabelEditNode())
        DoTree(window);
}

void tvXML_Click(DocumentWindow& window) {
    ClearMessage(window);
    window.mbKeyNavigation = false;
    window.miPopupContext = kContextTree;
    if (window.app.frame)
        window.app.frame->SetToolBar();
    const TreeNode node = window.tvXML.SelectedItem();
    if (node && !node.TextView().isEmpty() && window.tbsXML.SelectedKey() == QStringLiteral("browserview"))
        tbsXML_Click(window);
}

// Mouse up in the tree: menus and views follow the node.
void tvXML_NodeClick(DocumentWindow& window) {
    window.miPopupContext = kContextTree;
    DoMenu(window);
    const bool changed = window.bTreeChanged;
    DoTree(window);
    if (changed && window.tbsXML.SelectedKey() == QStringLiteral("browserview"))
        tbsXML_Click(window);
}

// The root stays open.
void tvXML_Collapse(TreeNode node) {
    if (m_tvXML::IsTreeRoot(node))
        node.SetExpanded(true);
}

// A document that was emptied has no current node, and so nothing would tell the list that its rows are gone.
void tvXML_Reset(DocumentWindow& window) {
    if (!window.tvXML.SelectedItem() && window.ListView1.Tag.isEmpty())
        window.ListView1.Clear();
}

bool ShowsTab(DocumentWindow& window, const char* key) {
    return window.tbsXML.SelectedKey() == QLatin1String(key);
}

// While another view shows, the tree changes without the list: it is filled anew when it comes back.
void tbsXML_Clicked(DocumentWindow& window) {
    FinishEdits(window);
    if (ShowsTab(window, "listview"))
        window.ListView1.Tag.clear();
    tbsXML_Click(window);
}

// Enter brings a changed tree into the views that are slow to follow.
void ShowChangedTree(DocumentWindow& window) {
    if (!window.bTreeChanged)
        return;
    if (ShowsTab(window, "browserview") && window.tvXML.SelectedItem())
        tbsXML_Click(window);
    else if (ShowsTab(window, "textview"))
        DoTree(window);
}

void RunMenuCommand(DocumentWindow& window, const char* entry) {
    if (window.app.frame)
        window.app.frame->RunMenuCommand(QLatin1String(entry));
}

// Another node may be current then, which allows other commands.
void txtXPath_Enter(DocumentWindow& window) {
    SelectTreeNodeByPath(window, window.txtXPath.Text());
    if (window.app.frame)
        window.app.frame->SetFormActivatedMenu(window);
}

void tvXML_KeyUp(DocumentWindow& window, int key, int modifiers) {
    constexpr int kPause = 10; // milliseconds
    window.miPopupContext = kContextTree;
    window.mbKeyNavigation = IsArrow(key);
    const bool control = (modifiers & static_cast<int>(Qt::ControlModifier)) != 0;
    if (window.mbKeyNavigation) {
        DoMenu(window); // the key has moved on since it went down
        DoTree(window);
    } else if (key == Qt::Key_Delete) {
        RunMenuCommand(window, "mnuDeleteP");
    } else if (control && key == Qt::Key_C) {
        RunMenuCommand(window, "mnuCopyP");
    } else if (control && key == Qt::Key_X) {
        RunMenuCommand(window, "mnuCutP");
    } else if (control && key == Qt::Key_V) {
        RunMenuCommand(window, "mnuPasteP");
    } else if (key == kKeyReturn || key == kKeyEnter) {
        ShowChangedTree(window);
    }
    mXMLEdit::Delay(window.app, kPause);
}

// The node has its new name: text, list and page follow at once.
void tvXML_LabelEdited(DocumentWindow& window) {
    if (ShowsTab(window, "browserview"))
        ShowChangedTree(window);
    DoTree(window);
}

void BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    if (!window.kind.renamesNodes && !m_tvXML::IsTreeRoot(window.tvXML.SelectedItem()))
        cancel = true;
    tvXML_BeforeLabelEdit(window, cancel);
}

// The complaint is about what the end of the edit will ask. That says nothing to a name that is still empty,
// and the root's isn't one of XML.
void tvXML_LabelTyped(DocumentWindow& window, const QString& text) {
    const TreeNode node = window.tvXML.LabelEditNode();
    const bool asked = node && !m_tvXML::IsTreeRoot(node) && !text.isEmpty();
    m_tvXML::ComplainWhileTyping(window.app, asked ? m_tvXML::NodeNameProbe(text) : QString(), 0);
}

void ListView1_LabelTyped(DocumentWindow& window, const QString& text) {
    const int row = window.ListView1.LabelEditRow();
    QString probe;
    const bool attribute = row > 0 && window.ListView1.Item(row).SmallIcon == kRowAttribute;
    if (attribute && !text.isEmpty()) {
        const TreeNode element = window.tvXML.Nodes.Find(window.ListView1.Item(row).Tag);
        probe = element ? m_tvXML::NodeAttributeNameProbe(text, element.Text()) : QString();
    } else if (row > 0 && !text.isEmpty()) {
        probe = m_tvXML::NodeNameProbe(text);
    }
    m_tvXML::ComplainWhileTyping(window.app, probe, attribute ? 1 : 0);
}

void ConnectTree(DocumentWindow& window) {
    controls::TreeView& tree = window.tvXML;
    tree.GotFocus.connect([&window] { tvXML_GotFocus(window); });
    tree.LostFocus.connect([&window] { tvXML_LostFocus(window); });
    tree.Click.connect([&window] { tvXML_Click(window); });
    tree.NodeClick.connect([&window](TreeNode) { tvXML_NodeClick(window); });
    tree.Expand.connect([&window](TreeNode) { window.miPopupContext = kContextTree; });
    tree.Collapse.connect([](TreeNode node) { tvXML_Collapse(node); });
    tree.KeyDown.connect([&window](int, int) { DoMenu(window); });
    tree.KeyUp.connect([&window](int key, int modifiers) { tvXML_KeyUp(window, key, modifiers); });
    tree.BeforeLabelEdit.connect([&window](bool& cancel) { BeforeLabelEdit(window, cancel); });
    tree.AfterLabelEdit.connect([&window](TreeNode node, bool& cancel, QString& newString) {
        tvXMLAfterLabelEdit(window, node, cancel, newString);
    });
    tree.LabelTyped.connect([&window](const QString& text) { tvXML_LabelTyped(window, text); });
    tree.labelEditEnded.connect([&window] { ClearMessage(window); });
    tree.LabelEdited.connect([&window] { tvXML_LabelEdited(window); });
    tree.reset.connect([&window] { tvXML_Reset(window); });
}

void ListView1_Attention(DocumentWindow& window) {
    window.miPopupContext = kContextList;
    SetMenuSituation(window, window.ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected
                                                                 : MenuSituation::ListUnselected);
}

// A double click on an element's row walks down to it.
void ListView1_DblClick(DocumentWindow& window) {
    const int row = window.ListView1.SelectedItem();
    if (row == 0 || window.ListView1.Item(row).SmallIcon != 1)
        return;
    window.tvXML.SetSelectedItem(window.tvXML.Nodes.Find(window.ListView1.Item(row).Key));
    DoTree(window);
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
    if (window.app.frame)
        ShowNodePath(window, window.app.frame->StatusBar1());
    ListView1_Attention(window); // another row may be current now
    if (key == kKeyReturn || key == kKeyEnter)
        window.tvXML.SetFocus(); // and with the focus the user's attention goes to the tree
}

void ConnectList(DocumentWindow& window) {
    controls::ListView& list = window.ListView1;
    list.GotFocus.connect([&window] { ListView1_Attention(window); });
    list.Click.connect([&window] { ListView1_Attention(window); });
    list.DblClick.connect([&window] { ListView1_DblClick(window); });
    list.MouseDown.connect([&window] {
        window.miPopupContext = kContextList;
        window.mbKeyNavigation = false;
    });
    list.CellClick.connect([&window](int row, int column) {
        const controls::ListView& cells = window.ListView1;
        ShowListViewTextBox(window, cells.ColumnLeft(column) + 1, cells.ItemTop(row) + 1);
    });
    // Tab opens the editor on the current row, so it doesn't leave the list then.
    list.KeyDown.connect([&window](int& key, int modifiers) {
        if (key == Qt::Key_Tab && modifiers == 0 && window.ListView1.SelectedItem() > 0 &&
            window.ListView1.View() == controls::lvwReport)
            key = 0;
    });
    list.KeyUp.connect([&window](int key, int modifiers) { ListView1_KeyUp(window, key, modifiers); });
    list.BeforeLabelEdit.connect([&window](bool& cancel) { ListView1_BeforeLabelEdit(window, cancel); });
    list.LabelTyped.connect([&window](const QString& text) { ListView1_LabelTyped(window, text); });
    list.labelEditEnded.connect([&window] { ClearMessage(window); });
    list.AfterLabelEdit.connect([&window](int row, bool& cancel, QString& newString) {
        ListView1_AfterLabelEdit(window, row, cancel, newString);
    });
    controls::TextBox& editor = window.txtListView;
    editor.KeyDown.connect(
        [&window](int& key, int modifiers) { txtListView_KeyDown(window, key, modifiers); });
    editor.Change.connect([&window] { txtListView_Change(window); });
    editor.GotFocus.connect([&window] { txtListView_GotFocus(window); });
    editor.LostFocus.connect([&window] { txtListView_LostFocus(window); });
    window.tmList.Tick.connect([&window] { tmList_Timer(window); });
    window.cmdPop.Click.connect([&window] { RunMenuCommand(window, "mnuEditPopupEditNode"); });
}

void Pane_GotFocus(DocumentWindow& window, bool second) {
    window.brtxtXML2Focus = second;
    window.miPopupContext = kContextText;
    // What is typed now is read back into the tree: nothing of it may wait any longer for a text to be
    // filled.
    const bool naming = window.tvXML.LabelEditNode() || window.ListView1.LabelEditRow() > 0;
    if (window.bTreeChanged && !naming)
        TreeChangeTextView(window, true);
    SetMenuSituation(window, window.TextInUse().SelLength() > 0 ? MenuSituation::TextSelected
                                                                : MenuSituation::TextUnselected);
}

void ConnectPane(DocumentWindow& window, controls::RichTextBox& pane, bool second) {
    pane.BeforeChange.connect([&window, second] { PaneBeforeChange(window, second); });
    pane.Change.connect([&window, second] { PaneChange(window, second); });
    pane.GotFocus.connect([&window, second] { Pane_GotFocus(window, second); });
    pane.LostFocus.connect([&window, second] {
        if (window.brtxtXML2Focus == second)
            LeaveTextView(window);
    });
    pane.KeyDown.connect(
        [&window, second](int& key, int modifiers) { PaneKeyDown(window, second, key, modifiers); });
    pane.KeyPress.connect([&window, second](const QString& text) { PaneKeyPress(window, second, text); });
    pane.KeyUp.connect(
        [&window, second](int key, int modifiers) { PaneKeyUp(window, second, key, modifiers); });
    pane.DragOver.connect([&window, second](double x, double y) { PaneDragOver(window, second, x, y); });
    pane.MouseUp.connect([&window, second] { PaneMouseUp(window, second); });
    pane.SelChange.connect(
        [&window, second](bool wasSelected) { PaneSelChange(window, second, wasSelected); });
    pane.Pasted.connect(
        [&window, second](qsizetype start, qsizetype length) { PanePasted(window, second, start, length); });
    pane.Click.connect([&window, second] { PaneClick(window, second); });
}

} // namespace

void Form_Load(DocumentWindow& window) {
    window.txtListView.SetVisible(false);
    window.cmdPop.SetVisible(false);
    const Options& options = window.app.options;
    window.rtxtXML.SetFont(options.TextName, options.TextSize);
    window.rtxtXML2.SetFont(options.TextName, options.TextSize);
    window.ListView1.ColumnHeaders = {QStringLiteral("Name"),
                                      QStringLiteral("Node Attributes / Attribute Value"),
                                      QStringLiteral("Node Text")};
    window.pctSplitText.SetVisible(false);
    window.chtAna.SetVisible(false);
    window.pctLHSplit.SetVisible(false);
    ConnectTree(window);
    ConnectList(window);
    ConnectDragging(window);
    ConnectPane(window, window.rtxtXML, false);
    ConnectPane(window, window.rtxtXML2, true);
    window.tbsXML.Click.connect([&window] { tbsXML_Clicked(window); });
    window.txtXPath.KeyUp.connect([&window](int key, int) {
        if (key == kKeyReturn || key == kKeyEnter)
            txtXPath_Enter(window);
    });
}

void Form_Activate(DocumentWindow& window) {
    Application& app = window.app;
    if (app.frame)
        app.frame->SetFormActivatedMenu(window);
    SetVSplitPosition(window, window.msngVSplit);
    if (app.frame)
        app.frame->SetToolBar();
    ExpandRoot(window);
    if (window.tvXML.Nodes.Count() > 0) {
        app.CurrentFileName = window.tvXML.Nodes(1).Text();
        window.SetCaption(app.CurrentFileName);
    }
    if (app.frame)
        app.frame->cmbAddress().SetText(mXMLEdit::IsLocalPath(window.Caption) ? window.Caption : QString());
}

void Form_Unload(DocumentWindow& window, bool& cancel) {
    Application& app = window.app;
    window.bUnloading = true;
    // Where saving breaks off, the window stays, and can be closed again.
    auto brokenOff = qScopeGuard([&window] { window.bUnloading = window.bCancelSave = false; });
    if (app.frame && app.frame->FormCount() <= 1)
        app.frame->SetMenuSituation(MenuSituation::NoForm);
    FinishEdits(window);
    SaveXMLFile(window, false, false);
    if (window.bCancelSave) {
        cancel = true;
        if (app.frame) // the window stays, and so does its menu
            app.frame->SetFormActivatedMenu(window);
        return;
    }
    brokenOff.dismiss();
    if (app.frame) {
        app.frame->cmbAddress().SetText(app.CurrentFileName);
        if (mXMLEdit::GetAddressType(window.Caption) > 0) {
            app.frame->UpdateFileMenu(window.Caption);
            app.frame->AddToList(window.Caption);
        }
    }
    if (!window.msTempFile.isEmpty())
        mXMLEdit::DeleteFileIfExists(app, window.msTempFile);
}
