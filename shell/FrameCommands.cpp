// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrameCommands.h"
#include "core/edit/Journal.h"
#include "core/edit/Save.h"
#include "exchange/dialogs/ExchangeDialogs.h"
#include "nodes/FinishEdits.h"
#include "shell/OpenDialog.h"
#include "window/WindowKinds.h"

namespace shell {

namespace {

using edit::In;

// --- files ------------------------------------------------------------------------------------------------

void mnuFileNew_Click(FrameParts& frame, int) {
    frame.windows.NewFile(window::XMLKind(), {}, {});
}
void mnuNewschema_Click(FrameParts& frame, int) {
    frame.windows.NewFile(window::SchemaKind(), {}, {});
}
void mnuFileOpen_Click(FrameParts& frame, int) {
    OpenXMLFile(frame.app, frame.windows);
}
void mnuFileClose_Click(FrameParts& frame, int) {
    frame.windows.CloseForm(frame.windows.ActiveForm());
}
void mnuCloseAll_Click(FrameParts& frame, int) {
    frame.windows.CloseAll();
}

template <bool saveAs> void mnuFileSave_Click(FrameParts& frame, int) {
    DocumentWindow* window = frame.windows.ActiveForm();
    if (window && nodes::FinishEdits(*window))
        edit::SaveXMLFile(*window, saveAs, false);
}
// No document is in the list of those that are saved together (quirk 10).
void mnuFileSaveAll_Click(FrameParts&, int) {}

void mnuFileMRU_Click(FrameParts& frame, int index) {
    const QString name = frame.menus.Menu(QStringLiteral("mnuFileMRU"), index).Caption();
    frame.app.CurrentFileName = name;
    if (name.isEmpty())
        return;
    frame.windows.OpenNamed(name);
    frame.recentFiles.GetRecentFiles();
}
// Unsaved changes are given up, and nothing is asked (quirk 11).
void mnuFileExit_Click(FrameParts& frame, int) {
    edit::JournalOf(frame.app).WriteAll(); // and is offered at the next start
    frame.ended();
}

// --- windows ----------------------------------------------------------------------------------------------

template <ArrangeCode code> void Arrange(FrameParts& frame, int) {
    frame.arranged(code);
}
void NextWindow(FrameParts& frame, int) {
    frame.windows.NextWindow();
}
void cmbAddress_Click(FrameParts& frame, int) {
    frame.addressBox.cmbAddress_Click();
}

void mnuViewChart_Click(FrameParts& frame, int index) {
    // The last two kinds have numbers of their own.
    constexpr int kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, controls::ch2dPie, controls::ch2dXY};
    if (DocumentWindow* window = frame.windows.ActiveForm())
        window->chtAna.SetChartType(kTypes[index]);
}

// --- dialogs ----------------------------------------------------------------------------------------------

void mnuEditPopupEditNode_Click(FrameParts& frame, int) {
    if (DocumentWindow* window = frame.windows.ActiveForm())
        frame.dialogs.ShowEditNodes(*window);
}
void mnuToolOptions_Click(FrameParts& frame, int) {
    frame.dialogs.ShowOptions();
}
void mnuTImpText_Click(FrameParts& frame, int) {
    exchange::DialogsOf(frame.app).ShowImportTxt();
}
void mnuTImpDbData_Click(FrameParts& frame, int) {
    exchange::DialogsOf(frame.app).ShowImportDB();
}
void mnuSCds_Click(FrameParts& frame, int) {
    exchange::DialogsOf(frame.app).ShowCreateDBSchema();
}
void mnuHelpAbout_Click(FrameParts& frame, int) {
    frame.app.services.prompts.MsgBox(
        QStringLiteral("Vantrel\r\nVersion 2.0\r\nOrvane\r\n\r\n"
                       "This program is free software under the GNU General Public License,\r\n"
                       "version 3 or later. It comes with no warranty."),
        services::Buttons::Ok, services::Icon::Information, QStringLiteral("关于Vantrel"));
}

// --- the commands -----------------------------------------------------------------------------------------

// clang-format off
//                             none tree   list   text   table  other
//                                 root node sel none sel none sel none
constexpr char kAlways[] =    "E  - -  - -  - -  - -  -";
constexpr char kDocument[] =  "D  - -  - -  - -  - -  D";
constexpr char kNever[] =     "D  D D  D D  D D  D D  D";
// clang-format on

constexpr FrameCommand kCommands[] = {
    {{{{"mnuFileNew"}}, {"tbFileEdit", "newfile"}, kAlways}, mnuFileNew_Click},
    {{{{"mnuNewschema"}}, {}, kAlways}, mnuNewschema_Click},
    {{{{"mnuFileOpen"}}, {"tbFileEdit", "openfile"}, kAlways}, mnuFileOpen_Click},
    {{{{"mnuFileClose"}}}, mnuFileClose_Click},
    {{{{"mnuCloseAll"}}}, mnuCloseAll_Click},
    {{{{"mnuFileSave"}}, {"tbFileEdit", "savefile"}}, mnuFileSave_Click<false>},
    {{{{"mnuFileSaveAs"}}}, mnuFileSave_Click<true>},
    {{{{"mnuFileSaveAll"}}}, mnuFileSaveAll_Click},
    {{{{"mnuFilePrint"}}, {"tbFileEdit", "print"}}},
    {{{{"mnuFileMRU"}}, {}, kAlways}, mnuFileMRU_Click},
    {{{{"mnuFileExit"}}, {}, kAlways}, mnuFileExit_Click},

    {{{{"mnuEditPopupEditNode"}}, {"tbListEdit", "popedit"}, kDocument}, mnuEditPopupEditNode_Click},

    {{{{"mnuViewChart"}}, {}, nullptr, In::XMLWindow}, mnuViewChart_Click},

    {{{{"mnuWindowCascade"}}}, Arrange<vbCascade>},
    {{{{"mnuWindowTileHorizontal"}}}, Arrange<vbTileHorizontal>},
    {{{{"mnuWindowTileVertical"}}}, Arrange<vbTileVertical>},
    {{{{"mnuWindowArrangeIcons"}}}, Arrange<vbArrangeIcons>},
    // The address alone says whether there is somewhere to go. Back and forward: quirk 14.
    {{{}, {"tbNavigate", "go"}, ""}, cmbAddress_Click},
    {{{}, {"tbNavigate", "back"}}, NextWindow},
    {{{}, {"tbNavigate", "forward"}}, NextWindow},

    {{{{"mnuToolOptions"}}, {}, kAlways}, mnuToolOptions_Click},
    {{{{"mnuHelpAbout"}}, {}, kAlways}, mnuHelpAbout_Click},

    {{{{"mnuTImpText"}}, {}, kAlways}, mnuTImpText_Click},
    {{{{"mnuTImpDbData"}}, {}, kAlways}, mnuTImpDbData_Click},
    {{{{"mnuSCds"}}, {}, kAlways}, mnuSCds_Click},

    // Menus that can be opened without a window.
    {{{{"mnuFile"}, {"mnuEdit"}, {"mnuXML"}}, {}, kAlways}},
    {{{{"mnuTool"}, {"mnuWindow"}, {"mnuHelp"}}, {}, kAlways}},
    {{{{"mnuSchema"}, {"mnuXSD"}}, {}, kAlways, In::SchemaWindow}},

    // Not there yet.
    {{{{"mnuHelpContents"}, {"mnuShowonlinehelp"}}, {}, kAlways}},
    {{{{"mnuGenSchema"}}, {}, nullptr, In::XMLWindow}},
    {{{{"mnuTCDBSOnSchema"}, {"mnuTHtmlToXml2"}, {"mnuNewSNone"}}, {}, kNever}},
};
static_assert(edit::AreComplete(kCommands));

} // namespace

std::span<const FrameCommand> FrameCommands() {
    return kCommands;
}

} // namespace shell
