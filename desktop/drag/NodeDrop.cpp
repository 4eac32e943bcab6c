// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/NodeDrop.h"
#include "desktop/drag/ActivateDocument.h"
#include "desktop/drag/NodeDrag.h"
#include "desktop/drag/TextMime.h"
#include <QDropEvent>
#include <QListView>
#include <QPainter>
#include <QPointer>
#include <QTimerEvent>

namespace desktop {

using controls::Dragged;

namespace {

constexpr int kOpensAfter = 700; // milliseconds

/// Lies over what takes a drop, and lets it be read.
class DropMark : public QWidget {
public:
    explicit DropMark(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int kFill = 40; // of 255
        QColor colour = palette().color(QPalette::Highlight);
        QPainter painter(this);
        painter.setPen(colour);
        colour.setAlpha(kFill);
        painter.setBrush(colour);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

Dragged What(const QDropEvent& event) {
    return HoldsNodes(*event.mimeData()) ? Dragged::Nodes : Dragged::Text;
}

} // namespace

NodeDrop::NodeDrop(QAbstractItemView& view, DropTarget target, QObject* parent)
    : QObject(parent), view_(view), target_(std::move(target)), mark_(new DropMark(view.viewport())) {
    view.viewport()->setAcceptDrops(true);
    view.viewport()->installEventFilter(this);
}

NodeDrop::~NodeDrop() {
    mark_->hide();
}

bool NodeDrop::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
        Enter(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::DragMove:
        Move(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::DragLeave:
        Leave();
        return true;
    case QEvent::Drop:
        Drop(*static_cast<QDropEvent*>(event));
        return true;
    default:
        return false;
    }
}

void NodeDrop::Enter(QDropEvent& event) {
    open_ = false;
    if (!IsTextMime(*event.mimeData()))
        return event.ignore(); // the window gets it
    open_ = target_.enters();
    event.setDropAction(Qt::CopyAction);
    event.accept(); // or no moves come, and another place may take it
}

QString NodeDrop::TakerUnder(const QDropEvent& event) {
    const QModelIndex under = view_.indexAt(event.position().toPoint());
    return open_ ? target_.over(What(event), under) : QString();
}

void NodeDrop::Move(QDropEvent& event) {
    const QModelIndex under = view_.indexAt(event.position().toPoint());
    RestOver(under);
    const bool taken = !TakerUnder(event).isEmpty();
    if (taken)
        Mark(under);
    mark_->setVisible(taken);
    event.setDropAction(Qt::CopyAction); // the source of the drag would take away what is moved
    event.setAccepted(taken);
}

// The row of what takes it, to the right edge, or the one under the pointer while that row is out of sight;
// all of the view where it has no row.
void NodeDrop::Mark(const QModelIndex& under) {
    QRect place = view_.visualRect(marked_);
    if (!place.isEmpty() && !place.intersects(view_.viewport()->rect()))
        place = view_.visualRect(under);
    if (place.isEmpty())
        place = view_.viewport()->rect();
    else if (!qobject_cast<QListView*>(&view_)) // items of icons stand beside one another
        place.setRight(view_.viewport()->width() - 1);
    mark_->setGeometry(place);
}

// The drop is carried out when the drag is over: it may open a box, and the program that the text comes from
// waits for us.
void NodeDrop::Drop(QDropEvent& event) {
    const QString key = TakerUnder(event);
    const Dragged what = What(event);
    Leave();
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!key.isEmpty());
    if (key.isEmpty())
        return;
    const QString text = what == Dragged::Text ? event.mimeData()->text() : QString();
    const auto carryOut = [this, what, text, key] {
        const QPointer<QWidget> view = &view_;
        ActivateDocumentOf(view_); // what the program tells now is about this document
        if (what == Dragged::Nodes)
            target_.drops(key);
        else
            target_.dropsText(text, key);
        if (view)
            view->setFocus(Qt::MouseFocusReason);
    };
    QMetaObject::invokeMethod(this, carryOut, Qt::QueuedConnection);
}

void NodeDrop::Leave() {
    resting_.stop();
    mark_->hide();
    target_.leaves();
}

// --- opening nodes -----------------------------------------------------------------------------------------

void NodeDrop::RestOver(const QModelIndex& index) {
    if (restsOver_ == index && resting_.isActive())
        return;
    restsOver_ = index;
    resting_.start(kOpensAfter, this);
}

void NodeDrop::timerEvent(QTimerEvent*) {
    resting_.stop();
    if (target_.opens && open_ && restsOver_.isValid())
        target_.opens(restsOver_);
}

} // namespace desktop
