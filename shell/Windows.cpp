// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Windows.h"
#include "core/edit/FileChanged.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/Journal.h"
#include "core/edit/NodePath.h"
#include "core/edit/Open.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/FileNames.h"
#include "nodes/FinishEdits.h"
#include "platform/text/TextTools.h"
#include "window/WindowEvents.h"
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <algorithm>

namespace shell {

namespace {

// The menus of a window that comes back are for what was in use last: the tree, or the view beside it. A view
// without editing takes no commands on nodes, whichever part was in use.
void FollowAttention(DocumentWindow& window) {
    const bool tree = window.miPopupContext == 0 || window.miPopupContext == kContextTree;
    const edit::View* view = edit::ViewOnShow(window);
    const bool shut = view && view->situation && view->situation(window) == MenuSituation::ViewWithoutEditing;
    window.menuSide = tree && !shut ? MenuSide::Tree : MenuSide::View;
}

// The name in hand comes first: what is done from here on is done to this window.
void Activate(DocumentWindow& window) {
    window.app.CurrentFileName = window.Caption;
    edit::Run(window, "Form_Activate", [&] {
        FollowAttention(window);
        window::Form_Activate(window);
    });
    if (edit::Shows(window, edit::kTextTab))
        edit::ShowCursorPosition(window);
}

} // namespace

Windows::Windows(Application& app, Dialogs& dialogs) : app_(app), dialogs_(dialogs) {
    edit::FilesOf(app_).tmLook.Tick.connect([this] {
        edit::Guarded(app_, QStringLiteral("frmMDIMain@tmLook_Tick"), [this] { edit::LookAtFiles(app_); });
    });
}

// --- making and opening ---------------------------------------------------------------------------------

// From here on it is the active form: the load asks for it, though it isn't to be seen yet.
DocumentWindow& Windows::MakeForm(const WindowKind& kind, const QString& name) {
    auto form = std::make_unique<DocumentWindow>(app_, kind);
    window::Form_Load(*form);
    form->SetCaption(name);
    return list_.Add(std::move(form));
}

// One edit: what follows the new document does so once.
void Windows::FillForm(DocumentWindow& window, const FetchedText& text) {
    edit::Transaction opening(window);
    edit::FillWindow(window, text);
    formAdded(&window);
    app_.frame().StatusBar1().SetPanel(2, {});
    edit::ExpandRoot(window);
    Activate(window);
    opening.Close();
}

// One that came back from another run may have a name that is next.
QString Windows::NewName(const WindowKind& kind) {
    QString name;
    do
        name = QStringLiteral("new%1%2").arg(++newDocuments_).arg(kind.extension);
    while (list_.Named(name));
    return name;
}

void Windows::NewFile(const WindowKind& kind, const FetchedText& text, const QString& fileName) {
    QString name = fileName;
    if (text::IsBlank(fileName))
        name = NewName(kind);
    else if (HaveSameNameForm(fileName, true))
        return;
    if (!LeaveActiveForm())
        return;
    const QString before = std::exchange(app_.CurrentFileName, name);
    DocumentWindow* window = nullptr;
    // A window that didn't come about goes again, and the one before it is in hand as if nothing had been
    // tried: the half-made one can't be seen, but a save would ask for the active form.
    auto brokenOff = qScopeGuard([&] {
        app_.CurrentFileName = before;
        if (!window)
            return;
        Forget(*window);
        app_.frame().RefreshMenu();
        activeFormChanged(ActiveForm());
    });
    window = &MakeForm(kind, name);
    FillForm(*window, text);
    activeFormChanged(window);
    brokenOff.dismiss();
}

void Windows::OpenNamed(const QString& name) {
    if (opening_) // a file dropped while another one is still fetched
        return;
    const QScopedValueRollback opening(opening_, true);
    edit::Guarded(app_, QStringLiteral("frmMDIMain@OpenNamed"), [&] {
        const QString fileName = mXMLEdit::NameMeant(app_, name);
        if (mXMLEdit::IsLocalPath(fileName) && HaveSameNameForm(fileName, true))
            return;
        app_.CurrentFileName = fileName;
        DocumentWindow* form = nullptr;
        edit::OpenFile(app_, fileName, form);
    });
}

// Two windows on one file would save over each other, so that spellings don't count (quirk 41). The exact
// name comes first: it costs no look at the disk.
DocumentWindow* Windows::FormNamed(const QString& name) const {
    if (DocumentWindow* window = list_.Named(name))
        return window;
    const std::vector<DocumentWindow*> all = list_.All();
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const DocumentWindow* window) {
        return mXMLEdit::IsSameFile(app_, window->Tag, name);
    });
    return found == all.rend() ? nullptr : *found;
}

