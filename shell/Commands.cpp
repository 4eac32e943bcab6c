// SPDX-License-Identifier: GPL-3.0-or-later
// What answers to the menu entries and the toolbar buttons: a command takes one line of a table here.
#include "shell/Commands.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/EditNode.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListCommands.h"
#include "shell/NodeCommands.h"
#include "shell/frmMDIMain.h"
#include "textview/TextCommands.h"
#include "textview/Undo.h"

namespace {

/// `index` is the entry's number in an array of entries with one name, else 0.
using Run = void (*)(frmMDIMain& frame, int index);

/// A handler of the frame.
template <auto Handler> void OnFrame(frmMDIMain& frame, int) {
    (frame.*Handler)();
}

/// A routine for the active window; nothing happens without one.
template <auto Routine> void OnWindow(frmMDIMain& frame, int) {
    if (DocumentWindow* window = frame.ActiveForm()) {
        Routine(*window);
        frame.RefreshMenu();
    }
}

/// The tab with a key, where the window has it.
void ShowView(frmMDIMain& frame, const QString& key) {
    DocumentWindow* window = frame.ActiveForm();
    if (!window)
        return;
    for (const auto& tab : window->tbsXML.Tabs())
        if (tab.Key == key)
            return window->tbsXML.Select(key);
}

void mnuHelpAbout_Click(frmMDIMain& frame, int) {
    frame.MessageBox(QStringLiteral("Vantrel\r\nVersion 2.0\r\nOrvane\r\n\r\n"
                                    "This program is free software under the GNU General Public License,\r\n"
                                    "version 3 or later. It comes with no warranty."),
                     QStringLiteral("关于Vantrel"));
}

/// A new element stands beside the current node, or below it where it can't stand beside.
void NewElement(frmMDIMain& frame, int) {
    const bool beside = frame.Menu(QStringLiteral("mnuNewNode")).Enabled();
    frame.RunMenuCommand(beside ? QStringLiteral("mnuNewNode") : QStringLiteral("mnuNewCNode"));
}

void ValidateText(DocumentWindow& window) {
    bool result = false;
    Validate(window, false, result);
}

/// A step of the history builds the tree anew: what is being typed in a cell or a label goes in before.
template <auto Step> void TakeStep(DocumentWindow& window) {
    FinishEdits(window);
    if (window.bTreeChanged)
        TreeChangeTextView(window, true);
    Step(window);
    if (window.tbsXML.SelectedKey() == QStringLiteral("listview"))
        DoTree(window); // its rows were those of the old tree
}

/// Everything of the view that has the user's attention.
void SelectAll(DocumentWindow& window) {
    if (window.miPopupContext == kContextList)
        SelectAllAtListView(window);
    else if (window.miPopupContext == kContextText)
        SelectAllAtTextView(window);
}

/// An entity at the caret.
template <const char* entity> void Insert(frmMDIMain& frame, int) {
    if (DocumentWindow* window = frame.ActiveForm())
        InsertString(*window, QLatin1String(entity));
}
constexpr char kQuote[] = "&quot;", kApostrophe[] = "&apos;", kLess[] = "&lt;", kGreater[] = "&gt;",
               kAmpersand[] = "&amp;";

struct MenuCommand {
    const char* name;
    Run run;
};
constexpr MenuCommand kMenuCommands[] = {
    {"mnuFileNew", OnFrame<&frmMDIMain::mnuFileNew_Click>},
    {"mnuNewschema", OnFrame<&frmMDIMain::mnuNewschema_Click>},
    {"mnuFileOpen", OnFrame<&frmMDIMain::OpenXMLFile>},
    {"mnuFileClose", OnFrame<&frmMDIMain::mnuFileClose_Click>},
    {"mnuCloseAll", OnFrame<&frmMDIMain::mnuCloseAll_Click>},
    {"mnuFileSave", OnFrame<&frmMDIMain::mnuFileSave_Click>},
    {"mnuFileSaveAs", OnFrame<&frmMDIMain::mnuFileSaveAs_Click>},
    {"mnuFileSaveAll", OnFrame<&frmMDIMain::mnuFileSaveAll_Click>},
    {"mnuFileMRU", [](frmMDIMain& frame, int index) { frame.mnuFileMRU_Click(index); }},
    {"mnuFileExit", OnFrame<&frmMDIMain::mnuFileExit_Click>},
    {"mnuEditUndo", OnWindow<TakeStep<rUndo>>},
    {"mnuRedo", OnWindow<TakeStep<rRedo>>},
    {"mnuSelectAll", OnWindow<SelectAll>},
    {"mnuFindReplace", OnWindow<RFind>},
    {"mnuSplitEditor", OnWindow<SplitText>},
    {"mnuWinSplit", OnWindow<SplitText>},
    {"mnuXMLValidate", OnWindow<ValidateText>},
    {"mnuXMLCloseTag", OnWindow<CloseTag>},
    {"mnuViewList", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("listview")); }},
    {"mnuViewText", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("textview")); }},
    {"mnuViewAtTableV", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("tableview")); }},
    {"mnuViewWebBrowser", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("browserview")); }},
    {"mnuViewSchema", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("schema")); }},
    {"mnuViewCompact", [](frmMDIMain& frame, int) { ShowView(frame, QStringLiteral("compactview")); }},
    {"mnuWindowCascade", [](frmMDIMain& frame, int) { frame.arranged(vbCascade); }},
    {"mnuWindowTileHorizontal", [](frmMDIMain& frame, int) { frame.arranged(vbTileHorizontal); }},
    {"mnuWindowTileVertical", [](frmMDIMain& frame, int) { frame.arranged(vbTileVertical); }},
    {"mnuWindowArrangeIcons", [](frmMDIMain& frame, int) { frame.arranged(vbArrangeIcons); }},
    {"mnuEditPopupEditNode", OnFrame<&frmMDIMain::mnuEditPopupEditNode_Click>},
    {"mnuToolOptions", OnFrame<&frmMDIMain::mnuToolOptions_Click>},
    {"mnuHelpAbout", mnuHelpAbout_Click},
};

