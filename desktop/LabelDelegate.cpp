// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/LabelDelegate.h"
#include <QLineEdit>
#include <QStyle>
#include <limits>

namespace {
constexpr int kNarrowest = 160; // pixels
} // namespace

LabelDelegate::LabelDelegate(QObject* parent, std::function<void()> givenUp) : QStyledItemDelegate(parent) {
    connect(this, &QAbstractItemDelegate::closeEditor, this,
            [givenUp = std::move(givenUp)](QWidget*, EndEditHint hint) {
                if (hint == RevertModelCache)
                    givenUp();
            });
}

void LabelDelegate::Finish() {
    const QPointer<QWidget> editor = editor_;
    if (!editor)
        return;
    Q_EMIT commitData(editor);
    if (editor)
        Q_EMIT closeEditor(editor, NoHint);
}

QWidget* LabelDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto editor = std::make_unique<QLineEdit>(parent);
    editor->setMaxLength(std::numeric_limits<int>::max());
    editor->setFrame(true);
    editor_ = editor.get();
    return editor.release();
}

void LabelDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QRect place = option.widget->style()->subElementRect(QStyle::SE_ItemViewItemText, &item, option.widget);
    const int room = editor->parentWidget()->width() - place.left();
    place.setWidth(std::max({place.width() + editor->fontMetrics().averageCharWidth() * 4, kNarrowest}));
    place.setWidth(std::clamp(room, std::min(place.width(), kNarrowest), place.width()));
    editor->setGeometry(place);
}
