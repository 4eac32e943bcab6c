// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Frame.h"
#include "exchange/dialogs/ExchangeDialogs.h"
#include "schema/dialogs/MakeDialogs.h"
#include "shell/Commands.h"
#include "shell/FrameCommands.h"
#include "shell/FrameParts.h"
#include "shell/MenuState.h"

/// The one main window: menus, toolbars, address box, status bar, and the document windows in it. It is the
/// face of its parts, each of which stands in a file of its own.
class frmMDIMain : public Frame {
    Application& app_;
    shell::FrameParts parts_;
    shell::Commands commands_;
    shell::MenuState menuState_;
    int mousePointer_ = 0;

public:
    explicit frmMDIMain(Application& application); ///< builds the controls; MDIForm_Load fills them
    ~frmMDIMain() override;

    // --- life -------------------------------------------------------------------------------------------
    void MDIForm_Load();
    /// First activation: `commandLine` is the name of a file to open, with or without double quotes; empty
    /// for none.
    void MDIForm_Activate(const QString& commandLine);
    /// The frame's close button: closes each document window with its question. False when the user kept one.
    bool QueryUnload() { return parts_.windows.QueryUnload(); }

    // --- controls -----------------------------------------------------------------------------------------
    /// The menu bar; mnuPopup stands last and is not shown in the bar.
    const std::vector<std::unique_ptr<controls::MenuItem>>& Menus = parts_.menus.Menus;
    /// In the order of the bands of CoolBar1.
    const std::vector<std::unique_ptr<controls::Toolbar>>& Toolbars = parts_.menus.Toolbars;
    /// Both throw Fault 35601 for a name that isn't there.
    controls::MenuItem& Menu(const QString& name, int index = 0) { return parts_.menus.Menu(name, index); }
    controls::Toolbar& ToolbarByName(const QString& name) { return parts_.menus.ToolbarByName(name); }
    /// All entries that have a name, in the order of the menus.
    const std::vector<controls::MenuItem*>& MenuEntries() const { return parts_.menus.MenuEntries(); }
    controls::StatusBar& StatusBar1() override { return parts_.statusBar; }
    controls::ComboBox& cmbAddress() override { return parts_.address; }
    int MousePointer() const override { return mousePointer_; }
    void SetMousePointer(int pointer) override;
    const QString lbAddress = QStringLiteral("地址:");

    // --- documents ----------------------------------------------------------------------------------------
    DocumentWindow* ActiveForm() override { return parts_.windows.ActiveForm(); }
    int FormCount() override { return parts_.windows.FormCount(); }
    std::vector<DocumentWindow*> Forms() const { return parts_.windows.Forms(); } ///< in the order of opening
    void NewXMLFile(const FetchedText& text, const QString& fileName) override;
    void NewSXMLFile(const FetchedText& text, const QString& fileName) override;
    /// Command line, address box, recent files, dropped files.
    void OpenNamed(const QString& name) { parts_.windows.OpenNamed(name); }
    DocumentWindow* FormNamed(const QString& name) override { return parts_.windows.FormNamed(name); }
    bool HaveSameNameForm(const QString& name, bool bringToFront) override;
    /// The user (or a command) brings a window to the front. Runs Form_Activate when it wasn't active.
    void ActivateForm(DocumentWindow* window) override { parts_.windows.ActivateForm(window); }
    /// Asks, and the window goes. False when it stays.
    bool CloseForm(DocumentWindow* window) { return parts_.windows.CloseForm(window); }
    /// The active window goes to the back of the order.
    void NextWindow() { parts_.windows.NextWindow(); }
    void PreviousWindow() {
        parts_.windows.PreviousWindow();
    } ///< the one at the back of the order comes to the front

    // --- for the skin -------------------------------------------------------------------------------------
    controls::Event<DocumentWindow*>& formAdded = parts_.windows.formAdded;
    controls::Event<DocumentWindow*>& formRemoved = parts_.windows.formRemoved;
    controls::Event<DocumentWindow*>& activeFormChanged = parts_.windows.activeFormChanged;
    controls::Event<int>& arranged = parts_.arranged;
    controls::Event<>& ended = parts_.ended;
    controls::Event<int> mousePointerChanged; ///< see MousePointer
    /// Show a dialog and come back when it is done with (frmOptions::unloaded).
    controls::Event<frmOptions&>& optionsShown = parts_.dialogs.optionsShown;
    /// Show a dialog beside the documents, or bring it to the front, until textview::frmFind::unloaded.
    controls::Event<textview::frmFind&>& findShown = parts_.dialogs.findShown;
    /// Likewise, until frmEditNodes::unloaded.
    controls::Event<nodes::frmEditNodes&>& editNodesShown = parts_.dialogs.editNodesShown;

    /// The dialogs of data in and out.
    exchange::ExchangeDialogs& exchangeDialogs = exchange::DialogsOf(app_);
    schema::MakeDialogs& makeDialogs = schema::MakeDialogsOf(app_);

    // --- commands -----------------------------------------------------------------------------------------
    void ErrorReportBox(const text::Fault& fault, const QString& routineName) override;
    void RunMenuCommand(const QString& entry) override;
    void RefreshMenu() override;
    void DisableMenu() override;
    MenuSituation SituationInForce() const { return menuState_.SituationInForce(); }
    void ShowFind() override { parts_.dialogs.ShowFind(); }
    void FindNext(bool up) override { parts_.dialogs.FindNext(up); }
    void UpdateFileMenu(const QString& name) override { parts_.recentFiles.UpdateFileMenu(name); }
    void AddToList(const QString& name) override { parts_.recentFiles.AddToList(name); }
    /// The file menu from the store: another program may have written names.
    void GetRecentFiles() { parts_.recentFiles.GetRecentFiles(); }
};
