// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/BoxAdapter.h"
#include "desktop/base/Listen.h"
#include <QSignalBlocker>

namespace desktop {

namespace {

// As typed: the plain text would turn hard blanks into common ones.
QString Typed(const QPlainTextEdit& box) {
    QString text = box.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

QString Shown(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

} // namespace

BoxAdapter::BoxAdapter(controls::TextBox& model, QPlainTextEdit& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget) {
    connect(&widget, &QPlainTextEdit::textChanged, this, [this] {
        if (const QString text = Typed(widget_); text != Shown(model_.Text()))
            model_.UserTyped(text);
    });
    Listen(model.changed, this, [this] { Show(); });
    Listen(model.focusRequested, this, [this] { widget_.setFocus(Qt::OtherFocusReason); });
    Show();
}

void BoxAdapter::Show() {
    if (const QString text = Shown(model_.Text()); text != Typed(widget_)) {
        const QSignalBlocker quiet(widget_);
        widget_.setPlainText(text);
    }
    widget_.setEnabled(model_.Enabled());
    widget_.setVisible(model_.Visible());
}

} // namespace desktop
