// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextDrag.h"
#include "desktop/base/Twips.h"
#include "desktop/drag/ActivateDocument.h"
#include "desktop/drag/TextMime.h"
#include <QDrag>
#include <QDropEvent>
#include <QPointer>

namespace desktop {

void TextDrag::Start() {
    const TextRange range = parts_.state.Selection();
    const text::LongText before = Text();
    const QPointer<TextDrag> self = this;
    controls::RichTextBox& model = *parts_.state.model;
    QDrag* drag = std::make_unique<QDrag>(this).release(); // it deletes itself when it is over
    drag->setMimeData(MakeTextMime(before, range).release());
    model.DragsSelection = true;
    movedInside_ = false;
    const Qt::DropActions may = model.Locked ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const Qt::DropAction done = runs(*drag, may, model.Locked ? Qt::CopyAction : Qt::MoveAction);
    if (!self)
        return;
    parts_.state.model->DragsSelection = false;
    Leave();
    // Another program has taken the text; here it is removed, if it still stands where it did.
    if (done == Qt::MoveAction && !movedInside_ && Text() == before)
        parts_.editing.Replace(range, {});
}

// Text of another document of this program is copied: a document that isn't in front isn't cut. What other
// programs propose is up to them.
bool TextDrag::Take(QDropEvent& event) const {
    event.setAccepted(!parts_.state.model->Locked && IsTextMime(*event.mimeData()));
    if (!event.isAccepted())
        return false;
    const auto* from = dynamic_cast<const TextDrag*>(event.source());
    event.setDropAction(from && !ShowsSameText(*from) ? Qt::CopyAction : event.proposedAction());
    return true;
}

bool TextDrag::ShowsSameText(const TextDrag& other) const {
    return &other == this || (other.parts_.area.parent() == parts_.area.parent() && other.Text() == Text());
}

// Text from elsewhere goes where the caret is, and the caret follows the pointer; it doesn't scroll the view
// away under it. Text of this view stays selected until it is dropped, so only a mark follows.
void TextDrag::Move(QDragMoveEvent& event) {
    if (!Take(event))
        return;
    const QPoint place = event.position().toPoint();
    const qsizetype position = parts_.places.PositionAt(place);
    controls::RichTextBox& model = *parts_.state.model;
    if (!model.DragsSelection) {
        parts_.caret.Place(position, position);
        model.UserSelected(position, 0);
    }
    model.DragOver(ToTwips(place.x()), ToTwips(place.y()));
    ShowPlace(position);
}

// The drag takes the release of the button, and the pointer's place was shown during it: now the caret's is
// again.
void TextDrag::Leave() {
    ShowPlace(-1);
    if (parts_.area.hasFocus())
        over();
}

void TextDrag::Drop(QDropEvent& event) {
    ShowPlace(-1);
    if (!Take(event))
        return;
    const QPoint place = event.position().toPoint();
    qsizetype position = parts_.places.PositionAt(place);
    const text::LongText before = Text();
    // The view that is left may bring its edits into the document, which may change this text.
    ActivateDocumentOf(parts_.area);
    parts_.area.setFocus(Qt::MouseFocusReason);
    if (!(Text() == before))
        position = parts_.places.PositionAt(place);
    auto* from = parts_.state.model->DragsSelection ? this : dynamic_cast<TextDrag*>(event.source());
    if (from && event.dropAction() == Qt::MoveAction && TakeOver(*from, event.mimeData()->text())) {
        from->movedInside_ = true;
        return parts_.editing.MoveSelectionTo(position);
    }
    if (from)
        event.setDropAction(Qt::CopyAction);
    parts_.caret.Select(position, position);
    parts_.editing.PutIn({position, position}, event.mimeData()->text());
    parts_.caret.Select(position, parts_.state.caret);
}

// What is dragged out of another pane on the same text is moved as if it had been selected here.
bool TextDrag::TakeOver(const TextDrag& from, const QString& dragged) {
    if (!ShowsSameText(from) || from.parts_.caret.SelectedText(u"\n") != dragged)
        return false;
    if (&from != this)
        parts_.caret.Select(from.parts_.state.anchor, from.parts_.state.caret);
    return true;
}

void TextDrag::ShowPlace(qsizetype position) {
    for (const qsizetype place : {parts_.state.dropAt, position})
        if (place >= 0)
            parts_.places.UpdateRowOf(place);
    parts_.state.dropAt = position;
}

} // namespace desktop
