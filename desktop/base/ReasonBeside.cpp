// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/ReasonBeside.h"
#include "desktop/base/Listen.h"
#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace desktop {

namespace {

constexpr int kWidest = 420;  // pixels
constexpr int kLongest = 400; // characters
constexpr int kMessagePanel = 1;

// A path isn't part of the document.
bool IsEditor(const QWidget& widget) {
    const auto* box = qobject_cast<const QPlainTextEdit*>(&widget);
    const bool line = qobject_cast<const QLineEdit*>(&widget) != nullptr;
    return (line && widget.objectName() != QLatin1String("txtXPath")) || (box && !box->isReadOnly());
}

// Of a report with places and sources the reason alone.
QString ReasonIn(const QString& message) {
    const qsizetype start = message.indexOf(QLatin1String("Reason:"));
    if (start < 0)
        return message;
    const qsizetype end = message.lastIndexOf(QLatin1String("--SrcText:"));
    QString reason = message.mid(start + 7, end > start ? end - start - 7 : -1);
    while (reason.endsWith(QLatin1Char('-')))
        reason.chop(1);
    return reason;
}

} // namespace

ReasonBeside::ReasonBeside(controls::StatusBar& messages, QWidget& form)
    : messages_(messages), form_(form), label_(&form) {
    label_.setObjectName(QStringLiteral("reason"));
    label_.setTextFormat(Qt::PlainText);
    label_.setWordWrap(true);
    label_.setMargin(3);
    label_.setFrameStyle(QFrame::Box);
    label_.setAutoFillBackground(true);
    label_.setBackgroundRole(QPalette::ToolTipBase);
    label_.setForegroundRole(QPalette::ToolTipText);
    label_.setAttribute(Qt::WA_TransparentForMouseEvents);
    label_.hide();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Follow(now); });
    Listen(messages.changed, this, [this](int panel) {
        if (panel == kMessagePanel)
            Show();
    });
}

void ReasonBeside::Follow(QWidget* focus) {
    if (editor_)
        editor_->removeEventFilter(this);
    editor_ = focus && form_.isAncestorOf(focus) && IsEditor(*focus) ? focus : nullptr;
    if (editor_)
        editor_->installEventFilter(this);
    Show();
}

bool ReasonBeside::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        Show();
    return false;
}

// Below the editor, or above it where there is no room.
void ReasonBeside::Show() {
    const QString reason =
        editor_ ? ReasonIn(messages_.Panel(kMessagePanel)).left(kLongest).simplified() : QString();
    label_.setVisible(!reason.isEmpty());
    if (reason.isEmpty())
        return;
    label_.setText(reason);
    const int width = std::min({label_.sizeHint().width(), kWidest, form_.width()});
    label_.resize(width, label_.heightForWidth(width));
    const QRect place(editor_->mapTo(&form_, QPoint()), editor_->size());
    const bool below = place.bottom() + label_.height() < form_.height();
    label_.move(std::clamp(place.left(), 0, std::max(form_.width() - width, 0)),
                below ? place.bottom() + 1 : std::max(place.top() - label_.height(), 0));
    label_.raise();
}

} // namespace desktop
