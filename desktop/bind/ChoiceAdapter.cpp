// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/ChoiceAdapter.h"
#include <QLineEdit>
#include <QSignalBlocker>

namespace desktop {

ChoiceAdapter::ChoiceAdapter(controls::ComboBox& model, QComboBox& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), events_(widget, this) {
    events_.lostFocus = [this] { model_.LostFocus(); };
    widget.setInsertPolicy(QComboBox::NoInsert);
    if (QLineEdit* line = widget.lineEdit()) {
        widget.setCompleter(nullptr);
        connect(line, &QLineEdit::textEdited, this, [this](const QString& text) { model_.UserTyped(text); });
    }
    connect(&widget, &QComboBox::activated, this, [this](int index) { model_.UserChose(index); });
    Listen(model.changed, this, [this] { Show(); });
    Show();
}

void ChoiceAdapter::Show() {
    const QSignalBlocker quiet(widget_);
    QStringList shown;
    for (int i = 0; i < widget_.count(); ++i)
        shown += widget_.itemText(i);
    if (shown != model_.Items()) {
        widget_.clear();
        widget_.addItems(model_.Items());
    }
    if (widget_.currentIndex() != model_.ListIndex())
        widget_.setCurrentIndex(model_.ListIndex());
    if (!widget_.isEditable())
        widget_.setPlaceholderText(model_.Text());
    else if (widget_.currentText() != model_.Text())
        widget_.setEditText(model_.Text());
}

} // namespace desktop