bool Windows::HaveSameNameForm(const QString& name, bool bringToFront) {
    DocumentWindow* window = FormNamed(name);
    if (window && bringToFront)
        ShowForm(*window);
    return window != nullptr;
}

// A window that is the active one already may be minimised: the skin is told all the same.
void Windows::ShowForm(DocumentWindow& window) {
    app_.CurrentFileName = window.Caption;
    if (&window == ActiveForm())
        activeFormChanged(&window);
    else
        ActivateForm(&window);
}

// --- order ----------------------------------------------------------------------------------------------

// The message on the document in hand doesn't stay for the next one. A text that was typed reaches its tree
// before another document is in hand, since the tree's root takes the name in hand; what that has to say is
// still to be read. A name or value that is refused keeps its document in hand.
bool Windows::LeaveActiveForm() {
    app_.frame().StatusBar1().SetPanel(1, {});
    DocumentWindow* active = ActiveForm();
    if (active && !nodes::FinishEdits(*active)) {
        app_.CurrentFileName = active->Caption;
        activeFormChanged(active); // the skin may show another one already
        return false;
    }
    if (!active || !active->bond.bTextChanged())
        return true;
    const QString name = std::exchange(app_.CurrentFileName, active->Caption);
    edit::Run(*active, "LeaveTextView", [&] { active->way->read(*active); });
    app_.CurrentFileName = name;
    return true;
}

void Windows::AnnounceActive() {
    app_.frame().StatusBar1().SetPanel(2, {});
    edit::FilesOf(app_).CameToFront(ActiveForm());
    if (DocumentWindow* active = ActiveForm())
        Activate(*active);
    else
        app_.frame().RefreshMenu();
    activeFormChanged(ActiveForm());
}

void Windows::ActivateForm(DocumentWindow* window) {
    if (!window || window == ActiveForm() || !LeaveActiveForm())
        return;
    list_.BringToFront(*window);
    AnnounceActive();
}

void Windows::NextWindow() {
    Turn(&WindowList::SendFrontToBack);
}

void Windows::PreviousWindow() {
    Turn(&WindowList::BringBackToFront);
}

void Windows::Turn(void (WindowList::*turn)()) {
    if (list_.Count() < 2) {
        if (DocumentWindow* active = ActiveForm())
            ShowForm(*active);
        return;
    }
    if (!LeaveActiveForm())
        return;
    (list_.*turn)();
    AnnounceActive();
}

// --- closing --------------------------------------------------------------------------------------------

// The routines of closing ask for the active form and its name. What was typed about a node belongs to the
// document that the question on saving is about.
bool Windows::MayClose(DocumentWindow* window) {
    if (!window || window->bUnloading)
        return false;
    ActivateForm(window);
    return window == ActiveForm() && dialogs_.NodeInHandIsWritten(*window) &&
           window::Form_QueryUnload(*window);
}

bool Windows::CloseForm(DocumentWindow* window) {
    if (!MayClose(window))
        return false;
    Close(*window);
    AnnounceActive();
    return true;
}

void Windows::Close(DocumentWindow& window) {
    window::Form_Unload(window);
    Forget(window);
    app_.frame().StatusBar1().SetPanel(1, {}); // it was about the window that is gone
}

void Windows::Forget(DocumentWindow& window) {
    app_.windowClosed(window);
    const std::unique_ptr<DocumentWindow> taken = list_.Take(window);
    formRemoved(taken.get());
}

// A Cancel keeps the window, and the loop comes back to it (quirk 12).
void Windows::CloseAll() {
    while (DocumentWindow* window = ActiveForm()) {
        if (!nodes::FinishEdits(*window) || !dialogs_.NodeInHandIsWritten(*window))
            return;
        CloseForm(window);
    }
}

// All are asked about before one goes (quirk 86). Where the user backs out, those that they didn't want to
// save stay, and so does what is kept of them for the case of a crash.
bool Windows::QueryUnload() {
    std::vector<DocumentWindow*> asked;
    for (DocumentWindow* window : list_.All()) {
        if (MayClose(window)) {
            asked.push_back(window);
            continue;
        }
        for (DocumentWindow* stays : asked) {
            if (edit::IsUnsaved(*stays))
                edit::JournalOf(app_).Keep(*stays);
        }
        return false;
    }
    for (DocumentWindow* window : asked)
        Close(*window);
    AnnounceActive();
    return true;
}

void Windows::Clear() {
    list_.Clear();
}

} // namespace shell
