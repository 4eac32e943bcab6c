// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TextMime.h"
#include "desktop/TextView.h"
#include "desktop/Twips.h"
#include <QDrag>
#include <QDropEvent>
#include <QPointer>
#include <QScopedValueRollback>

void TextView::StartDrag() {
    press_ = Press::None;
    const text_steps::Range range = Selection();
    const QPointer<TextView> self = this;
    QDrag* drag = std::make_unique<QDrag>(this).release(); // it deletes itself when it is over
    drag->setMimeData(MakeTextMime(Text(), range).release());
    drags_ = true;
    movedInside_ = false;
    const Qt::DropActions may = model_->Locked ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const Qt::DropAction done = drag->exec(may, model_->Locked ? Qt::CopyAction : Qt::MoveAction);
    if (!self)
        return;
    drags_ = false;
    ShowDropPlace(-1);
    // Another program has taken the text; here it is removed, if it still stands where it did.
    const text_steps::Range now = Selection();
    if (done == Qt::MoveAction && !movedInside_ && now.start == range.start && now.end == range.end)
        Replace(range, {});
}

void TextView::dragEnterEvent(QDragEnterEvent* event) {
    if (!model_->Locked && IsTextMime(*event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

// Text from elsewhere goes where the caret is, and the caret follows the pointer. Text of this view stays
// selected until it is dropped, so only a mark follows.
void TextView::dragMoveEvent(QDragMoveEvent* event) {
    if (model_->Locked || !IsTextMime(*event->mimeData()))
        return event->ignore();
    const QPoint place = event->position().toPoint();
    const int height = rows_.Font().height;
    if (place.y() < height || place.y() >= viewport()->height() - height)
        ScrollRows(place.y() < height ? -1 : 1);
    const qsizetype position = PositionAt(place);
    if (!drags_) {
        Select(position, position);
        model_->DragOver(ToTwips(place.x()), ToTwips(place.y()));
    }
    ShowDropPlace(position);
    event->acceptProposedAction();
}

void TextView::dragLeaveEvent(QDragLeaveEvent* event) {
    ShowDropPlace(-1);
    event->accept();
}

void TextView::dropEvent(QDropEvent* event) {
    ShowDropPlace(-1);
    if (model_->Locked || !IsTextMime(*event->mimeData()))
        return event->ignore();
    const qsizetype position = PositionAt(event->position().toPoint());
    event->acceptProposedAction();
    if (drags_ && event->dropAction() == Qt::MoveAction) {
        movedInside_ = true;
        return MoveSelectionTo(position);
    }
    Select(position, position);
    const QString text = event->mimeData()->text();
    Replace({position, position}, text);
    Select(position, caret_);
    setFocus(Qt::MouseFocusReason);
}

// One edit of all that lies between the two places, so that it can be undone in one step.
void TextView::MoveSelectionTo(qsizetype position) {
    const text_steps::Range from = Selection();
    if (position >= from.start && position <= from.end)
        return;
    const QString moved = Text().mid(from.start, from.end - from.start);
    const qsizetype size = moved.size();
    if (position < from.start) {
        Replace({position, from.end}, moved + Text().mid(position, from.start - position));
        Select(position, position + size);
    } else {
        Replace({from.start, position}, Text().mid(from.end, position - from.end) + moved);
        Select(position - size, position);
    }
}

void TextView::ShowDropPlace(qsizetype position) {
    for (const qsizetype place : {dropAt_, position})
        if (place >= 0)
            UpdateRows(Text().rowOf(place), Text().rowOf(place));
    dropAt_ = position;
}
