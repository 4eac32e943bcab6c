// SPDX-License-Identifier: GPL-3.0-or-later
// Where a position of the text stands in the view, and the other way round; scrolling.
#include "desktop/text/TextColours.h"
#include "desktop/text/TextView.h"
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

RowText TextView::ContentOf(const text::LongText::Row& row) const {
    RowText content{Text().mid(row.start, row.length), {}};
    const std::vector<controls::ColourRun>& runs = model_->Runs();
    const QColor background = palette().color(QPalette::Base);
    auto run = std::upper_bound(runs.begin(), runs.end(), row.start,
                                [](qsizetype at, const controls::ColourRun& r) { return at < r.start; });
    run -= run == runs.begin() ? 0 : 1;
    for (; run != runs.end() && run->start < row.start + row.length; ++run) {
        const qsizetype start = std::max(run->start, row.start) - row.start;
        const qsizetype next = std::next(run) == runs.end() ? Text().size() : std::next(run)->start;
        const qsizetype end = std::min(next - row.start, row.length);
        const QColor colour = ShownColour(run->colour, background);
        if (start < end && colour.isValid())
            content.colours.push_back({static_cast<int>(start), static_cast<int>(end - start), colour.rgb()});
    }
    return content;
}

std::shared_ptr<const TextRow> TextView::Set(const text::LongText::Row& row) const {
    RowText content = ContentOf(row);
    if (!preedit_ || Text().row(Text().rowOf(caret_)).start != row.start)
        return rows_.At(content);
    const auto at = static_cast<int>(caret_ - row.start), added = static_cast<int>(preedit_->text.size());
    content.text.insert(at, preedit_->text);
    for (RowColour& colour : content.colours) {
        if (colour.start >= at)
            colour.start += added;
        else if (colour.start + colour.length > at)
            colour.length += added;
    }
    QList<QTextLayout::FormatRange> formats = preedit_->formats;
    for (QTextLayout::FormatRange& format : formats)
        format.start += at;
    return std::make_shared<const TextRow>(content, rows_.Font(), formats);
}

qsizetype TextView::FirstRow() const {
    return verticalScrollBar()->value();
}

qsizetype TextView::RowsShown() const {
    return std::max(1, viewport()->height() / rows_.Font().height);
}

// --- places ------------------------------------------------------------------------------------------------

int TextView::MarginWidth() const {
    const auto digits = static_cast<int>(QString::number(Text().lineCount()).size());
    return static_cast<int>(std::ceil((std::max(digits, kFewestDigits) + 1) * rows_.Font().blank));
}

int TextView::TextLeft() const {
    return MarginWidth() + kGap - horizontalScrollBar()->value();
}

double TextView::XAt(qsizetype position) const {
    const text::LongText::Row row = Text().row(Text().rowOf(position));
    qsizetype offset = std::min(position - row.start, row.length);
    if (preedit_ && position == caret_)
        offset += preedit_->caret;
    else if (preedit_ && position > caret_ && caret_ >= row.start)
        offset += preedit_->text.size();
    return Set(row)->XOf(offset);
}

qsizetype TextView::PositionInRow(qsizetype number, double x) const {
    const text::LongText::Row row = Text().row(number);
    qsizetype offset = Set(row)->OffsetAt(x);
    if (preedit_ && caret_ >= row.start && row.start + offset > caret_)
        offset = std::max(caret_ - row.start, offset - preedit_->text.size());
    // What is behind the last character of a part of a long line is the next row's.
    if (offset >= row.length && row.lineEnd == 0 && number + 1 < Text().rowCount())
        return PreviousPlace(Text(), row.start + row.length);
    return row.start + std::min(offset, row.length);
}

qsizetype TextView::PositionAt(QPoint place) const {
    const int height = rows_.Font().height;
    const qsizetype row = FirstRow() + (place.y() < 0 ? place.y() - height + 1 : place.y()) / height;
    return PositionInRow(std::clamp<qsizetype>(row, 0, Text().rowCount() - 1), place.x() - TextLeft());
}

// The nearest place of a caret may be behind the character.
qsizetype TextView::CharacterAt(QPoint place) const {
    const qsizetype position = PositionAt(place), before = PreviousPlace(Text(), position);
    if (Text().rowOf(before) != Text().rowOf(position))
        return position;
    const auto [left, right] = std::minmax({XAt(before), XAt(position)});
    const double x = place.x() - TextLeft();
    return x >= left && x < right ? before : position;
}

QRect TextView::RectAt(qsizetype position) const {
    const int height = rows_.Font().height;
    const qsizetype row = Text().rowOf(position) - FirstRow();
    constexpr qsizetype kFar = 100'000; // rows; beyond, the exact place matters to nobody
    const int y = static_cast<int>(std::clamp(row, -kFar, kFar)) * height;
    const int width = std::max(1, style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this));
    return {TextLeft() + static_cast<int>(std::floor(XAt(position))), y, width, height};
}

// --- scrolling ---------------------------------------------------------------------------------------------

void TextView::UpdateBars() {
    rowCount_ = Text().rowCount();
    margin_ = MarginWidth();
    const qsizetype shown = RowsShown();
    verticalScrollBar()->setPageStep(ToInt(shown));
    verticalScrollBar()->setRange(0, ToInt(rowCount_ - shown));
    const int width = std::max(1, viewport()->width() - margin_ - 2 * kGap);
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(ToInt(std::lround(4 * rows_.Font().blank)));
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(widest_)) - width));
}

void TextView::NoteWidth(double width) {
    widest_ = std::max(widest_, width + rows_.Font().blank);
}

void TextView::ShowCaret() {
    const qsizetype row = Text().rowOf(caret_), top = FirstRow(), shown = RowsShown();
    if (row < top)
        verticalScrollBar()->setValue(ToInt(row));
    else if (row >= top + shown)
        verticalScrollBar()->setValue(ToInt(row - shown + 1));
    ShowSideways(caret_);
}

// A program that selects a node first goes some hundred characters beyond it and then back: whichever of the
// two is out of view brings the node to the top with the text that follows below.
void TextView::ShowCaretHigh() {
    const qsizetype row = Text().rowOf(Selection().start), shown = RowsShown();
    if (row < FirstRow() || row >= FirstRow() + shown)
        verticalScrollBar()->setValue(ToInt(row - std::min<qsizetype>(kRowsAbove, shown / 4)));
    ShowSideways(Selection().start);
}

// What is typed in one pane goes into the other one too, caret and all: that one keeps showing its place.
void TextView::ShowProgramsCaret() {
    if (!isInUse || isInUse())
        ShowCaretHigh();
}

void TextView::ShowSideways(qsizetype position) {
    const double x = XAt(position);
    NoteWidth(x);
    UpdateBars();
    QScrollBar& bar = *horizontalScrollBar();
    const int left = bar.value(), width = bar.pageStep(), at = static_cast<int>(x);
    if (at < left)
        bar.setValue(at < width ? 0 : at - width / 2);
    else if (at > left + width)
        bar.setValue(at - width + width / 4);
}

void TextView::scrollContentsBy(int, int) {
    viewport()->update();
    updateMicroFocus();
}

void TextView::ScrollRows(qsizetype rows) {
    verticalScrollBar()->setValue(ToInt(FirstRow() + rows));
}

} // namespace desktop
