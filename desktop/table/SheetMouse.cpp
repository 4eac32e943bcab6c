// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SheetMouse.h"
#include "desktop/base/Twips.h"
#include "desktop/table/SheetBase.h"
#include "desktop/table/SheetPaint.h"
#include <QMouseEvent>
#include <algorithm>

namespace desktop {

using controls::FlexGrid;

namespace {

constexpr int kScrollTime = 50; ///< milliseconds between steps beyond the edge
constexpr int kNarrowest = 12;  ///< of a column that the mouse made, in pixels
constexpr int kWidestFit = 600;
constexpr int kRowsFitted = 1000; ///< from the first visible one
constexpr int kLeftButton = 1, kRightButton = 2;

int ButtonOf(const QMouseEvent& event) {
    return event.button() == Qt::RightButton ? kRightButton : kLeftButton;
}

bool IsWithin(const controls::GridRange& range, const GridPlace& place) {
    return place.row >= range.top && place.row <= range.bottom && place.col >= range.left &&
           place.col <= range.right;
}

} // namespace

SheetPlaces SheetMouse::Places() const {
    return {*view_.Window(), view_.size()};
}

FlexGrid* SheetMouse::Pressed() const {
    const controls::FlexGridArray& grids = view_.Window()->hfgrdTableView;
    return pressedGrid_ >= 0 && pressedGrid_ <= grids.UBound() ? &grids(pressedGrid_) : nullptr;
}

// --- selecting -------------------------------------------------------------------------------------------

// A label stands for its row, a header for its column, the corner for the whole grid.
void SheetMouse::SelectAt(const GridPlace& place, bool extends) {
    FlexGrid& grid = *place.grid;
    const int lastRow = grid.Rows() - 1, lastCol = grid.Cols() - 1;
    const int firstRow = std::min(grid.FixedRows(), lastRow), firstCol = std::min(grid.FixedCols(), lastCol);
    const bool label = place.col < grid.FrozenCols();
    if (place.row < grid.FixedRows()) {
        drag_ = label ? Drag::None : Drag::Columns;
        if (label)
            return grid.Select(firstRow, firstCol, lastRow, lastCol);
        return grid.Select(firstRow, extends ? grid.Col() : place.col, lastRow, place.col);
    }
    drag_ = label ? Drag::Rows : Drag::Cells;
    if (label)
        return grid.Select(extends ? grid.Row() : place.row, firstCol, place.row, lastCol);
    if (extends)
        return grid.Select(grid.Row(), grid.Col(), place.row, place.col);
    grid.Select(place.row, place.col, place.row, place.col);
}

void SheetMouse::ExtendTo(QPoint place) {
    FlexGrid* grid = Pressed();
    if (!grid || drag_ == Drag::None)
        return;
    const GridPlace to = Places().Nearest(*grid, place);
    const int frozen = std::min(grid->FrozenCols(), grid->Cols() - 1);
    grid->Select(grid->Row(), grid->Col(), drag_ == Drag::Columns ? grid->Rows() - 1 : to.row,
                 drag_ == Drag::Rows ? grid->Cols() - 1 : std::max(to.col, frozen));
}

// --- presses ---------------------------------------------------------------------------------------------

// The focus comes first: an editor that it leaves may change what stands under the pointer.
bool SheetMouse::PressInGrid(QMouseEvent& event) {
    view_.setFocus(Qt::MouseFocusReason);
    pressedGrid_ = -1;
    drag_ = Drag::None;
    if (!view_.Window())
        return false;
    pressed_ = Places().At(event.pos());
    if (!pressed_.IsCell())
        return false;
    FlexGrid& grid = *pressed_.grid;
    pressedGrid_ = grid.Index;
    grid.MouseRow = pressed_.row;
    grid.MouseCol = pressed_.col;
    view_.SetCurrent(grid);
    return true;
}

void SheetMouse::Press(QMouseEvent& event) {
    if (const GridPlace border = view_.Window() ? Places().BorderAt(event.pos()) : GridPlace();
        border.grid && event.button() == Qt::LeftButton) {
        view_.setFocus(Qt::MouseFocusReason);
        drag_ = Drag::Border;
        pressedGrid_ = border.grid->Index;
        pressed_ = {};
        borderCol_ = border.col;
        borderOffset_ = Places().RectOf(*border.grid, 0, border.col).right() + 1 - event.pos().x();
        return;
    }
    if ((event.button() != Qt::LeftButton && event.button() != Qt::RightButton) || !PressInGrid(event))
        return;
    FlexGrid& grid = *pressed_.grid;
    const bool keeps = event.button() == Qt::RightButton && IsWithin(grid.Selection(), pressed_);
    if (!keeps)
        SelectAt(pressed_, event.modifiers() & Qt::ShiftModifier);
    if (event.button() == Qt::RightButton)
        drag_ = Drag::None;
    grid.events().GotFocus(grid);
    grid.events().MouseDown(grid, ButtonOf(event));
}

void SheetMouse::Move(QMouseEvent& event) {
    pointer_ = event.pos();
    if (!view_.Window())
        return;
    if (!(event.buttons() & Qt::LeftButton)) {
        const bool border = Places().BorderAt(pointer_).grid != nullptr;
        view_.setCursor(border ? Qt::SplitHCursor : Qt::ArrowCursor);
        return;
    }
    if (drag_ == Drag::Border)
        return DragBorder(pointer_.x());
    ExtendTo(pointer_);
    if (drag_ != Drag::None && !view_.rect().contains(pointer_))
        scroll_.start(kScrollTime, this);
    else
        scroll_.stop();
}

void SheetMouse::timerEvent(QTimerEvent*) {
    const QRect inside = view_.rect();
    const auto beyond = [](int place, int low, int high) {
        return place < low ? place - low : std::max(place - high, 0);
    };
    view_.ScrollBy({beyond(pointer_.x(), inside.left(), inside.right()),
                    beyond(pointer_.y(), inside.top(), inside.bottom())});
    ExtendTo(pointer_);
}

// Handlers may load another level: after each of them the grid is looked up anew.
void SheetMouse::Release(QMouseEvent& event) {
    scroll_.stop();
    const Drag drag = std::exchange(drag_, Drag::None);
    if (!view_.Window() || drag == Drag::Border || pressedGrid_ < 0)
        return;
    const bool click =
        event.button() == Qt::LeftButton && (drag != Drag::None || Places().At(event.pos()) == pressed_);
    if (FlexGrid* grid = Pressed())
        grid->events().MouseUp(*grid, ButtonOf(event));
    if (!view_.Window() || !click)
        return;
    if (FlexGrid* grid = Pressed())
        grid->events().Click(*grid);
}

void SheetMouse::MenuOpens() {
    if (FlexGrid* grid = view_.Window() ? Pressed() : nullptr)
        grid->events().MouseUp(*grid, kRightButton);
    pressedGrid_ = -1;
}

// The second release raises a click as well, unless the grids are others by then.
void SheetMouse::DoubleClick(QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    if (const GridPlace border = view_.Window() ? Places().BorderAt(event.pos()) : GridPlace(); border.grid)
        return FitColumn(*border.grid, border.col);
    if (!PressInGrid(event))
        return;
    const controls::GridSource* shown = pressed_.grid->Source();
    pressed_.grid->events().DblClick(*pressed_.grid);
    if (const FlexGrid* grid = view_.Window() ? Pressed() : nullptr; !grid || grid->Source() != shown)
        pressedGrid_ = -1;
}

// --- the width of columns
// ------------------------------------------------------------------------------------

void SheetMouse::DragBorder(int x) {
    FlexGrid* grid = Pressed();
    if (!grid || borderCol_ >= grid->Cols())
        return;
    const int left = Places().RectOf(*grid, 0, borderCol_).left();
    grid->UserResizedColumn(borderCol_, ToTwips(std::max(x + borderOffset_ - left, kNarrowest)));
}

void SheetMouse::FitColumn(FlexGrid& grid, int col) {
    int width = WidthWanted(grid, 0, col, view_);
    const int first = Places().VisibleRows(grid).first;
    for (int row = first; row < std::min(first + kRowsFitted, grid.Rows()) && width < kWidestFit; ++row)
        width = std::max(width, WidthWanted(grid, row, col, view_));
    grid.UserResizedColumn(col, ToTwips(std::clamp(width, kNarrowest, kWidestFit)));
}

} // namespace desktop
