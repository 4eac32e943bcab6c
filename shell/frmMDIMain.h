// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/Frame.h"
#include "core/window/frmXMLEdit.h"
#include "schema/window/frmSXMLEdit.h"
#include <QHash>
#include <QStringList>
#include <memory>
#include <variant>
#include <vector>

class frmEditNodes;
class frmFind;
class frmOptions;

/// How Arrange places the document windows, numbered as the platform does.
enum ArrangeCode { vbCascade = 0, vbTileHorizontal = 1, vbTileVertical = 2, vbArrangeIcons = 3 };

/// The one main window: menus, toolbars, address box, status bar, and the document windows in it.
class frmMDIMain : public Frame {
public:
    explicit frmMDIMain(Application& application); ///< builds the controls; MDIForm_Load fills them
    ~frmMDIMain() override;

    // --- life -------------------------------------------------------------------------------------------
    void MDIForm_Load();
    /// First activation: `commandLine` is the name of a file to open, with or without double quotes; empty
    /// for none.
    void MDIForm_Activate(const QString& commandLine);
    /// The frame's close button: closes each document window with its question. False when the user kept one.
    bool QueryUnload();

    // --- controls -----------------------------------------------------------------------------------------
    /// The menu bar; mnuPopup stands last and is not shown in the bar.
    std::vector<std::unique_ptr<controls::MenuItem>> Menus;
    controls::MenuItem& Menu(const QString& name, int index = 0); ///< throws Fault 35601
    std::vector<std::unique_ptr<controls::Toolbar>> Toolbars;     ///< in the order of the bands of CoolBar1
    controls::Toolbar& ToolbarByName(const QString& name);        ///< throws Fault 35601
    controls::StatusBar& StatusBar1() override { return statusBar_; }
    controls::ComboBox& cmbAddress() override { return address_; }
    int MousePointer() const override { return mousePointer_; }
    void SetMousePointer(int pointer) override;
    QString lbAddress = QStringLiteral("地址:");

    // --- documents ----------------------------------------------------------------------------------------
    DocumentWindow* ActiveForm() override;
    int FormCount() override;
    std::vector<DocumentWindow*> Forms() const; ///< in the order of opening
    void NewXMLFile(const FetchedText& text, const QString& fileName) override;
    void NewSXMLFile(const FetchedText& text, const QString& fileName) override;
    void OpenXMLFile();
    void OpenNamed(const QString& name); ///< command line, address box, recent files, dropped files
    void HaveSameNameForm(const QString& name, bool bringToFront, bool& result) override;
    /// The user (or a command) brings a window to the front. Runs Form_Activate when it wasn't active.
    void ActivateForm(DocumentWindow* window) override;
    /// Form_Unload, then the window goes. False when the user chose Cancel.
    bool CloseForm(DocumentWindow* window);
    void NextWindow(); ///< the active window goes to the back of the order

    // Window events for the skin.
    controls::Event<DocumentWindow*> formAdded;         ///< made and filled, about to become visible
    controls::Event<DocumentWindow*> formRemoved;       ///< about to be destroyed
    controls::Event<DocumentWindow*> activeFormChanged; ///< may be null
    controls::Event<int> arranged;                      ///< an ArrangeCode
    controls::Event<int> mousePointerChanged;           ///< see MousePointer
    controls::Event<> ended;                            ///< mnuFileExit: the process is to end at once
    /// Show a dialog and come back when it is done with (frmOptions::unloaded).
    controls::Event<frmOptions&> optionsShown;
    /// Show a dialog beside the documents, or bring it to the front, until frmFind::unloaded.
    controls::Event<frmFind&> findShown;
    /// Likewise, until frmEditNodes::unloaded.
    controls::Event<frmEditNodes&> editNodesShown;
    /// Show mnuPopup over a control (x, y in twips; -1: at the pointer).
    controls::Event<DocumentWindow*, int, int> popup;

    // --- file dialogs -------------------------------------------------------------------------------------
    QString GetFileName(const QString& extension);
    QString GetSaveFileAs(const QString& filter);
    QString GetFileNameByFilter(const QString& filter);
    void MessageBox(const QString& message, const QString& title); ///< with the information icon and OK

