// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QLabel>
#include <QObject>
#include <QPointer>

namespace desktop {

/// What is wrong with the text that is being edited in a form, in words beside its editor: the message of the
/// status bar, which may be far away.
class ReasonBeside : public QObject {
public:
    ReasonBeside(controls::StatusBar& messages, QWidget& form);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(QWidget* focus);
    void Show();

    controls::StatusBar& messages_;
    QWidget& form_;
    QLabel label_;
    QPointer<QWidget> editor_; ///< of names, values and texts, while it has the focus
};

} // namespace desktop
