// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextView.h"
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

namespace desktop {

namespace {

// How much of the letters' colour is mixed into the paper.
constexpr double kCaretRow = 0.06, kMargin = 0.04, kNumbers = 0.55;

double Mix(double paper, double ink, double part) {
    return paper + (ink - paper) * part;
}

} // namespace

QColor TextView::Shade(double part) const {
    const QColor paper = palette().color(QPalette::Base), ink = palette().color(QPalette::Text);
    return QColor::fromRgbF(static_cast<float>(Mix(paper.redF(), ink.redF(), part)),
                            static_cast<float>(Mix(paper.greenF(), ink.greenF(), part)),
                            static_cast<float>(Mix(paper.blueF(), ink.blueF(), part)));
}

QPalette::ColorGroup TextView::SelectionGroup() const {
    return hasFocus() && isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

void TextView::paintEvent(QPaintEvent* event) {
    if (stale_)
        return;
    QPainter painter(viewport());
    const QRect dirty = event->rect();
    const int height = rows_.Font().height;
    const qsizetype first = FirstRow() + std::max(0, dirty.top()) / height;
    const qsizetype last = std::min(FirstRow() + dirty.bottom() / height, Text().rowCount() - 1);
    const double widest = widest_;
    painter.setPen(palette().color(QPalette::Text));
    const QRect text(MarginWidth(), 0, viewport()->width(), viewport()->height());
    for (qsizetype row = first; row <= last; ++row) {
        painter.setClipRect(text);
        PaintRow(painter, dirty, row);
    }
    painter.setClipRect(text);
    PaintCaret(painter);
    painter.setClipping(false);
    if (dirty.left() < MarginWidth())
        PaintMargin(painter, first, last);
    // The bar may appear, which mustn't happen in the middle of painting.
    if (widest_ > widest)
        later_.start(0, this);
}

void TextView::PaintRow(QPainter& painter, const QRect& dirty, qsizetype number) {
    const text::LongText::Row row = Text().row(number);
    const RowFont& font = rows_.Font();
    const int y = static_cast<int>(number - FirstRow()) * font.height;
    const QRect whole(MarginWidth(), y, viewport()->width() - MarginWidth(), font.height);
    const TextRange selection = Selection();
    if (selection.start == selection.end && Text().rowOf(caret_) == number)
        painter.fillRect(whole, Shade(kCaretRow));

    const std::shared_ptr<const TextRow> set = Set(row);
    NoteWidth(set->Width());
    QList<QTextLayout::FormatRange> selections;
    const qsizetype start = std::max(selection.start - row.start, qsizetype(0));
    const qsizetype end = std::min(selection.end - row.start, row.length);
    if (start < end) {
        QTextLayout::FormatRange range{static_cast<int>(start), static_cast<int>(end - start), {}};
        range.format.setBackground(palette().brush(SelectionGroup(), QPalette::Highlight));
        range.format.setForeground(palette().brush(SelectionGroup(), QPalette::HighlightedText));
        selections.push_back(range);
        // Letters of another font may be taller: their selection mustn't reach into the next row.
        painter.setClipRect(whole);
    }
    if (row.lineEnd > 0 && selection.start <= row.start + row.length &&
        selection.end > row.start + row.length)
        PaintSelectedEnd(painter, row, *set, y);
    const double left = dirty.left() - TextLeft(), right = dirty.right() + 1 - TextLeft();
    set->Draw(painter, QPointF(TextLeft(), y + font.ascent), left, right, selections);
}

void TextView::PaintSelectedEnd(QPainter& painter, const text::LongText::Row& row, const TextRow& set,
                                int y) {
    const double x = TextLeft() + set.XOf(row.length);
    painter.fillRect(QRectF(x, y, rows_.Font().blank, rows_.Font().height),
                     palette().brush(SelectionGroup(), QPalette::Highlight));
}

void TextView::PaintCaret(QPainter& painter) {
    const QColor ink = palette().color(QPalette::Text);
    if (dropAt_ >= 0)
        painter.fillRect(RectAt(dropAt_), ink);
    if (!hasFocus() || !caretShown_ || (preedit_ && !preedit_->caretShown))
        return;
    QRect caret = RectAt(caret_);
    const qsizetype next = NextPlace(Text(), caret_);
    if (overwrite_ && Text().at(caret_) != u'\r' && next > caret_ &&
        Text().rowOf(next) == Text().rowOf(caret_)) {
        constexpr int kThick = 3;
        const int right = RectAt(next).left();
        caret = QRect(std::min(caret.left(), right), caret.bottom() - kThick + 1,
                      std::abs(right - caret.left()), kThick);
    }
    painter.fillRect(caret, ink);
}

void TextView::PaintMargin(QPainter& painter, qsizetype first, qsizetype last) {
    const RowFont& font = rows_.Font();
    const int width = MarginWidth();
    painter.fillRect(0, 0, width, viewport()->height(), Shade(kMargin));
    painter.setFont(font.font);
    const qsizetype caretLine = Text().lineOf(caret_);
    qsizetype line = Text().lineOf(Text().row(first).start);
    for (qsizetype number = first; number <= last; ++number) {
        const text::LongText::Row row = Text().row(number);
        const int y = static_cast<int>(number - FirstRow()) * font.height;
        if (row.startsLine) {
            painter.setPen(line == caretLine ? palette().color(QPalette::Text) : Shade(kNumbers));
            const QRect place(0, y, width - static_cast<int>(std::ceil(font.blank / 2)), font.height);
            painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                             QString::number(line + 1));
        }
        line += row.lineEnd > 0 ? 1 : 0;
    }
}

} // namespace desktop
