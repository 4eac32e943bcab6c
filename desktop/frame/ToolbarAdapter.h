// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QAction>
#include <QObject>
#include <QToolBar>
#include <QToolButton>

namespace desktop {

/// A band of buttons on a Toolbar control: an action for each button, named as its key is.
class ToolbarAdapter : public QObject {
public:
    ToolbarAdapter(controls::Toolbar& model, QToolBar& widget, QObject* parent);

private:
    void Add(controls::ToolButton& button);
    void AddMenu(controls::ToolButton& button, QToolButton& widget);
    QToolBar& widget_;
};

} // namespace desktop
