// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/LabelDelegate.h"
#include "desktop/base/ControlEvents.h"
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QTimer>
#include <limits>
#include <utility>

namespace desktop {

namespace {
constexpr int kNarrowest = 160; // pixels

// A menu takes the keys for a while, and so does another program's window, or the window manager at a key
// that it looks at: half a name isn't meant yet, and its editor has the keys again behind it.
bool IsLeft(const QFocusEvent& event) {
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

} // namespace

LabelDelegate::LabelDelegate(QObject* parent, LabelEvents events)
    : QStyledItemDelegate(parent), events_(std::move(events)) {
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this](QWidget*, EndEditHint hint) {
        editor_ = nullptr;
        if (hint == RevertModelCache) // behind the closing: the row may go
            QTimer::singleShot(0, this, events_.givenUp);
    });
}

// The new name may change all rows, and the view lets go of the editor then: the focus is brought back to the
// view before, and the editor closed only where it is still there.
void LabelDelegate::Finish() {
    const QPointer<QWidget> editor = std::exchange(editor_, nullptr);
    if (!editor)
        return;
    if (editor->hasFocus())
        editor->parentWidget()->setFocus(Qt::OtherFocusReason);
    Q_EMIT commitData(editor);
    if (editor && events_.kept()) {
        editor_ = editor;
        editor->setFocus(Qt::OtherFocusReason);
        if (QApplication::mouseButtons() != Qt::NoButton)
            EatPress();
    } else if (editor && !editor->isHidden()) {
        Q_EMIT closeEditor(editor, NoHint);
    }
}

void LabelDelegate::FinishByTab(bool back) {
    if (!editor_)
        return;
    Finish();
    if (!editor_ && events_.tabbed)
        events_.tabbed(back);
}

bool LabelDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        if (watched == editor_ && IsLeft(*static_cast<QFocusEvent*>(event)))
            Finish();
        return false;
    }
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (key != Qt::Key_Return && key != Qt::Key_Enter && !tab)
        return QStyledItemDelegate::eventFilter(watched, event);
    // Behind the key: what answers to the name may open a box.
    if (tab)
        QTimer::singleShot(0, this, [this, back = key == Qt::Key_Backtab] { FinishByTab(back); });
    else
        QTimer::singleShot(0, this, &LabelDelegate::Finish);
    return true;
}

// A selected picture is drawn in the colour that goes with the selection's: it needs that behind it.
void LabelDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->showDecorationSelected = true;
}

QSize LabelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (itemWidth_ > 0)
        size.setWidth(itemWidth_);
    return size;
}

QWidget* LabelDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto editor = std::make_unique<QLineEdit>(parent);
    editor->setMaxLength(std::numeric_limits<int>::max());
    editor->setFrame(true);
    connect(editor.get(), &QLineEdit::textEdited, this, events_.typed);
    editor_ = editor.get();
    return editor.release();
}

void LabelDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (std::exchange(filled_, editor) != editor)
        QStyledItemDelegate::setEditorData(editor, index);
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

} // namespace desktop
