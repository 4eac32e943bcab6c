// SPDX-License-Identifier: GPL-3.0-or-later
// What answers to the menu entries and the toolbar buttons: a command takes one line of a table here.
#include "shell/Commands.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Views.h"
#include "shell/frmMDIMain.h"

namespace {

/// `index` is the entry's number in an array of entries with one name, else 0.
using Run = void (*)(frmMDIMain& frame, int index);

/// A handler of the frame.
template <auto Handler> void OnFrame(frmMDIMain& frame, int) {
    (frame.*Handler)();
}

/// A routine for the active window; nothing happens without one.
template <auto Routine> void OnWindow(frmMDIMain& frame, int) {
    if (DocumentWindow* window = frame.ActiveForm())
        Routine(*window);
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

void GoToParentNode(DocumentWindow& window) {
    const controls::TreeNode node = window.tvXML.SelectedItem();
    if (!node || m_tvXML::IsTreeRoot(node))
        return;
    node.Parent().SetSelected(true);
    DoTree(window);
}

void mnuHelpAbout_Click(frmMDIMain& frame, int) {
    frame.MessageBox(QStringLiteral("Vantrel\r\nVersion 2.0\r\nOrvane\r\n\r\n"
                                    "This program is free software under the GNU General Public License,\r\n"
                                    "version 3 or later. It comes with no warranty."),
                     QStringLiteral("关于Vantrel"));
}

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
    {"tbListEdit", "uponelevel", OnWindow<GoToParentNode>},
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
std::function<void()> Handler(frmMDIMain& frame, Run run, int index, const QString& name) {
    return [&frame, run, index, name] {
        try {
            run(frame, index);
        } catch (const text::Fault& fault) {
            frame.ErrorReportBox(fault, QStringLiteral("frmMDIMain@") + name);
        }
    };
}

} // namespace

void ConnectCommands(frmMDIMain& frame) {
    for (const MenuCommand& command : kMenuCommands) {
        const QString name = QLatin1String(command.name);
        for (controls::MenuItem* item : frame.MenuEntries()) {
            if (item->Name != name)
                continue;
            item->HasCommand = true;
            item->Click.connect(Handler(frame, command.run, item->Index, name + QStringLiteral("_Click")));
        }
    }
    for (const ButtonCommand& command : kButtonCommands) {
        const QString toolbar = QLatin1String(command.toolbar);
        controls::ToolButton& button = frame.ToolbarByName(toolbar).Button(QLatin1String(command.key));
        button.HasCommand = true;
        if (command.run)
            button.Click.connect(Handler(frame, command.run, 0, toolbar + QStringLiteral("_ButtonClick")));
        else
            button.ButtonMenuClick.connect([&frame](const QString& key) { SetListViewStyle(frame, key); });
    }
}
