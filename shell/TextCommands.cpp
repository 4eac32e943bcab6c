// SPDX-License-Identifier: GPL-3.0-or-later
// What the frame does for the text views.
#include "shell/frmMDIMain.h"
#include "textview/dialogs/frmFind.h"

void frmMDIMain::SetUndoRedo(bool undo, bool redo) {
    controls::Toolbar& toolbar = ToolbarByName(QStringLiteral("tbCommonEdit"));
    Menu(QStringLiteral("mnuEditUndo")).SetEnabled(undo);
    toolbar.Button(QStringLiteral("undo")).SetEnabled(undo);
    Menu(QStringLiteral("mnuRedo")).SetEnabled(redo);
    toolbar.Button(QStringLiteral("redo")).SetEnabled(redo);
}

void frmMDIMain::ShowFind() {
    if (!find_)
        find_ = std::make_unique<frmFind>(app_);
    find_->Show();
    findShown(*find_);
}
