// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextPlaces.h"
#include "desktop/text/RowContent.h"
#include "desktop/text/TextSteps.h"
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <limits>

namespace desktop {

namespace {

constexpr int kGap = 4;          // pixels between the margin and the text
constexpr int kRowsAbove = 3;    // above a caret that is shown high
constexpr int kFewestDigits = 3; // that the margin has room for

int ToInt(qsizetype number) {
    return static_cast<int>(std::clamp<qsizetype>(number, 0, std::numeric_limits<int>::max()));
}

} // namespace

// --- rows --------------------------------------------------------------------------------------------------

void TextPlaces::SetFont(const QFont& font) {
    rows_.SetFont(font);
    ForgetWidths();
    UpdateBars();
}

std::shared_ptr<const TextRow> TextPlaces::Set(const text::LongText::Row& row) const {
    RowText content = ContentOf(*state_.model, row, area_.palette().color(QPalette::Base));
    if (!state_.preedit || Text().row(Text().rowOf(state_.caret)).start != row.start)
        return rows_.At(content);
    const auto at = static_cast<int>(state_.caret - row.start);
    InsertInto(content, at, state_.preedit->text);
    QList<QTextLayout::FormatRange> formats = state_.preedit->formats;
    for (QTextLayout::FormatRange& format : formats)
        format.start += at;
    return std::make_shared<const TextRow>(content, rows_.Font(), formats);
}

qsizetype TextPlaces::FirstRow() const {
    return area_.verticalScrollBar()->value();
}

qsizetype TextPlaces::RowsShown() const {
    return std::max(1, area_.viewport()->height() / rows_.Font().height);
}

// --- places ------------------------------------------------------------------------------------------------

int TextPlaces::MarginWidth() const {
    const auto digits = static_cast<int>(QString::number(Text().lineCount()).size());
    return static_cast<int>(std::ceil((std::max(digits, kFewestDigits) + 1) * rows_.Font().blank));
}

int TextPlaces::TextLeft() const {
    return MarginWidth() + kGap - area_.horizontalScrollBar()->value();
}

double TextPlaces::XAt(qsizetype position) const {
    const text::LongText::Row row = Text().row(Text().rowOf(position));
    qsizetype offset = std::min(position - row.start, row.length);
    if (state_.preedit && position == state_.caret)
        offset += state_.preedit->caret;
    else if (state_.preedit && position > state_.caret && state_.caret >= row.start)
        offset += state_.preedit->text.size();
    return Set(row)->XOf(offset);
}

qsizetype TextPlaces::PositionInRow(qsizetype number, double x) const {
    const text::LongText::Row row = Text().row(number);
    qsizetype offset = Set(row)->OffsetAt(x);
    if (state_.preedit && state_.caret >= row.start && row.start + offset > state_.caret)
        offset = std::max(state_.caret - row.start, offset - state_.preedit->text.size());
    return offset >= row.length ? RowEnd(Text(), row.start) : row.start + offset;
}

qsizetype TextPlaces::PositionAt(QPoint place) const {
    const int height = rows_.Font().height;
    const qsizetype row = FirstRow() + (place.y() < 0 ? place.y() - height + 1 : place.y()) / height;
    return PositionInRow(std::clamp<qsizetype>(row, 0, Text().rowCount() - 1), place.x() - TextLeft());
}

// The nearest place of a caret may be behind the character.
qsizetype TextPlaces::CharacterAt(QPoint place) const {
    const qsizetype position = PositionAt(place), before = PreviousPlace(Text(), position);
    if (Text().rowOf(before) != Text().rowOf(position))
        return position;
    const auto [left, right] = std::minmax({XAt(before), XAt(position)});
    const double x = place.x() - TextLeft();
    return x >= left && x < right ? before : position;
}

QRect TextPlaces::RectAt(qsizetype position) const {
    const int height = rows_.Font().height;
    const qsizetype row = Text().rowOf(position) - FirstRow();
    constexpr qsizetype kFar = 100'000; // rows; beyond, the exact place doesn't matter
    const int y = static_cast<int>(std::clamp(row, -kFar, kFar)) * height;
    const int width = std::max(1, area_.style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, &area_));
    return {TextLeft() + static_cast<int>(std::floor(XAt(position))), y, width, height};
}

