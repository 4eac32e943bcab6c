// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/AddressBox.h"
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

namespace desktop {

AddressBox::AddressBox(controls::ComboBox& model, QComboBox& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), events_(widget, this) {
    widget.setEditable(true);
    widget.setInsertPolicy(QComboBox::NoInsert);
    widget.setCompleter(nullptr);
    // A known address that is only typed, or left standing, would count as a choice.
    disconnect(widget.lineEdit(), &QLineEdit::editingFinished, &widget, nullptr);
    events_.keyUp = [this](int key, int modifiers) { model_.KeyUp(key, modifiers); };
    widget.installEventFilter(this);
    Listen(model.changed, this, [this] { Show(); });
    connect(widget.lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.UserTyped(text); });
    connect(&widget, &QComboBox::activated, this, [this](int index) { model_.UserChose(index); });
    Show();
}

bool AddressBox::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Wheel)
        return true;
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Down && key != Qt::Key_Up)
        return false;
    widget_.showPopup();
    return true;
}

void AddressBox::Show() {
    const QSignalBlocker quiet(widget_);
    QStringList shown;
    for (int i = 0; i < widget_.count(); ++i)
        shown += widget_.itemText(i);
    if (shown != model_.Items()) {
        widget_.clear();
        widget_.addItems(model_.Items());
        widget_.setCurrentIndex(model_.ListIndex());
    }
    if (widget_.currentText() != model_.Text()) {
        widget_.setEditText(model_.Text());
        widget_.lineEdit()->setCursorPosition(0);
    }
}

} // namespace desktop
