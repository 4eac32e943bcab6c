// SPDX-License-Identifier: GPL-3.0-or-later
// The document windows: making, opening, bringing to the front, saving, closing.
#include "core/commands/WindowEvents.h"
#include "core/model/mXMLEdit.h"
#include "core/sync/Files.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/FinishEdits.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "platform/text/TextTools.h"
#include "shell/frmMDIMain.h"
#include "textview/fill/FillText.h"
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <algorithm>

DocumentWindow* frmMDIMain::ActiveForm() {
    return windowOrder_.empty() ? nullptr : windowOrder_.front();
}

int frmMDIMain::FormCount() {
    return static_cast<int>(forms_.size());
}

std::vector<DocumentWindow*> frmMDIMain::Forms() const {
    std::vector<DocumentWindow*> windows;
    for (const Opened& opened : forms_)
        windows.push_back(opened.window);
    return windows;
}

// --- making and opening ---------------------------------------------------------------------------------

template <typename Form> DocumentWindow& frmMDIMain::MakeForm(const QString& name) {
    auto form = std::make_unique<Form>(app_);
    DocumentWindow& window = form->window;
    // From here on it is the active form: the load asks for it, though nobody sees the window yet.
    forms_.push_back({std::move(form), &window});
    BringToFront(window);
    window.SetCaption(name);
    return window;
}

void frmMDIMain::FillWindow(DocumentWindow& window, const FetchedText& text) {
    if (text.text.isEmpty()) {
        window.fileForm = text.form;
        AddTreeRoot(window, true);
        window.bTreeChanged = true;
        DoTree(window);
        window.msOpenText = {}; // a document that was never saved counts as changed
        BeginHistory(window);
    } else {
        TakeFetched(window, text);
        if (!window.rtxtXML.Long().holdsOnly(u" \t\r\n"))
            window.msOpenText = window.rtxtXML.Long();
        window.msLastParsedText = window.rtxtXML.Long();
        ShowNodePath(window, statusBar_);
    }
    window.bLoaded = true;
}

template <typename Form> void frmMDIMain::NewFile(const FetchedText& text, const QString& fileName) {
    QString name = fileName;
    if (text::IsBlank(fileName)) {
        name = QStringLiteral("new%1%2").arg(++newDocuments_).arg(Form::Kind().extension);
    } else {
        bool found = false;
        HaveSameNameForm(fileName, true, found);
        if (found)
            return;
    }
    LeaveActiveForm();
    const QString before = std::exchange(app_.CurrentFileName, name);
    DocumentWindow* window = nullptr;
    // A window that didn't come about goes again, and the one before it is in hand as if nothing had been
    // tried: nobody sees the half-made one, but a save would ask for the active form.
    auto brokenOff = qScopeGuard([&] {
        app_.CurrentFileName = before;
        if (!window)
            return;
        Forget(*window);
        if (DocumentWindow* active = ActiveForm())
            SetFormActivatedMenu(*active);
        else
            SetMenuSituation(MenuSituation::NoForm);
        activeFormChanged(ActiveForm());
    });
    window = &MakeForm<Form>(name);
    FillWindow(*window, text);
    formAdded(window);
    AnnounceActive();
    brokenOff.dismiss();
}

void frmMDIMain::NewXMLFile(const FetchedText& text, const QString& fileName) {
    NewFile<frmXMLEdit>(text, fileName);
}

void frmMDIMain::NewSXMLFile(const FetchedText& text, const QString& fileName) {
    NewFile<frmSXMLEdit>(text, fileName);
}

void frmMDIMain::OpenNamed(const QString& name) try {
    if (opening_) // a file dropped while another one is still fetched
        return;
    const QScopedValueRollback opening(opening_, true);
    const QString fileName = mXMLEdit::NameMeant(app_, name);
    app_.CurrentFileName = fileName;
    DocumentWindow* form = nullptr;
    OpenFile(app_, fileName, form);
} catch (const text::Fault& fault) {
    ErrorReportBox(fault, QStringLiteral("frmMDIMain@OpenNamed"));
}

void frmMDIMain::HaveSameNameForm(const QString& name, bool bringToFront, bool& result) {
    result = false;
    for (auto opened = forms_.rbegin(); opened != forms_.rend(); ++opened) {
        if (opened->window->Tag != name)
            continue;
        result = true;
        if (bringToFront)
            ShowForm(*opened->window);
        return;
    }
}

// A window that is the active one already may be minimised: the skin is told all the same.
void frmMDIMain::ShowForm(DocumentWindow& window) {
    if (&window == ActiveForm())
        activeFormChanged(&window);
    else
        ActivateForm(&window);
}

void frmMDIMain::mnuFileNew_Click() {
    NewXMLFile(FetchedText(), {});
}

void frmMDIMain::mnuNewschema_Click() {
    NewSXMLFile(FetchedText(), {});
}

void frmMDIMain::mnuFileMRU_Click(int index) {
    const QString name = Menu(QStringLiteral("mnuFileMRU"), index).Caption();
    app_.CurrentFileName = name;
    if (name.isEmpty())
        return;
    OpenNamed(name);
    GetRecentFiles();
}

