// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FlexGrid.h"
#include <algorithm>

namespace controls {

namespace {

constexpr double kColumnWidth = 1440; // twips, of a column that has none of its own

} // namespace

void FlexGrid::Move(const Bounds& place) {
    if (std::exchange(place_, place) == place)
        return;
    SetScrollLeft(scrollLeft_); // it may be wide enough now
    events_->Announce(events_->moved, *this);
}

void FlexGrid::SetVisible(bool visible) {
    if (std::exchange(visible_, visible) != visible)
        events_->Announce(events_->visibleChanged, *this);
}

double FlexGrid::RowHeight(int) const {
    return rowHeight_;
}

void FlexGrid::SetRowHeight(double height) {
    if (std::exchange(rowHeight_, height) != height)
        events_->Announce(events_->reset, *this);
}

double FlexGrid::ColWidth(int col) const {
    const auto own = widths_.find(col);
    return own != widths_.end() ? own->second : kColumnWidth;
}

void FlexGrid::SetColWidth(int col, double width) {
    if (ColWidth(col) == width)
        return;
    widths_[col] = std::max(width, 0.0);
    SetScrollLeft(scrollLeft_);
    events_->Announce(events_->columnsChanged, *this);
}

void FlexGrid::UserResizedColumn(int col, double width) {
    SetColWidth(col, width);
    events_->Announce(events_->ColumnResized, *this, col);
}

double FlexGrid::LeftOf(int col) const {
    double left = col * kColumnWidth;
    for (auto own = widths_.begin(); own != widths_.end() && own->first < col; ++own)
        left += own->second - kColumnWidth;
    return left;
}

double FlexGrid::ColLeft(int col) const {
    return LeftOf(col) - (col < frozenCols_ ? 0 : scrollLeft_);
}

void FlexGrid::SetScrollLeft(double left) {
    left = std::clamp(left, 0.0, std::max(ColumnsWidth() - place_.Width, 0.0));
    if (std::exchange(scrollLeft_, left) != left)
        events_->Announce(events_->columnsChanged, *this);
}

// Columns stand in order, so their left edges are halved.
int FlexGrid::ColAt(double x) const {
    const double unscrolled = x < LeftOf(std::min(frozenCols_, Cols())) ? x : x + scrollLeft_;
    if (unscrolled < 0 || unscrolled >= ColumnsWidth())
        return -1;
    int low = 0, high = Cols() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        (LeftOf(middle) <= unscrolled ? low : high) = LeftOf(middle) <= unscrolled ? middle : middle - 1;
    }
    return low;
}

void FlexGrid::ShowColumn(int col) {
    if (col < frozenCols_)
        return;
    const double frozen = LeftOf(std::min(frozenCols_, Cols())), left = ColLeft(col);
    if (left < frozen)
        SetScrollLeft(scrollLeft_ - (frozen - left));
    else if (left + ColWidth(col) > place_.Width)
        SetScrollLeft(scrollLeft_ + std::min(left - frozen, left + ColWidth(col) - place_.Width));
}

} // namespace controls
