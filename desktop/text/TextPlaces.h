// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextRows.h"
#include "desktop/text/TextState.h"
#include <QAbstractScrollArea>

namespace desktop {

/// Where a position of the text stands in the view, and the other way round; scrolling. Places are in the
/// viewport's pixels.
class TextPlaces {
public:
    TextPlaces(QAbstractScrollArea& area, const TextState& state) : area_(area), state_(state) {}

    void SetFont(const QFont& font);
    const RowFont& Font() const { return rows_.Font(); }
    std::shared_ptr<const TextRow> Set(const text::LongText::Row& row) const;

    qsizetype FirstRow() const;  ///< the topmost row shown
    qsizetype RowsShown() const; ///< whole ones, at least 1
    int MarginWidth() const;     ///< of the line numbers
    int TextLeft() const;        ///< of a row's start, scrolled
    double XAt(qsizetype position) const;
    qsizetype PositionInRow(qsizetype row, double x) const;
    qsizetype PositionAt(QPoint place) const; ///< of the caret place nearest to a point
    /// Of the character under a point; beside the characters as PositionAt.
    qsizetype CharacterAt(QPoint place) const;
    QRect RectAt(qsizetype position) const; ///< of a caret there; may be outside the viewport

    // --- painting again
    void UpdateRows(qsizetype first, qsizetype last) const;
    void UpdateRowOf(qsizetype position) const;
    /// `added` units were put in at a position, instead of any others.
    void FollowEdit(qsizetype at, qsizetype added);

    // --- scrolling
    void UpdateBars();
    void ForgetWidths() { widest_ = 0; }
    void NoteWidth(double width);
    double Widest() const { return widest_; } ///< of the rows set so far
    /// Scrolls as little as needed.
    void Show(qsizetype position);
    /// Scrolls so that the position stands a few rows below the view's top, unless it is in view already.
    void ShowHigh(qsizetype position);
    /// Scrolls so that the position stands in a row of the view, counted from 0.
    void ShowAt(qsizetype position, qsizetype row);
    void ScrollRows(qsizetype rows);

private:
    const text::LongText& Text() const { return state_.Text(); }
    void ShowSideways(qsizetype position);

    QAbstractScrollArea& area_;
    const TextState& state_;
    mutable TextRows rows_;
    qsizetype rowCount_ = 1; ///< when the bars were updated last
    int margin_ = 0;         ///< its width then
    double widest_ = 0;
};

} // namespace desktop
