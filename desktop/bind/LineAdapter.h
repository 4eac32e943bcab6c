// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "platform/controls/Controls.h"
#include <QLineEdit>
#include <QObject>

namespace desktop {

/// A line editor on a TextBox.
class LineAdapter : public QObject {
public:
    LineAdapter(controls::TextBox& model, QLineEdit& widget, QObject* parent);

private:
    void Show();
    controls::TextBox& model_;
    QLineEdit& widget_;
    ControlEvents events_;
};

} // namespace desktop
