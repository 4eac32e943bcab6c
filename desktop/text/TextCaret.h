// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextPlaces.h"
#include <QBasicTimer>
#include <QObject>
#include <functional>

namespace desktop {

/// The caret and the selection: the user moves them, or a program does through the model.
class TextCaret : public QObject {
public:
    TextCaret(QAbstractScrollArea& area, TextState& state, TextPlaces& places)
        : area_(area), state_(state), places_(places) {}
    std::function<void()> moved;   ///< told behind each move
    std::function<bool()> isInUse; ///< whether the view is to show where a program puts the caret

    QString SelectedText(QStringView lineEnd) const;
    /// The model isn't told, and the view stays where it is.
    void Place(qsizetype anchor, qsizetype caret);
    /// The user's selection: the model is told, the caret scrolled into view.
    void Select(qsizetype anchor, qsizetype caret);
    void SelectAll();
    /// By a key; `select` leaves the other end of the selection.
    void MoveTo(qsizetype position, bool select);
    /// Hands the selection to the window system, where that has one.
    void Publish() const;

    /// Takes over what is selected in the model.
    void TakeModels(bool backwards = false); ///< with the caret at its start
    /// The model's selection is another one. A program that jumps wants the place to be seen with what
    /// follows.
    void FollowModel();
    void ShowProgramsPlace();
    void UpdateRow() const { places_.UpdateRowOf(state_.caret); }
    void RestartBlinking();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    const text::LongText& Text() const { return state_.Text(); }
    TextRange ModelSelection() const;

    QAbstractScrollArea& area_;
    TextState& state_;
    TextPlaces& places_;
    QBasicTimer blinking_;
};

} // namespace desktop
