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

bool HasLongLine(QStringView text) {
    constexpr qsizetype kLong = 5000; // units
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = text.indexOf(u'\n', start);
        if ((end < 0 ? text.size() : end) - start > kLong)
            return true;
        start = end < 0 ? text.size() : end + 1;
    }
    return false;
}

// A long line without blanks takes time that grows with the square of its length to be broken between words:
// a megabyte takes minutes.
void BreakLines(QPlainTextEdit& box, QStringView text) {
    const auto mode =
        HasLongLine(text) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (box.wordWrapMode() != mode)
        box.setWordWrapMode(mode);
}

} // namespace

BoxAdapter::BoxAdapter(controls::TextBox& model, QPlainTextEdit& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget) {
    connect(&widget, &QPlainTextEdit::textChanged, this, [this] {
        const QString text = Typed(widget_);
        BreakLines(widget_, text);
        if (text != Shown(model_.Text()))
            model_.UserTyped(text);
    });
    Listen(model.changed, this, [this] { Show(); });
    Listen(model.focusRequested, this, [this] { widget_.setFocus(Qt::OtherFocusReason); });
    Show();
}

void BoxAdapter::Show() {
    if (const QString text = Shown(model_.Text()); text != Typed(widget_)) {
        const QSignalBlocker quiet(widget_);
        widget_.clear(); // what it held would be laid out once more
        BreakLines(widget_, text);
        widget_.setPlainText(text);
    }
    widget_.setEnabled(model_.Enabled());
    widget_.setVisible(model_.Visible());
}

} // namespace desktop