struct ButtonCommand {
    const char* toolbar;
    const char* key;
    Run run; ///< null: the button is only a drop-down
};
constexpr ButtonCommand kButtonCommands[] = {
    {"tbFileEdit", "newfile", OnFrame<&frmMDIMain::mnuFileNew_Click>},
    {"tbFileEdit", "openfile", OnFrame<&frmMDIMain::OpenXMLFile>},
    {"tbFileEdit", "savefile", OnFrame<&frmMDIMain::mnuFileSave_Click>},
    {"tbFileEdit", "listview", nullptr},
    {"tbListEdit", "newelement", NewElement},
    {"tbListEdit", "popedit", OnFrame<&frmMDIMain::mnuEditPopupEditNode_Click>},
    {"tbCommonEdit", "undo", OnWindow<TakeStep<rUndo>>},
    {"tbCommonEdit", "redo", OnWindow<TakeStep<rRedo>>},
    {"tbCommonEdit", "find", OnWindow<RFind>},
    {"tbTextEdit", "closetag", OnWindow<CloseTag>},
    {"tbTextEdit", "validate", OnWindow<ValidateText>},
    {"tbTextEdit", "quote", Insert<kQuote>},
    {"tbTextEdit", "apostraphe", Insert<kApostrophe>},
    {"tbTextEdit", "lt", Insert<kLess>},
    {"tbTextEdit", "gt", Insert<kGreater>},
    {"tbTextEdit", "amp", Insert<kAmpersand>},
    {"tbNavigate", "go", OnFrame<&frmMDIMain::cmbAddress_Click>},
    // Both show the next window: there is no history to walk.
    {"tbNavigate", "back", OnFrame<&frmMDIMain::NextWindow>},
    {"tbNavigate", "forward", OnFrame<&frmMDIMain::NextWindow>},
};

struct ListStyle {
    const char* key;
    int view;
};
constexpr ListStyle kListStyles[] = {
    {"details", controls::lvwReport}, {"icons", controls::lvwIcon}, {"list", controls::lvwList}};

