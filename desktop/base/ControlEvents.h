// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/Listen.h"
#include <QHash>
#include <QObject>
#include <QWidget>
#include <functional>

class QKeyEvent;

namespace desktop {

/// Takes the mouse press that is about to be delivered: it moved the focus, which was taken back.
void EatPress();

/// Watches a widget and hands its focus changes and keys to a control model.
/// The focus counts as kept while a menu is open or another program or a dialog is in front. A key that was
/// pressed elsewhere (the Enter that closed a box) raises nothing when it is released here. A released key
/// counts with the modifiers it was pressed with, also when Ctrl is let go first.
class ControlEvents : public QObject {
public:
    ControlEvents(QWidget& widget, QObject* parent);
    std::function<void()> gotFocus, lostFocus;
    /// A handler that uses a key up changes `key`, and the widget doesn't get it.
    std::function<void(int& key, int modifiers)> keyDown;
    std::function<void(int key, int modifiers)> keyUp;

    /// Raises the events that a control has.
    template <typename Control> void Bind(Control& control) {
        gotFocus = [&control] { control.GotFocus(); };
        lostFocus = [&control] { control.LostFocus(); };
        if constexpr (requires { control.KeyDown; })
            keyDown = [&control](int& key, int modifiers) { control.KeyDown(key, modifiers); };
        keyUp = [&control](int key, int modifiers) { control.KeyUp(key, modifiers); };
    }

    /// The same, and the widget follows the control's SetFocus.
    template <typename Control> void Bind(Control& control, QWidget& widget) {
        Bind(control);
        Listen(control.focusRequested, &widget, [&widget] { widget.setFocus(Qt::OtherFocusReason); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FocusOut();
    bool KeyPressed(const QKeyEvent& event);
    void KeyReleased(const QKeyEvent& event);
    QHash<int, Qt::KeyboardModifiers> pressed_;
    bool hasFocus_ = false;
};

} // namespace desktop