// --- order ----------------------------------------------------------------------------------------------

// The message on the document in hand doesn't stay for the next one. A text that was typed reaches its tree
// before another document is in hand, since the tree's root takes the name in hand; what that has to say is
// still to be read.
void frmMDIMain::LeaveActiveForm() {
    statusBar_.SetPanel(1, {});
    DocumentWindow* active = ActiveForm();
    if (!active)
        return;
    FinishEdits(*active);
    if (!active->bTextChanged)
        return;
    const QString name = std::exchange(app_.CurrentFileName, active->Caption);
    LeaveTextView(*active);
    app_.CurrentFileName = name;
}

void frmMDIMain::BringToFront(DocumentWindow& window) {
    std::erase(windowOrder_, &window);
    windowOrder_.insert(windowOrder_.begin(), &window);
}

void frmMDIMain::AnnounceActive() {
    DocumentWindow* active = ActiveForm();
    statusBar_.SetPanel(2, {});
    if (active) {
        app_.CurrentFileName = active->Caption; // first of all: what is done from here on is done to it
        Form_Activate(*active);
        SetFormActivatedMenu(*active); // the root is the current node now
        if (active->miCurrentView == kViewText)
            ShowCursorPosition(*active);
    } else {
        SetMenuSituation(MenuSituation::NoForm);
    }
    activeFormChanged(active);
}

void frmMDIMain::ActivateForm(DocumentWindow* window) {
    if (!window || window == ActiveForm())
        return;
    LeaveActiveForm();
    BringToFront(*window);
    AnnounceActive();
}

void frmMDIMain::NextWindow() {
    if (windowOrder_.size() < 2) {
        if (!windowOrder_.empty())
            ShowForm(*windowOrder_.front());
        return;
    }
    LeaveActiveForm();
    std::rotate(windowOrder_.begin(), windowOrder_.begin() + 1, windowOrder_.end());
    AnnounceActive();
}

// --- saving ---------------------------------------------------------------------------------------------

void frmMDIMain::mnuFileSave_Click() {
    if (DocumentWindow* window = ActiveForm()) {
        FinishEdits(*window);
        SaveXMLFile(*window, false, false);
    }
}

void frmMDIMain::mnuFileSaveAs_Click() {
    if (DocumentWindow* window = ActiveForm()) {
        FinishEdits(*window);
        SaveAs(*window);
    }
}

// The list has one empty entry from the start and nothing joins it, so no window is saved: who asks for all
// files at once keeps deciding window by window.
void frmMDIMain::mnuFileSaveAll_Click() {
    for (DocumentWindow* window : windowList_)
        if (window)
            SaveXMLFile(*window, false, false);
}

// --- closing --------------------------------------------------------------------------------------------

bool frmMDIMain::CloseForm(DocumentWindow* window) {
    if (!window || window->bUnloading)
        return false;
    // The routines of closing ask for the active form and its name.
    ActivateForm(window);
    if (!NodeInHandIsWritten(*window))
        return false;
    bool cancel = false;
    Form_Unload(*window, cancel);
    if (cancel)
        return false;
    Forget(*window);
    statusBar_.SetPanel(1, {}); // it was about the window that is gone
    AnnounceActive();
    return true;
}

void frmMDIMain::Forget(DocumentWindow& window) {
    if (editNodes_)
        editNodes_->WindowClosed(window);
    std::erase(windowOrder_, &window);
    if (app_.clipboardSource == &window)
        app_.clipboardSource = nullptr;
    if (app_.dragSource == &window)
        app_.dragSource = nullptr;
    if (app_.findWindow == &window) {
        app_.findWindow = nullptr;
        app_.findTarget = nullptr;
    }
    formRemoved(&window);
    std::erase_if(forms_, [&](const Opened& opened) { return opened.window == &window; });
}

void frmMDIMain::mnuFileClose_Click() {
    CloseForm(ActiveForm());
}

// What was typed about a node belongs to the document that the question on saving is about.
bool frmMDIMain::NodeInHandIsWritten(const DocumentWindow& window) {
    return !editNodes_ || editNodes_->Window() != &window || editNodes_->SaveCurrentNode();
}

// A Cancel keeps the window, and the loop comes back to it: the question ends with the user's Yes or No. A
// value that is refused has to be put right first: nothing would end the loop.
void frmMDIMain::mnuCloseAll_Click() {
    while (DocumentWindow* window = ActiveForm()) {
        if (!NodeInHandIsWritten(*window))
            return;
        CloseForm(window);
    }
}

bool frmMDIMain::QueryUnload() {
    while (DocumentWindow* window = ActiveForm())
        if (!CloseForm(window))
            return false;
    return true;
}

// Ends at once: unsaved changes are given up, and nothing is asked.
void frmMDIMain::mnuFileExit_Click() {
    ended();
}

void frmMDIMain::mnuEditPopupEditNode_Click() {
    DocumentWindow* window = ActiveForm();
    if (!window)
        return;
    if (!editNodes_)
        editNodes_ = std::make_unique<frmEditNodes>(app_);
    if (editNodes_->Form_Load(*window))
        editNodesShown(*editNodes_);
}
