// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Dialogs.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "shell/frmOptions.h"
#include "textview/dialogs/frmFind.h"

namespace shell {

Dialogs::Dialogs(Application& app) : app_(app) {}

Dialogs::~Dialogs() = default;

void Dialogs::ShowOptions() {
    frmOptions dialog(app_);
    dialog.Form_Load();
    optionsShown(dialog);
}

void Dialogs::ShowFind() {
    if (!find_)
        find_ = std::make_unique<frmFind>(app_);
    find_->Show();
    findShown(*find_);
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
