// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Dialogs.h"
#include "core/model/Frame.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "shell/frmOptions.h"
#include "textview/TextCommands.h"
#include "textview/dialogs/frmFind.h"

namespace shell {

Dialogs::Dialogs(Application& app) : app_(app) {}

Dialogs::~Dialogs() = default;

void Dialogs::ShowOptions() {
    frmOptions dialog(app_);
    dialog.Form_Load();
    optionsShown(dialog);
}

textview::frmFind& Dialogs::Find() {
    if (!find_)
        find_ = std::make_unique<textview::frmFind>(app_);
    return *find_;
}

void Dialogs::ShowFind() {
    Find().Show();
    findShown(*find_);
}

void Dialogs::FindNext(bool up) {
    DocumentWindow* const active = app_.frame().ActiveForm();
    if (active && !Find().FindNext(up))
        textview::RFind(*active);
}

void Dialogs::ShowEditNodes(DocumentWindow& window) {
    if (!editNodes_)
        editNodes_ = std::make_unique<nodes::frmEditNodes>(app_);
    if (editNodes_->Form_Load(window))
        editNodesShown(*editNodes_);
}

bool Dialogs::NodeInHandIsWritten(const DocumentWindow& window) {
    return !editNodes_ || editNodes_->Window() != &window || editNodes_->SaveCurrentNode();
}

} // namespace shell
