// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QMimeData>
#include <QObject>
#include <QPointer>

class QDropEvent;

namespace desktop {

/// Scrolls a view as long as something is dragged near one of its edges, also while the pointer rests. The
/// view is told of the place under the pointer by a move of the drag, as if the pointer had moved. To be made
/// behind all other filters of the view's drags: it looks on first.
class EdgeScroll : public QObject {
public:
    explicit EdgeScroll(QAbstractScrollArea& view);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Follow(const QDropEvent& move);
    bool Scroll();

    QAbstractScrollArea& view_;
    QBasicTimer ticks_;
    int scrolls_ = 0; ///< since it began
    QPoint place_;
    Qt::DropActions actions_;
    Qt::MouseButtons buttons_;
    Qt::KeyboardModifiers modifiers_;
    QPointer<const QMimeData> mime_; ///< gone when the drag is
};

} // namespace desktop
