// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextView.h"
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>

namespace desktop {

namespace {

constexpr int kScrollEvery = 40; // milliseconds

} // namespace

void TextView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    QGuiApplication::inputMethod()->commit(); // what is being composed is part of the text now
    if (event->button() == Qt::LeftButton) {
        if (thirdClick_.isActive() &&
            (place - pressPlace_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
            return StartSelecting(Unit::Line, place);
        if (event->modifiers().testFlag(Qt::ShiftModifier)) {
            press_ = Press::Selecting;
            unit_ = Unit::Character;
            pressed_ = {anchor_, anchor_};
            return ExtendTo(place);
        }
        if (place.x() < MarginWidth())
            return StartSelecting(Unit::Line, place);
        if (!IsInSelection(place))
            return StartSelecting(Unit::Character, place);
        press_ = Press::MayDrag;
        pressPlace_ = place;
    } else if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData(QClipboard::Selection);
        const QString text = mime && IsTextMime(*mime) ? mime->text() : QString();
        Select(PositionAt(place), PositionAt(place));
        PutIn(Selection(), text);
    } else if (event->button() == Qt::RightButton && !IsInSelection(place)) {
        Select(PositionAt(place), PositionAt(place));
    }
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return mousePressEvent(event);
    StartSelecting(Unit::Word, event->position().toPoint());
    thirdClick_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this);
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton) || press_ == Press::None)
        return UpdatePointer(place);
    if (press_ == Press::MayDrag) {
        if ((place - pressPlace_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance())
            StartDrag();
        return;
    }
    ExtendTo(place);
    if (viewport()->rect().contains(place))
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start(kScrollEvery, this);
}

void TextView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        Q_EMIT userReleased();
        return;
    }
    scrolling_.stop();
    const Press press = std::exchange(press_, Press::None);
    if (press == Press::MayDrag) {
        const qsizetype position = PositionAt(event->position().toPoint());
        Select(position, position);
    }
    if (press != Press::None)
        PublishSelection();
    Q_EMIT userReleased();
    Q_EMIT userClicked();
}

// --- selecting ---------------------------------------------------------------------------------------------

TextRange TextView::UnitAt(QPoint place) const {
    if (unit_ == Unit::Word)
        return WordAt(Text(), CharacterAt(place));
    const qsizetype position = PositionAt(place);
    if (unit_ == Unit::Line)
        return LineAt(Text(), position);
    return {position, position};
}

void TextView::StartSelecting(Unit unit, QPoint place) {
    press_ = Press::Selecting;
    unit_ = unit;
    pressPlace_ = place;
    pressed_ = UnitAt(place);
    if (unit == Unit::Line) {
        PlaceCaret(pressed_.start, pressed_.end); // the caret in the next row mustn't scroll the view
        model_->UserSelected(pressed_.start, pressed_.end - pressed_.start);
    } else {
        Select(pressed_.start, pressed_.end);
    }
}

// What was clicked first stays selected, whichever way the pointer goes.
void TextView::ExtendTo(QPoint place) {
    const TextRange reached = UnitAt(place);
    if (reached.start < pressed_.start)
        Select(pressed_.end, reached.start);
    else
        Select(pressed_.start, std::max(reached.end, pressed_.end));
}

// The further the pointer is away from the text, the faster it scrolls.
void TextView::ScrollTowardsPointer() {
    const QPoint place = viewport()->mapFromGlobal(QCursor::pos());
    const QRect inside = viewport()->rect();
    const int height = rows_.Font().height;
    if (place.y() < inside.top())
        ScrollRows(-1 - (inside.top() - place.y()) / height);
    else if (place.y() > inside.bottom())
        ScrollRows(1 + (place.y() - inside.bottom()) / height);
    ExtendTo(place);
}

bool TextView::IsInSelection(QPoint place) const {
    const TextRange selection = Selection();
    const qsizetype position = CharacterAt(place);
    return place.x() >= MarginWidth() && position >= selection.start && position < selection.end;
}

void TextView::UpdatePointer(QPoint place) {
    const bool arrow = place.x() < MarginWidth() || IsInSelection(place);
    viewport()->setCursor(arrow ? Qt::ArrowCursor : Qt::IBeamCursor);
}

// --- wheel and menu ----------------------------------------------------------------------------------------

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    wheelTurned_ += event->angleDelta().y();
    if (const int steps = wheelTurned_ / QWheelEvent::DefaultDeltasPerStep; steps != 0) {
        wheelTurned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
        Zoom(steps);
    }
    event->accept();
}

void TextView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        ShowCaret();
        Q_EMIT contextMenuWanted(viewport()->mapToGlobal(RectAt(caret_).bottomLeft()));
    } else {
        Q_EMIT userReleased(); // the menu takes the release
        Q_EMIT contextMenuWanted(event->globalPos());
    }
    event->accept();
}

} // namespace desktop
