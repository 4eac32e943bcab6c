// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/ControlEvents.h"
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>

namespace desktop {

namespace {

/// Keys whose repeats count like presses of their own: what follows the caret or the current row follows
/// while one is held. Any other key acts once, when it is let go, however long it was held.
bool CountsRepeats(int key) {
    return key >= Qt::Key_Home && key <= Qt::Key_PageDown; // Home, End, the four arrows, the two page keys
}

bool KeepsFocus(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

/// Takes the mouse press that is about to be delivered, and its release where that is still to come.
class PressEater : public QObject {
public:
    explicit PressEater(QObject* parent) : QObject(parent) {
        qApp->installEventFilter(this);
        QTimer::singleShot(0, this, [this] {
            if (!down_)
                deleteLater();
        });
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool press = event->type() == QEvent::MouseButtonPress;
        const bool release = event->type() == QEvent::MouseButtonRelease && down_;
        if (!watched->isWidgetType() || (!press && !release))
            return false;
        down_ = press && QApplication::mouseButtons() != Qt::NoButton;
        if (!down_)
            deleteLater();
        return true;
    }

private:
    bool down_ = false;
};

/// Notices a dialog that opens while it lives: the windows behind one are told that they are blocked.
class DialogWatch : public QObject {
public:
    DialogWatch() { qApp->installEventFilter(this); }
    bool seen = false;
    bool eventFilter(QObject*, QEvent* event) override {
        seen = seen || event->type() == QEvent::WindowBlocked;
        return false;
    }
};

} // namespace

void EatPress() {
    new PressEater(qApp);
}

ControlEvents::ControlEvents(QWidget& widget, QObject* parent) : QObject(parent) {
    widget.installEventFilter(this);
    // While a dialog is in front the focus may go to another control: this one isn't told of that.
    const QPointer<QWidget> own(&widget);
    connect(qApp, &QApplication::focusChanged, this, [this, own](QWidget*, QWidget* now) {
        if (!hasFocus_ || !own || !now || now == own || own->isAncestorOf(now) ||
            now->window() != own->window())
            return;
        const bool menu = qobject_cast<QMenuBar*>(now) || qobject_cast<QMenu*>(now);
        if (!menu)
            FocusOut();
    });
}

bool ControlEvents::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        if (!std::exchange(hasFocus_, true) && gotFocus)
            gotFocus();
        break;
    case QEvent::FocusOut:
        pressed_.clear();
        // The list of a combo box takes the focus as any other widget does; where it goes for good is told to
        // all.
        if (!KeepsFocus(static_cast<QFocusEvent*>(event)->reason()) && !QApplication::activePopupWidget())
            FocusOut();
        break;
    case QEvent::KeyPress:
        return KeyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        KeyReleased(*static_cast<QKeyEvent*>(event));
        break;
    default:
        break;
    }
    return false;
}

/// True when the control uses the key up.
bool ControlEvents::KeyPressed(const QKeyEvent& event) {
    pressed_.insert(event.key(), event.modifiers());
    int key = event.key();
    if (keyDown)
        keyDown(key, static_cast<int>(event.modifiers()));
    return key != event.key();
}

void ControlEvents::KeyReleased(const QKeyEvent& event) {
    const auto pressed = pressed_.constFind(event.key());
    if (pressed == pressed_.constEnd())
        return;
    const Qt::KeyboardModifiers modifiers = *pressed;
    if (!event.isAutoRepeat())
        pressed_.erase(pressed);
    if (keyUp && (!event.isAutoRepeat() || CountsRepeats(event.key())))
        keyUp(event.key(), static_cast<int>(modifiers));
}

// A box that opens while a mouse press moves the focus has taken that press: without this the click would go
// on and, say, hide the very text whose fault the box was about.
void ControlEvents::FocusOut() {
    if (!std::exchange(hasFocus_, false) || !lostFocus)
        return;
    const bool byMouse = QApplication::mouseButtons() != Qt::NoButton;
    const DialogWatch dialogs;
    lostFocus();
    if (byMouse && (dialogs.seen || hasFocus_)) // or the control has taken the focus back
        EatPress();
}

} // namespace desktop
