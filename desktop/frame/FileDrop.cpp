// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/FileDrop.h"
#include "desktop/frame/GivenNames.h"
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>

namespace desktop {

FileDrop::FileDrop(QWidget& window, std::function<void(const QStringList&)> opens)
    : QObject(&window), window_(window), opens_(std::move(opens)) {
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::DragEnter) {
        auto* widget = qobject_cast<QWidget*>(watched);
        return widget && widget->window() == &window_ && Enter(*widget, *static_cast<QDropEvent*>(event));
    }
    if (watched != &window_)
        return false;
    if (event->type() == QEvent::DragMove) {
        auto& move = *static_cast<QDropEvent*>(event);
        move.setDropAction(Qt::CopyAction);
        move.accept();
        return true;
    }
    if (event->type() == QEvent::Drop)
        Drop(*static_cast<QDropEvent*>(event));
    return event->type() == QEvent::Drop;
}

// A widget that ignores them passes files on to the one around it. A file manager proposes to move a file,
// and takes it away when that is accepted: a drop only opens it.
bool FileDrop::Enter(QWidget& widget, QDropEvent& event) {
    if (DroppedNames(*event.mimeData()).isEmpty())
        return false;
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(&widget == &window_);
    return true;
}

void FileDrop::Drop(QDropEvent& event) {
    const QStringList names = DroppedNames(*event.mimeData());
    if (names.isEmpty() || QApplication::activeModalWidget())
        return event.ignore();
    event.setDropAction(Qt::CopyAction);
    event.accept();
    // Opening may ask something, and the program that files are dragged from waits until the drop is over.
    QTimer::singleShot(0, this, [this, names] { opens_(names); });
}

} // namespace desktop