    // --- Frame --------------------------------------------------------------------------------------------
    void ErrorReportBox(const text::Fault& fault, const QString& routineName) override;
    void SetMenuSituation(MenuSituation situation) override;
    void SetFormActivatedMenu(DocumentWindow& window) override;
    void SetToolBar() override;
    void EnableEntitiesToolbar() override;
    void RunMenuCommand(const QString& entry) override;
    void SetUndoRedo(bool undo, bool redo) override;
    void ShowFind() override;
    void UpdateFileMenu(const QString& name) override;
    void AddToList(const QString& name) override;

    // --- recent files and the address box's history ----------------------------------------------------
    /// Fills the menu entries from the store; entries that aren't reached keep what they had.
    void GetRecentFiles();
    /// The store's values in its order; one empty text for an empty section.
    void GetRecentFilesArray(QStringList& list);
    /// 1 to 4: the menu entry that shows the name; else -1.
    int FindRecentFile(const QString& name);
    /// 0-based place in the list, else -1; a list of one empty text counts as empty.
    static int HasSameFile(const QString& name, const QStringList& list);
    void WriteRecentFiles(const QString& name); ///< puts a name at the front
    void FillCombo();                           ///< the address box from the store
    static void FillComboOrList(controls::ComboBox& control, const QStringList& list);
    /// Adds the box's text to its items if it isn't among them.
    static void ProcessList(controls::ComboBox& combo);

    // --- menu state: see MenuState.cpp -------------------------------------------------------------------
    /// The situation that was set last, looked at anew: the current node or row, the selection or the
    /// clipboard may have changed since.
    void RefreshMenu();
    MenuSituation SituationInForce() const { return menuSituation_; }
    /// All entries that have a name, in the order of the menus.
    const std::vector<controls::MenuItem*>& MenuEntries() const { return entries_; }

    // --- commands -----------------------------------------------------------------------------------------
    void mnuFileNew_Click();
    void mnuNewschema_Click();
    void mnuFileClose_Click();
    void mnuCloseAll_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileSaveAll_Click();
    void mnuFileMRU_Click(int index);
    void mnuFileExit_Click();
    void mnuToolOptions_Click();
    void mnuEditPopupEditNode_Click();
    void cmbAddress_Change();
    void cmbAddress_Click();
    void cmbAddress_KeyUp(int key);

private:
    using AnyForm = std::variant<std::unique_ptr<frmXMLEdit>, std::unique_ptr<frmSXMLEdit>>;
    struct Opened {
        AnyForm form;
        DocumentWindow* window;
    };
    void ShowForm(DocumentWindow& window); ///< to the front, and restored when it is minimised
    template <typename Form> void NewFile(const FetchedText& text, const QString& fileName);
    template <typename Form> DocumentWindow& MakeForm(const QString& name);
    void FillWindow(DocumentWindow& window, const FetchedText& text);
    void BringToFront(DocumentWindow& window); ///< without events
    void LeaveActiveForm();
    void Forget(DocumentWindow& window); ///< takes a window out of both lists and destroys it
    void AnnounceActive();               ///< Form_Activate of the window in front, then activeFormChanged
    void IndexMenu(controls::MenuItem& item);
    void ConnectAddressBox();
    /// Whether nothing is left of what was typed into the one-by-one editor about a node of a window.
    bool NodeInHandIsWritten(const DocumentWindow& window);

    Application& app_;
    std::unique_ptr<frmFind> find_;           ///< made when it is asked for first
    std::unique_ptr<frmEditNodes> editNodes_; ///< likewise
    std::vector<controls::MenuItem*> entries_;
    QHash<QString, std::vector<controls::MenuItem*>> entriesByName_;
    controls::StatusBar statusBar_{2};
    controls::ComboBox address_;
    std::vector<Opened> forms_;                ///< in the order of opening
    std::vector<DocumentWindow*> windowOrder_; ///< front first
    MenuSituation menuSituation_ = MenuSituation::NoForm;
    int mousePointer_ = 0;
    int newDocuments_ = 0; ///< documents that got a made-up name
    bool opening_ = false; ///< a document is being fetched
    /// One empty entry, and nothing is ever added: see mnuFileSaveAll_Click.
    std::vector<DocumentWindow*> windowList_{nullptr};
};
