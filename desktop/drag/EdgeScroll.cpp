// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/EdgeScroll.h"
#include <QCoreApplication>
#include <QDropEvent>
#include <QScrollBar>

namespace desktop {

namespace {

constexpr int kEvery = 60;       // milliseconds
constexpr int kEdge = 20;        // pixels
constexpr int kFasterAfter = 16; // scrolls

// -1 near the start, 1 near the end. A small view has a smaller edge, so that there is a place to rest.
int Direction(int at, int length) {
    const int edge = std::min(kEdge, length / 4);
    return at < edge ? -1 : at >= length - edge ? 1 : 0;
}

bool Step(QScrollBar& bar, int steps) {
    const int before = bar.value();
    bar.setValue(before + steps * bar.singleStep());
    return bar.value() != before;
}

} // namespace

EdgeScroll::EdgeScroll(QAbstractScrollArea& view) : QObject(&view), view_(view) {
    view.viewport()->installEventFilter(this);
}

bool EdgeScroll::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragMove:
        Follow(*static_cast<QDropEvent*>(event));
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::Hide:
        ticks_.stop();
        break;
    default:
        break;
    }
    return false;
}

void EdgeScroll::Follow(const QDropEvent& move) {
    place_ = move.position().toPoint();
    actions_ = move.possibleActions();
    buttons_ = move.buttons();
    modifiers_ = move.modifiers();
    mime_ = move.mimeData();
    const QSize size = view_.viewport()->size();
    const bool near = Direction(place_.x(), size.width()) != 0 || Direction(place_.y(), size.height()) != 0;
    if (!near) {
        ticks_.stop();
    } else if (!ticks_.isActive()) {
        scrolls_ = 0;
        ticks_.start(kEvery, this);
    }
}

// The longer it scrolls the faster it gets: a document may have millions of rows.
bool EdgeScroll::Scroll() {
    const int steps = 1 + scrolls_++ / kFasterAfter;
    const QSize size = view_.viewport()->size();
    const bool down = Step(*view_.verticalScrollBar(), steps * Direction(place_.y(), size.height()));
    const bool right = Step(*view_.horizontalScrollBar(), steps * Direction(place_.x(), size.width()));
    return down || right;
}

void EdgeScroll::timerEvent(QTimerEvent*) {
    if (!mime_ || !view_.isVisible())
        return ticks_.stop();
    if (!Scroll())
        return;
    QDragMoveEvent move(place_, actions_, mime_, buttons_, modifiers_);
    QCoreApplication::sendEvent(view_.viewport(), &move);
}

} // namespace desktop
