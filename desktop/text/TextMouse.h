// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextDrag.h"

class QMouseEvent;

namespace desktop {

/// Selecting with the mouse.
class TextMouse : public QObject {
public:
    TextMouse(const TextParts& parts, TextDrag& drag) : parts_(parts), drag_(drag) {}
    void Press(const QMouseEvent& event);
    void DoubleClick(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release(const QMouseEvent& event); ///< of the left button

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Unit { Character, Word, Line };
    enum class Pressed { None, Selecting, MayDrag };

    void PressLeft(QPoint place, bool extends);
    void PasteSelection(QPoint place);
    TextRange UnitAt(QPoint place) const;
    void StartSelecting(Unit unit, QPoint place);
    void ExtendTo(QPoint place);
    void ScrollTowardsPointer();
    bool IsInSelection(QPoint place) const;
    void UpdatePointer(QPoint place);
    bool IsFarFromPress(QPoint place) const;

    const TextParts parts_;
    TextDrag& drag_;
    QBasicTimer scrolling_, thirdClick_;
    Pressed pressed_ = Pressed::None;
    Unit unit_ = Unit::Character;
    TextRange first_; ///< what the first click of a selection took
    QPoint pressPlace_;
};

} // namespace desktop
