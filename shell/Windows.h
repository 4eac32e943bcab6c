// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/FetchedText.h"
#include "shell/Dialogs.h"
#include "shell/WindowList.h"

namespace shell {

/// The document windows: making, opening, bringing to the front, closing.
class Windows {
public:
    Windows(Application& app, Dialogs& dialogs);

    DocumentWindow* ActiveForm() const { return list_.Front(); }
    int FormCount() const { return list_.Count(); }
    std::vector<DocumentWindow*> Forms() const { return list_.All(); }

    /// Makes a window of a kind with the text, or a new document for an empty one: see Frame::NewXMLFile.
    void NewFile(const WindowKind& kind, const FetchedText& text, const QString& fileName);
    /// Opens a path or an address. Nothing while another one is still being fetched.
    void OpenNamed(const QString& name);
    DocumentWindow* FormNamed(const QString& name) const; ///< see Frame::FormNamed
    /// Whether there is one; brings it to the front if asked.
    bool HaveSameNameForm(const QString& name, bool bringToFront);
    /// Brings a window to the front. Runs Form_Activate when it wasn't there.
    void ActivateForm(DocumentWindow* window);
    void NextWindow();     ///< the active window goes to the back of the order
    void PreviousWindow(); ///< the one at the back of the order comes to the front

    /// Form_Unload, then the window goes. False when it stays.
    bool CloseForm(DocumentWindow* window);
    /// Closes one after the other. False when the user kept one.
    bool QueryUnload();
    /// The same, but a window that was kept is asked about again.
    void CloseAll();
    void Clear(); ///< the program ends: they go without a question

    controls::Event<DocumentWindow*> formAdded;         ///< made and filled, about to become visible
    controls::Event<DocumentWindow*> formRemoved;       ///< about to be destroyed
    controls::Event<DocumentWindow*> activeFormChanged; ///< may be null

private:
    DocumentWindow& MakeForm(const WindowKind& kind, const QString& name);
    void FillForm(DocumentWindow& window, const FetchedText& text);
    void ShowForm(DocumentWindow& window); ///< to the front, and restored when it is minimised
    bool LeaveActiveForm();                ///< false where what is typed there was refused: it stays in hand
    void Turn(void (WindowList::*turn)()); ///< leaves the active window and shows the one in front then
    void AnnounceActive();                 ///< Form_Activate of the window in front, then activeFormChanged
    void Forget(DocumentWindow& window);

    Application& app_;
    Dialogs& dialogs_;
    WindowList list_;
    int newDocuments_ = 0; ///< documents that got a made-up name
    bool opening_ = false; ///< a document is being fetched
};

} // namespace shell
