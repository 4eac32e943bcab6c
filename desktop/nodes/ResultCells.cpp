// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ResultCells.h"
#include "desktop/base/Listen.h"
#include "schema/CompactState.h"
#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <limits>

namespace desktop {

ResultCells::ResultCells(DocumentWindow& window, QTreeView& list)
    : window_(window), list_(list), editor_(new QLineEdit(list.viewport())), events_(*editor_, this) {
    controls::TextBox& model = schema::CompactOf(window).txtResLv;
    editor_->setObjectName(QStringLiteral("txtResLv"));
    editor_->setMaxLength(std::numeric_limits<int>::max());
    events_.Bind(model, *editor_);
    Listen(model.changed, this, [this] { Show(); });
    Listen(model.selectionChanged, this, [this, &model] {
        editor_->setSelection(static_cast<int>(model.SelStart()), static_cast<int>(model.SelLength()));
    });
    connect(editor_, &QLineEdit::textEdited, this, [&model](const QString& text) { model.UserTyped(text); });
    const auto selected = [this, &model] {
        const bool any = editor_->hasSelectedText();
        model.UserSelected(any ? editor_->selectionStart() : editor_->cursorPosition(),
                           any ? editor_->selectionLength() : 0);
    };
    connect(editor_, &QLineEdit::selectionChanged, this, selected);
    connect(editor_, &QLineEdit::cursorPositionChanged, this, selected);
    for (const QScrollBar* bar : {list.verticalScrollBar(), list.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] { Place(); });
    connect(list.header(), &QHeaderView::sectionResized, this, [this] { Place(); });
    connect(&list, &QAbstractItemView::doubleClicked, this, [this] { click_.stop(); });
    Listen(schema::CompactOf(window).lvRes.ensureVisible, this,
           [this](int row) { list_.scrollTo(list_.model()->index(row - 1, 0)); });
    list.viewport()->installEventFilter(this);
    Show();
}

// The focus would go to any other widget when the editor closes.
void ResultCells::Show() {
    const controls::TextBox& model = schema::CompactOf(window_).txtResLv;
    if (editor_->text() != model.Text())
        editor_->setText(model.Text());
    if (!model.Visible() && editor_->hasFocus())
        list_.setFocus(Qt::OtherFocusReason);
    editor_->setVisible(model.Visible());
    Place();
}

void ResultCells::Place() {
    const schema::CompactState& state = schema::CompactOf(window_);
    const int row = state.lvRes.IndexOf(state.editedKey);
    if (state.txtResLv.Visible() && row > 0)
        editor_->setGeometry(list_.visualRect(list_.model()->index(row - 1, state.txtResLv.Tag.toInt())));
}

// A click on a value of the row that is current already opens it.
bool ResultCells::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        click_.stop();
        const QModelIndex cell = list_.indexAt(static_cast<QMouseEvent*>(event)->pos());
        const bool current =
            cell.isValid() && cell.row() + 1 == schema::CompactOf(window_).lvRes.SelectedItem();
        pressed_ = current && cell.column() > 0 && list_.hasFocus() ? QPersistentModelIndex(cell)
                                                                    : QPersistentModelIndex();
    }
    if (event->type() == QEvent::MouseButtonRelease && pressed_.isValid() &&
        list_.indexAt(static_cast<QMouseEvent*>(event)->pos()) == pressed_)
        click_.start(QApplication::doubleClickInterval(), this);
    return false;
}

void ResultCells::timerEvent(QTimerEvent*) {
    click_.stop();
    if (pressed_.isValid())
        schema::CompactOf(window_).lvRes.CellClick(pressed_.row() + 1, pressed_.column() + 1);
    pressed_ = QPersistentModelIndex();
}

} // namespace desktop
