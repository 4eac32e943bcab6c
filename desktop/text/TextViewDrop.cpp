// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Twips.h"
#include "desktop/drag/ActivateDocument.h"
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextView.h"
#include "platform/controls/ColourRuns.h"
#include <QDrag>
#include <QDropEvent>
#include <QPointer>
#include <QScopedValueRollback>

namespace desktop {

void TextView::StartDrag() {
    press_ = Press::None;
    const TextRange range = Selection();
    const text::LongText before = Text();
    const QPointer<TextView> self = this;
    QDrag* drag = std::make_unique<QDrag>(this).release(); // it deletes itself when it is over
    drag->setMimeData(MakeTextMime(before, range).release());
    model_->DragsSelection = true;
    movedInside_ = false;
    const Qt::DropActions may = model_->Locked ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const Qt::DropAction wanted = model_->Locked ? Qt::CopyAction : Qt::MoveAction;
    const Qt::DropAction done = runsDrag ? runsDrag(*drag) : drag->exec(may, wanted);
    if (!self || !model_)
        return;
    model_->DragsSelection = false;
    EndDragOver();
    // Another program has taken the text; here it is removed, if it still stands where it did.
    if (done == Qt::MoveAction && !movedInside_ && Text() == before)
        Replace(range, {});
}

void TextView::dragEnterEvent(QDragEnterEvent* event) {
    TakeDrag(*event);
}

// Text of another document of this program is copied: a document that isn't in front isn't cut. What other
// programs propose is up to them.
bool TextView::TakeDrag(QDropEvent& event) {
    event.setAccepted(!model_->Locked && IsTextMime(*event.mimeData()));
    if (!event.isAccepted())
        return false;
    const auto* from = qobject_cast<TextView*>(event.source());
    event.setDropAction(from && !ShowsSameText(*from) ? Qt::CopyAction : event.proposedAction());
    return true;
}

bool TextView::ShowsSameText(const TextView& other) const {
    return &other == this || (other.parent() == parent() && other.Text() == Text());
}

// Text from elsewhere goes where the caret is, and the caret follows the pointer; it doesn't scroll the view
// away under it. Text of this view stays selected until it is dropped, so only a mark follows.
void TextView::dragMoveEvent(QDragMoveEvent* event) {
    if (!TakeDrag(*event))
        return;
    const QPoint place = event->position().toPoint();
    const qsizetype position = PositionAt(place);
    if (!model_->DragsSelection) {
        PlaceCaret(position, position);
        model_->UserSelected(position, 0);
    }
    model_->DragOver(ToTwips(place.x()), ToTwips(place.y()));
    ShowDropPlace(position);
}

void TextView::dragLeaveEvent(QDragLeaveEvent* event) {
    EndDragOver();
    event->accept();
}

// The drag takes the release of the button. Whoever has shown the pointer's place shows the caret's again.
void TextView::EndDragOver() {
    ShowDropPlace(-1);
    if (hasFocus())
        Q_EMIT userReleased();
}

void TextView::dropEvent(QDropEvent* event) {
    ShowDropPlace(-1);
    if (!TakeDrag(*event))
        return;
    const QPoint place = event->position().toPoint();
    qsizetype position = PositionAt(place);
    const text::LongText before = Text();
    // The view that is left may bring its edits into the document, which may change this text.
    ActivateDocumentOf(*this);
    setFocus(Qt::MouseFocusReason);
    if (!(Text() == before))
        position = PositionAt(place);
    auto* from = model_->DragsSelection ? this : qobject_cast<TextView*>(event->source());
    if (from && event->dropAction() == Qt::MoveAction && TakeOver(*from, event->mimeData()->text())) {
        from->movedInside_ = true;
        return MoveSelectionTo(position);
    }
    if (from)
        event->setDropAction(Qt::CopyAction);
    Select(position, position);
    PutIn({position, position}, event->mimeData()->text());
    Select(position, caret_);
}

// What is dragged out of another pane on the same text is moved as if it had been selected here.
bool TextView::TakeOver(const TextView& from, const QString& dragged) {
    if (!ShowsSameText(from) || from.SelectedText(u"\n") != dragged)
        return false;
    if (&from != this)
        Select(from.Anchor(), from.Caret());
    return true;
}

// Two stretches change places. One edit, so that it can be undone in one step; everything keeps its colours.
void TextView::MoveSelectionTo(qsizetype position) {
    const TextRange from = Selection();
    if (position >= from.start && position <= from.end)
        return;
    const bool back = position < from.start;
    const TextRange first = back ? TextRange{position, from.start} : from;
    const TextRange second = back ? from : TextRange{from.end, position};
    const auto colours = [this](TextRange part) {
        return controls::RunsOf(model_->Runs(), part.start, part.end - part.start);
    };
    std::vector<controls::ColourRun> runs = colours(second);
    const qsizetype shift = second.end - second.start;
    runs.push_back({shift, 0});
    for (const controls::ColourRun& run : colours(first))
        runs.push_back({run.start + shift, run.colour});
    const QString text = Text().mid(second.start, shift) + Text().mid(first.start, first.end - first.start);
    Select(first.start, second.end);
    {
        const QScopedValueRollback editing(editing_, true);
        model_->SetSelContent(text, std::move(runs));
    }
    const qsizetype size = from.end - from.start, start = back ? position : position - size;
    Select(start, start + size);
}

void TextView::ShowDropPlace(qsizetype position) {
    for (const qsizetype place : {dropAt_, position})
        if (place >= 0)
            UpdateRows(Text().rowOf(place), Text().rowOf(place));
    dropAt_ = position;
}

} // namespace desktop
