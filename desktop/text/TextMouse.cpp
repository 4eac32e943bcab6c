// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextMouse.h"
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextSteps.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMouseEvent>
#include <QStyleHints>
#include <QTimerEvent>

namespace desktop {

namespace {

constexpr int kScrollEvery = 40; // milliseconds

} // namespace

void TextMouse::Press(const QMouseEvent& event) {
    const QPoint place = event.position().toPoint();
    QGuiApplication::inputMethod()->commit(); // what is being composed is part of the text now
    if (event.button() == Qt::LeftButton) {
        PressLeft(place, event.modifiers().testFlag(Qt::ShiftModifier));
    } else if (event.button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
        PasteSelection(place);
    } else if (event.button() == Qt::RightButton && !IsInSelection(place)) {
        const qsizetype position = parts_.places.PositionAt(place);
        parts_.caret.Select(position, position);
    }
}

void TextMouse::PressLeft(QPoint place, bool extends) {
    if (thirdClick_.isActive() && !IsFarFromPress(place))
        return StartSelecting(Unit::Line, place);
    if (extends) {
        pressed_ = Pressed::Selecting;
        unit_ = Unit::Character;
        first_ = {parts_.state.anchor, parts_.state.anchor};
        return ExtendTo(place);
    }
    if (place.x() < parts_.places.MarginWidth())
        return StartSelecting(Unit::Line, place);
    if (!IsInSelection(place))
        return StartSelecting(Unit::Character, place);
    pressed_ = Pressed::MayDrag;
    pressPlace_ = place;
}

void TextMouse::PasteSelection(QPoint place) {
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData(QClipboard::Selection);
    const QString text = mime && IsTextMime(*mime) ? mime->text() : QString();
    const qsizetype position = parts_.places.PositionAt(place);
    parts_.caret.Select(position, position);
    parts_.editing.PutIn(parts_.state.Selection(), text);
}

void TextMouse::DoubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return Press(event);
    StartSelecting(Unit::Word, event.position().toPoint());
    thirdClick_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this);
}

void TextMouse::Move(const QMouseEvent& event) {
    const QPoint place = event.position().toPoint();
    if (!event.buttons().testFlag(Qt::LeftButton) || pressed_ == Pressed::None)
        return UpdatePointer(place);
    if (pressed_ == Pressed::MayDrag) {
        if (!IsFarFromPress(place))
            return;
        pressed_ = Pressed::None;
        return drag_.Start();
    }
    ExtendTo(place);
    if (parts_.area.viewport()->rect().contains(place))
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start(kScrollEvery, this);
}

void TextMouse::Release(const QMouseEvent& event) {
    scrolling_.stop();
    const Pressed pressed = std::exchange(pressed_, Pressed::None);
    if (pressed == Pressed::MayDrag) {
        const qsizetype position = parts_.places.PositionAt(event.position().toPoint());
        parts_.caret.Select(position, position);
    }
    if (pressed != Pressed::None)
        parts_.caret.Publish();
}

void TextMouse::timerEvent(QTimerEvent* event) {
    if (event->timerId() == scrolling_.timerId())
        ScrollTowardsPointer();
    else
        thirdClick_.stop();
}

// --- selecting ---------------------------------------------------------------------------------------------

TextRange TextMouse::UnitAt(QPoint place) const {
    if (unit_ == Unit::Word)
        return WordAt(parts_.Text(), parts_.places.CharacterAt(place));
    const qsizetype position = parts_.places.PositionAt(place);
    if (unit_ == Unit::Line)
        return LineAt(parts_.Text(), position);
    return {position, position};
}

void TextMouse::StartSelecting(Unit unit, QPoint place) {
    pressed_ = Pressed::Selecting;
    unit_ = unit;
    pressPlace_ = place;
    first_ = UnitAt(place);
    if (unit == Unit::Line) {
        parts_.caret.Place(first_.start, first_.end); // the caret in the next row mustn't scroll the view
        parts_.state.model->UserSelected(first_.start, first_.end - first_.start);
    } else {
        parts_.caret.Select(first_.start, first_.end);
    }
}

// What was clicked first stays selected, whichever way the pointer goes.
void TextMouse::ExtendTo(QPoint place) {
    const TextRange reached = UnitAt(place);
    if (reached.start < first_.start)
        parts_.caret.Select(first_.end, reached.start);
    else
        parts_.caret.Select(first_.start, std::max(reached.end, first_.end));
}

// The further the pointer is away from the text, the faster it scrolls.
void TextMouse::ScrollTowardsPointer() {
    const QPoint place = parts_.area.viewport()->mapFromGlobal(QCursor::pos());
    const QRect inside = parts_.area.viewport()->rect();
    const int height = parts_.places.Font().height;
    if (place.y() < inside.top())
        parts_.places.ScrollRows(-1 - (inside.top() - place.y()) / height);
    else if (place.y() > inside.bottom())
        parts_.places.ScrollRows(1 + (place.y() - inside.bottom()) / height);
    ExtendTo(place);
}

bool TextMouse::IsFarFromPress(QPoint place) const {
    return (place - pressPlace_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
}

bool TextMouse::IsInSelection(QPoint place) const {
    const TextRange selection = parts_.state.Selection();
    const qsizetype position = parts_.places.CharacterAt(place);
    return place.x() >= parts_.places.MarginWidth() && position >= selection.start &&
           position < selection.end;
}

void TextMouse::UpdatePointer(QPoint place) {
    const bool arrow = place.x() < parts_.places.MarginWidth() || IsInSelection(place);
    parts_.area.viewport()->setCursor(arrow ? Qt::ArrowCursor : Qt::IBeamCursor);
}

} // namespace desktop