void SetListViewStyle(frmMDIMain& frame, const QString& key) {
    DocumentWindow* window = frame.ActiveForm();
    if (!window)
        return;
    for (const ListStyle& style : kListStyles)
        if (key == QLatin1String(style.key))
            window->ListView1.SetView(style.view);
}

/// The command with its error exit.
template <typename Act> std::function<void()> Handler(frmMDIMain& frame, Act act, const QString& name) {
    return [&frame, act, name] {
        try {
            act();
        } catch (const text::Fault& fault) {
            frame.ErrorReportBox(fault, QStringLiteral("frmMDIMain@") + name);
        }
    };
}

/// `act` is given the entry's number in its array.
template <typename Act> void ConnectEntries(frmMDIMain& frame, const char* name, Act act) {
    for (controls::MenuItem* item : frame.MenuEntries()) {
        if (item->Name != QLatin1String(name))
            continue;
        item->HasCommand = true;
        item->Click.connect(Handler(
            frame, [act, index = item->Index] { act(index); }, item->Name + QStringLiteral("_Click")));
    }
}

template <typename Act> void ConnectButton(frmMDIMain& frame, const char* toolbar, const char* key, Act act) {
    controls::ToolButton& button = frame.ToolbarByName(QLatin1String(toolbar)).Button(QLatin1String(key));
    button.HasCommand = true;
    button.Click.connect(Handler(frame, act, QLatin1String(toolbar) + QStringLiteral("_ButtonClick")));
}

// Toolbar buttons don't take the focus, and the search and the entities change a text that hasn't got it:
// what is being typed, and a text ahead of the tree, go in before a command looks at the nodes. The tree is
// another one then: false where the node that the command was for isn't found in it again.
bool IsReadyFor(DocumentWindow& window) {
    FinishEdits(window);
    if (window.miPopupContext == kContextText || !window.bTextChanged)
        return true;
    NodeInHand chosen = GetNodeInHand(window, kContextTree);
    const NodeTrace trace = TraceOf(window, chosen);
    if (!ReadEditedText(window))
        return false;
    const bool found = window.miPopupContext != kContextList && FindNodeAgain(window, chosen, trace);
    if (found)
        SelectNodeInHand(window, chosen, kContextTree);
    else if (window.app.frame)
        window.app.frame->StatusBar1().SetPanel(
            1, QStringLiteral("The text was changed, and the node isn't there any more as it was."));
    return found;
}

void RunNodeCommand(DocumentWindow& window, const NodeCommand& command) {
    const bool label = window.tvXML.LabelEditNode() || window.ListView1.LabelEditRow() > 0;
    if (command.inCell && window.txtListView.Visible() && command.inCell(window))
        return;
    if (command.inCell && label)
        FinishEdits(window); // the letters were meant, not the node that they are the name of
    else if (IsReadyFor(window))
        command.run(window);
}

void ConnectNodeCommands(frmMDIMain& frame) {
    for (const NodeCommand& command : NodeCommands()) {
        const auto act = [&frame, &command] {
            if (DocumentWindow* window = frame.ActiveForm()) {
                RunNodeCommand(*window, command);
                frame.RefreshMenu();
            }
        };
        for (const char* entry : command.entries) {
            if (entry)
                ConnectEntries(frame, entry, [act](int) { act(); });
        }
        if (command.button)
            ConnectButton(frame, command.toolbar, command.button, act);
    }
}

} // namespace

void ConnectCommands(frmMDIMain& frame) {
    for (const MenuCommand& command : kMenuCommands)
        ConnectEntries(frame, command.name, [&frame, run = command.run](int index) { run(frame, index); });
    for (const ButtonCommand& command : kButtonCommands) {
        if (command.run) {
            ConnectButton(frame, command.toolbar, command.key,
                          [&frame, run = command.run] { run(frame, 0); });
            continue;
        }
        controls::ToolButton& button =
            frame.ToolbarByName(QLatin1String(command.toolbar)).Button(QLatin1String(command.key));
        button.HasCommand = true;
        button.ButtonMenuClick.connect([&frame](const QString& key) { SetListViewStyle(frame, key); });
    }
    ConnectNodeCommands(frame);
}

void frmMDIMain::RunMenuCommand(const QString& entry) {
    Menu(entry).Click();
}
