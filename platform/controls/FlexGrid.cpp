// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FlexGrid.h"
#include "platform/controls/Faults.h"
#include <algorithm>
#include <utility>

namespace controls {

FlexGrid::FlexGrid(std::shared_ptr<GridEvents> gridEvents, int index)
    : Index(index), events_(std::move(gridEvents)) {}

// --- size and cells
// ------------------------------------------------------------------------------------------

FlexGrid::Cell FlexGrid::CellOf(int sourceRow, int col) {
    return static_cast<Cell>(static_cast<quint32>(sourceRow)) << 32 | static_cast<quint32>(col);
}

void FlexGrid::NeedCell(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols())
        Throw(text::kFaultOutOfBounds);
}

void FlexGrid::Reset() {
    order_.clear();
    const int row = std::min(fixedRows_, Rows() - 1), col = std::min(fixedCols_, Cols() - 1);
    row_ = rowSel_ = std::max(row, 0);
    col_ = colSel_ = std::max(col, 0);
    scrollLeft_ = 0;
    events_->Announce(events_->reset, *this);
}

void FlexGrid::SetRows(int rows) {
    if (rows < 0 || source_)
        Throw(text::kFaultBadCall);
    if (std::exchange(rows_, rows) == rows)
        return;
    const auto outside = [rows](Cell cell) { return static_cast<int>(cell >> 32) >= rows; };
    written_.removeIf([&](auto it) { return outside(it.key()); });
    styles_.removeIf([&](auto it) { return outside(it.key()); });
    Reset();
}

void FlexGrid::SetCols(int cols) {
    if (cols < 0 || source_)
        Throw(text::kFaultBadCall);
    if (std::exchange(cols_, cols) == cols)
        return;
    const auto outside = [cols](Cell cell) { return static_cast<int>(cell & 0xFFFFFFFFu) >= cols; };
    written_.removeIf([&](auto it) { return outside(it.key()); });
    styles_.removeIf([&](auto it) { return outside(it.key()); });
    Reset();
}

void FlexGrid::SetFixed(int rows, int cols) {
    fixedRows_ = rows;
    fixedCols_ = cols;
    frozenCols_ = std::max(frozenCols_, cols);
}

void FlexGrid::SetSource(std::shared_ptr<const GridSource> source) {
    source_ = std::move(source);
    written_.clear();
    styles_.clear();
    widths_.clear();
    Reset();
}

int FlexGrid::SourceRow(int row) const {
    return order_.empty() ? row : order_[static_cast<std::size_t>(row)];
}

int FlexGrid::RowOfSource(int sourceRow) const {
    if (order_.empty())
        return sourceRow;
    return static_cast<int>(std::find(order_.begin(), order_.end(), sourceRow) - order_.begin());
}

const QString* FlexGrid::Written(int sourceRow, int col) const {
    if (written_.isEmpty())
        return nullptr;
    const auto own = written_.constFind(CellOf(sourceRow, col));
    return own != written_.constEnd() ? &*own : nullptr;
}

QString FlexGrid::TextMatrix(int row, int col) const {
    NeedCell(row, col);
    const int sourceRow = SourceRow(row);
    if (const QString* own = Written(sourceRow, col))
        return *own;
    return source_ ? source_->text(sourceRow, col) : QString();
}

QString FlexGrid::TextToSort(int sourceRow, int col) const {
    if (const QString* own = Written(sourceRow, col))
        return *own;
    return source_ ? source_->textToSort(sourceRow, col) : QString();
}

void FlexGrid::SetTextMatrix(int row, int col, const QString& text) {
    NeedCell(row, col);
    written_.insert(CellOf(SourceRow(row), col), text);
    events_->Announce(events_->cellsChanged, *this, GridRange{row, col, row, col});
}

GridStyle FlexGrid::Style(int row, int col) const {
    NeedCell(row, col);
    const int sourceRow = SourceRow(row);
    if (!styles_.isEmpty()) {
        if (const auto own = styles_.constFind(CellOf(sourceRow, col)); own != styles_.constEnd())
            return *own;
    }
    return source_ ? source_->style(sourceRow, col) : GridStyle();
}

void FlexGrid::SetStyle(int row, int col, const GridStyle& style) {
    NeedCell(row, col);
    styles_.insert(CellOf(SourceRow(row), col), style);
    events_->Announce(events_->cellsChanged, *this, GridRange{row, col, row, col});
}

void FlexGrid::Clear() {
    if (written_.isEmpty() && styles_.isEmpty())
        return;
    written_.clear();
    styles_.clear();
    events_->Announce(events_->reset, *this);
}

void FlexGrid::CellsChanged(const GridRange& at) {
    events_->Announce(events_->cellsChanged, *this, at);
}

// --- the selection
// -------------------------------------------------------------------------------------------

void FlexGrid::SetRow(int row) {
    Select(row, col_, row, colSel_);
}
void FlexGrid::SetCol(int col) {
    Select(row_, col, rowSel_, col);
}
void FlexGrid::SetRowSel(int row) {
    Select(row_, col_, row, colSel_);
}
void FlexGrid::SetColSel(int col) {
    Select(row_, col_, rowSel_, col);
}

void FlexGrid::Select(int row, int col, int rowSel, int colSel) {
    if (Rows() == 0 || Cols() == 0)
        return;
    NeedCell(row, col);
    NeedCell(rowSel, colSel);
    const bool another = row != row_ || col != col_;
    if (!another && rowSel == rowSel_ && colSel == colSel_)
        return;
    if (another)
        events_->Announce(events_->LeaveCell, *this);
    row_ = row;
    col_ = col;
    rowSel_ = rowSel;
    colSel_ = colSel;
    if (another)
        events_->Announce(events_->EnterCell, *this);
    events_->Announce(events_->SelChange, *this);
}

GridRange FlexGrid::Selection() const {
    return {std::min(row_, rowSel_), std::min(col_, colSel_), std::max(row_, rowSel_),
            std::max(col_, colSel_)};
}

// --- the array
// -----------------------------------------------------------------------------------------------

FlexGridArray::FlexGridArray() {
    grids_.push_back(std::make_unique<FlexGrid>(events_, 0));
}

FlexGrid& FlexGridArray::operator()(int index) const {
    if (index < 0 || index > UBound())
        Throw(text::kFaultOutOfBounds);
    return *grids_[static_cast<std::size_t>(index)];
}

FlexGrid& FlexGridArray::Load() {
    FlexGrid& grid = *grids_.emplace_back(std::make_unique<FlexGrid>(events_, Count()));
    if (events_->updates == 0)
        loaded(grid.Index);
    return grid;
}

void FlexGridArray::UnloadFrom(int index) {
    if (index < 1)
        Throw(text::kFaultOutOfBounds);
    while (UBound() >= index) {
        if (events_->updates == 0)
            aboutToUnload(UBound());
        grids_.pop_back();
    }
}

void FlexGridArray::BeginUpdate() {
    if (events_->updates++ == 0)
        aboutToReset();
}

void FlexGridArray::EndUpdate() {
    if (events_->updates > 0 && --events_->updates == 0)
        reset();
}

} // namespace controls
