// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/WindowMenu.h"
#include "desktop/frame/MenuAdapter.h"
#include "shell/frmMDIMain.h"

namespace desktop {

WindowMenu::WindowMenu(frmMDIMain& frame, QMenu& menu, QObject* parent)
    : QObject(parent), frame_(frame), menu_(menu) {
    connect(&menu, &QMenu::aboutToShow, this, [this] { Fill(); });
}

void WindowMenu::Fill() {
    qDeleteAll(actions_);
    actions_ = {menu_.addSeparator()};
    for (DocumentWindow* window : frame_.Forms()) {
        QAction* action = menu_.addAction(NameAsEntry(window->ShownCaption()));
        action->setCheckable(true);
        action->setChecked(window == frame_.ActiveForm());
        connect(action, &QAction::triggered, this,
                [this, name = window->Caption] { frame_.HaveSameNameForm(name, true); });
        actions_ << action;
    }
}

} // namespace desktop
