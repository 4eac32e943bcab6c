// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextPaint.h"
#include "desktop/text/TextSteps.h"
#include <QPainter>
#include <cmath>

namespace desktop {

namespace {

// How much of the letters' colour is mixed into the paper.
constexpr double kCaretRow = 0.06, kMargin = 0.04, kNumbers = 0.55;

double Mix(double paper, double ink, double part) {
    return paper + (ink - paper) * part;
}

class Painting {
public:
    Painting(QAbstractScrollArea& area, const TextState& state, TextPlaces& places, const QRect& dirty)
        : area_(area), viewport_(*area.viewport()), palette_(area.palette()), state_(state), places_(places),
          dirty_(dirty), painter_(area.viewport()) {}
    void Paint();

private:
    const text::LongText& Text() const { return state_.Text(); }
    void PaintRow(qsizetype number);
    void PaintSelectedEnd(const text::LongText::Row& row, const TextRow& set, int y);
    void PaintCaret();
    void PaintMargin(qsizetype first, qsizetype last);
    QColor Shade(double part) const; ///< between the paper (0) and the letters (1)
    QPalette::ColorGroup SelectionGroup() const;

    const QAbstractScrollArea& area_;
    const QWidget& viewport_;
    const QPalette palette_;
    const TextState& state_;
    TextPlaces& places_;
    const QRect dirty_;
    QPainter painter_;
};

QColor Painting::Shade(double part) const {
    const QColor paper = palette_.color(QPalette::Base), ink = palette_.color(QPalette::Text);
    return QColor::fromRgbF(static_cast<float>(Mix(paper.redF(), ink.redF(), part)),
                            static_cast<float>(Mix(paper.greenF(), ink.greenF(), part)),
                            static_cast<float>(Mix(paper.blueF(), ink.blueF(), part)));
}

QPalette::ColorGroup Painting::SelectionGroup() const {
    return area_.hasFocus() && area_.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

void Painting::Paint() {
    const int height = places_.Font().height;
    const qsizetype first = places_.FirstRow() + std::max(0, dirty_.top()) / height;
    const qsizetype last = std::min(places_.FirstRow() + dirty_.bottom() / height, Text().rowCount() - 1);
    painter_.setPen(palette_.color(QPalette::Text));
    const QRect text(places_.MarginWidth(), 0, viewport_.width(), viewport_.height());
    for (qsizetype row = first; row <= last; ++row) {
        painter_.setClipRect(text);
        PaintRow(row);
    }
    painter_.setClipRect(text);
    PaintCaret();
    painter_.setClipping(false);
    if (dirty_.left() < places_.MarginWidth())
        PaintMargin(first, last);
}

void Painting::PaintRow(qsizetype number) {
    const text::LongText::Row row = Text().row(number);
    const RowFont& font = places_.Font();
    const int y = static_cast<int>(number - places_.FirstRow()) * font.height;
    const QRect whole(places_.MarginWidth(), y, viewport_.width() - places_.MarginWidth(), font.height);
    const TextRange selection = state_.Selection();
    if (selection.start == selection.end && Text().rowOf(state_.caret) == number)
        painter_.fillRect(whole, Shade(kCaretRow));

    const std::shared_ptr<const TextRow> set = places_.Set(row);
    places_.NoteWidth(set->Width());
    QList<QTextLayout::FormatRange> selections;
    const qsizetype start = std::max(selection.start - row.start, qsizetype(0));
    const qsizetype end = std::min(selection.end - row.start, row.length);
    if (start < end) {
        QTextLayout::FormatRange range{static_cast<int>(start), static_cast<int>(end - start), {}};
        range.format.setBackground(palette_.brush(SelectionGroup(), QPalette::Highlight));
        range.format.setForeground(palette_.brush(SelectionGroup(), QPalette::HighlightedText));
        selections.push_back(range);
        // Letters of another font may be taller: their selection mustn't reach into the next row.
        painter_.setClipRect(whole);
    }
    if (row.lineEnd > 0 && selection.start <= row.start + row.length &&
        selection.end > row.start + row.length)
        PaintSelectedEnd(row, *set, y);
    const double left = dirty_.left() - places_.TextLeft(), right = dirty_.right() + 1 - places_.TextLeft();
    set->Draw(painter_, QPointF(places_.TextLeft(), y + font.ascent), left, right, selections);
}

void Painting::PaintSelectedEnd(const text::LongText::Row& row, const TextRow& set, int y) {
    const double x = places_.TextLeft() + set.XOf(row.length);
    painter_.fillRect(QRectF(x, y, places_.Font().blank, places_.Font().height),
                      palette_.brush(SelectionGroup(), QPalette::Highlight));
}

void Painting::PaintCaret() {
    const QColor ink = palette_.color(QPalette::Text);
    if (state_.dropAt >= 0)
        painter_.fillRect(places_.RectAt(state_.dropAt), ink);
    if (!area_.hasFocus() || !state_.caretShown || (state_.preedit && !state_.preedit->caretShown))
        return;
    QRect caret = places_.RectAt(state_.caret);
    const qsizetype next = NextPlace(Text(), state_.caret);
    if (state_.overwrite && Text().at(state_.caret) != u'\r' && next > state_.caret &&
        Text().rowOf(next) == Text().rowOf(state_.caret)) {
        constexpr int kThick = 3;
        const int right = places_.RectAt(next).left();
        caret = QRect(std::min(caret.left(), right), caret.bottom() - kThick + 1,
                      std::abs(right - caret.left()), kThick);
    }
    painter_.fillRect(caret, ink);
}

void Painting::PaintMargin(qsizetype first, qsizetype last) {
    const RowFont& font = places_.Font();
    const int width = places_.MarginWidth();
    painter_.fillRect(0, 0, width, viewport_.height(), Shade(kMargin));
    painter_.setFont(font.font);
    const qsizetype caretLine = Text().lineOf(state_.caret);
    qsizetype line = Text().lineOf(Text().row(first).start);
    for (qsizetype number = first; number <= last; ++number) {
        const text::LongText::Row row = Text().row(number);
        const int y = static_cast<int>(number - places_.FirstRow()) * font.height;
        if (row.startsLine) {
            painter_.setPen(line == caretLine ? palette_.color(QPalette::Text) : Shade(kNumbers));
            const QRect place(0, y, width - static_cast<int>(std::ceil(font.blank / 2)), font.height);
            painter_.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                              QString::number(line + 1));
        }
        line += row.lineEnd > 0 ? 1 : 0;
    }
}

} // namespace

void PaintText(QAbstractScrollArea& area, const TextState& state, TextPlaces& places, const QRect& dirty) {
    Painting(area, state, places, dirty).Paint();
}

} // namespace desktop
