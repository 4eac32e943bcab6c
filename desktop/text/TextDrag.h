// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextParts.h"

class QDrag;
class QDragMoveEvent;
class QDropEvent;

namespace desktop {

/// Dragging the selection out of a text view, and taking text that is dropped on it.
class TextDrag : public QObject {
public:
    explicit TextDrag(const TextParts& parts) : parts_(parts) {}
    /// Carries a drag out and tells what became of it.
    std::function<Qt::DropAction(QDrag&, Qt::DropActions may, Qt::DropAction wanted)> runs;
    /// Nothing is dragged over the view any more, which has the focus.
    std::function<void()> over;

    void Start(); ///< returns when the drag is over
    /// Whether what comes over the view may be dropped.
    bool Take(QDropEvent& event) const;
    void Move(QDragMoveEvent& event);
    void Leave();
    void Drop(QDropEvent& event);

private:
    const text::LongText& Text() const { return parts_.Text(); }
    bool ShowsSameText(const TextDrag& other) const;
    bool TakeOver(const TextDrag& from, const QString& dragged);
    void ShowPlace(qsizetype position);

    const TextParts parts_;
    bool movedInside_ = false;
};

} // namespace desktop
