// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/LineAdapter.h"

namespace desktop {

LineAdapter::LineAdapter(controls::TextBox& model, QLineEdit& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), events_(widget, this) {
    widget.setMaxLength(1 << 24);
    events_.Bind(model, widget);
    Listen(model.changed, this, [this] { Show(); });
    connect(&widget, &QLineEdit::textEdited, this, [this](const QString& text) { model_.UserTyped(text); });
    Show();
}

void LineAdapter::Show() {
    if (widget_.text() != model_.Text()) {
        widget_.setText(model_.Text());
        widget_.setCursorPosition(0);
    }
    widget_.setEnabled(model_.Enabled());
    widget_.setVisible(model_.Visible());
}

} // namespace desktop