// --- painting again ----------------------------------------------------------------------------------------

void TextPlaces::UpdateRows(qsizetype first, qsizetype last) const {
    const int height = rows_.Font().height;
    const qsizetype top = std::max(first, FirstRow());
    const qsizetype bottom = std::min(last, FirstRow() + RowsShown() + 1);
    if (top <= bottom)
        area_.viewport()->update(0, static_cast<int>(top - FirstRow()) * height, area_.viewport()->width(),
                                 static_cast<int>(bottom - top + 1) * height);
}

void TextPlaces::UpdateRowOf(qsizetype position) const {
    UpdateRows(Text().rowOf(position), Text().rowOf(position));
}

void TextPlaces::FollowEdit(qsizetype at, qsizetype added) {
    const qsizetype before = rowCount_;
    const int margin = margin_;
    UpdateBars();
    if (margin_ != margin)
        area_.viewport()->update(); // all rows move
    const text::LongText& all = Text();
    const qsizetype first = all.rowOf(all.lineStart(all.lineOf(at)));
    // A line that is cut into rows may be cut elsewhere from here on; the next line stays as it is.
    const qsizetype next = all.lineStart(all.lineOf(at + added) + 1);
    UpdateRows(first, before == rowCount_ ? all.rowOf(next) : rowCount_);
}

// --- scrolling ---------------------------------------------------------------------------------------------

void TextPlaces::UpdateBars() {
    rowCount_ = Text().rowCount();
    margin_ = MarginWidth();
    const qsizetype shown = RowsShown();
    area_.verticalScrollBar()->setPageStep(ToInt(shown));
    area_.verticalScrollBar()->setRange(0, ToInt(rowCount_ - shown));
    const int width = std::max(1, area_.viewport()->width() - margin_ - 2 * kGap);
    area_.horizontalScrollBar()->setPageStep(width);
    area_.horizontalScrollBar()->setSingleStep(ToInt(std::lround(4 * rows_.Font().blank)));
    area_.horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(widest_)) - width));
}

void TextPlaces::NoteWidth(double width) {
    widest_ = std::max(widest_, width + rows_.Font().blank);
}

void TextPlaces::Show(qsizetype position) {
    const qsizetype row = Text().rowOf(position), top = FirstRow(), shown = RowsShown();
    if (row < top)
        area_.verticalScrollBar()->setValue(ToInt(row));
    else if (row >= top + shown)
        area_.verticalScrollBar()->setValue(ToInt(row - shown + 1));
    ShowSideways(position);
}

// A program that selects a node first goes some hundred characters beyond it and then back: whichever of the
// two is out of view brings the node to the top with the text that follows below.
void TextPlaces::ShowHigh(qsizetype position) {
    const qsizetype row = Text().rowOf(position), shown = RowsShown();
    if (row < FirstRow() || row >= FirstRow() + shown)
        area_.verticalScrollBar()->setValue(ToInt(row - std::min<qsizetype>(kRowsAbove, shown / 4)));
    ShowSideways(position);
}

void TextPlaces::ShowAt(qsizetype position, qsizetype row) {
    area_.verticalScrollBar()->setValue(ToInt(Text().rowOf(position) - row));
}

void TextPlaces::ShowSideways(qsizetype position) {
    const double x = XAt(position);
    NoteWidth(x);
    UpdateBars();
    QScrollBar& bar = *area_.horizontalScrollBar();
    const int left = bar.value(), width = bar.pageStep(), at = static_cast<int>(x);
    if (at < left)
        bar.setValue(at < width ? 0 : at - width / 2);
    else if (at > left + width)
        bar.setValue(at - width + width / 4);
}

void TextPlaces::ScrollRows(qsizetype rows) {
    area_.verticalScrollBar()->setValue(ToInt(FirstRow() + rows));
}

} // namespace desktop
