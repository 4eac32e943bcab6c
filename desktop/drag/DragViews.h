// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDrag>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QTreeView>
#include <functional>

namespace desktop {

/// An item view that leaves it to others what a drag of its items carries, and what is copied.
template <typename View> class DragView : public View {
public:
    using View::View;
    std::function<void()> dragStarts; ///< the user pulls at what is selected
    /// Carries a drag out and tells what became of it; a test that has no pointer puts its own steps here.
    std::function<Qt::DropAction(QDrag&)> runsDrag = [](QDrag& drag) { return drag.exec(Qt::CopyAction); };

protected:
    void startDrag(Qt::DropActions) override {
        over_ = true;
        if (dragStarts)
            dragStarts();
    }
    // Whatever became of the drag, the same pull doesn't go on to select what it passes.
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!over_ || event->buttons() == Qt::NoButton)
            View::mouseMoveEvent(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        over_ = false;
        View::mousePressEvent(event);
    }
    // A view's own copying replaces the clipboard by the current cell, also where nothing is selected.
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->matches(QKeySequence::Copy))
            View::keyPressEvent(event);
    }

private:
    bool over_ = false; ///< a drag has begun since the last press
};

using DragTreeView = DragView<QTreeView>;
using DragListView = DragView<QListView>;

} // namespace desktop
