// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QObject>
#include <QPlainTextEdit>

namespace desktop {

/// An editor of several lines on a TextBox. Each line end is "\n" in what the user has typed; a text that
/// isn't touched keeps its own.
class BoxAdapter : public QObject {
public:
    BoxAdapter(controls::TextBox& model, QPlainTextEdit& widget, QObject* parent);

private:
    void Show();
    controls::TextBox& model_;
    QPlainTextEdit& widget_;
};

} // namespace desktop
